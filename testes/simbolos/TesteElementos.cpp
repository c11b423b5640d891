// SPDX-License-Identifier: LGPL-2.1-or-later
// The elements one by one: defaults, boxes, outlines, the state that they leave on the canvas, their lists.
#include "Espia.h"
#include "comum/Dados.h"

#include "plataforma/Exception.h"
#include "simbolos/ListaElementosGraficos.h"
#include "simbolos/Poligono.h"
#include "simbolos/Ponto.h"
#include "simbolos/Setor.h"
#include "simbolos/Texto.h"

#include <QImage>
#include <QTest>

#include <cmath>
#include <limits>
#include <numbers>

using namespace Sibrel;
using Sibrel::Testes::TEspia;

namespace
{

constexpr double Infinito = std::numeric_limits<double>::infinity();

QImage Folha(int Lado = 60)
{
    QImage Imagem(Lado, Lado, QImage::Format_RGB32);
    Imagem.fill(Qt::white);
    return Imagem;
}

// What drawing the element paints and the canvas state that it leaves.
struct TDesenho {
    QImage Imagem = Folha();
    TPen Pen;
    TBrush Brush;
    TFont Font;
    unsigned TextAlign = 0;
};

TDesenho Desenhado(IElementoGrafico &Elemento, const TRect &Rect, const TPen &Pen = {},
                   const TBrush &Brush = {})
{
    TDesenho D;
    TCanvas Canvas(D.Imagem);
    Canvas.Pen = Pen;
    Canvas.Brush = Brush;
    Elemento.Desenhar(Canvas, Rect);
    D.Pen = Canvas.Pen;
    D.Brush = Canvas.Brush;
    D.Font = Canvas.Font;
    D.TextAlign = Canvas.TextAlign;
    return D;
}

bool EmBranco(const QImage &Imagem)
{
    return Imagem == Folha();
}

std::vector<TPoint> Contorno(const TSetor &S, const TRect &Rect)
{
    std::vector<TPoint> Pontos(TSetor::PontosDoContorno);
    S.ObterPontos(Pontos, Rect);
    return Pontos;
}

std::unique_ptr<TTexto> Frase(const QString &Texto)
{
    auto T = std::make_unique<TTexto>();
    T->Fonte().AtribuirName(Testes::FamiliaDeTexto);
    T->Fonte().AtribuirColor(clBlack);
    T->AtribuirTexto(Texto);
    return T;
}

int LarguraDe(const TTexto &T)
{
    QImage Imagem = Folha();
    TCanvas Canvas(Imagem);
    Canvas.Font = T.Fonte();
    return Canvas.TextWidth(T.Texto());
}

} // namespace

class TesteElementos : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Testes::CarregarFontes(); }

    void OsPadroesDeCadaElemento();
    void ClassesECopiasPelaClasse();

    void OPontoTemDoisDeRaio();
    void OPontoIgnoraAEscalaEASuaPosicao();
    void OPontoDeixaOEstiloDaCaneta();

    void AnguloZeroEADireitaENoventaEmCima();
    void DiscoInteiroTem50PontosDaBorda();
    void AnelTem25DentroE25Fora();
    void RaioMenorNegativoFazDisco();
    void PizzaComecaNoCentro();
    void FatiaAbertaTem25VezesOCentro();
    void FatiaFechadaDeAnelTemOsDoisArcos();
    void OCentroDaPizzaNaoTemDeslocamento();
    void OSetorSomaASuaPosicaoSemEscala();
    void OSetorDeixaCanetaEPincel();
    void ElipseESetor();
    void PoucosPontosNaoDerrubam();
    void OQueNaoEFinitoNaoSeDesenha_data();
    void OQueNaoEFinitoNaoSeDesenha();

    void PoligonoVazio();
    void PoligonoFechadoEnche();
    void PoligonoAbertoNaoEnche();
    void OPoligonoDeixaCanetaEPincel();
    void LinhaRetaNaoDerruba();
    void AListaDeVerticesTrocaDeDono();

    void AAlturaDoTextoEASuaLargura_data();
    void AAlturaDoTextoEASuaLargura();
    void AsBandeirasDeAlinhamento_data();
    void AsBandeirasDeAlinhamento();
    void OTextoFicaNaSuaPosicao();
    void ARotacaoChegaNoSegundoDesenho();
    void OTextoDeixaFonteAlinhamentoEPincel();

    void ListaPosicoesEValores();
    void ListaPosicoesMoveAsDeOutra();
    void ListaPosicoesRecusaOQueNaoTem();

    void AreaDaListaEAUniao();
    void AListaEDonaDosElementos();
    void AListaMoveOsDeOutra();
    void DoChangeAvisa();
    void CoordenadasNosLimites();
};

void TesteElementos::OsPadroesDeCadaElemento()
{
    const TPonto P;
    QCOMPARE(P.X(), 0);
    QCOMPARE(P.Y(), 0);
    QVERIFY(P.Cor() == clBlack);
    const TTexto T;
    QCOMPARE(T.X(), 0);
    QCOMPARE(T.Texto(), QString());
    QCOMPARE(int(T.AlinhamentoHorizontal()), 2);
    QCOMPARE(int(T.AlinhamentoVertical()), 2);
    QCOMPARE(T.Orientacao(), 0);
    QVERIFY(T.Fonte() == TFont());
    const TSetor S;
    QVERIFY(!S.Fechado());
    QCOMPARE(S.RaioMaior(), -1.0);
    QCOMPARE(S.RaioMenor(), -1.0);
    QCOMPARE(S.AngI(), -1.0);
    QCOMPARE(S.AngF(), -1.0);
    QVERIFY(S.CorLinha() == clBlack);
    QVERIFY(S.CorFundo() == TColor(16777215));
    QCOMPARE(int(S.EstiloLinha()), 2);
    QCOMPARE(int(S.EstiloFundo()), 0);
    const TPoligono G;
    QVERIFY(!G.Fechado());
    QVERIFY(G.CorLinha() == clBlack);
    QVERIFY(G.CorFundo() == clBlack);
    QCOMPARE(int(G.EstiloLinha()), 2);
    QCOMPARE(int(G.EstiloFundo()), 0);
    QCOMPARE(G.ObterListaPosicao().Count(), 0);
}

void TesteElementos::ClassesECopiasPelaClasse()
{
    const TElipse E;
    const std::unique_ptr<IElementoGrafico> Outra = E.ObterClasse().Criar();
    QVERIFY(dynamic_cast<TElipse *>(Outra.get()) != nullptr);
    QCOMPARE(E.ObterClasse().Nome(), "TElipse");
    QVERIFY(E.ObterClasse() != TSetor().ObterClasse());
}

void TesteElementos::OPontoTemDoisDeRaio()
{
    TPonto P;
    P.AtribuirX(10);
    P.AtribuirY(20);
    QVERIFY(P.Area() == TRect(8, 18, 12, 22));
}

void TesteElementos::OPontoIgnoraAEscalaEASuaPosicao()
{
    TPonto P;
    P.AtribuirX(1000);
    P.AtribuirCor(clRed);
    QImage Esperada = Folha();
    {
        TCanvas Canvas(Esperada);
        Canvas.Pen.Color = clRed;
        Canvas.Brush = {clRed, TBrushStyle::bsSolid};
        Canvas.Ellipse({18, 18, 22, 22});
    }
    for (const TRect &Rect : {TRect(0, 0, 40, 40), TRect(20, 20, 20, 20), TRect(19, 18, 22, 23)})
        QCOMPARE(Desenhado(P, Rect).Imagem, Esperada);
    QVERIFY(!EmBranco(Esperada));
}

void TesteElementos::OPontoDeixaOEstiloDaCaneta()
{
    TPonto P;
    P.AtribuirCor(clLime);
    const TDesenho D =
        Desenhado(P, {0, 0, 40, 40}, {clRed, TPenStyle::psDash, 1}, {clRed, TBrushStyle::bsCross});
    QVERIFY(D.Pen == (TPen{clLime, TPenStyle::psDash, 1}));
    QVERIFY(D.Brush == (TBrush{clLime, TBrushStyle::bsSolid}));
}

void TesteElementos::AnguloZeroEADireitaENoventaEmCima()
{
    const TSetor S;
    QVERIFY(S.ObterPonto(0, 10, {100, 100}) == TPoint(110, 100));
    QVERIFY(S.ObterPonto(std::numbers::pi / 2, 10, {100, 100}) == TPoint(100, 90));
    QVERIFY(S.ObterPonto(std::numbers::pi, 10, {100, 100}) == TPoint(90, 100));
}

void TesteElementos::DiscoInteiroTem50PontosDaBorda()
{
    TSetor S;
    S.AtribuirRaioMaior(10);
    S.AtribuirAngI(0.3);
    S.AtribuirAngF(0.3);
    const auto P = Contorno(S, {0, 0, 40, 40});
    for (int K = 0; K < 50; ++K)
        QVERIFY(P[std::size_t(K)] == S.ObterPonto(0.3 - K * 2 * std::numbers::pi / 49, 20, {20, 20}));
}

void TesteElementos::AnelTem25DentroE25Fora()
{
    TSetor S;
    S.AtribuirRaioMaior(10);
    S.AtribuirRaioMenor(5);
    S.AtribuirAngI(0.3);
    S.AtribuirAngF(0.3);
    const auto P = Contorno(S, {0, 0, 40, 40});
    for (int K = 0; K < 25; ++K) {
        QVERIFY(P[std::size_t(K)] == S.ObterPonto(0.3 + K * 2 * std::numbers::pi / 24, 10, {20, 20}));
        QVERIFY(P[std::size_t(25 + K)] == S.ObterPonto(0.3 - K * 2 * std::numbers::pi / 24, 20, {20, 20}));
    }
    QVERIFY(P[0] == P[24]);
    QVERIFY(P[25] == P[49]);
}

void TesteElementos::RaioMenorNegativoFazDisco()
{
    TSetor S;
    S.AtribuirRaioMaior(10);
    TSetor Zero;
    Zero.AtribuirRaioMaior(10);
    Zero.AtribuirRaioMenor(0);
    QVERIFY(Contorno(S, {0, 0, 40, 40}) == Contorno(Zero, {0, 0, 40, 40}));
}

void TesteElementos::PizzaComecaNoCentro()
{
    TSetor S;
    S.AtribuirFechado(true);
    S.AtribuirRaioMaior(10);
    S.AtribuirRaioMenor(0);
    S.AtribuirAngI(0);
    S.AtribuirAngF(1);
    const auto P = Contorno(S, {0, 0, 40, 40});
    QVERIFY(P[0] == TPoint(20, 20));
    for (int K = 0; K < 49; ++K)
        QVERIFY(P[std::size_t(1 + K)] == S.ObterPonto(1.0 - K * (1.0 / 48), 20, {20, 20}));
}

void TesteElementos::FatiaAbertaTem25VezesOCentro()
{
    TSetor S;
    S.AtribuirRaioMaior(10);
    S.AtribuirRaioMenor(0);
    S.AtribuirAngI(0);
    S.AtribuirAngF(1);
    const auto P = Contorno(S, {0, 0, 40, 40});
    for (std::size_t K = 0; K < 25; ++K)
        QVERIFY(P[K] == TPoint(20, 20));
    QVERIFY(P[25] == S.ObterPonto(1, 20, {20, 20}));
    QVERIFY(P[49] == TPoint(40, 20));
}

void TesteElementos::FatiaFechadaDeAnelTemOsDoisArcos()
{
    TSetor S;
    S.AtribuirFechado(true);
    S.AtribuirRaioMaior(10);
    S.AtribuirRaioMenor(5);
    S.AtribuirAngI(0);
    S.AtribuirAngF(std::numbers::pi / 2);
    const auto P = Contorno(S, {0, 0, 40, 40});
    QVERIFY(P[0] == TPoint(30, 20));
    QVERIFY(P[24] == TPoint(20, 10));
    QVERIFY(P[25] == TPoint(20, 0));
    QVERIFY(P[49] == TPoint(40, 20));
}

void TesteElementos::OCentroDaPizzaNaoTemDeslocamento()
{
    TSetor S;
    S.AtribuirX(7);
    S.AtribuirFechado(true);
    S.AtribuirRaioMaior(10);
    S.AtribuirRaioMenor(0);
    S.AtribuirAngF(1);
    const auto P = Contorno(S, {0, 0, 40, 40});
    QVERIFY(P[0] == TPoint(20, 20));
    S.AtribuirX(0);
    QVERIFY(P[1] == TPoint(Contorno(S, {0, 0, 40, 40})[1].X + 7, P[1].Y));
}

void TesteElementos::OSetorSomaASuaPosicaoSemEscala()
{
    TSetor S;
    S.AtribuirRaioMaior(4);
    S.AtribuirEstiloLinha(TPenStyle::psSolid);
    S.AtribuirCorFundo(clRed);
    const QImage NaOrigem = Desenhado(S, {10, 10, 30, 30}).Imagem;
    S.AtribuirX(5);
    S.AtribuirY(-3);
    const QImage Deslocado = Desenhado(S, {10, 10, 30, 30}).Imagem;
    QCOMPARE(Deslocado.copy(15, 7, 30, 30), NaOrigem.copy(10, 10, 30, 30));
}

void TesteElementos::OSetorDeixaCanetaEPincel()
{
    TSetor S;
    S.AtribuirRaioMaior(4);
    S.AtribuirCorLinha(clBlue);
    S.AtribuirEstiloFundo(TBrushStyle::bsCross);
    const TDesenho D = Desenhado(S, {10, 10, 30, 30}, {clRed, TPenStyle::psDash, 2});
    QVERIFY(D.Pen == (TPen{clBlue, TPenStyle::psDot, 2}));
    QVERIFY(D.Brush == (TBrush{clWhite, TBrushStyle::bsCross}));
}

void TesteElementos::ElipseESetor()
{
    TElipse E;
    E.AtribuirRaioMaior(9);
    TSetor S;
    S.AtribuirRaioMaior(9);
    QVERIFY(E.Area() == S.Area());
    QCOMPARE(E.ObterXML(), S.ObterXML());
    QCOMPARE(Desenhado(E, {0, 0, 40, 40}).Imagem, Desenhado(S, {0, 0, 40, 40}).Imagem);
    QVERIFY(!EmBranco(Desenhado(E, {0, 0, 40, 40}).Imagem));
}

void TesteElementos::PoucosPontosNaoDerrubam()
{
    for (const double Final : {-1.0, 1.0})
        for (const double Menor : {-1.0, 0.0, 3.0})
            for (std::size_t N = 0; N < 6; ++N) {
                TSetor S;
                S.AtribuirRaioMaior(9);
                S.AtribuirRaioMenor(Menor);
                S.AtribuirAngF(Final);
                S.AtribuirFechado(N % 2 == 0);
                std::vector<TPoint> Pontos(N, TPoint(77, 77));
                S.ObterPontos(Pontos, {0, 0, 18, 18});
                QCOMPARE(Pontos.size(), N);
            }
}

void TesteElementos::OQueNaoEFinitoNaoSeDesenha_data()
{
    QTest::addColumn<double>("RaioMaior");
    QTest::addColumn<double>("RaioMenor");
    QTest::addColumn<double>("AngI");
    QTest::newRow("raio infinito") << Infinito << 0.0 << 0.0;
    QTest::newRow("raio que nao e numero") << std::nan("") << 0.0 << 0.0;
    QTest::newRow("raio menor infinito") << 9.0 << Infinito << 0.0;
    QTest::newRow("angulo infinito") << 9.0 << 3.0 << Infinito;
    QTest::newRow("angulo que nao e numero") << 9.0 << 3.0 << std::nan("");
    QTest::newRow("area sem largura") << 0.0 << 0.0 << 0.0;
}

void TesteElementos::OQueNaoEFinitoNaoSeDesenha()
{
    QFETCH(double, RaioMaior);
    QFETCH(double, RaioMenor);
    QFETCH(double, AngI);
    TSetor S;
    S.AtribuirRaioMaior(RaioMaior);
    S.AtribuirRaioMenor(RaioMenor);
    S.AtribuirAngI(AngI);
    S.AtribuirAngF(2);
    const TDesenho D = Desenhado(S, {0, 0, 40, 40}, {clRed, TPenStyle::psSolid, 1});
    QVERIFY(EmBranco(D.Imagem));
    QVERIFY(D.Pen.Style == TPenStyle::psDot); // the state is left all the same
}

void TesteElementos::PoligonoVazio()
{
    TPoligono P;
    QVERIFY(P.Area() == TRect());
    QVERIFY(EmBranco(Desenhado(P, {0, 0, 40, 40}).Imagem));
    P.AtribuirFechado(true);
    QVERIFY(EmBranco(Desenhado(P, {0, 0, 40, 40}).Imagem));
}

void TesteElementos::PoligonoFechadoEnche()
{
    TPoligono P;
    P.AtribuirFechado(true);
    P.AtribuirCorFundo(clRed);
    P.AtribuirEstiloLinha(TPenStyle::psSolid);
    for (const TPoint &V : {TPoint(0, 0), TPoint(10, 0), TPoint(10, 10), TPoint(0, 10)})
        P.ObterListaPosicao().Add(V);
    const QImage Imagem = Desenhado(P, {10, 10, 30, 30}).Imagem;
    QCOMPARE(Imagem.pixel(20, 20), 0xFFFF0000U);
    QCOMPARE(Imagem.pixel(10, 10), 0xFF000000U);
    QCOMPARE(Imagem.pixel(30, 30), 0xFF000000U);
    QCOMPARE(Imagem.pixel(31, 31), 0xFFFFFFFFU);
}

void TesteElementos::PoligonoAbertoNaoEnche()
{
    TPoligono P;
    P.AtribuirCorFundo(clRed);
    P.AtribuirEstiloLinha(TPenStyle::psSolid);
    for (const TPoint &V : {TPoint(0, 0), TPoint(10, 0), TPoint(10, 10), TPoint(0, 10)})
        P.ObterListaPosicao().Add(V);
    const QImage Imagem = Desenhado(P, {10, 10, 30, 30}).Imagem;
    QCOMPARE(Imagem.pixel(20, 20), 0xFFFFFFFFU);
    QCOMPARE(Imagem.pixel(30, 20), 0xFF000000U);
    QCOMPARE(Imagem.pixel(10, 20), 0xFFFFFFFFU); // the side that would close it
}

void TesteElementos::OPoligonoDeixaCanetaEPincel()
{
    TPoligono P;
    P.AtribuirCorLinha(clBlue);
    P.AtribuirCorFundo(clLime);
    P.AtribuirEstiloFundo(TBrushStyle::bsVertical);
    const TDesenho D = Desenhado(P, {10, 10, 30, 30}, {clRed, TPenStyle::psDash, 2});
    QVERIFY(D.Pen == (TPen{clBlue, TPenStyle::psDot, 2}));
    QVERIFY(D.Brush == (TBrush{clLime, TBrushStyle::bsVertical}));
}

void TesteElementos::LinhaRetaNaoDerruba()
{
    TPoligono P; // no height: the scale across is infinite or not a number, the smaller one rules
    P.AtribuirEstiloLinha(TPenStyle::psSolid);
    P.ObterListaPosicao().Add(TPoint(0, 5));
    P.ObterListaPosicao().Add(TPoint(10, 5));
    const QImage Imagem = Desenhado(P, {10, 10, 31, 30}).Imagem;
    QCOMPARE(Imagem.pixel(20, 20), 0xFF000000U);
    TPoligono Um;
    Um.ObterListaPosicao().Add(TPoint(3, 3));
    QVERIFY(EmBranco(Desenhado(Um, {10, 10, 30, 30}).Imagem));
}

void TesteElementos::AListaDeVerticesTrocaDeDono()
{
    TPoligono P;
    P.ObterListaPosicao().Add(TPoint(1, 2));
    auto Nova = std::make_unique<TListaPosicoes>();
    Nova->Add(TPoint(3, 4));
    const TListaPosicoes *Endereco = Nova.get();
    const std::uint64_t Antes = P.Selo();
    const std::unique_ptr<TListaPosicoes> Velha = P.AtribuirListaPosicao(std::move(Nova));
    QCOMPARE(&P.ObterListaPosicao(), Endereco);
    QVERIFY(Velha->First() == TPoint(1, 2));
    QVERIFY(P.Selo() != Antes);
    QVERIFY(P.AtribuirListaPosicao(nullptr)->First() == TPoint(3, 4));
    QCOMPARE(P.ObterListaPosicao().Count(), 0);
}

void TesteElementos::AAlturaDoTextoEASuaLargura_data()
{
    QTest::addColumn<int>("Horizontal");
    QTest::addColumn<int>("Vertical");
    for (int H = 0; H < 4; ++H)
        for (int V = 0; V < 4; ++V)
            QTest::addRow("%d %d", H, V) << H << V;
}

void TesteElementos::AAlturaDoTextoEASuaLargura()
{
    QFETCH(int, Horizontal);
    QFETCH(int, Vertical);
    const auto T = Frase(QStringLiteral("Alvo"));
    T->AtribuirX(100);
    T->AtribuirY(200);
    T->AtribuirAlinhamentoHorizontal(TAlinhamentoHorizontal(Horizontal));
    T->AtribuirAlinhamentoVertical(TAlinhamentoVertical(Vertical));
    const int W = LarguraDe(*T);
    QVERIFY(W > 8);
    const int Esquerdas[] = {100, 100 - W, 100 - W / 2, 0};
    const int Direitas[] = {100 + W, 100, 100 - W / 2 + W, 0};
    const int Topos[] = {200, 200 - W, 200 - W / 2, 0};
    const int Bases[] = {200 + W, 200, 200 - W / 2 + W, 0};
    const TRect Esperada(Esquerdas[Horizontal], Topos[Vertical], Direitas[Horizontal], Bases[Vertical]);
    QVERIFY(T->Area() == Esperada);
    T->Fonte().AtribuirSize(20); // measured anew
    QVERIFY(Horizontal == 3 || T->Area().Width() > W);
}

void TesteElementos::AsBandeirasDeAlinhamento_data()
{
    QTest::addColumn<int>("Vertical");
    QTest::addColumn<int>("Horizontal");
    QTest::addColumn<unsigned>("Bandeiras");
    const unsigned Esperadas[4][4] = {{24, 26, 30, 24}, {24, 26, 30, 24}, {30, 30, 30, 30}, {24, 26, 30, 24}};
    for (int V = 0; V < 4; ++V)
        for (int H = 0; H < 4; ++H)
            QTest::addRow("%d %d", V, H) << V << H << Esperadas[V][H];
}

void TesteElementos::AsBandeirasDeAlinhamento()
{
    QFETCH(int, Vertical);
    QFETCH(int, Horizontal);
    QFETCH(unsigned, Bandeiras);
    const auto T = Frase(QStringLiteral("A"));
    T->AtribuirAlinhamentoHorizontal(TAlinhamentoHorizontal(Horizontal));
    T->AtribuirAlinhamentoVertical(TAlinhamentoVertical(Vertical));
    QCOMPARE(Desenhado(*T, {}).TextAlign, Bandeiras);
}

void TesteElementos::OTextoFicaNaSuaPosicao()
{
    const auto T = Frase(QStringLiteral("Alvo"));
    T->AtribuirX(30);
    T->AtribuirY(30);
    const QImage Um = Desenhado(*T, {0, 0, 10, 10}).Imagem;
    const QImage Outro = Desenhado(*T, {40, 40, 900, 900}).Imagem;
    QCOMPARE(Um, Outro);
    QVERIFY(!EmBranco(Um));
}

void TesteElementos::ARotacaoChegaNoSegundoDesenho()
{
    const auto Deitado = Frase(QStringLiteral("Alvo"));
    Deitado->AtribuirX(30);
    Deitado->AtribuirY(30);
    const QImage SemGirar = Desenhado(*Deitado, {}).Imagem;
    const auto T = Frase(QStringLiteral("Alvo"));
    T->AtribuirX(30);
    T->AtribuirY(30);
    T->AtribuirOrientacao(900);
    const TDesenho Primeiro = Desenhado(*T, {});
    QCOMPARE(Primeiro.Imagem, SemGirar);
    QCOMPARE(Primeiro.Font.Orientation(), 0);
    QCOMPARE(T->Fonte().Orientation(), 900);
    const TDesenho Segundo = Desenhado(*T, {});
    QVERIFY(Segundo.Imagem != SemGirar);
    QCOMPARE(Segundo.Font.Orientation(), 900);
    QCOMPARE(Desenhado(*T, {}).Imagem, Segundo.Imagem);
}

void TesteElementos::OTextoDeixaFonteAlinhamentoEPincel()
{
    const auto T = Frase(QStringLiteral("Alvo"));
    T->Fonte().AtribuirSize(17);
    const TDesenho D = Desenhado(*T, {}, {clRed, TPenStyle::psDash, 3}, {clLime, TBrushStyle::bsCross});
    QVERIFY(D.Font == T->Fonte());
    QCOMPARE(D.TextAlign, 30U);
    QVERIFY(D.Brush == (TBrush{clLime, TBrushStyle::bsClear}));
    QVERIFY(D.Pen == (TPen{clRed, TPenStyle::psDash, 3}));
}

void TesteElementos::ListaPosicoesEValores()
{
    TListaPosicoes L;
    QCOMPARE(L.Add(TPoint(1, 1)), 0);
    QCOMPARE(L.Add(TPoint(2, 2)), 1);
    QCOMPARE(L.Add(TPoint(1, 1)), 2);
    L.Insert(0, TPoint(9, 9));
    QCOMPARE(L.IndexOf(TPoint(1, 1)), 1); // the first of two
    QCOMPARE(L.IndexOf(TPoint(1, 2)), -1);
    L.AtribuirPosicao(2, TPoint(3, 3));
    QVERIFY(L.ObterPosicao(2) == TPoint(3, 3));
    QCOMPARE(L.Remove(TPoint(1, 1)), 1);
    QVERIFY(L.Extract(TPoint(3, 3)) == TPoint(3, 3));
    QCOMPARE(L.Count(), 2);
    QVERIFY(L.First() == TPoint(9, 9));
    QVERIFY(L.Last() == TPoint(1, 1));
    L.Delete(0);
    QVERIFY(L.First() == TPoint(1, 1));
    L.Clear();
    QCOMPARE(L.Count(), 0);
}

void TesteElementos::ListaPosicoesMoveAsDeOutra()
{
    TListaPosicoes A;
    A.Add(TPoint(1, 1));
    TListaPosicoes B;
    B.Add(TPoint(2, 2));
    B.Add(TPoint(3, 3));
    A.Add(B);
    QCOMPARE(A.Count(), 3);
    QVERIFY(A.Last() == TPoint(3, 3));
    QCOMPARE(B.Count(), 0);
    A.Add(A);
    QCOMPARE(A.Count(), 3);
}

void TesteElementos::ListaPosicoesRecusaOQueNaoTem()
{
    TListaPosicoes L;
    QVERIFY_THROWS_EXCEPTION(EListError, L.First());
    L.Add(TPoint(1, 1));
    QVERIFY_THROWS_EXCEPTION(EListError, L.Remove(TPoint(5, 5)));
    QVERIFY_THROWS_EXCEPTION(EListError, L.Extract(TPoint(5, 5)));
    QVERIFY_THROWS_EXCEPTION(EListError, L.ObterPosicao(1));
    QVERIFY_THROWS_EXCEPTION(EListError, L.AtribuirPosicao(-1, {}));
    QVERIFY_THROWS_EXCEPTION(EListError, L.Insert(2, {}));
    QVERIFY_THROWS_EXCEPTION(EListError, L.Delete(1));
    QCOMPARE(L.Count(), 1);
}

void TesteElementos::AreaDaListaEAUniao()
{
    TListaElementosGraficos L;
    QVERIFY(L.ObterArea() == TRect(0, 0, 0, 0));
    auto P = std::make_unique<TPonto>();
    P->AtribuirX(10);
    P->AtribuirY(20);
    L.Add(std::move(P));
    QVERIFY(L.ObterArea() == TRect(8, 18, 12, 22));
    L.Add(std::make_unique<TEspia>(TRect(100, 19, 130, 20)));
    L.Add(std::unique_ptr<IElementoGrafico>()); // an empty slot
    QVERIFY(L.ObterArea() == TRect(8, 18, 130, 22));
}

void TesteElementos::AListaEDonaDosElementos()
{
    int Mortos = 0;
    const auto Novo = [&Mortos] {
        auto E = std::make_unique<TEspia>();
        E->Destruidos = &Mortos;
        return E;
    };
    {
        TListaElementosGraficos L;
        L.Add(Novo());
        L.Insert(0, Novo());
        L.AtribuirElementoGrafico(0, Novo());
        QCOMPARE(Mortos, 1);
        const std::unique_ptr<IElementoGrafico> Fora = L.Extract(L.ObterElementoGrafico(0));
        QCOMPARE(Mortos, 1);
        QCOMPARE(L.IndexOf(Fora.get()), -1);
        QCOMPARE(L.Remove(L.Last()), 0);
        QCOMPARE(Mortos, 2);
        L.Add(Novo());
        QVERIFY_THROWS_EXCEPTION(EListError, L.Delete(1));
    }
    QCOMPARE(Mortos, 4);
}

void TesteElementos::AListaMoveOsDeOutra()
{
    TListaElementosGraficos A;
    A.Add(std::make_unique<TPonto>());
    TListaElementosGraficos B;
    B.Add(std::make_unique<TSetor>());
    B.Add(std::make_unique<TTexto>());
    const IElementoGrafico *Ultimo = B.Last();
    A.Add(B);
    QCOMPARE(A.Count(), 3);
    QCOMPARE(A.Last(), Ultimo);
    QVERIFY(B.Vazia());
    A.Add(A);
    QCOMPARE(A.Count(), 3);
}

void TesteElementos::DoChangeAvisa()
{
    TListaElementosGraficos L;
    L.DoChange(); // nobody listens
    int Avisos = 0;
    L.AoAlterar = [&](TListaElementosGraficos &De) { Avisos += &De == &L ? 1 : 100; };
    L.Add(std::make_unique<TPonto>());
    QCOMPARE(Avisos, 0);
    L.DoChange();
    QCOMPARE(Avisos, 1);
}

void TesteElementos::CoordenadasNosLimites()
{
    constexpr int Maior = std::numeric_limits<int>::max();
    constexpr int Menor = std::numeric_limits<int>::min();
    TPonto P;
    P.AtribuirX(Maior);
    P.AtribuirY(Menor);
    QVERIFY(P.Area() == TRect(Maior - 2, Menor, Maior, Menor + 2));
    TPoligono G;
    G.AtribuirFechado(true);
    for (const TPoint &V : {TPoint(Menor, Menor), TPoint(Maior, Menor), TPoint(Maior, Maior), TPoint(0, 0)})
        G.ObterListaPosicao().Add(V);
    TSetor S;
    S.AtribuirX(Maior);
    S.AtribuirRaioMaior(1e300);
    TTexto T;
    T.AtribuirX(Menor);
    T.AtribuirTexto(QStringLiteral("longe"));
    QVERIFY(T.Area().Left == Menor);
    for (const TRect &Rect : {TRect(0, 0, 40, 40), TRect(Menor, Menor, Maior, Maior), TRect(9, 9, -9, -9)})
        for (IElementoGrafico *E : std::initializer_list<IElementoGrafico *>{&P, &G, &S, &T})
            Desenhado(*E, Rect);
}

QTEST_MAIN(TesteElementos)
#include "TesteElementos.moc"
