// SPDX-License-Identifier: LGPL-2.1-or-later
// The rows of a tree as pictures.
#include "CenaDaArvore.h"
#include "comum/Controle.h"

#include <QScrollBar>

using namespace Sibrel;
using namespace Sibrel::Testes;

class TestePinturasDaArvore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void Pinturas_data();
    void Pinturas();
};

void TestePinturasDaArvore::initTestCase()
{
    CarregarFontes();
}

void TestePinturasDaArvore::Pinturas_data()
{
    QTest::addColumn<int>("Linha");
    QTest::addColumn<QString>("Como");
    QTest::addColumn<qreal>("Densidade");
    QTest::newRow("arvore-16") << 16 << "" << 1.0;
    QTest::newRow("arvore-24") << 24 << "" << 1.0;
    QTest::newRow("arvore-16-densidade-2") << 16 << "" << 2.0;
    QTest::newRow("arvore-selecionada-com-foco") << 16 << "foco" << 1.0;
    QTest::newRow("arvore-selecionada-sem-foco") << 16 << "selecao" << 1.0;
    QTest::newRow("arvore-link-selecionado") << 16 << "link" << 1.0;
    QTest::newRow("arvore-recolhida") << 16 << "recolhida" << 1.0;
    QTest::newRow("arvore-sem-tabela") << 16 << "sem tabela" << 1.0;
    QTest::newRow("arvore-rolada") << 16 << "rolada" << 1.0;
    QTest::newRow("arvore-24-com-foco") << 24 << "foco" << 1.0;
    QTest::newRow("arvore-24-sem-foco") << 24 << "selecao" << 1.0;
    QTest::newRow("arvore-24-link-selecionado") << 24 << "link" << 1.0;
    QTest::newRow("arvore-24-sem-tabela") << 24 << "sem tabela" << 1.0;
    QTest::newRow("arvore-24-densidade-2") << 24 << "selecao" << 2.0;
    QTest::newRow("arvore-16-com-foco-densidade-2") << 16 << "foco" << 2.0;
    QTest::newRow("arvore-expandida") << 16 << "expandida" << 1.0;
    QTest::newRow("arvore-nivel-1-recolhido") << 16 << "nivel 1" << 1.0;
    QTest::newRow("arvore-fora-da-tabela-selecionada") << 16 << "fora" << 1.0;
    QTest::newRow("arvore-varias-selecionadas") << 16 << "varias" << 1.0;
    QTest::newRow("arvore-direita-a-esquerda") << 24 << "hebraico" << 1.0;
}

// What stands selected, open or scrolled in a picture.
static void Arrumar(TCena &Cena, const QString &Como)
{
    TTreeViewXML &Vista = Cena.Vista;
    if (Como == u"foco" || Como == u"selecao") {
        Vista.AtribuirSelected(Cena.B);
    } else if (Como == u"link") {
        Vista.AtribuirSelected(Cena.Elo);
    } else if (Como == u"hebraico") {
        Vista.AtribuirSelected(Cena.Ultimo->GetPrevSibling());
    } else if (Como == u"fora") {
        Vista.AtribuirSelected(Cena.C->GetNextSibling());
    } else if (Como == u"varias") {
        Vista.AtribuirSelected(Cena.B);
        for (const TTreeNode *No : {Cena.Elo, Cena.Fechado})
            Vista.selectionModel()->select(Vista.Modelo().IndiceDe(No), QItemSelectionModel::Select);
    } else if (Como == u"recolhida") {
        Cena.A->Collapse();
    } else if (Como == u"nivel 1") {
        Cena.B->Collapse();
    } else if (Como == u"expandida") {
        Cena.Fechado->Expand();
        Vista.resize(Vista.width(), Vista.height() + Vista.ItemHeight());
    } else if (Como == u"rolada") {
        Cena.Imagem();
        QTRY_VERIFY(Vista.horizontalScrollBar()->maximum() > 0);
        Vista.horizontalScrollBar()->setValue(40);
    }
}

void TestePinturasDaArvore::Pinturas()
{
    QFETCH(int, Linha);
    QFETCH(QString, Como);
    QFETCH(qreal, Densidade);
    TCena Cena(Linha, Como != u"sem tabela");
    QVERIFY(QTest::qWaitForWindowExposed(&Cena.Vista));
    QWidget Outra; // takes the focus
    if (Como == u"selecao") {
        Outra.show();
        Outra.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&Outra));
        QVERIFY(!Cena.Vista.hasFocus());
    } else if (QStringList{"foco", "link", "hebraico", "fora", "varias"}.contains(Como)) {
        Focar(Cena.Vista);
    }
    Arrumar(Cena, Como);
    QCOMPARE(CompararComControle(Cena.Imagem(Densidade), QString::fromLatin1(QTest::currentDataTag())),
             QString());
}

QTEST_MAIN(TestePinturasDaArvore)
#include "TestePinturasDaArvore.moc"
