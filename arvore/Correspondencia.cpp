// SPDX-License-Identifier: LGPL-2.1-or-later
#include "arvore/Correspondencia.h"

#include "arvore/TagsXML.h"
#include "arvore/TreeNodesXML.h"
#include "plataforma/Exception.h"

namespace Sibrel
{

namespace
{

// The caption that a node of the class takes from the element, in UTF-8. The base class's is known without a
// node unless the element is a link, which shows its target's caption.
QByteArray LegendaPelaClasse(TTreeNodesXML &Nos, const IXMLNode &No, const TRefNoXML &Classe)
{
    if (Classe == TRefNoXML::De<TTreeNodeXML>() && !No.HasAttribute(_LINK_)) {
        TTreeNodeXML::VerificarNumeros(No);
        return TTreeNodeXML::LegendaDoElemento(No);
    }
    const std::unique_ptr<TTreeNodeXML> Provisorio = NovoNoXML(Nos, Classe);
    Provisorio->AtribuirNoXML(No);
    return Provisorio->Text().toUtf8();
}

} // namespace

TTreeNode *ProcurarNoPeloXML(TTreeNodesXML &Nos, QStringView AtributoNome, const TTreeNode *Pai,
                             const IXMLNode &No, const TRefNoXML &Classe)
{
    const auto Atributo = No.AttributeUtf8(AtributoNome);
    const QByteArray NomeDoElemento = Atributo ? QByteArray() : No.NodeName().toUtf8();
    const QByteArrayView Nome = Atributo ? *Atributo : QByteArrayView(NomeDoElemento);
    const bool HaIrmaos = Nos.QuantosFilhos(Pai) > 0;
    if (!HaIrmaos && !Classe)
        return nullptr;
    if (!HaIrmaos) {
        LegendaPelaClasse(Nos, No, Classe); // finds nothing, but an element that cannot be loaded fails here
        return nullptr;
    }
    const TIdentificacao Identificacao(No);
    TTreeNodeXML *Achado = Nome.isEmpty() ? nullptr : Nos.ObterFilho(Pai, Nome, Identificacao);
    if (Achado != nullptr || !Classe)
        return Achado;
    const QByteArray Legenda = LegendaPelaClasse(Nos, No, Classe);
    return Legenda != Nome ? Nos.ObterFilho(Pai, Legenda, Identificacao) : nullptr;
}

std::unique_ptr<TTreeNodeXML> NovoNoXML(TTreeNodesXML &Nos, const TRefNoXML &Classe)
{
    std::unique_ptr<TTreeNodeXML> Novo = Classe.Criar(Nos);
    if (!Novo)
        throw EAbstractError(QStringLiteral("A classe %1 é abstrata!").arg(QLatin1String(Classe.Nome())));
    return Novo;
}

} // namespace Sibrel
