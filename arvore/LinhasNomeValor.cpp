// SPDX-License-Identifier: LGPL-2.1-or-later
#include "arvore/LinhasNomeValor.h"

#include <algorithm>
#include <cstring>

namespace Sibrel
{

namespace
{

// Up to here walking is faster than hashing.
constexpr std::size_t ListaCurta = 24;

constexpr unsigned char MenorNaoAscii = 0x80;

constexpr bool Ascii(char C) noexcept
{
    return static_cast<unsigned char>(C) < MenorNaoAscii;
}

constexpr char Minuscula(char C) noexcept
{
    return C >= 'A' && C <= 'Z' ? static_cast<char>(C - 'A' + 'a') : C;
}

std::optional<char32_t> LetraDeDoisBytes(QByteArrayView Texto) noexcept
{
    constexpr unsigned Bits = 6;
    constexpr unsigned PrimeiroMenor = 0xC2;
    constexpr unsigned PrimeiroMaior = 0xDF;
    constexpr unsigned Continuacao = 0x80;
    const auto A = static_cast<unsigned char>(Texto[0]);
    const auto B = Texto.size() > 1 ? static_cast<unsigned char>(Texto[1]) : 0U;
    if (A < PrimeiroMenor || A > PrimeiroMaior || (B >> Bits) != (Continuacao >> Bits))
        return std::nullopt;
    return char32_t{(A & 0x1FU) << Bits | (B & 0x3FU)};
}

} // namespace

std::optional<QByteArrayView> NomeDaLinha(QByteArrayView Linha) noexcept
{
    const qsizetype Igual = Linha.indexOf('=');
    return Igual >= 0 ? std::optional(Linha.first(Igual)) : std::nullopt;
}

QByteArrayView ValorDaLinha(QByteArrayView Linha) noexcept
{
    const qsizetype Igual = Linha.indexOf('=');
    return Igual >= 0 ? Linha.sliced(Igual + 1) : QByteArrayView();
}

bool MesmoNome(QByteArrayView A, QByteArrayView B) noexcept
{
    if (A == B)
        return true;
    // Letters are folded one by one: the first pair that differs decides, which nearly always lies in what
    // both have in ASCII.
    qsizetype Lidos = 0;
    for (; Lidos < A.size() && Lidos < B.size() && Ascii(A[Lidos]) && Ascii(B[Lidos]); ++Lidos)
        if (Minuscula(A[Lidos]) != Minuscula(B[Lidos]))
            return false;
    if (Lidos == A.size() || Lidos == B.size())
        return A.size() == B.size();
    return MesmoTexto(QString::fromUtf8(A.sliced(Lidos)), QString::fromUtf8(B.sliced(Lidos)));
}

std::uint64_t HashDoNome(QByteArrayView Nome) noexcept
{
    constexpr std::uint64_t Base = 0xCBF29CE484222325U;
    constexpr std::uint64_t Primo = 0x100000001B3U;
    std::uint64_t Hash = Base;
    const auto Juntar = [&](char32_t C) { Hash = (Hash ^ C) * Primo; };
    // By folded code points, since a letter outside ASCII may fold to one inside. Letters of one and two
    // bytes are all that a name of ours has.
    qsizetype Lidos = 0;
    while (Lidos < Nome.size()) {
        if (Ascii(Nome[Lidos])) {
            Juntar(static_cast<unsigned char>(Minuscula(Nome[Lidos++])));
        } else if (const auto C = LetraDeDoisBytes(Nome.sliced(Lidos))) {
            Juntar(QChar::toCaseFolded(*C));
            Lidos += 2;
        } else {
            break;
        }
    }
    if (Lidos == Nome.size())
        return Hash;
    const QString Resto = QString::fromUtf8(Nome.sliced(Lidos));
    for (qsizetype I = 0; I < Resto.size(); ++I) {
        char32_t C = Resto[I].unicode();
        if (Resto[I].isHighSurrogate() && I + 1 < Resto.size()) {
            C = QChar::surrogateToUcs4(Resto[I], Resto[I + 1]);
            ++I;
        }
        Juntar(QChar::toCaseFolded(C));
    }
    return Hash;
}

TProcuraPorNome::TProcuraPorNome(TLinhasUtf8 Linhas)
    : FLinhas(Linhas)
{
    if (Linhas.size() <= ListaCurta)
        return;
    for (std::size_t I = 0; I < Linhas.size(); ++I)
        if (const auto Nome = NomeDaLinha(Linhas[I]))
            FPorHash.emplace(HashDoNome(*Nome), I);
}

std::ptrdiff_t TProcuraPorNome::Indice(QByteArrayView Nome) const noexcept
{
    if (FPorHash.empty()) {
        for (std::size_t I = 0; I < FLinhas.size(); ++I)
            if (const auto N = NomeDaLinha(FLinhas[I]); N && MesmoNome(*N, Nome))
                return static_cast<std::ptrdiff_t>(I);
        return -1;
    }
    std::ptrdiff_t Primeiro = -1;
    const auto [De, Ate] = FPorHash.equal_range(HashDoNome(Nome));
    for (auto E = De; E != Ate; ++E) {
        const auto I = static_cast<std::ptrdiff_t>(E->second);
        if ((Primeiro < 0 || I < Primeiro) && MesmoNome(*NomeDaLinha(FLinhas[E->second]), Nome))
            Primeiro = I;
    }
    return Primeiro;
}

QByteArrayView TProcuraPorNome::Valor(QByteArrayView Nome) const noexcept
{
    const std::ptrdiff_t I = Indice(Nome);
    return I >= 0 ? ValorDaLinha(FLinhas[static_cast<std::size_t>(I)]) : QByteArrayView();
}

void TFusaoDeLinhas::Limpar() noexcept
{
    FLinhas.clear();
    FTextos.clear();
    FPorHash.clear();
}

QByteArrayView TFusaoDeLinhas::Texto(const TLinha &L) const noexcept
{
    return L.Nossa ? QByteArrayView(FTextos.data() + L.Inicio, static_cast<qsizetype>(L.Tamanho)) : L.DeFora;
}

void TFusaoDeLinhas::Existente(QByteArrayView Linha)
{
    TLinha L;
    L.DeFora = Linha;
    Acrescentar(L);
}

void TFusaoDeLinhas::Item(QByteArrayView Nome, QByteArrayView Valor)
{
    const std::optional<std::size_t> Ja = Procurar(Nome);
    if (Ja && Valor.isEmpty()) {
        Apagar(*Ja);
    } else if (Ja) {
        Guardar(FLinhas[*Ja], Nome, Valor); // the same name but for letter case: its hash stays
    } else {
        TLinha L;
        Guardar(L, Nome, Valor);
        Acrescentar(L);
    }
}

void TFusaoDeLinhas::Guardar(TLinha &L, QByteArrayView Nome, QByteArrayView Valor)
{
    L.Nossa = true;
    L.Inicio = FTextos.size();
    FTextos.append(Nome.data(), static_cast<std::size_t>(Nome.size()));
    FTextos += '=';
    FTextos.append(Valor.data(), static_cast<std::size_t>(Valor.size()));
    L.Tamanho = FTextos.size() - L.Inicio;
}

void TFusaoDeLinhas::Acrescentar(TLinha L)
{
    FLinhas.push_back(L);
    if (FLinhas.size() == ListaCurta + 1)
        for (std::size_t I = 0; I < ListaCurta; ++I)
            Indexar(I);
    if (FLinhas.size() > ListaCurta)
        Indexar(FLinhas.size() - 1);
}

void TFusaoDeLinhas::Indexar(std::size_t Indice)
{
    if (!FLinhas[Indice].Viva)
        return;
    if (const auto Nome = NomeDaLinha(Texto(FLinhas[Indice])))
        FPorHash.emplace(HashDoNome(*Nome), Indice);
}

std::optional<std::size_t> TFusaoDeLinhas::Procurar(QByteArrayView Nome) const noexcept
{
    const auto Acha = [&](std::size_t I) {
        const auto N = FLinhas[I].Viva ? NomeDaLinha(Texto(FLinhas[I])) : std::nullopt;
        return N && MesmoNome(*N, Nome);
    };
    if (FLinhas.size() <= ListaCurta) {
        for (std::size_t I = 0; I < FLinhas.size(); ++I)
            if (Acha(I))
                return I;
        return std::nullopt;
    }
    std::optional<std::size_t> Primeiro;
    const auto [De, Ate] = FPorHash.equal_range(HashDoNome(Nome));
    for (auto E = De; E != Ate; ++E)
        if ((!Primeiro || E->second < *Primeiro) && Acha(E->second))
            Primeiro = E->second;
    return Primeiro;
}

void TFusaoDeLinhas::Apagar(std::size_t Indice)
{
    FLinhas[Indice].Viva = false;
    if (FLinhas.size() <= ListaCurta)
        return;
    const auto [De, Ate] = FPorHash.equal_range(HashDoNome(*NomeDaLinha(Texto(FLinhas[Indice]))));
    for (auto E = De; E != Ate; ++E)
        if (E->second == Indice) {
            FPorHash.erase(E);
            return;
        }
}

TLinhasUtf8 TFusaoDeLinhas::Linhas()
{
    FResultado.clear();
    for (const TLinha &L : FLinhas)
        if (L.Viva)
            FResultado.push_back(Texto(L));
    return FResultado;
}

TLinhasDeStrings::TLinhasDeStrings(const TStrings &Lista)
{
    const QStringList Textos = Lista.ParaQStringList();
    FBytes.reserve(static_cast<std::size_t>(Textos.size()));
    for (const QString &Texto : Textos)
        FBytes.push_back(Texto.toUtf8());
    FLinhas.assign(FBytes.begin(), FBytes.end());
}

} // namespace Sibrel
