// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/TextosCompactos.h"

#include "plataforma/NumeroCompacto.h"

#include <algorithm>
#include <cstring>

namespace Sibrel
{

bool TTextosCompactos::TLeitor::Proxima(QByteArrayView &Linha) noexcept
{
    if (FAqui == FFim)
        return false;
    const auto Tamanho = static_cast<qsizetype>(LerNumero(FAqui));
    Linha = QByteArrayView(FAqui, Tamanho);
    FAqui += Tamanho;
    return true;
}

TTextosCompactos::TLugares TTextosCompactos::Lugares() const noexcept
{
    TLugares Todos;
    if (!FBloco)
        return Todos;
    const unsigned char *Aqui = FBloco.get();
    for (TLugar &L : Todos) {
        L.Linhas = LerNumero(Aqui);
        L.Tamanho = LerNumero(Aqui);
    }
    for (TLugar &L : Todos) {
        L.Inicio = Aqui;
        Aqui += L.Tamanho;
    }
    return Todos;
}

int TTextosCompactos::Count(TParte Parte) const noexcept
{
    return static_cast<int>(Lugares()[Parte].Linhas);
}

TTextosCompactos::TLeitor TTextosCompactos::Ler(TParte Parte) const noexcept
{
    return LeitorDe(Lugares()[Parte]);
}

TTextosCompactos::TLeitor TTextosCompactos::LeitorDe(const TLugar &Lugar) noexcept
{
    TLeitor Leitor;
    Leitor.FAqui = Lugar.Inicio;
    Leitor.FFim = Lugar.Inicio + Lugar.Tamanho;
    return Leitor;
}

bool TTextosCompactos::Iguais(TParte Parte, TLinhas Linhas) const noexcept
{
    if (!FBloco)
        return false;
    const TLugar L = Lugares()[Parte];
    if (L.Linhas != Linhas.size())
        return false;
    TLeitor Leitor = LeitorDe(L);
    return std::all_of(Linhas.begin(), Linhas.end(), [&Leitor](QByteArrayView Linha) {
        QByteArrayView Daqui;
        return Leitor.Proxima(Daqui) && Daqui == Linha;
    });
}

QByteArrayView TTextosCompactos::Linha(TParte Parte, int Indice) const noexcept
{
    TLeitor Leitor = Ler(Parte);
    QByteArrayView Texto;
    for (int I = 0; I <= Indice; ++I)
        Leitor.Proxima(Texto);
    return Texto;
}

QByteArrayView TTextosCompactos::Bytes(TParte Parte) const noexcept
{
    const TLugar L = Lugares()[Parte];
    return {L.Inicio, static_cast<qsizetype>(L.Tamanho)};
}

QByteArrayView TTextosCompactos::ObterLegenda() const noexcept
{
    TLeitor Leitor = Ler(Legenda);
    QByteArrayView Texto;
    Leitor.Proxima(Texto);
    return Texto;
}

void TTextosCompactos::Atribuir(TParte Parte, TLinhas Linhas)
{
    std::array<TFonte, Partes> Fontes{};
    const TLugares Antes = Lugares();
    for (std::size_t P = 0; P < Partes; ++P)
        Fontes[P] = P == Parte ? TFonte{DeLinhas(Linhas), Linhas} : TFonte{Antes[P], {}};
    Montar(Fontes);
}

void TTextosCompactos::Atribuir(const std::array<TLinhas, Partes> &Todas)
{
    std::array<TFonte, Partes> Fontes{};
    for (std::size_t P = 0; P < Partes; ++P)
        Fontes[P] = TFonte{DeLinhas(Todas[P]), Todas[P]};
    Montar(Fontes);
}

TTextosCompactos::TLugar TTextosCompactos::DeLinhas(TLinhas Linhas) noexcept
{
    TLugar L;
    L.Linhas = Linhas.size();
    for (const QByteArrayView Texto : Linhas) {
        const auto Tamanho = static_cast<std::size_t>(Texto.size());
        L.Tamanho += TamanhoDoNumero(Tamanho) + Tamanho;
    }
    return L;
}

void TTextosCompactos::Montar(const std::array<TFonte, Partes> &Fontes)
{
    std::size_t Total = 0;
    for (const TFonte &F : Fontes)
        Total += TamanhoDoNumero(F.Lugar.Linhas) + TamanhoDoNumero(F.Lugar.Tamanho) + F.Lugar.Tamanho;
    std::unique_ptr<unsigned char[]> Novo(new unsigned char[Total]);
    unsigned char *Aqui = Novo.get();
    for (const TFonte &F : Fontes)
        Aqui = EscreverNumero(EscreverNumero(Aqui, F.Lugar.Linhas), F.Lugar.Tamanho);
    const auto Copiar = [&Aqui](const void *De, std::size_t Tamanho) {
        if (Tamanho > 0)
            std::memcpy(Aqui, De, Tamanho);
        Aqui += Tamanho;
    };
    for (const TFonte &F : Fontes) {
        if (F.Lugar.Inicio != nullptr)
            Copiar(F.Lugar.Inicio, F.Lugar.Tamanho);
        for (const QByteArrayView Texto : F.Linhas) {
            Aqui = EscreverNumero(Aqui, static_cast<std::size_t>(Texto.size()));
            Copiar(Texto.data(), static_cast<std::size_t>(Texto.size()));
        }
    }
    FBloco = std::move(Novo); // the former block, in which the lines may stand, lives until here
}

std::size_t TTextosCompactos::Memoria() const noexcept
{
    if (!FBloco)
        return 0;
    const TLugares Todos = Lugares();
    return static_cast<std::size_t>(Todos.back().Inicio - FBloco.get()) + Todos.back().Tamanho;
}

} // namespace Sibrel
