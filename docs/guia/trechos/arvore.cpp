// SPDX-License-Identifier: LGPL-2.1-or-later
#include "guia/Trecho.h"

#include <Sibrel/TPreparaAtualizacao>
#include <Sibrel/TTabelaDeSimbolos>
#include <Sibrel/TTreeNodeXML>
#include <Sibrel/TTreeViewXML>
#include <Sibrel/TVisualizadorInformacoesXML>

#include <QAction>
#include <QMenu>

using namespace Sibrel;
using Sibrel::Guia::Dado;
using Sibrel::Guia::EsperarAtualizacoes;

namespace
{

//! [classe]
class TNoDeUnidade : public ComClasse<TNoDeUnidade, TTreeNodeXML>
{
public:
    static constexpr const char *NomeDaClasse = "TNoDeUnidade";
    using ComClasse::ComClasse;

    // Runs on the update's thread: nothing of the user interface here.
    bool AtribuirNoXML(const IXMLNode &No) override
    {
        if (No.Attribute(u"Situação") == u"Fora de ação")
            return false; // rejects the element
        ComClasse::AtribuirNoXML(No);
        AtribuirText(Text().toUpper());
        return true;
    }

    // Runs on the GUI thread; what is added goes away before the menu shows again.
    void ConfigurarPopup(QMenu &Menu) override
    {
        Menu.addAction(QStringLiteral("Centrar o mapa em ") + Text());
    }
};
//! [classe]

// Registers the tag of the examples for the life of an object.
struct TTag {
    TTag() { TTreeViewXML::RegistrarClasse(QStringLiteral("Unidade"), TRefNoXML::De<TTreeNodeXML>()); }
    ~TTag() { TTreeViewXML::RemoverRegistroClasse(QStringLiteral("Unidade")); }
    TTag(const TTag &) = delete;
    TTag &operator=(const TTag &) = delete;
};

void Carregar(TTreeViewXML &Arvore)
{
    Arvore.Ler(Dado(QStringLiteral("dados/minima.xml")), false);
    EsperarAtualizacoes();
}

} // namespace

TRECHO(Registrar)
{
    //! [registrar]
    TTreeViewXML::RegistrarClasse(QStringLiteral("Unidade"), TRefNoXML::De<TTreeNodeXML>());
    TTreeViewXML::RegistrarClasse(QStringLiteral("Lista"), nullptr); // only groups what is inside it
    //! [registrar]
    TTreeViewXML Arvore;
    Arvore.Atualizar(QStringLiteral("<R><Lista><Unidade Nome='A' Cor='0'/></Lista><Outra><Unidade Nome='B' "
                                    "Cor='0'/></Outra></R>"));
    EsperarAtualizacoes();
    EXIGIR(Arvore.Nos().Count() == 1); // what stands in an unknown tag is ignored with it
    EXIGIR(Arvore.ObterNo(QStringLiteral("A")) != nullptr);
    TTreeViewXML::RemoverRegistroClasse(QStringLiteral("Unidade"));
    TTreeViewXML::RemoverRegistroClasse(QStringLiteral("Lista"));
}

TRECHO(Carregar)
{
    const TTag Tag;
    TTabelaDeSimbolos Tabela;
    TVisualizadorInformacoesXML Informacoes;
    const QString Arquivo = Dado(QStringLiteral("dados/minima.xml"));
    //! [carregar]
    TTreeViewXML Arvore;
    Arvore.ensurePolished(); // the view gets its window now, which clears both references
    Arvore.AtribuirTabelaDeSimbolos(&Tabela);
    Arvore.AtribuirFrameDeInformacoes(&Informacoes);
    Arvore.ElementoRaiz = QStringLiteral("Exercicio"); // another document changes nothing
    Arvore.Ler(Arquivo, false);                        // returns once the document has been read
    //! [carregar]
    EXIGIR(TPreparaAtualizacao::Instancias() == 1);
    EsperarAtualizacoes();
    EXIGIR(Arvore.Nos().Count() == 3);
    Arvore.AtribuirSelected(Arvore.Nos().GetFirstNode());
    EXIGIR(Informacoes.Count() == 1 && Informacoes.Nome(0) == u"Efetivo" && Informacoes.Valor(0) == u"128");
}

TRECHO(ReferenciasCedoDemais)
{
    TTabelaDeSimbolos Tabela;
    //! [cedo]
    TTreeViewXML Arvore;
    Arvore.AtribuirTabelaDeSimbolos(&Tabela); // lost at the first show
    Arvore.show();
    //! [cedo]
    EXIGIR(Arvore.TabelaDeSimbolos() == nullptr);
}

TRECHO(Procurar)
{
    const TTag Tag;
    TTreeViewXML Arvore;
    Carregar(Arvore);
    //! [procurar]
    TTreeNode *PeloCaminho = Arvore.ObterNo(QStringLiteral("1ª Companhia/1º Pelotão"));

    TStringList Identificacao;
    Identificacao.AtribuirValor(QStringLiteral("Código"), QStringLiteral("C1.P1"));
    TTreeNodeXML *PelaIdentificacao = Arvore.ObterNo(Identificacao); // the first that is no link
    std::vector<TTreeNodeXML *> Todos;
    Arvore.ObterNos(Todos, Identificacao); // links too

    // Each result is where the next search begins.
    int Achados = 0;
    const TSearchFlags Opcoes = sfPartial | sfCaseInsensitive;
    for (TTreeNode *No = Arvore.ObterPrimeiroNo(QStringLiteral("1"), nullptr, Opcoes); No != nullptr;
         No = Arvore.ObterPrimeiroNo(QStringLiteral("1"), No, Opcoes))
        ++Achados;
    //! [procurar]
    EXIGIR(PeloCaminho != nullptr && PeloCaminho == PelaIdentificacao);
    EXIGIR(Todos.size() == 2 && Todos[1]->Link());
    EXIGIR(Achados == 3); // the link shows its target's caption
}

TRECHO(LerONo)
{
    const TTag Tag;
    TTreeViewXML Arvore;
    Carregar(Arvore);
    //! [no]
    auto *No = dynamic_cast<TTreeNodeXML *>(Arvore.Nos().GetFirstNode());
    const QString Legenda = No->Text();
    const QString Codigo = No->Identificacao().Values(u"Código");
    const QString Efetivo = No->Informacao().Values(u"Efetivo");
    const QColor Cor = TColor(No->Cor()).ParaQColor();
    const QString Caminho = ObterCaminho(No->GetFirstChild(), QStringLiteral(" > "));
    //! [no]
    EXIGIR(Legenda == u"1ª Companhia" && Codigo == u"C1" && Efetivo == u"128");
    EXIGIR(Cor == QColor(Qt::red));
    EXIGIR(Caminho == u"1ª Companhia > 1º Pelotão");
}

TRECHO(ClassePropria)
{
    //! [usar_classe]
    TTreeViewXML::RegistrarClasse(QStringLiteral("Unidade"), TRefNoXML::De<TNoDeUnidade>());
    //! [usar_classe]
    {
        TTreeViewXML Arvore;
        Arvore.Atualizar(QStringLiteral("<R><Unidade Nome='a' Cor='0'/>"
                                        "<Unidade Nome='b' Cor='0' Situação='Fora de ação'/></R>"));
        EsperarAtualizacoes();
        EXIGIR(Arvore.Nos().Count() == 1);
        EXIGIR(Arvore.Nos().GetFirstNode()->Text() == u"A");
        QMenu Menu;
        dynamic_cast<TTreeNodeXML *>(Arvore.Nos().GetFirstNode())->ConfigurarPopup(Menu);
        EXIGIR(Menu.actions().size() == 1);
    }
    TTreeViewXML::RemoverRegistroClasse(QStringLiteral("Unidade"));
}

TRECHO(Excluir)
{
    const TTag Tag;
    TTreeViewXML Arvore;
    Carregar(Arvore);
    //! [excluir]
    Arvore.AoExcluirNo = [](TTreeViewXML &, TTreeNode &No, bool &PodeExcluir) {
        PodeExcluir = !No.HasChildren(); // starts true
    };
    Arvore.Excluir(Arvore.Nos().GetFirstNode()); // kept: it has children

    TStringList Identificacao;
    Identificacao.AtribuirValor(QStringLiteral("Código"), QStringLiteral("C1.P1"));
    Arvore.ExcluirTodosOsNos(Identificacao); // the platoon and the link to it
    //! [excluir]
    EXIGIR(Arvore.Nos().Count() == 1);
}
