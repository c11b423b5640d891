// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Canvas.h"
#include "plataforma/Rect.h"

#include <QRgb>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

class QPainter;

namespace Sibrel
{

/// The pixels below a painter, for what a canvas draws straight onto them: polygons of one colour and lines
/// one pixel wide.
///
/// The painter's own engine takes microseconds for the outline of a small symbol, nearly all of them spent
/// before the first pixel. The pixels taken here are exactly the engine's, so that a symbol looks the same
/// where only the engine can draw it: cut by a clip, scaled, smoothed, printed.
class TTelaDePixels
{
public:
    /// Nothing when the painter does more than put pixels on a grid, or its surface is no 32-bit image. Good
    /// until the painter's state or surface changes.
    static std::optional<TTelaDePixels> Sob(const QPainter &Pintor);

    /// True when polygon and outline touch only pixels that may be drawn; the rest is the engine's.
    bool Contem(std::span<const TPoint> Pontos) const noexcept;

    /// By the odd-even rule: the pixels whose centre is inside.
    void Preencher(std::span<const TPoint> Pontos, QRgb Cor) const;
    /// The line through the points, without the last one where it is open.
    void Tracar(std::span<const TPoint> Pontos, bool Fechado, QRgb Cor, TPenStyle Estilo) const;

private:
    TTelaDePixels(std::uint32_t *Pixels, std::ptrdiff_t PorLinha, TPoint Origem,
                  const TRect &Limites) noexcept;

    std::uint32_t *FPixels; ///< of the painter's origin
    std::ptrdiff_t FPorLinha;
    TRect FLimites; ///< in the painter's coordinates
};

} // namespace Sibrel
