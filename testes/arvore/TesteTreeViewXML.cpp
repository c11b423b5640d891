// SPDX-License-Identifier: LGPL-2.1-or-later
#include "arvore/CenaDaArvore.h"
#include "arvore/TagsXML.h"
#include "plataforma/Exception.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <QWindow>

using namespace Sibrel;
using namespace Sibrel::Testes;

namespace
{

class TNoComMenu : public ComClasse<TNoComMenu, TTreeNodeXML>
{
public:
    using ComClasse::ComClasse;
    static constexpr const char *NomeDaClasse = "TNoComMenu";
    void ConfigurarPopup(QMenu &Menu) override
    {
        Menu.addAction(QStringLiteral("Seguir ") + Text());
        Menu.addAction(QStringLiteral("Mais"));
    }
};

class TNoComLegendaPropria : public ComClasse<TNoComLegendaPropria, TTreeNodeXML>
{
public:
    using ComClasse::ComClasse;
    static constexpr const char *NomeDaClasse = "TNoComLegendaPropria";
    bool AtribuirNoXML(const IXMLNode &No) override
    {
        ComClasse::AtribuirNoXML(No);
        AtribuirText(QStringLiteral("<%1>").arg(Text()));
        return true;
    }
};

IXMLNode Elemento(const QString &XML)
{
    return TXMLDocument::DeTexto(XML)->DocumentElement();
}

} // namespace

class TesteTreeViewXML : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void RegistroDeTags();
    void ValoresDeNascenca();
    void JanelaSoltaAsReferencias();
    void TabelaQueMorre();
    void IrmaosDeMesmaLegenda();
    void SemIdentificacaoOPrimeiroXML();
    void NomeVazioSoPelaClasse();
    void OutroAtributoDeNome();
    void SoUmNivel();
    void CaminhoDosNos();
    void BuscaPorLegendaEsvaziaALista();
    void ExcluirComConsentimento();
    void ExcluirTodosPulaOQueJaSaiu();
    void FrameMostraASelecao();
    void FrameCopia();
    void DuploCliqueSegueOLink();
    void MaoSobreOsLinks();
    void MenuGanhaEPerdeItens();
    void CaixaDeExpansaoAoPixel();
    void PerguntaPadraoNaTela();
    void ProgressoSoDeAtualizacao();
    void RepaintPoeOBitmapQuadrado();
    void RolagemHorizontalPelaLinhaMaisLarga();
};

void TesteTreeViewXML::initTestCase()
{
    CarregarFontes();
}

void TesteTreeViewXML::RegistroDeTags()
{
    TTreeViewXML::RegistrarClasse(QStringLiteral("Ação"), TRefNoXML::De<TNoComMenu>());
    try {
        TTreeViewXML::RegistrarClasse(QStringLiteral("AÇÃO"), TRefNoXML::De<TTreeNodeXML>());
        QFAIL("devia falhar");
    } catch (const EInvalidOperation &E) {
        QCOMPARE(E.Message, QStringLiteral("A Tag <AÇÃO> ja foi registrada!!"));
    }
    TRefNoXML Classe;
    QVERIFY(TTreeViewXML::ObterRefClassPeloTag(QStringLiteral("ação"), Classe));
    QVERIFY(Classe == TRefNoXML::De<TNoComMenu>());
    TTreeViewXML::RemoverRegistroClasse(QStringLiteral("aÇão"));
    QVERIFY(!TTreeViewXML::ObterRefClassPeloTag(QStringLiteral("Ação"), Classe));
    QVERIFY(!Classe);
    try {
        TTreeViewXML::RemoverRegistroClasse(QStringLiteral("Ação"));
        QFAIL("devia falhar");
    } catch (const EInvalidOperation &E) {
        QCOMPARE(E.Message, QStringLiteral("A Tag <Ação> não foi registrada!!"));
    }
}

void TesteTreeViewXML::ValoresDeNascenca()
{
    const TTreeViewXML Vista;
    QVERIFY(Vista.ConfigurarPopup);
    QVERIFY(Vista.FrameDeInformacoes() == nullptr && Vista.TabelaDeSimbolos() == nullptr);
    QCOMPARE(Vista.AtributoNome, QStringLiteral("Nome"));
    QVERIFY(Vista.ElementoRaiz.isEmpty());
    QVERIFY(qAbs(Vista.DataHora().secsTo(QDateTime::currentDateTime())) < 10);
}

void TesteTreeViewXML::JanelaSoltaAsReferencias()
{
    const auto Simbolos = Tabela();
    TVisualizadorInformacoesXML Frame;
    TTreeViewXML Vista;
    Vista.AtribuirTabelaDeSimbolos(Simbolos.get());
    Vista.AtribuirFrameDeInformacoes(&Frame);
    Vista.ensurePolished();
    QVERIFY(Vista.TabelaDeSimbolos() == nullptr);
    QVERIFY(Vista.FrameDeInformacoes() == nullptr);
    QCOMPARE(Vista.selectionMode(), QAbstractItemView::ExtendedSelection);
    QCOMPARE(Vista.editTriggers(), QAbstractItemView::NoEditTriggers);
    QCOMPARE(Vista.BitmapDeDesenho()->Width(), 20);
    Vista.AtribuirTabelaDeSimbolos(Simbolos.get());
    Vista.show();
    QCOMPARE(Vista.TabelaDeSimbolos(), Simbolos.get()); // it had its window already
    Vista.RecriarJanela();
    QVERIFY(Vista.TabelaDeSimbolos() == nullptr);
}

void TesteTreeViewXML::TabelaQueMorre()
{
    auto Simbolos = Tabela();
    TTreeViewXML Vista;
    Vista.AtribuirTabelaDeSimbolos(Simbolos.get());
    Simbolos.reset();
    QVERIFY(Vista.TabelaDeSimbolos() == nullptr);
}

void TesteTreeViewXML::IrmaosDeMesmaLegenda()
{
    TTreeViewXML Vista;
    const TTreeNodeXML *Um = Novo(Vista, nullptr, U("A", "1"));
    const TTreeNodeXML *Dois = Novo(Vista, nullptr, U("A", "2"));
    const TRefNoXML Classe = TRefNoXML::De<TTreeNodeXML>();
    QCOMPARE(Vista.ObterNoPeloXML(nullptr, Elemento(U("A", "2")), Classe), Dois);
    QCOMPARE(Vista.ObterNoPeloXML(nullptr, Elemento(U("A", "1")), Classe), Um);
    QVERIFY(Vista.ObterNoPeloXML(nullptr, Elemento(U("A", "3")), Classe) == nullptr);
    QVERIFY(Vista.ObterNoPeloXML(nullptr, Elemento(U("a", "1")), Classe) == nullptr);
}

void TesteTreeViewXML::SemIdentificacaoOPrimeiroXML()
{
    TTreeViewXML Vista;
    Vista.Nos().AddChild(nullptr, QStringLiteral("A"));
    const TTreeNodeXML *Um = Novo(Vista, nullptr, U("A", "1"));
    Novo(Vista, nullptr, U("A", "2"));
    QCOMPARE(Vista.ObterNoPeloXML(nullptr, Elemento(QStringLiteral("<U Nome='A'/>")), {}), Um);
}

void TesteTreeViewXML::NomeVazioSoPelaClasse()
{
    TTreeViewXML Vista;
    Novo(Vista, nullptr, QStringLiteral("<U Nome=''/>"));
    const TTreeNodeXML *Proprio =
        Novo(Vista, nullptr, QStringLiteral("<U Nome=''/>"), TRefNoXML::De<TNoComLegendaPropria>());
    QCOMPARE(Proprio->Text(), QStringLiteral("<>"));
    const IXMLNode Vazio = Elemento(QStringLiteral("<U Nome=''/>"));
    QVERIFY(Vista.ObterNoPeloXML(nullptr, Vazio, {}) == nullptr);
    QVERIFY(Vista.ObterNoPeloXML(nullptr, Vazio, TRefNoXML::De<TTreeNodeXML>()) == nullptr);
    QCOMPARE(Vista.ObterNoPeloXML(nullptr, Vazio, TRefNoXML::De<TNoComLegendaPropria>()), Proprio);
}

void TesteTreeViewXML::OutroAtributoDeNome()
{
    TTreeViewXML Vista;
    Vista.AtributoNome = QStringLiteral("Sigla");
    const TTreeNodeXML *No = Novo(Vista, nullptr, U("A", "1"));
    const IXMLNode XML = Elemento(U("A", "1", {}, "Sigla='S'"));
    QVERIFY(Vista.ObterNoPeloXML(nullptr, XML, {}) == nullptr);
    QCOMPARE(Vista.ObterNoPeloXML(nullptr, XML, TRefNoXML::De<TTreeNodeXML>()), No);
}

void TesteTreeViewXML::SoUmNivel()
{
    TTreeViewXML Vista;
    TTreeNodeXML *Pai = Novo(Vista, nullptr, U("A", "1"));
    const TTreeNodeXML *Filho = Novo(Vista, Pai, U("B", "2"));
    QVERIFY(Vista.ObterNoPeloXML(nullptr, Elemento(U("B", "2")), {}) == nullptr);
    QCOMPARE(Vista.ObterNoPeloXML(Pai, Elemento(U("B", "2")), {}), Filho);
}

void TesteTreeViewXML::CaminhoDosNos()
{
    TTreeViewXML Vista;
    TTreeNodeXML *A = Novo(Vista, nullptr, U("A", "1"));
    TTreeNodeXML *B = Novo(Vista, A, U("B", "2"));
    QCOMPARE(ObterCaminho(A, QStringLiteral(" > ")), QStringLiteral("A"));
    QCOMPARE(ObterCaminho(B, QStringLiteral(" > ")), QStringLiteral("A > B"));
    QCOMPARE(ObterCaminho(nullptr, QStringLiteral("/")), QString());
    QCOMPARE(Vista.ObterNo(QStringLiteral("A/B")), B);
    QVERIFY(Vista.ObterNo(QStringLiteral("B")) == nullptr);
    QCOMPARE(ObterNoPeloPath(Vista, QStringLiteral("A > B"), QStringLiteral(" > ")), B);
    TTreeView Simples(std::make_shared<TTreeNodes>());
    TTreeNode *X =
        Simples.Items().AddChild(Simples.Items().AddChild(nullptr, QStringLiteral("W")), QStringLiteral("X"));
    QCOMPARE(ObterNoPeloPath(Simples, QStringLiteral("W/X"), QStringLiteral("/")), X);
}

void TesteTreeViewXML::BuscaPorLegendaEsvaziaALista()
{
    TTreeViewXML Vista;
    TTreeNodeXML *A = Novo(Vista, nullptr, U("Alfa", "1"));
    Novo(Vista, A, U("Beta", "1"));
    std::vector<TTreeNode *> PorLegenda{A, A, A};
    Vista.ObterNos(PorLegenda, QStringLiteral("al"), sfPartial | sfCaseInsensitive);
    QVERIFY(PorLegenda == std::vector<TTreeNode *>{A});
    std::vector<TTreeNodeXML *> PorIdentificacao{A};
    Vista.ObterNos(PorIdentificacao, TStringList(QStringList{"c=1"}));
    QCOMPARE(PorIdentificacao.size(), std::size_t(3)); // appended to what was there
}

void TesteTreeViewXML::ExcluirComConsentimento()
{
    TTreeViewXML Vista;
    TTreeNodeXML *A = Novo(Vista, nullptr, U("A", "1"));
    bool Deixa = false;
    Vista.AoExcluirNo = [&](TTreeViewXML &V, TTreeNode &No, bool &Pode) {
        QVERIFY(&V == &Vista && &No == A && Pode);
        Pode = Deixa;
    };
    Vista.Excluir(A);
    QCOMPARE(Vista.Nos().Count(), 1);
    Deixa = true;
    Vista.Excluir(A);
    QCOMPARE(Vista.Nos().Count(), 0);
    Vista.Excluir(nullptr);
}

void TesteTreeViewXML::ExcluirTodosPulaOQueJaSaiu()
{
    TTreeViewXML Vista;
    TTreeNodeXML *A = Novo(Vista, nullptr, U("A", "1"));
    Novo(Vista, A, U("B", "1"));
    Novo(Vista, nullptr, U("C", "1"));
    Novo(Vista, nullptr, U("D", "2"));
    int Perguntas = 0;
    Vista.AoExcluirNo = [&](TTreeViewXML &, TTreeNode &, bool &) { ++Perguntas; };
    Vista.ExcluirTodosOsNos(TStringList(QStringList{"c=1"}));
    QCOMPARE(Perguntas, 2);
    QCOMPARE(Mostrado(Vista.Modelo()), QStringLiteral("D"));
    Vista.ExcluirTodosOsNos(TStringList());
    QCOMPARE(Vista.Nos().Count(), 1);
}

void TesteTreeViewXML::FrameMostraASelecao()
{
    TCena Cena;
    TVisualizadorInformacoesXML Frame;
    Cena.Vista.AtribuirFrameDeInformacoes(&Frame);
    Cena.A->Informacao().Assign(TStringList(QStringList{"p=a & \"b\"", "q=2"}));
    Cena.Vista.AtribuirSelected(Cena.A);
    QCOMPARE(Frame.Count(), 2);
    QCOMPARE(Frame.Nome(0), QStringLiteral("p"));
    QCOMPARE(Frame.Valor(0), QStringLiteral("a & \"b\""));
    Cena.Vista.AtribuirSelected(Cena.Elo->GetNextSibling()); // no XML: the frame keeps what it shows
    QCOMPARE(Frame.Count(), 2);
    Cena.Vista.AtribuirSelected(Cena.B);
    QCOMPARE(Frame.Count(), 0);
    QVERIFY_THROWS_EXCEPTION(EDOMParseError, Frame.ProcessarXML(QStringLiteral("<x")));
}

void TesteTreeViewXML::FrameCopia()
{
    TVisualizadorInformacoesXML Frame;
    Frame.ProcessarXML(QStringLiteral("<L> <i n='p' v='1'/><!--x--><i n='q' v='2'/></L>"));
    auto *Celulas = Frame.findChild<QTableWidget *>();
    Celulas->selectAll();
    Frame.Copiar();
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("p\t1\nq\t2"));
}

void TesteTreeViewXML::DuploCliqueSegueOLink()
{
    TCena Cena;
    Focar(Cena.Vista);
    Cena.Vista.AtribuirSelected(Cena.Elo);
    const TRect Linha = Cena.Vista.DisplayRect(Cena.Elo);
    QWindow *Janela = Cena.Vista.windowHandle();
    const auto DuploClique = [&](int X) {
        QTest::mouseDClick(Janela, Qt::LeftButton, {},
                           NaJanela(Cena.Vista, {X, (Linha.Top + Linha.Bottom) / 2}));
    };
    DuploClique(250); // far right of the caption
    QCOMPARE(Cena.Vista.Selected(), Cena.B);
    Cena.Vista.Nos().Delete(Cena.B);
    QCoreApplication::processEvents();
    Cena.Vista.AtribuirSelected(Cena.Elo);
    const TRect Agora = Cena.Vista.DisplayRect(Cena.Elo);
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    QTest::mouseDClick(Janela, Qt::LeftButton, {},
                       NaJanela(Cena.Vista, {60, (Agora.Top + Agora.Bottom) / 2}));
    QCOMPARE(Cena.Vista.Selected(), Cena.Elo); // its target is gone
}

void TesteTreeViewXML::MaoSobreOsLinks()
{
    TCena Cena;
    QVERIFY(QTest::qWaitForWindowExposed(&Cena.Vista));
    Cena.Vista.setCursor(Qt::CrossCursor);
    const auto Mover = [&](const TTreeNode *No) {
        const TRect Linha = Cena.Vista.DisplayRect(No);
        QTest::mouseMove(Cena.Vista.windowHandle(),
                         NaJanela(Cena.Vista, {80, (Linha.Top + Linha.Bottom) / 2}));
        QCoreApplication::processEvents();
    };
    Mover(Cena.Elo);
    QCOMPARE(Cena.Vista.cursor().shape(), Qt::PointingHandCursor);
    Mover(Cena.B);
    QCOMPARE(Cena.Vista.cursor().shape(), Qt::CrossCursor); // the one that was there when the hand was put on
}

void TesteTreeViewXML::MenuGanhaEPerdeItens()
{
    TCena Cena;
    Focar(Cena.Vista);
    TTreeNodeXML *ComMenu = Novo(Cena.Vista, nullptr, U("M", "m"), TRefNoXML::De<TNoComMenu>());
    QMenu Menu;
    Menu.addAction(QStringLiteral("Fixo"));
    Cena.Vista.AtribuirPopupMenu(&Menu);
    const auto Clicar = [&](const TTreeNode *No) {
        const TRect Linha = Cena.Vista.DisplayRect(No);
        QTest::mouseClick(Cena.Vista.windowHandle(), Qt::RightButton, {},
                          NaJanela(Cena.Vista, {80, (Linha.Top + Linha.Bottom) / 2}));
        QCoreApplication::processEvents();
        const bool Aberto = Menu.isVisible();
        Menu.close();
        QCoreApplication::processEvents();
        return Aberto;
    };
    QVERIFY(Clicar(ComMenu));
    QCOMPARE(Cena.Vista.Selected(), ComMenu);
    QCOMPARE(Menu.actions().size(), 3);
    QCOMPARE(Menu.actions()[1]->text(), QStringLiteral("Seguir M"));
    QVERIFY(Clicar(ComMenu));
    QCOMPARE(Menu.actions().size(), 3);
    QVERIFY(Clicar(Cena.A));
    QCOMPARE(Menu.actions().size(), 1);
    Cena.Vista.ConfigurarPopup = false;
    QVERIFY(Clicar(ComMenu));
    QCOMPARE(Menu.actions().size(), 1);
}

void TesteTreeViewXML::CaixaDeExpansaoAoPixel()
{
    TCena Cena(16);
    Focar(Cena.Vista);
    const TRect Linha = Cena.Vista.DisplayRect(Cena.B);
    const int Esquerda = 19 + 5 + 3; // level 1, margin, (16 - 9) / 2
    const int Topo = Linha.Top + 3;
    const auto Clicar = [&](int X, int Y) {
        const bool Antes = Cena.B->Expanded();
        QTest::mouseClick(Cena.Vista.windowHandle(), Qt::LeftButton, {}, NaJanela(Cena.Vista, {X, Y}));
        QTest::qWait(QApplication::doubleClickInterval() + 20); // or two clicks become a double one
        return Cena.B->Expanded() != Antes;
    };
    QVERIFY(Clicar(Esquerda, Topo));
    QVERIFY(Clicar(Esquerda + 8, Topo + 8));
    QVERIFY(!Clicar(Esquerda - 1, Topo + 4));
    QVERIFY(!Clicar(Esquerda + 9, Topo + 4));
    QVERIFY(!Clicar(Esquerda + 4, Topo - 1));
    QVERIFY(!Clicar(Esquerda + 4, Topo + 9));
}

void TesteTreeViewXML::PerguntaPadraoNaTela()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TTreeViewXML Vista;
    Vista.show();
    QStringList Textos;
    QTimer Operador;
    Operador.callOnTimeout([&] {
        if (auto *Caixa = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            Textos.append(Caixa->text());
            Caixa->button(Textos.size() == 1 ? QMessageBox::Yes : QMessageBox::No)->click();
        }
    });
    Operador.start(5);
    const QString Ruim = QStringLiteral("<U Nome='X' Cor='verde'/>");
    QStringList Etapas;
    Vista.OnProgresso = [&](TTreeViewXML &, TPreparaAtualizacao &A) { Etapas.append(A.Etapa()); };
    QTemporaryDir Pasta;
    TPreparaAtualizacao::AtribuirPastaDeErros(Pasta.path());
    Vista.Atualizar(Doc(Ruim + U("A", "1") + Ruim + U("B", "2")));
    QVERIFY(EsperarAtualizacoes());
    TPreparaAtualizacao::AtribuirPastaDeErros({});
    const QString Pergunta = QStringLiteral("Erro ao tratar o xml de resposta\r\nDeseja continuar?");
    QCOMPARE(Textos, QStringList({Pergunta, Pergunta}));
    QCOMPARE(Etapas.last(), QStringLiteral("XML em formato inválido!"));
    QCOMPARE(Vista.Nos().Count(), 0);
}

void TesteTreeViewXML::ProgressoSoDeAtualizacao()
{
    class TVistaAberta : public TTreeViewXML
    {
    public:
        using TTreeViewXML::DoProgresso;
    };
    TVistaAberta Vista;
    QObject Outro;
    QVERIFY_THROWS_EXCEPTION(EInvalidCast, Vista.DoProgresso(&Outro));
    QVERIFY_THROWS_EXCEPTION(EInvalidCast, Vista.DoProgresso(nullptr));
}

void TesteTreeViewXML::RepaintPoeOBitmapQuadrado()
{
    TCena Cena;
    Cena.Vista.BitmapDeDesenho()->AtribuirTamanho(30, 24);
    Cena.Vista.Repaint();
    QCOMPARE(Cena.Vista.BitmapDeDesenho()->Width(), 24);
    QCOMPARE(Cena.Vista.BitmapDeDesenho()->Height(), 24);
}

void TesteTreeViewXML::RolagemHorizontalPelaLinhaMaisLarga()
{
    TCena Cena;
    Cena.Vista.setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    Cena.Imagem();
    Cena.Vista.repaint();
    QTRY_VERIFY(Cena.Vista.header()->sectionSize(0) > Cena.Vista.viewport()->width());
    QTRY_VERIFY(Cena.Vista.horizontalScrollBar()->maximum() > 0);
    Cena.Vista.horizontalScrollBar()->setValue(30);
    QCOMPARE(Cena.Vista.DisplayRect(Cena.A).Left, -30);
    QCOMPARE(Cena.Vista.DisplayRect(Cena.A).Right, Cena.Vista.viewport()->width());
}

QTEST_MAIN(TesteTreeViewXML)
#include "TesteTreeViewXML.moc"
