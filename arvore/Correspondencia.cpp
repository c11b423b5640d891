// SPDX-License-Identifier: LGPL-2.1-or-later
#include "arvore/Correspondencia.h"

#include "arvore/TagsXML.h"
#include "arvore/TreeNodesXML.h"
#include "plataforma/Exception.h"

#include <mutex>
#include <optional>

namespace Sibrel
{

namespace
{

// The caption that a node of the class takes from the element, in UTF-8. The tree's own class's is known
// without a node; that of a link is its target's.
QByteArray LegendaPelaClasse(TTreeNodesXML &Nos, const IXMLNode &No, const TRefNoXML &Classe,
                             const TIdentificacao &Identificacao)
{
    if (Classe == TRefNoXML::De<TTreeNodeXML>()) {
        TTreeNodeXML::VerificarNumeros(No);
        std::optional<QByteArray> DoAlvo;
        if (TTreeNodeXML::PedeLink(No))
            DoAlvo = Nos.ObterLegenda(Identificacao);
        return DoAlvo ? *DoAlvo : TTreeNodeXML::LegendaDoElemento(No);
    }
    const std::unique_ptr<TTreeNodeXML> Provisorio = NovoNoXML(Nos, Classe);
    Provisorio->AtribuirNoXML(No);
    return Provisorio->Text().toUtf8();
}

// What loading the element would raise is raised.
void VerificarCarga(TTreeNodesXML &Nos, const IXMLNode &No, const TRefNoXML &Classe)
{
    if (Classe == TRefNoXML::De<TTreeNodeXML>())
        TTreeNodeXML::VerificarNumeros(No);
    else if (Classe)
        NovoNoXML(Nos, Classe)->AtribuirNoXML(No);
}

} // namespace

TTreeNode *ProcurarNoPeloXML(TTreeNodesXML &Nos, QStringView AtributoNome, const TTreeNode *Pai,
                             const IXMLNode &No, const TRefNoXML &Classe)
{
    // What a host's class does on loading is not done under the lock.
    std::unique_lock Guarda(Nos.Trava(), std::defer_lock);
    if (Classe == TRefNoXML::De<TTreeNodeXML>())
        Guarda.lock();
    if (Nos.QuantosFilhos(Pai) == 0) {
        VerificarCarga(Nos, No, Classe); // there is nothing to find, but this much fails here already
        return nullptr;
    }
    const auto Atributo = No.AttributeUtf8(AtributoNome);
    const QByteArray NomeDoElemento = Atributo ? QByteArray() : No.NodeName().toUtf8();
    const QByteArrayView Nome = Atributo ? *Atributo : QByteArrayView(NomeDoElemento);
    const TIdentificacao Identificacao(No);
    TTreeNodeXML *Achado = Nome.isEmpty() ? nullptr : Nos.ObterFilho(Pai, Nome, Identificacao);
    if (Achado != nullptr || !Classe)
        return Achado;
    const QByteArray Legenda = LegendaPelaClasse(Nos, No, Classe, Identificacao);
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
