// SPDX-License-Identifier: LGPL-2.1-or-later
// The page of the tree in the example host's window: looking through it, by keys, mouse and drops.
#include "CenaDaArvore.h"

#include "hospedeiro/DescricaoDaArvore.h"

#include "corvane/VisualizadorInformacoesXML.h"

#include <QCheckBox>
#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QStatusBar>
#include <QTest>
#include <QToolButton>

using namespace Sibrel;
using namespace Sibrel::Testes;
using namespace Hospedeiro;

class TesteArvoreNaJanela : public TCenaDaArvore
{
    Q_OBJECT

private Q_SLOTS:
    void init() { AbrirJanela(); }
    void cleanup() { FecharJanela(); }
    void AbreEMostraOCaminhoEAsInformacoes();
    void ABuscaPelasOpcoes();
    void ABuscaParaTras();
    void OMenuGanhaEPerdeItens();
    void OMenuDaArvore();
    void OLinkLevaAUnidade();
    void AFichaAcompanhaAsAtualizacoes();
    void ExcluirPelaTecla();
    void OsDocumentosSoltos();
    void ATabelaTrocadaChegaAArvore();
};

void TesteArvoreNaJanela::AbreEMostraOCaminhoEAsInformacoes()
{
    QVERIFY(AbrirExemplo());
    QCOMPARE(Arvore().Items().Count(), 293);
    QVERIFY(NoEstado(QStringLiteral("293 nós, dados de 06/05/2024 06:00")));
    QVERIFY(FJanela->windowTitle().contains(QStringLiteral("ordem_de_batalha.xml")));
    TTreeNode *Batalhao = No(QStringLiteral("1ª Brigada de Infantaria/11º Batalhão"));
    QVERIFY(Batalhao != nullptr);
    QTest::mouseClick(FJanela->windowHandle(), Qt::LeftButton, {}, Lugar(Batalhao));
    QCOMPARE(Arvore().Selected(), Batalhao);
    QVERIFY(NoEstado(QStringLiteral("1ª Brigada de Infantaria / 11º Batalhão")));
    const auto *Frame = FJanela->findChild<TVisualizadorInformacoesXML *>();
    QCOMPARE(Frame->Count(), 4);
    QCOMPARE(Frame->Nome(1), QStringLiteral("Comandante"));
    QCOMPARE(Frame->Valor(1), QStringLiteral("Ten Cel Inácio"));
    QTest::keyClick(&Arvore(), Qt::Key_Down);
    QVERIFY(NoEstado(QStringLiteral("1ª Brigada de Infantaria / 11º Batalhão / Posto de Observação")));
    QCOMPARE(Frame->Valor(1), QStringLiteral("Sgt Inácio"));
    // Another tree: nothing is selected, and nothing is left of what was.
    Painel().Abrir(Gravar(QStringLiteral("a.xml"), Unidades(1)));
    QVERIFY(Esperar());
    QCOMPARE(Frame->Count(), 0);
    QVERIFY(NoEstado(QStringLiteral("1 nó, dados de 06/05/2024 06:00")));
    QVERIFY(!NoEstado(QStringLiteral("1ª Brigada de Infantaria / 11º Batalhão / Posto de Observação")));
}

void TesteArvoreNaJanela::ABuscaPelasOpcoes()
{
    Painel().Abrir(Gravar(QStringLiteral("a.xml"),
                          "<R><Brigada Nome='Alfa'><Pelotao Nome='alfa dois'/></Brigada>"
                          "<Brigada Nome='ALFA'/><Brigada Nome='\xC1gua'/>"
                          "<Brigada Nome='Beta Alfa'/></R>"));
    QVERIFY(Esperar());
    QTest::keyClick(FJanela.get(), Qt::Key_F, Qt::ControlModifier);
    auto *Busca = Painel().findChild<QLineEdit *>();
    QVERIFY(Busca->hasFocus());
    const auto Caixa = [this](const char *Nome) {
        for (QCheckBox *C : Painel().findChildren<QCheckBox *>())
            if (C->text() == QString::fromUtf8(Nome))
                return C;
        return static_cast<QCheckBox *>(nullptr);
    };
    QCheckBox *PeloComeco = Caixa("&Pelo começo");
    QCheckBox *SemMaiusculas = Caixa("&Ignorar maiúsculas");
    QVERIFY(PeloComeco && SemMaiusculas && PeloComeco->isChecked() && SemMaiusculas->isChecked());
    const auto Achados = [&] { // going round once
        QStringList Caminhos;
        Arvore().AtribuirSelected(nullptr);
        for (QTest::keyClick(Busca, Qt::Key_Return);
             !Selecionado().isEmpty() && !Caminhos.contains(Selecionado()) && Caminhos.size() < 9;
             QTest::keyClick(Busca, Qt::Key_Return))
            Caminhos += Selecionado();
        return Caminhos;
    };
    QTest::keyClicks(Busca, QStringLiteral("alfa"));
    QCOMPARE(Selecionado(), QStringLiteral("Alfa")); // while it is typed
    QCOMPARE(Achados(),
             QStringList({QStringLiteral("Alfa"), QStringLiteral("Alfa/alfa dois"), QStringLiteral("ALFA")}));
    QTest::mouseClick(PeloComeco, Qt::LeftButton, {}, QPoint(8, PeloComeco->height() / 2));
    QVERIFY(!PeloComeco->isChecked());
    QCOMPARE(Achados(), QStringList({QStringLiteral("Alfa"), QStringLiteral("ALFA")}));
    QTest::mouseClick(SemMaiusculas, Qt::LeftButton, {}, QPoint(8, SemMaiusculas->height() / 2));
    QCOMPARE(Achados(), QStringList()); // no caption is "alfa"
    QCOMPARE(FJanela->statusBar()->currentMessage(),
             QStringLiteral("Nenhuma legenda corresponde a \"alfa\""));
    QTest::mouseClick(PeloComeco, Qt::LeftButton, {}, QPoint(8, PeloComeco->height() / 2));
    QCOMPARE(Achados(), QStringList(QStringLiteral("Alfa/alfa dois")));
    // Accented letters are not folded, by the tree's own rule.
    QTest::mouseClick(SemMaiusculas, Qt::LeftButton, {}, QPoint(8, SemMaiusculas->height() / 2));
    Busca->setText(QStringLiteral("água"));
    QCOMPARE(Achados(), QStringList());
    Busca->setText(QStringLiteral("ÁGUA"));
    QCOMPARE(Achados(), QStringList(QStringLiteral("Água")));
}

void TesteArvoreNaJanela::ABuscaParaTras()
{
    QVERIFY(AbrirExemplo());
    QTest::keyClick(FJanela.get(), Qt::Key_F, Qt::ControlModifier);
    auto *Busca = Painel().findChild<QLineEdit *>();
    QTest::keyClicks(Busca, QStringLiteral("posto"));
    std::vector<TTreeNode *> Todos;
    Arvore().ObterNos(Todos, QStringLiteral("Posto"), sfPartial);
    QVERIFY(Todos.size() > 3);
    QCOMPARE(Arvore().Selected(), Todos[0]);
    QTest::keyClick(FJanela.get(), Qt::Key_F3);
    QCOMPARE(Arvore().Selected(), Todos[1]);
    QTest::keyClick(FJanela.get(), Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(Arvore().Selected(), Todos[0]);
    QTest::keyClick(FJanela.get(), Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(Arvore().Selected(), Todos.back());
    QTest::keyClick(FJanela.get(), Qt::Key_F3);
    QCOMPARE(Arvore().Selected(), Todos[0]);
    // From a node that does not match, the one before it in the order of the tree.
    Arvore().AtribuirSelected(Todos[2]->Parent());
    QTest::keyClick(FJanela.get(), Qt::Key_F3, Qt::ShiftModifier);
    QVERIFY(Arvore().Items().Antes(Arvore().Selected(), Todos[2]));
    for (const auto &Botao : Painel().findChildren<QToolButton *>())
        if (Botao->accessibleName() == QStringLiteral("Próximo"))
            QTest::mouseClick(Botao, Qt::LeftButton);
    QVERIFY(!Arvore().Items().Antes(Arvore().Selected(), Todos[2]->Parent()));
}

void TesteArvoreNaJanela::OMenuGanhaEPerdeItens()
{
    QVERIFY(AbrirExemplo());
    TTreeNode *Unidade = No(QStringLiteral("1ª Brigada de Infantaria/11º Batalhão"));
    TTreeNode *Grupo = No(QStringLiteral("Força-Tarefa Norte"));
    QVERIFY(Unidade != nullptr && Grupo != nullptr);
    const auto Proprios = Arvore().PopupMenu()->actions().size();
    const QList<QAction *> DaUnidade = MenuDe(Unidade);
    QCOMPARE(DaUnidade.size(), Proprios + 2);
    QVERIFY(DaUnidade[Proprios]->isSeparator());
    QCOMPARE(DaUnidade.back()->text(), QStringLiteral("Copiar &posição: 23K 567700 7507800"));
    DaUnidade.back()->trigger();
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("23K 567700 7507800"));
    QCOMPARE(MenuDe(Grupo).size(), Proprios);
    QCOMPARE(Arvore().Selected(), Grupo);
    QCOMPARE(MenuDe(Unidade).size(), Proprios + 2);
    const QList<QAction *> DoLink = MenuDe(Grupo->GetFirstChild());
    QCOMPARE(DoLink.size(), Proprios + 2);
    QCOMPARE(DoLink.back()->text(), QStringLiteral("&Ir para a unidade"));
    DoLink.back()->trigger();
    QCOMPARE(Selecionado(), QStringLiteral("1ª Brigada de Infantaria/11º Batalhão/1ª Companhia, 11º"));
}

void TesteArvoreNaJanela::OMenuDaArvore()
{
    QVERIFY(AbrirExemplo());
    TTreeNode *Brigada = No(QStringLiteral("1ª Brigada de Infantaria"));
    const QList<QAction *> Acoes = MenuDe(Brigada);
    QVERIFY(Acoes.size() >= 5);
    TTreeNode *Batalhao = No(QStringLiteral("1ª Brigada de Infantaria/11º Batalhão"));
    QVERIFY(Brigada->Expanded() && Batalhao->Expanded());
    Acoes[1]->trigger(); // collapse
    QVERIFY(!Brigada->Expanded() && !Batalhao->Expanded());
    QVERIFY(!Arvore().isExpanded(Arvore().Modelo().IndiceDe(Brigada)));
    QVERIFY(No(QStringLiteral("2ª Brigada Mecanizada"))->Expanded());
    Acoes[0]->trigger(); // expand
    QVERIFY(Brigada->Expanded() && Batalhao->Expanded());
    Arvore().AtribuirSelected(Batalhao);
    Acoes[3]->trigger(); // copy the path
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("1ª Brigada de Infantaria/11º Batalhão"));
    QCOMPARE(No(QGuiApplication::clipboard()->text()), Batalhao);
}

void TesteArvoreNaJanela::OLinkLevaAUnidade()
{
    QVERIFY(AbrirExemplo());
    TTreeNode *Elo = No(QStringLiteral("Força-Tarefa Norte"))->GetFirstChild();
    QTest::mouseDClick(FJanela->windowHandle(), Qt::LeftButton, {}, Lugar(Elo));
    QCOMPARE(Selecionado(), QStringLiteral("1ª Brigada de Infantaria/11º Batalhão/1ª Companhia, 11º"));
    QVERIFY(NoEstado(QStringLiteral("1ª Brigada de Infantaria / 11º Batalhão / 1ª Companhia, 11º")));
    QTest::keyClick(&Arvore(), Qt::Key_Return); // no link: stays
    QCOMPARE(Selecionado(), QStringLiteral("1ª Brigada de Infantaria/11º Batalhão/1ª Companhia, 11º"));
    Arvore().AtribuirSelected(Elo->GetNextSibling());
    QTest::keyClick(&Arvore(), Qt::Key_Return);
    QCOMPARE(Selecionado(), QStringLiteral("1ª Brigada de Infantaria/12º Batalhão/2ª Companhia, 12º"));
}

void TesteArvoreNaJanela::AFichaAcompanhaAsAtualizacoes()
{
    const auto *Frame = FJanela->findChild<TVisualizadorInformacoesXML *>();
    QVERIFY(AbrirExemplo());
    Arvore().AtribuirSelected(No(QStringLiteral("1ª Brigada de Infantaria/11º Batalhão")));
    QCOMPARE(Frame->Count(), 4);
    QCOMPARE(Frame->Valor(2), QStringLiteral("648"));
    Painel().Atualizar(DaArvore(QStringLiteral("atualizacao1.xml")));
    QVERIFY(Esperar());
    QCOMPARE(Frame->Count(), 5);
    QCOMPARE(Frame->Valor(2), QStringLiteral("655"));
}

void TesteArvoreNaJanela::ExcluirPelaTecla()
{
    QVERIFY(AbrirExemplo());
    TTreeNode *Posto = No(QStringLiteral("1ª Brigada de Infantaria/PC 1ª Bda"));
    QTest::mouseClick(FJanela->windowHandle(), Qt::LeftButton, {}, Lugar(Posto));
    QTest::keyClick(&Arvore(), Qt::Key_Delete); // one node: at once
    QCOMPARE(Arvore().Items().Count(), 292);
    QCOMPARE(FJanela->statusBar()->currentMessage(), QStringLiteral("1 nó excluído da árvore"));
    TTreeNode *Brigada = No(QStringLiteral("1ª Brigada de Infantaria"));
    const auto Abaixo = [&] {
        int Quantos = 0;
        for (TTreeNode *N = Brigada; N != nullptr && Brigada->Contem(N); N = N->GetNext())
            ++Quantos;
        return Quantos;
    };
    const int Quantos = Abaixo();
    Arvore().AtribuirSelected(Brigada);
    {
        TResposta Nao(QMessageBox::No);
        QTest::keyClick(&Arvore(), Qt::Key_Delete);
        QVERIFY(Nao.Texto.startsWith(QStringLiteral("Excluir %1 nós da árvore?|").arg(Quantos)));
    }
    QCOMPARE(Arvore().Items().Count(), 292);
    FJanela->activateWindow(); // as a window manager does
    QVERIFY(QTest::qWaitForWindowActive(FJanela.get()));
    TResposta Sim(QMessageBox::Yes);
    QTest::keyClick(&Arvore(), Qt::Key_Delete);
    QCOMPARE(Arvore().Items().Count(), 292 - Quantos);
    QVERIFY(No(QStringLiteral("1ª Brigada de Infantaria")) == nullptr);
}

void TesteArvoreNaJanela::OsDocumentosSoltos()
{
    const QString A = Gravar(QStringLiteral("a.xml"), "<R><Brigada Nome='Um'/></R>");
    const QString B = Gravar(QStringLiteral("b.xml"), "<R><Brigada Nome='Dois'/></R>");
    Soltar({B, A}); // in the order of names; the first opens, the others update
    QVERIFY(Esperar());
    QCOMPARE(ListaDaArvore(Arvore()),
             QStringLiteral("Um\tcor=#000000\tsimbolo=0\nDois\tcor=#000000\tsimbolo=0\n"));
    QVERIFY(FJanela->windowTitle().contains(QStringLiteral("a.xml")));
    Soltar({Gravar(QStringLiteral("c.xml"), "<R><Brigada Nome='Um' Cor='255'/></R>")});
    QVERIFY(Esperar());
    QCOMPARE(Arvore().Items().Count(), 2);
    QVERIFY(ListaDaArvore(Arvore()).startsWith(QStringLiteral("Um\tcor=#ff0000")));
    QCOMPARE(FJanela->Erros, QStringList());
}

void TesteArvoreNaJanela::ATabelaTrocadaChegaAArvore()
{
    QVERIFY(FJanela->Abrir(Gravar(QStringLiteral("a.txt"), "1\nComposto   \"Um\" 0\n")));
    QCOMPARE(Arvore().TabelaDeSimbolos(), &FJanela->Biblioteca().Tabela());
    QVERIFY(
        FJanela->Abrir(Gravar(QStringLiteral("b.txt"), "2\nComposto   \"Um\" 0\nComposto   \"Dois\" 0\n")));
    QCOMPARE(Arvore().TabelaDeSimbolos(), &FJanela->Biblioteca().Tabela());
    QCOMPARE(Arvore().TabelaDeSimbolos()->Simbolos().Count(), 2);
}

QTEST_MAIN(TesteArvoreNaJanela)
#include "TesteArvoreNaJanela.moc"
