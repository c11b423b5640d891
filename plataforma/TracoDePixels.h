// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Canvas.h"
#include "plataforma/Rect.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace Sibrel
{

/// One line, one pixel wide, through any number of points, each pixel of a solid line drawn where the
/// painter's engine would draw it: the ends of lines that meet are neither drawn twice nor left out, and a
/// pattern goes on around corners. Used for one line.
class TTracoDePixels
{
public:
    /// `Pixels` is the one at (0, 0).
    TTracoDePixels(std::uint32_t *Pixels, std::ptrdiff_t PorLinha, std::uint32_t Cor,
                   TPenStyle Estilo) noexcept;
    void Tracar(std::span<const TPoint> Pontos, bool Fechado) noexcept;

private:
    enum class TSentido : std::uint8_t { Nenhum, Baixo, Cima, Direita, Esquerda };
    struct TLance;

    void Linha(const TPoint &De, const TPoint &Ate) noexcept;
    void ComoSeTracada(const TPoint &De, const TPoint &Ate) noexcept;
    void Emendar(TLance &Lance) const noexcept;
    void Pintar(const TLance &Lance) noexcept;
    bool Ligado(int Posicao) const noexcept { return (FPadrao >> (Posicao % FPeriodo) & 1U) != 0; }

    std::uint32_t *FPixels;
    std::ptrdiff_t FPorLinha;
    std::uint32_t FCor;
    std::uint32_t FPadrao; ///< one bit a pixel of the pattern; all of them for a solid line
    int FPeriodo;
    int FNoPadrao = 0; ///< pixels of the pattern behind us

    // What the line before left.
    std::optional<TPoint> FUltimo;
    TSentido FSentido = TSentido::Nenhum;
    bool FQuaseReto = false;
};

} // namespace Sibrel
