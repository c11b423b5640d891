// SPDX-License-Identifier: LGPL-2.1-or-later
// What a screen reader is told of a tree and of the information frame, and what a host's style sheet may do.
#include "CenaDaArvore.h"

#include <QAccessible>
#include <QHeaderView>
#include <QScrollBar>
#include <QTableWidget>
#include <QWindow>

using namespace Sibrel;
using namespace Sibrel::Testes;

namespace
{

QString Nome(const QAccessibleInterface *Interface)
{
    return Interface != nullptr ? Interface->text(QAccessible::Name) : QStringLiteral("(nada)");
}

// The rows that the view's interface tells, in order.
QStringList Linhas(QAccessibleInterface &Arvore)
{
    QStringList Textos;
    for (int I = 0; I < Arvore.childCount(); ++I)
        if (const QAccessibleInterface *Linha = Arvore.child(I); Linha->role() == QAccessible::TreeItem)
            Textos += Nome(Linha);
    return Textos;
}

QAccessibleInterface *Linha(QAccessibleInterface &Arvore, const QString &Texto)
{
    for (int I = 0; I < Arvore.childCount(); ++I)
        if (QAccessibleInterface *Uma = Arvore.child(I); Nome(Uma) == Texto)
            return Uma;
    return nullptr;
}

QAccessibleInterface &InterfaceDe(QWidget &Controle)
{
    return *QAccessible::queryAccessibleInterface(&Controle);
}

// Colour of the row's background, at a place where nothing is drawn.
QColor FundoDe(TCena &Cena, const TTreeNode *No)
{
    const TRect Linha = Cena.Vista.DisplayRect(No);
    return Cena.Imagem().pixelColor(Cena.Vista.viewport()->width() - 3, Linha.Top + 2);
}

int Diferentes(const QImage &A, const QImage &B)
{
    int Quantos = 0;
    for (int Y = 0; Y < A.height(); ++Y)
        for (int X = 0; X < A.width(); ++X)
            Quantos += A.pixel(X, Y) != B.pixel(X, Y) ? 1 : 0;
    return Quantos;
}

} // namespace

class TesteAcessibilidadeDaArvore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void CadaLinhaDizLegendaSimboloELink();
    void SemTabelaSoALegenda();
    void OTextoSegueOsRotulos();
    void EstadosDaLinha();
    void OTecladoAbreOQueOLeitorVe();
    void OQuadroDeInformacoesELido();
    void AFolhaDeEstiloPintaOFundo();
    void AFolhaDeEstiloPintaASelecao();
    void AFolhaDeEstiloNaoMudaODesenhoDasLinhas();
    void AFolhaDeEstiloNaoMoveACaixa();
    void RegrasDeItemNaoTrocamODesenho();
};

void TesteAcessibilidadeDaArvore::initTestCase()
{
    CarregarFontes();
}

void TesteAcessibilidadeDaArvore::CadaLinhaDizLegendaSimboloELink()
{
    TCena Cena;
    QAccessibleInterface &Arvore = InterfaceDe(Cena.Vista);
    QCOMPARE(Arvore.role(), QAccessible::Tree);
    QCOMPARE(Linhas(Arvore),
             QStringList({"Brigada, Símbolo 33", "Batalhão, Símbolo 34",
                          "Companhia com um nome muito comprido, que não cabe, Símbolo 35", "Fora da tabela",
                          "Negativo", "Batalhão, Símbolo 34, link", "não é XML", "Fechado, Símbolo 33",
                          "שלום עולם, Símbolo 33", "Último, Símbolo 34"}));
}

void TesteAcessibilidadeDaArvore::SemTabelaSoALegenda()
{
    TCena Cena(16, false);
    QAccessibleInterface &Arvore = InterfaceDe(Cena.Vista);
    QCOMPARE(Linhas(Arvore).first(), QStringLiteral("Brigada"));
    QVERIFY(Linhas(Arvore).contains(QStringLiteral("Batalhão, link")));
}

void TesteAcessibilidadeDaArvore::OTextoSegueOsRotulos()
{
    TCena Cena;
    QAccessibleInterface &Arvore = InterfaceDe(Cena.Vista);
    Cena.Simbolos->AtribuirListaDeRotulos({QStringLiteral("Posto de comando"), QString()});
    QCOMPARE(Linhas(Arvore)[0], QStringLiteral("Brigada, Posto de comando"));
    QCOMPARE(Linhas(Arvore)[1], QStringLiteral("Batalhão")); // its label is empty now
    Cena.A->AtribuirText(QStringLiteral("1ª Brigada"));
    QCOMPARE(Linhas(Arvore)[0], QStringLiteral("1ª Brigada, Posto de comando"));
}

void TesteAcessibilidadeDaArvore::EstadosDaLinha()
{
    TCena Cena;
    Focar(Cena.Vista);
    Cena.Vista.AtribuirSelected(Cena.B);
    QAccessibleInterface &Arvore = InterfaceDe(Cena.Vista);
    const QAccessibleInterface *Batalhao = Linha(Arvore, QStringLiteral("Batalhão, Símbolo 34"));
    QVERIFY(Batalhao);
    QVERIFY(Batalhao->state().selected && Batalhao->state().focused && Batalhao->state().expanded);
    QVERIFY(!Batalhao->state().editable);
    const QAccessibleInterface *Fechado = Linha(Arvore, QStringLiteral("Fechado, Símbolo 33"));
    QVERIFY(Fechado->state().expandable && !Fechado->state().expanded && !Fechado->state().selected);
    const QAccessibleInterface *Folha = Linha(Arvore, QStringLiteral("Negativo"));
    QVERIFY(!Folha->state().expandable);
    // The row that is told is the one that stands there.
    const TRect NaVista = Cena.Vista.DisplayRect(Cena.B);
    const QPoint Meio = Cena.Vista.viewport()->mapToGlobal(QPoint(100, (NaVista.Top + NaVista.Bottom) / 2));
    QVERIFY(Batalhao->rect().contains(Meio));
    QCOMPARE(Nome(Arvore.childAt(Meio.x(), Meio.y())), Nome(Batalhao));
}

void TesteAcessibilidadeDaArvore::OTecladoAbreOQueOLeitorVe()
{
    TCena Cena;
    Focar(Cena.Vista);
    Cena.Vista.AtribuirSelected(Cena.Fechado);
    QAccessibleInterface &Arvore = InterfaceDe(Cena.Vista);
    QCOMPARE(Nome(Arvore.focusChild()), QStringLiteral("Fechado, Símbolo 33"));
    const qsizetype Antes = Linhas(Arvore).size();
    QTest::keyClick(&Cena.Vista, Qt::Key_Right);
    QVERIFY(Cena.Fechado->Expanded());
    QCOMPARE(Linhas(Arvore).size(), Antes + 1);
    QTest::keyClick(&Cena.Vista, Qt::Key_Down);
    QCOMPARE(Nome(Arvore.focusChild()), QStringLiteral("Dentro, Símbolo 33"));
}

void TesteAcessibilidadeDaArvore::OQuadroDeInformacoesELido()
{
    TCena Cena;
    TVisualizadorInformacoesXML Quadro;
    Quadro.show();
    Cena.Vista.AtribuirFrameDeInformacoes(&Quadro);
    Cena.A->Informacao().Assign(TStringList(QStringList{"Efetivo=648", "Codinome=\"Águia\" & cia"}));
    Cena.Vista.AtribuirSelected(Cena.A);
    auto *Celulas = Quadro.findChild<QTableWidget *>();
    QAccessibleInterface &Tabela = InterfaceDe(*Celulas);
    QCOMPARE(Nome(&Tabela), QStringLiteral("Informações"));
    QAccessibleTableInterface *Grade = Tabela.tableInterface();
    QVERIFY(Grade);
    QCOMPARE(Grade->rowCount(), 2);
    QCOMPARE(Grade->columnDescription(0), QStringLiteral("Informação"));
    QCOMPARE(Grade->columnDescription(1), QStringLiteral("Valor"));
    QCOMPARE(Nome(Grade->cellAt(0, 0)), QStringLiteral("Efetivo"));
    QCOMPARE(Nome(Grade->cellAt(0, 1)), QStringLiteral("648"));
    QCOMPARE(Nome(Grade->cellAt(1, 1)), QStringLiteral("\"Águia\" & cia"));
    // The keyboard reaches it, and moves from cell to cell.
    Quadro.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&Quadro));
    Quadro.setFocus(Qt::TabFocusReason);
    QVERIFY(Celulas->hasFocus());
    Celulas->setCurrentCell(0, 0);
    QTest::keyClick(Celulas, Qt::Key_Down);
    QVERIFY(Grade->cellAt(1, 0)->state().focused);
}

void TesteAcessibilidadeDaArvore::AFolhaDeEstiloPintaOFundo()
{
    TCena Cena;
    QCOMPARE(FundoDe(Cena, Cena.A), QColor(Qt::white));
    Cena.Vista.setStyleSheet(QStringLiteral("QTreeView { background-color: #fff0c0 }"));
    QCOMPARE(FundoDe(Cena, Cena.A), QColor(0xFFF0C0));
    QCOMPARE(FundoDe(Cena, Cena.Elo->GetNextSibling()), QColor(0xFFF0C0)); // a row that draws nothing
}

void TesteAcessibilidadeDaArvore::AFolhaDeEstiloPintaASelecao()
{
    TCena Cena;
    Cena.Vista.setStyleSheet(
        QStringLiteral("QTreeView { selection-background-color: #804000; selection-color: #ffff00 }"));
    Focar(Cena.Vista);
    Cena.Vista.AtribuirSelected(Cena.B);
    QCOMPARE(FundoDe(Cena, Cena.B), QColor(0x804000));
    QCOMPARE(FundoDe(Cena, Cena.C), QColor(Qt::white));
    // Without the focus it is the system's colours that mark the row.
    QWidget Outra;
    Outra.show();
    Outra.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&Outra));
    QCOMPARE(FundoDe(Cena, Cena.B), QColor(0, 0, 128));
}

// The font, padding and text colour of a sheet are for what Qt draws: rows keep their own.
void TesteAcessibilidadeDaArvore::AFolhaDeEstiloNaoMudaODesenhoDasLinhas()
{
    TCena Cena;
    const QImage Antes = Cena.Imagem();
    Cena.Vista.setStyleSheet(
        QStringLiteral("QTreeView { color: red; font-size: 30px; show-decoration-selected: 1; "
                       "alternate-background-color: yellow }"));
    QCoreApplication::processEvents();
    QCOMPARE(Cena.Vista.TabelaDeSimbolos(), Cena.Simbolos.get()); // the window was not made anew
    QCOMPARE(Diferentes(Antes, Cena.Imagem()), 0);
    Cena.Vista.setStyleSheet(QString());
    QCoreApplication::processEvents();
    QCOMPARE(Cena.Vista.TabelaDeSimbolos(), Cena.Simbolos.get());
    QCOMPARE(Diferentes(Antes, Cena.Imagem()), 0);
}

void TesteAcessibilidadeDaArvore::AFolhaDeEstiloNaoMoveACaixa()
{
    TCena Cena;
    Cena.Vista.setStyleSheet(QStringLiteral("QTreeView { background-color: #fff0c0 }"));
    Focar(Cena.Vista);
    const TRect Linha = Cena.Vista.DisplayRect(Cena.B);
    const QPoint Canto(19 + 5 + 3, Linha.Top + 3); // level 1, margin, (16 - 9) / 2
    const auto Muda = [&](QPoint Onde) {
        const bool Antes = Cena.B->Expanded();
        QTest::mouseClick(Cena.Vista.windowHandle(), Qt::LeftButton, {}, NaJanela(Cena.Vista, Onde));
        QTest::qWait(QApplication::doubleClickInterval() + 20); // or two clicks become a double one
        return Cena.B->Expanded() != Antes;
    };
    QVERIFY(Muda(Canto));
    QVERIFY(Muda(Canto + QPoint(8, 8)));
    QVERIFY(!Muda(Canto + QPoint(-1, 4)));
    QVERIFY(!Muda(Canto + QPoint(9, 4)));
}

void TesteAcessibilidadeDaArvore::RegrasDeItemNaoTrocamODesenho()
{
    TCena Cena;
    const QImage Antes = Cena.Imagem();
    Cena.Vista.setStyleSheet(
        QStringLiteral("QTreeView::item { background: yellow; border: 2px solid red; padding: 9px } "
                       "QTreeView::branch { background: green }"));
    QCoreApplication::processEvents();
    QCOMPARE(Diferentes(Antes, Cena.Imagem()), 0);
    const int Altura = Cena.Vista.DisplayRect(Cena.A).Bottom - Cena.Vista.DisplayRect(Cena.A).Top;
    QCOMPARE(Altura, 16);
}

QTEST_MAIN(TesteAcessibilidadeDaArvore)
#include "TesteAcessibilidadeDaArvore.moc"
