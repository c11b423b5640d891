// SPDX-License-Identifier: LGPL-2.1-or-later
#include "arvore/ParseTableXMLMapeada.h"

#include "arvore/EscritorDeLinhas.h"
#include "plataforma/ClientDataSet.h"
#include "plataforma/Exception.h"

#include <algorithm>
#include <utility>

namespace Sibrel
{

TParseTableXMLMapeada::TParseTableXMLMapeada(TMapeamentoXML Mapeamento, QString Consulta,
                                             QVariantList Valores)
    : FMapeamento(std::move(Mapeamento))
    , FConsulta(std::move(Consulta))
    , FValores(std::move(Valores))
{
}

TParseTableXMLMapeada::~TParseTableXMLMapeada() = default;

void TParseTableXMLMapeada::AbrirDados(TClientDataSet &Dados)
{
    if (DataBase.isNull())
        throw EDatabaseError(QStringLiteral("A tabela não tem conexão com o banco de dados!"), FConsulta);
    const QString Limpa = FConsulta.trimmed();
    const bool NomeDeTabela = std::none_of(Limpa.begin(), Limpa.end(), [](QChar C) { return C.isSpace(); });
    Dados.Open(*DataBase, NomeDeTabela ? QStringLiteral("SELECT * FROM ") + Limpa : FConsulta, FValores);
}

void TParseTableXMLMapeada::GerarXML(TStrings &Lista)
{
    TClientDataSet Dados;
    AbrirDados(Dados);
    TEscritorDeLinhas Escritor(FMapeamento, Dados, AoConverterValor);
    std::vector<TElementoDeLinha> Elementos;
    Elementos.reserve(static_cast<std::size_t>(Dados.RecordCount()));
    for (Dados.First(); !Dados.Eof(); Dados.Next())
        Elementos.push_back(Escritor.Escrever());
    const bool Aninhada = !FMapeamento.ColunaChave.isEmpty() && !FMapeamento.ColunaPai.isEmpty();
    const QStringList Linhas = Aninhada ? LinhasAninhadas(Elementos) : LinhasEmSequencia(Elementos);
    for (const QString &Linha : Linhas)
        Lista.Add(Linha);
}

} // namespace Sibrel
