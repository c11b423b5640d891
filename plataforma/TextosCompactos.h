// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Exportacao.h"

#include <QByteArrayView>

#include <array>
#include <cstddef>
#include <memory>
#include <span>

namespace Sibrel
{

/// The texts of one tree node, in one block of memory: its caption and two lists of lines, as UTF-8.
///
/// Most nodes of a large tree are never looked at, so nothing here is a QString until somebody asks. The
/// block is replaced as a whole at each change: change a list at once (Atribuir) rather than line by line.
/// Views into it are good until the next change. Not synchronised: the tree's lock guards it.
class SIBREL_EXPORT TTextosCompactos
{
public:
    enum TParte : std::size_t { Legenda, ListaA, ListaB };
    static constexpr std::size_t Partes = 3;
    using TLinhas = std::span<const QByteArrayView>;

    /// Walks the lines of one part in order.
    class TLeitor
    {
    public:
        TLeitor() = default;
        /// False at the end; otherwise the next line.
        bool Proxima(QByteArrayView &Linha) noexcept;

    private:
        friend class TTextosCompactos;
        const unsigned char *FAqui = nullptr;
        const unsigned char *FFim = nullptr;
    };

    int Count(TParte Parte) const noexcept;
    TLeitor Ler(TParte Parte) const noexcept;
    /// Line `Indice`; walks the lines before it. The index must be good.
    QByteArrayView Linha(TParte Parte, int Indice) const noexcept;
    /// The part as it is stored: equal bytes are equal lines.
    QByteArrayView Bytes(TParte Parte) const noexcept;
    /// The caption, which is the only line of its part.
    QByteArrayView ObterLegenda() const noexcept;

    /// Are the lines of a part these? False for a part that was never given any, even empty ones.
    bool Iguais(TParte Parte, TLinhas Linhas) const noexcept;

    /// Replaces one part. The lines may be views into this object.
    void Atribuir(TParte Parte, TLinhas Linhas);
    /// Replaces all parts at the cost of one.
    void Atribuir(const std::array<TLinhas, Partes> &Todas);

    /// Bytes of memory that the block takes.
    std::size_t Memoria() const noexcept;

private:
    struct TLugar {
        std::size_t Linhas = 0;
        const unsigned char *Inicio = nullptr;
        std::size_t Tamanho = 0;
    };
    using TLugares = std::array<TLugar, Partes>;
    // Where a part of the new block comes from: its bytes as they are, or lines.
    struct TFonte {
        TLugar Lugar;
        TLinhas Linhas;
    };
    TLugares Lugares() const noexcept;
    static TLugar DeLinhas(TLinhas Linhas) noexcept;
    static TLeitor LeitorDe(const TLugar &Lugar) noexcept;
    void Montar(const std::array<TFonte, Partes> &Fontes);

    std::unique_ptr<unsigned char[]> FBloco;
};

} // namespace Sibrel
