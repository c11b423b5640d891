// SPDX-License-Identifier: LGPL-2.1-or-later
#include "arvore/Identificacao.h"

#include "arvore/ListaXML.h"

#include <QHash>

#include <algorithm>

namespace Sibrel
{

std::optional<std::uint64_t> ChaveDeIdentificacao(TLinhasUtf8 Linhas)
{
    if (Linhas.empty())
        return std::nullopt;
    const TProcuraPorNome Procura(Linhas);
    std::uint64_t Chave = Linhas.size();
    for (std::size_t I = 0; I < Linhas.size(); ++I) {
        const std::optional<QByteArrayView> Nome = NomeDaLinha(Linhas[I]);
        const QByteArrayView Valor = ValorDaLinha(Linhas[I]);
        // A value that is empty also stands for a name that is not there at all; a name that occurs twice
        // hides a line.
        if (!Nome || Valor.isEmpty() || Procura.Indice(*Nome) != static_cast<std::ptrdiff_t>(I))
            return std::nullopt;
        constexpr std::uint64_t Misturador = 0x9E3779B97F4A7C15U;
        std::uint64_t Par =
            HashDoNome(*Nome) * Misturador + qHashBits(Valor.data(), static_cast<std::size_t>(Valor.size()));
        Par ^= Par >> 29;
        Chave += Par * Misturador; // a sum, so that the order plays no part
    }
    return Chave;
}

TLinhasUtf8 LinhasDoNo(const TTextosCompactos &Textos, TTextosCompactos::TParte Parte)
{
    thread_local std::vector<QByteArrayView> Linhas;
    Linhas.clear();
    TTextosCompactos::TLeitor Leitor = Textos.Ler(Parte);
    for (QByteArrayView Linha; Leitor.Proxima(Linha);)
        Linhas.push_back(Linha);
    return Linhas;
}

TIdentificacao::TIdentificacao(const TStrings &Lista)
{
    const TLinhasDeStrings Textos(Lista);
    Copiar(Textos.Linhas());
}

TIdentificacao::TIdentificacao(const TCursorXML &No)
{
    thread_local TFusaoDeLinhas Fusao;
    Fusao.Limpar();
    FundirListaXML(No, TagsDeIdentificacao(), Fusao);
    Copiar(Fusao.Linhas());
}

TIdentificacao::TIdentificacao(const TTextosCompactos &Textos)
{
    Copiar(LinhasDoNo(Textos, TTextosCompactos::ListaA));
}

void TIdentificacao::Copiar(TLinhasUtf8 Linhas)
{
    std::size_t Total = 0;
    for (const QByteArrayView L : Linhas)
        Total += static_cast<std::size_t>(L.size());
    FBytes.reserve(Total); // the views below stay good
    FLinhas.reserve(Linhas.size());
    for (const QByteArrayView L : Linhas) {
        const std::size_t Inicio = FBytes.size();
        FBytes.append(L.data(), static_cast<std::size_t>(L.size()));
        FLinhas.emplace_back(FBytes.data() + Inicio, L.size());
    }
}

const std::optional<std::uint64_t> &TIdentificacao::Chave() const
{
    if (!FComChave) {
        FChave = ChaveDeIdentificacao(FLinhas);
        FComChave = true;
    }
    return FChave;
}

bool TIdentificacao::Identifica(const TTextosCompactos &Textos) const
{
    if (FLinhas.empty() || static_cast<std::size_t>(Textos.Count(TTextosCompactos::ListaA)) != FLinhas.size())
        return false;
    const TLinhasUtf8 DoNo = LinhasDoNo(Textos, TTextosCompactos::ListaA);
    if (std::equal(DoNo.begin(), DoNo.end(), FLinhas.begin()))
        return true; // line by line the same, as nearly always
    const TProcuraPorNome Nela(DoNo);
    const TProcuraPorNome Aqui(FLinhas);
    return std::all_of(FLinhas.begin(), FLinhas.end(), [&](QByteArrayView Linha) {
        const QByteArrayView Nome = NomeDaLinha(Linha).value_or(QByteArrayView());
        return Nela.Valor(Nome) == Aqui.Valor(Nome);
    });
}

} // namespace Sibrel
