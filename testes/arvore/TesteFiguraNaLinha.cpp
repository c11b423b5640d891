// SPDX-License-Identifier: LGPL-2.1-or-later
// A row whose symbol is a vector figure: the figure leaves brush and text alignment behind, the caption is
// the row's.
#include "arvore/TreeViewXML.h"
#include "comum/Dados.h"
#include "simbolos/Poligono.h"
#include "simbolos/SimboloComposto.h"
#include "simbolos/SimboloVetorial.h"
#include "simbolos/Texto.h"

#include <QTest>

using namespace Sibrel;
using namespace Sibrel::Testes;

namespace
{

constexpr int Altura = 20;

std::unique_ptr<ISimbolo> Figura()
{
    auto Simbolo = std::make_unique<TSimboloVetorial>();
    auto Quadro = std::make_unique<TPoligono>();
    Quadro->AtribuirFechado(true);
    Quadro->AtribuirCorFundo(clRed);
    for (const TPoint P : {TPoint(0, 0), TPoint(60, 0), TPoint(60, 40), TPoint(0, 40)})
        Quadro->ObterListaPosicao().Add(P);
    Simbolo->ObterElementos().Add(std::move(Quadro));
    auto Texto = std::make_unique<TTexto>();
    Texto->AtribuirTexto(QStringLiteral("x"));
    Texto->AtribuirX(30);
    Texto->AtribuirY(20);
    Simbolo->ObterElementos().Add(std::move(Texto));
    return Simbolo;
}

QImage Linha(std::unique_ptr<ISimbolo> Simbolo)
{
    TTabelaDeSimbolos Tabela;
    Tabela.Simbolos().Add(std::move(Simbolo));
    TTreeViewXML Vista;
    Vista.resize(200, 2 * Altura);
    Vista.setFrameShape(QFrame::NoFrame);
    Vista.AtribuirItemHeight(Altura);
    Vista.ensurePolished();
    Vista.AtribuirTabelaDeSimbolos(&Tabela);
    TFont Fonte;
    Fonte.AtribuirName(FamiliaDeTexto);
    Vista.AtribuirFonte(Fonte);
    Vista.Nos()
        .AddNode(TRefNoXML::De<TTreeNodeXML>().Criar(Vista.Nos()), nullptr)
        ->AtribuirText(QStringLiteral("Legenda"));
    QImage Tela(Vista.viewport()->size(), QImage::Format_RGB32);
    Tela.fill(Qt::white);
    Vista.viewport()->render(&Tela);
    return Tela;
}

} // namespace

class TesteFiguraNaLinha : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { CarregarFontes(); }
    void ALegendaNaoMudaComOSimbolo();
};

void TesteFiguraNaLinha::ALegendaNaoMudaComOSimbolo()
{
    const QImage ComFigura = Linha(Figura());
    const QImage SemNada = Linha(std::make_unique<TSimboloComposto>());
    constexpr int InicioDaCaixa = 5 + (Altura - 9) / 2;
    constexpr int InicioDoSimbolo = InicioDaCaixa + 9 + 2;
    const QRect DoSimbolo(InicioDoSimbolo, 0, Altura, Altura);
    const QRect DaLegenda(DoSimbolo.right() + 1, 0, ComFigura.width() - DoSimbolo.right() - 1, Altura);
    QVERIFY(ComFigura.copy(DoSimbolo) != SemNada.copy(DoSimbolo)); // the figure is there
    QCOMPARE(ComFigura.copy(DaLegenda), SemNada.copy(DaLegenda));
}

QTEST_MAIN(TesteFiguraNaLinha)
#include "TesteFiguraNaLinha.moc"
