// SPDX-License-Identifier: LGPL-2.1-or-later
#include "arvore/ListaXML.h"

#include "arvore/LinhasNomeValor.h"
#include "arvore/TagsXML.h"
#include "arvore/TextosXML.h"
#include "lumbrix/TextoParaURL.h"

namespace Sibrel
{

TTagsDeLista TagsDeIdentificacao() noexcept
{
    return {_IDENTIFICADORES_, _IDENTIFICADOR_, _ROTULO_, _VALOR_};
}

TTagsDeLista TagsDeInformacao() noexcept
{
    return {_INFORMACOES_, _INFORMACAO_, _ROTULO_, _VALOR_};
}

void FundirListaXML(const TCursorXML &No, const TTagsDeLista &Tags, TFusaoDeLinhas &Fusao)
{
    FundirItensXML(No.FindNode(Tags.ListaTag), Tags, Fusao);
}

void FundirItensXML(const TCursorXML &Lista, const TTagsDeLista &Tags, TFusaoDeLinhas &Fusao)
{
    for (TCursorXML Item = Lista.FirstChild(); Item; Item = Item.NextSibling())
        if (Item.NomeE(Tags.ItemTag))
            Fusao.Item(Item.AttributeUtf8(Tags.AtributoNome).value_or(QByteArrayView()),
                       Item.AttributeUtf8(Tags.AtributoValor).value_or(QByteArrayView()));
}

void AtribuirListaXML(const TCursorXML &No, const TTagsDeLista &Tags, TStrings &Lista, bool Limpar)
{
    if (Limpar)
        Lista.Clear();
    if (!No.FindNode(Tags.ListaTag))
        return;
    const TLinhasDeStrings Antes(Lista);
    TFusaoDeLinhas Fusao;
    for (const QByteArrayView Linha : Antes.Linhas())
        Fusao.Existente(Linha);
    FundirListaXML(No, Tags, Fusao);
    QStringList Textos;
    for (const QByteArrayView Linha : Fusao.Linhas())
        Textos.append(QString::fromUtf8(Linha));
    Lista.Assign(TStringList(std::move(Textos)));
}

QString ObterXMLStrings(const TTagsDeLista &Tags, const TStrings &Lista)
{
    const TLinhasDeStrings Textos(Lista);
    const TProcuraPorNome Procura(Textos.Linhas());
    QString XML = u'<' + Tags.ListaTag.toString() + u'>' + PULALINHA.toString();
    for (const QByteArrayView Linha : Textos.Linhas()) {
        const QByteArrayView Nome = NomeDaLinha(Linha).value_or(QByteArrayView());
        XML += u'<' + Tags.ItemTag.toString() + u' ' + Tags.AtributoNome.toString() + QLatin1String("=\"") +
               TextoParaURL(QString::fromUtf8(Nome)) + QLatin1String("\" ") +
               TextoParaURL(Tags.AtributoValor) + QLatin1String("=\"") +
               TextoParaURL(QString::fromUtf8(Procura.Valor(Nome))) + QLatin1String("\"/>") +
               PULALINHA.toString();
    }
    XML += QLatin1String("</") + Tags.ListaTag.toString() + u'>';
    return XML;
}

void ObterIdentificacao(const TCursorXML &No, TStrings &Lista)
{
    AtribuirListaXML(No, TagsDeIdentificacao(), Lista, true);
}

} // namespace Sibrel
