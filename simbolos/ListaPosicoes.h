// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Exportacao.h"
#include "plataforma/Rect.h"

#include <cstdint>
#include <span>
#include <vector>

namespace Sibrel
{

/// The vertices of a polygon: a list of points, held inline. Points are found by value.
///
/// An index outside raises EListError, and so do Remove and Extract of a point that is not there; the list is
/// unchanged then. Not synchronised.
class SIBREL_EXPORT TListaPosicoes
{
public:
    TListaPosicoes();
    virtual ~TListaPosicoes();
    TListaPosicoes(const TListaPosicoes &) = delete;
    TListaPosicoes &operator=(const TListaPosicoes &) = delete;

    int Count() const noexcept { return static_cast<int>(FPontos.size()); }

    /// Appends; the index of the new point.
    int Add(const TPoint &P);
    /// Appends all points of `Lista` in order and leaves it empty. A list added to itself is unchanged.
    void Add(TListaPosicoes &Lista);
    /// `Indice` may be Count(), which appends.
    void Insert(int Indice, const TPoint &P);

    TPoint ObterPosicao(int Indice) const { return FPontos[Verificado(Indice)]; }
    void AtribuirPosicao(int Indice, const TPoint &P);
    /// The first that is equal, -1 when there is none.
    int IndexOf(const TPoint &P) const noexcept;
    /// Removes the first that is equal; its former index.
    int Remove(const TPoint &P);
    /// Removes the first that is equal and returns it.
    TPoint Extract(const TPoint &P);
    void Delete(int Indice);
    void Clear() noexcept;
    TPoint First() const { return ObterPosicao(0); }
    TPoint Last() const { return ObterPosicao(Count() - 1); }

    std::span<const TPoint> Pontos() const noexcept { return FPontos; }
    /// Another number after each change; no two lists share one.
    std::uint64_t Selo() const noexcept { return FSelo; }

private:
    std::size_t Verificado(int Indice) const;
    void Mudou() noexcept;

    std::vector<TPoint> FPontos;
    std::uint64_t FSelo;
};

} // namespace Sibrel
