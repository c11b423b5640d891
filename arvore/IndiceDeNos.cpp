// SPDX-License-Identifier: LGPL-2.1-or-later
#include "arvore/IndiceDeNos.h"

#include <utility>

namespace Sibrel
{

std::size_t TIndiceDeNos::Balde(std::uint64_t Chave) const noexcept
{
    constexpr std::uint64_t Misturador = 0x9E3779B97F4A7C15U;
    constexpr unsigned Altos = 32;
    return static_cast<std::size_t>((Chave * Misturador) >> Altos) & (FBaldes.size() - 1);
}

std::uint32_t TIndiceDeNos::Acrescentar(std::uint64_t Chave, std::uint32_t Serie, TTreeNode *No)
{
    if (FQuantas >= FBaldes.size())
        Crescer();
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
    TBalde &B = FBaldes[Balde(E.Chave)];
    E.Anterior = B.Ultima;
    while (E.Anterior != Nenhuma && FEntradas[E.Anterior].Serie > E.Serie)
        E.Anterior = FEntradas[E.Anterior].Anterior;
    std::uint32_t &Seguinte = E.Anterior != Nenhuma ? FEntradas[E.Anterior].Proxima : B.Primeira;
    E.Proxima = Seguinte;
    Seguinte = Entrada;
    (E.Proxima != Nenhuma ? FEntradas[E.Proxima].Anterior : B.Ultima) = Entrada;
}

void TIndiceDeNos::Retirar(std::uint32_t Entrada) noexcept
{
    TEntrada &E = FEntradas[Entrada];
    TBalde &B = FBaldes[Balde(E.Chave)];
    (E.Anterior != Nenhuma ? FEntradas[E.Anterior].Proxima : B.Primeira) = E.Proxima;
    (E.Proxima != Nenhuma ? FEntradas[E.Proxima].Anterior : B.Ultima) = E.Anterior;
    E.No = nullptr;
    E.Proxima = std::exchange(FLivre, Entrada);
    --FQuantas;
}

void TIndiceDeNos::Crescer()
{
    constexpr std::size_t Menor = 16;
    std::vector<TBalde> Antigos(FBaldes.empty() ? Menor : FBaldes.size() * 2);
    Antigos.swap(FBaldes);
    for (const TBalde &B : Antigos)
        for (std::uint32_t E = B.Primeira; E != Nenhuma;) {
            const std::uint32_t Seguinte = FEntradas[E].Proxima;
            Ligar(E);
            E = Seguinte;
        }
}

std::uint32_t TIndiceDeNos::ComChave(std::uint32_t Entrada, std::uint64_t Chave) const noexcept
{
    while (Entrada != Nenhuma && FEntradas[Entrada].Chave != Chave)
        Entrada = FEntradas[Entrada].Proxima;
    return Entrada;
}

std::uint32_t TIndiceDeNos::Primeira(std::uint64_t Chave) const noexcept
{
    return FBaldes.empty() ? Nenhuma : ComChave(FBaldes[Balde(Chave)].Primeira, Chave);
}

std::uint32_t TIndiceDeNos::Proxima(std::uint32_t Entrada) const noexcept
{
    return ComChave(FEntradas[Entrada].Proxima, FEntradas[Entrada].Chave);
}

} // namespace Sibrel
