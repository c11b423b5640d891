// SPDX-License-Identifier: LGPL-2.1-or-later
#include "arvore/DocumentoDeTabelas.h"

#include "arvore/TextosXML.h"

namespace Sibrel
{

namespace
{

struct TLinhas {
    QString Cabecalho;
    QString Rodape;
};

// Outlives every other object of the library: the module empties it at a stop that may come last of all.
union TSemFim {
    TLinhas Linhas;
    constexpr TSemFim() noexcept
        : Linhas()
    {
    }
    ~TSemFim() {} // NOLINT(modernize-use-equals-default): a defaulted one would be deleted
};

constinit TSemFim Guardadas;

} // namespace

constinit QString &CABECALHO_XML = Guardadas.Linhas.Cabecalho;
constinit QString &RODAPE_XML = Guardadas.Linhas.Rodape;

void IniciarLinhasDoDocumento()
{
    CABECALHO_XML = CABECALHOXML.toString();
    RODAPE_XML = QString();
}

void LimparLinhasDoDocumento()
{
    CABECALHO_XML = QString();
    RODAPE_XML = QString();
}

void MontarDocumentoDeTabelas(const TParseTableXMLList &Parses, const QString &ElementoRaiz, TStrings &Lista)
{
    Lista.Add(CABECALHO_XML);
    Lista.Add(u'<' + ElementoRaiz + u'>');
    for (const auto &Parse : Parses)
        if (Parse)
            Parse->GerarXML(Lista);
    Lista.AtribuirText(Lista.Text().replace(u'&', QStringLiteral("&amp;")));
    Lista.Add(QStringLiteral("</") + ElementoRaiz + u'>');
    Lista.Add(RODAPE_XML);
}

} // namespace Sibrel
