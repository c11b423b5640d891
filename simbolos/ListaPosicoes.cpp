// SPDX-License-Identifier: LGPL-2.1-or-later
#include "simbolos/ListaPosicoes.h"

#include "plataforma/Font.h"
#include "plataforma/ObjectList.h"

#include <algorithm>

namespace Sibrel
{

TListaPosicoes::TListaPosicoes()
    : FSelo(NovoSelo())
{
}

TListaPosicoes::~TListaPosicoes() = default;

void TListaPosicoes::Mudou() noexcept
{
    FSelo = NovoSelo();
}

std::size_t TListaPosicoes::Verificado(int Indice) const
{
    if (Indice < 0 || Indice >= Count())
        ErroDeIndice(Indice);
    return static_cast<std::size_t>(Indice);
}

int TListaPosicoes::Add(const TPoint &P)
{
    FPontos.push_back(P);
    Mudou();
    return Count() - 1;
}

void TListaPosicoes::Add(TListaPosicoes &Lista)
{
    if (&Lista == this)
        return;
    FPontos.insert(FPontos.end(), Lista.FPontos.begin(), Lista.FPontos.end());
    Mudou();
    Lista.Clear();
}

void TListaPosicoes::Insert(int Indice, const TPoint &P)
{
    if (Indice != Count())
        Verificado(Indice);
    FPontos.insert(FPontos.begin() + Indice, P);
    Mudou();
}

void TListaPosicoes::AtribuirPosicao(int Indice, const TPoint &P)
{
    FPontos[Verificado(Indice)] = P;
    Mudou();
}

int TListaPosicoes::IndexOf(const TPoint &P) const noexcept
{
    const auto Lugar = std::find(FPontos.begin(), FPontos.end(), P);
    return Lugar != FPontos.end() ? static_cast<int>(Lugar - FPontos.begin()) : -1;
}

int TListaPosicoes::Remove(const TPoint &P)
{
    const int Indice = IndexOf(P);
    Delete(Indice);
    return Indice;
}

TPoint TListaPosicoes::Extract(const TPoint &P)
{
    const TPoint Guardado = ObterPosicao(IndexOf(P));
    Remove(Guardado);
    return Guardado;
}

void TListaPosicoes::Delete(int Indice)
{
    FPontos.erase(FPontos.begin() + static_cast<std::ptrdiff_t>(Verificado(Indice)));
    Mudou();
}

void TListaPosicoes::Clear() noexcept
{
    FPontos.clear();
    Mudou();
}

} // namespace Sibrel
