// SPDX-License-Identifier: LGPL-2.1-or-later
#include "arvore/IndiceDeNos.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace Sibrel
{

std::uint32_t TIndiceDeNos::HashDe(std::uint64_t Chave) noexcept
{
    constexpr std::uint64_t Misturador = 0x9E3779B97F4A7C15U;
    constexpr unsigned Altos = 32;
    return static_cast<std::uint32_t>((Chave * Misturador) >> Altos);
}

// By the highest bits, so that the keys come in the same order in a larger table.
std::size_t TIndiceDeNos::Proprio(std::uint32_t Hash) const noexcept
{
    constexpr unsigned Bits = 32;
    return static_cast<std::size_t>((std::uint64_t{Hash} * FBaldes.size()) >> Bits);
}

// Where the key stands, or would.
std::size_t TIndiceDeNos::Lugar(std::uint64_t Chave) const noexcept
{
    const std::uint32_t Hash = HashDe(Chave);
    std::size_t L = Proprio(Hash);
    while (FBaldes[L].Primeira != Nenhuma &&
           (FBaldes[L].Hash != Hash || FEntradas[FBaldes[L].Primeira].Chave != Chave))
        L = (L + 1) & (FBaldes.size() - 1);
    return L;
}

std::uint32_t TIndiceDeNos::Acrescentar(std::uint64_t Chave, std::uint32_t Serie, TTreeNode *No)
{
    Crescer(FChaves + 1);
    if (FEntradas.empty())
        FEntradas.emplace_back();
    std::uint32_t Entrada = FLivre;
    if (Entrada != Nenhuma) {
        FLivre = FEntradas[Entrada].Proxima;
    } else {
        Entrada = static_cast<std::uint32_t>(FEntradas.size());
        FEntradas.emplace_back();
    }
    FEntradas[Entrada] = {Chave, No, Serie, Nenhuma, Nenhuma};
    Ligar(Entrada);
    ++FQuantas;
    return Entrada;
}

// Nodes nearly always come in the order of their numbers: the place is sought from the end.
void TIndiceDeNos::Ligar(std::uint32_t Entrada) noexcept
{
    TEntrada &E = FEntradas[Entrada];
    TBalde &B = FBaldes[Lugar(E.Chave)];
    if (B.Primeira == Nenhuma) {
        B = {HashDe(E.Chave), Entrada};
        E.Anterior = Entrada;
        ++FChaves;
        return;
    }
    TEntrada &Primeira = FEntradas[B.Primeira];
    if (E.Serie < Primeira.Serie) {
        E.Anterior = std::exchange(Primeira.Anterior, Entrada);
        E.Proxima = std::exchange(B.Primeira, Entrada);
        return;
    }
    E.Anterior = Primeira.Anterior;
    while (FEntradas[E.Anterior].Serie > E.Serie)
        E.Anterior = FEntradas[E.Anterior].Anterior;
    E.Proxima = std::exchange(FEntradas[E.Anterior].Proxima, Entrada);
    (E.Proxima != Nenhuma ? FEntradas[E.Proxima] : Primeira).Anterior = Entrada;
}

void TIndiceDeNos::Retirar(std::uint32_t Entrada) noexcept
{
    TEntrada &E = FEntradas[Entrada];
    const std::size_t L = Lugar(E.Chave);
    std::uint32_t &Primeira = FBaldes[L].Primeira;
    (Primeira == Entrada ? Primeira : FEntradas[E.Anterior].Proxima) = E.Proxima;
    if (Primeira == Nenhuma)
        Fechar(L);
    else
        FEntradas[E.Proxima != Nenhuma ? E.Proxima : Primeira].Anterior = E.Anterior;
    E.No = nullptr;
    E.Proxima = std::exchange(FLivre, Entrada);
    --FQuantas;
}

// A place has become free: a key further on that had found it taken moves into it, which frees that one's.
void TIndiceDeNos::Fechar(std::size_t Livre) noexcept
{
    --FChaves;
    const std::size_t Mascara = FBaldes.size() - 1;
    for (std::size_t L = (Livre + 1) & Mascara; FBaldes[L].Primeira != Nenhuma; L = (L + 1) & Mascara)
        if (((L - Proprio(FBaldes[L].Hash)) & Mascara) >= ((L - Livre) & Mascara)) {
            FBaldes[Livre] = std::exchange(FBaldes[L], {});
            Livre = L;
        }
}

void TIndiceDeNos::Reservar(std::size_t Entradas)
{
    FEntradas.reserve(Entradas + 1);
    Crescer(Entradas);
}

// Room for so many keys. A quarter of the places stays free, so that none is far from its own.
void TIndiceDeNos::Crescer(std::size_t Chaves)
{
    constexpr std::size_t Menor = 16;
    if (Chaves + Chaves / 3 < FBaldes.size())
        return;
    std::vector<TBalde> Antigos(std::bit_ceil(std::max(Menor, Chaves + Chaves / 3 + 1)));
    Antigos.swap(FBaldes);
    for (const TBalde &B : Antigos)
        if (B.Primeira != Nenhuma) {
            std::size_t L = Proprio(B.Hash);
            while (FBaldes[L].Primeira != Nenhuma)
                L = (L + 1) & (FBaldes.size() - 1);
            FBaldes[L] = B;
        }
}

bool TIndiceDeNos::PrimeiraDaChave(std::uint32_t Entrada, std::uint64_t Chave) const noexcept
{
    const TEntrada &E = FEntradas[Entrada];
    return E.No != nullptr && E.Chave == Chave && FEntradas[E.Anterior].Proxima == Nenhuma;
}

// Documents name nodes mostly in the order in which they were made: the entry behind the last one found is
// looked at first, which stays in the cache where the table of keys does not.
std::uint32_t TIndiceDeNos::Primeira(std::uint64_t Chave) const noexcept
{
    if (FBaldes.empty())
        return Nenhuma;
    const std::uint32_t Seguinte = FAchada + 1;
    const bool EmOrdem = Seguinte < FEntradas.size() && PrimeiraDaChave(Seguinte, Chave);
    const std::uint32_t Achada = EmOrdem ? Seguinte : FBaldes[Lugar(Chave)].Primeira;
    if (Achada != Nenhuma)
        FAchada = Achada;
    return Achada;
}

} // namespace Sibrel
