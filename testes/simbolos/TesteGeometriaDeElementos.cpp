// SPDX-License-Identifier: LGPL-2.1-or-later
// Thousands of figures drawn at random, each coordinate held against the slow computation.
#include "Espia.h"
#include "ReferenciaDeGeometria.h"

#include "simbolos/GeometriaDeElementos.h"
#include "simbolos/Poligono.h"
#include "simbolos/Setor.h"
#include "simbolos/SimboloVetorial.h"

#include <QImage>
#include <QTest>

#include <numbers>
#include <random>

using namespace Sibrel;
namespace Ref = Sibrel::Testes::Referencia;

namespace
{

constexpr int Voltas = 20'000;

class TSorteio
{
public:
    int Inteiro(int De, int Ate) { return std::uniform_int_distribution<int>(De, Ate)(FGerador); }
    double Real(double De, double Ate) { return std::uniform_real_distribution<double>(De, Ate)(FGerador); }
    bool Moeda() { return Inteiro(0, 1) != 0; }

    // Whole and half radii and the angles of clock faces: where roundings meet ties.
    double Raio() { return Moeda() ? Inteiro(-4, 120) / 2.0 : Real(-5, 90); }
    double Angulo() { return Moeda() ? Inteiro(-24, 24) * std::numbers::pi / 12 : Real(-7, 7); }
    TRect Retangulo()
    {
        const int L = Inteiro(-300, 300);
        const int T = Inteiro(-300, 300);
        return {L, T, L + Inteiro(0, 130), T + Inteiro(0, 130)};
    }
    Ref::TSetorDeReferencia Setor()
    {
        Ref::TSetorDeReferencia S;
        S.X = Moeda() ? 0 : Inteiro(-40, 40);
        S.Y = Moeda() ? 0 : Inteiro(-40, 40);
        S.Fechado = Moeda();
        do
            S.RaioMaior = Raio();
        while (Ref::AreaDoSetor(S).Width() == 0 || Ref::AreaDoSetor(S).Height() == 0);
        S.RaioMenor = Inteiro(0, 2) == 0 ? 0 : Raio();
        S.AngI = Angulo();
        S.AngF = Inteiro(0, 2) == 0 ? S.AngI : Angulo();
        return S;
    }
    std::vector<TPoint> Vertices()
    {
        std::vector<TPoint> V(static_cast<std::size_t>(Inteiro(1, 12)));
        for (TPoint &P : V)
            P = {Inteiro(-50, 50), Inteiro(-50, 50)};
        return V;
    }

private:
    std::mt19937 FGerador{1998};
};

std::unique_ptr<TSetor> Fazer(const Ref::TSetorDeReferencia &S)
{
    auto Setor = std::make_unique<TSetor>();
    Setor->AtribuirX(S.X);
    Setor->AtribuirY(S.Y);
    Setor->AtribuirFechado(S.Fechado);
    Setor->AtribuirRaioMaior(S.RaioMaior);
    Setor->AtribuirRaioMenor(S.RaioMenor);
    Setor->AtribuirAngI(S.AngI);
    Setor->AtribuirAngF(S.AngF);
    return Setor;
}

QString Texto(const TRect &R)
{
    return QStringLiteral("(%1, %2, %3, %4)").arg(R.Left).arg(R.Top).arg(R.Right).arg(R.Bottom);
}

// Where a figure with the box `Figura` puts an element with the box `Elemento`.
TRect Posto(const TRect &Figura, const TRect &Elemento, const TRect &Alvo)
{
    TSimboloVetorial Simbolo;
    Simbolo.ObterElementos().Add(std::make_unique<Testes::TEspia>(Figura));
    auto *Espia = new Testes::TEspia(Elemento); // the list owns it
    Simbolo.ObterElementos().Add(std::unique_ptr<Testes::TEspia>(Espia));
    QImage Imagem(1, 1, QImage::Format_RGB32);
    TCanvas Canvas(Imagem);
    Simbolo.Desenhar(Canvas, Alvo);
    return Espia->Desenhos.empty() ? TRect() : Espia->Desenhos.front();
}

QString Texto(const std::vector<TPoint> &Pontos)
{
    QString T;
    for (const TPoint &P : Pontos)
        T += QStringLiteral("(%1, %2) ").arg(P.X).arg(P.Y);
    return T;
}

} // namespace

class TesteGeometriaDeElementos : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void AEscalaEAMenorDasDuas();
    void AreasDeSetores();
    void ContornosDeSetores();
    void ContornosDeOutrosTamanhos();
    void PontosDeSetores();
    void AreasDePoligonos();
    void PixelsDePoligonos();
    void PixelsDeSetores();
    void RetangulosDosElementos();
    void AMargemEntraDosDoisLados();
};

void TesteGeometriaDeElementos::AEscalaEAMenorDasDuas()
{
    TSorteio S;
    for (int I = 0; I < Voltas; ++I) {
        const TRect A = S.Retangulo();
        const TRect B = S.Retangulo();
        const double Esperada = Ref::Escala(A, B);
        const double Obtida = ObterEscala(A, B);
        QVERIFY2(Esperada == Obtida || (std::isnan(Esperada) && std::isnan(Obtida)),
                 qPrintable(Texto(A) + Texto(B)));
    }
    QCOMPARE(ObterEscala({0, 0, 10, 20}, {0, 0, 20, 20}), 1.0);
    QCOMPARE(ObterEscala({0, 0, 20, 10}, {0, 0, 20, 20}), 1.0);
}

void TesteGeometriaDeElementos::AreasDeSetores()
{
    TSorteio S;
    for (int I = 0; I < Voltas; ++I) {
        const Ref::TSetorDeReferencia R = S.Setor();
        QCOMPARE(Texto(Fazer(R)->Area()), Texto(Ref::AreaDoSetor(R)));
    }
}

void TesteGeometriaDeElementos::ContornosDeSetores()
{
    TSorteio S;
    for (int I = 0; I < Voltas; ++I) {
        const Ref::TSetorDeReferencia R = S.Setor();
        const TRect Alvo = S.Retangulo();
        std::vector<TPoint> Pontos(TSetor::PontosDoContorno);
        Fazer(R)->ObterPontos(Pontos, Alvo);
        QCOMPARE(Texto(Pontos), Texto(Ref::Contorno(R, TSetor::PontosDoContorno, Alvo)));
    }
}

void TesteGeometriaDeElementos::ContornosDeOutrosTamanhos()
{
    TSorteio S;
    for (int I = 0; I < Voltas; ++I) {
        const Ref::TSetorDeReferencia R = S.Setor();
        const TRect Alvo = S.Retangulo();
        const int N = S.Inteiro(6, 33);
        std::vector<TPoint> Pontos(static_cast<std::size_t>(N));
        Fazer(R)->ObterPontos(Pontos, Alvo);
        QCOMPARE(Texto(Pontos), Texto(Ref::Contorno(R, N, Alvo)));
    }
}

void TesteGeometriaDeElementos::PontosDeSetores()
{
    TSorteio S;
    for (int I = 0; I < 10 * Voltas; ++I) {
        const Ref::TSetorDeReferencia R = S.Setor();
        const TPoint C(S.Inteiro(-99, 99), S.Inteiro(-99, 99));
        const double Angulo = S.Angulo();
        const double Raio = S.Raio();
        const TPoint P = Fazer(R)->ObterPonto(Angulo, Raio, C);
        QVERIFY2(P == Ref::PontoDoSetor(R, Angulo, Raio, C),
                 qPrintable(QStringLiteral("%1 %2").arg(Angulo, 0, 'g', 17).arg(Raio, 0, 'g', 17)));
    }
}

void TesteGeometriaDeElementos::AreasDePoligonos()
{
    TSorteio S;
    for (int I = 0; I < Voltas; ++I) {
        const std::vector<TPoint> V = S.Vertices();
        TPoligono P;
        for (const TPoint &Ponto : V)
            P.ObterListaPosicao().Add(Ponto);
        QCOMPARE(Texto(P.Area()), Texto(Ref::AreaDoPoligono(V)));
    }
}

void TesteGeometriaDeElementos::PixelsDePoligonos()
{
    TSorteio S;
    for (int I = 0; I < Voltas / 10; ++I) {
        const std::vector<TPoint> V = S.Vertices();
        TPoligono P;
        P.AtribuirFechado(S.Moeda());
        P.AtribuirEstiloLinha(TPenStyle::psSolid);
        P.AtribuirCorFundo(clLime);
        for (const TPoint &Ponto : V)
            P.ObterListaPosicao().Add(Ponto);
        const int Lado = S.Inteiro(0, 70);
        const TRect Alvo(5, 7, 5 + Lado, 7 + S.Inteiro(0, 70));
        QImage Obtida(90, 90, QImage::Format_RGB32);
        QImage Esperada(90, 90, QImage::Format_RGB32);
        Obtida.fill(Qt::white);
        Esperada.fill(Qt::white);
        {
            TCanvas Canvas(Obtida);
            P.Desenhar(Canvas, Alvo);
        }
        const std::vector<TPoint> Pontos = Ref::PoligonoNoDispositivo(V, Alvo);
        {
            TCanvas Canvas(Esperada);
            Canvas.Pen = {clBlack, TPenStyle::psSolid, 1};
            Canvas.Brush = {clLime, TBrushStyle::bsSolid};
            if (P.Fechado())
                Canvas.Polygon(Pontos);
            else
                Canvas.Polyline(Pontos);
        }
        QVERIFY2(Obtida == Esperada, qPrintable(Texto(V) + Texto(Alvo)));
    }
}

void TesteGeometriaDeElementos::PixelsDeSetores()
{
    TSorteio S;
    for (int I = 0; I < Voltas / 4; ++I) {
        const Ref::TSetorDeReferencia R = S.Setor();
        const int Lado = S.Inteiro(0, 70);
        const TRect Alvo(5, 7, 5 + Lado, 7 + S.Inteiro(0, 70));
        const auto Estilo = static_cast<TPenStyle>(S.Inteiro(0, 6));
        const int Largura = S.Inteiro(1, 3);
        const auto Setor = Fazer(R);
        Setor->AtribuirEstiloLinha(Estilo);
        Setor->AtribuirCorFundo(clLime);
        QImage Obtida(90, 90, QImage::Format_RGB32);
        Obtida.fill(Qt::white);
        QImage Esperada = Obtida;
        {
            TCanvas Canvas(Obtida);
            Canvas.Pen.Width = Largura;
            Setor->Desenhar(Canvas, Alvo);
        }
        {
            TCanvas Canvas(Esperada);
            Canvas.Pen = {clBlack, Estilo, Largura};
            Canvas.Brush = {clLime, TBrushStyle::bsSolid};
            Canvas.Polygon(Ref::Contorno(R, TSetor::PontosDoContorno, Alvo));
        }
        QVERIFY2(Obtida == Esperada, qPrintable(Texto(Ref::Contorno(R, TSetor::PontosDoContorno, Alvo)) +
                                                QString::number(int(Estilo)) + QString::number(Largura)));
    }
}

void TesteGeometriaDeElementos::RetangulosDosElementos()
{
    TSorteio S;
    for (int I = 0; I < Voltas; ++I) {
        TRect Figura = S.Retangulo();
        Figura.Right += 1;
        Figura.Bottom += 1;
        const TRect Elemento(S.Inteiro(Figura.Left, Figura.Right), S.Inteiro(Figura.Top, Figura.Bottom),
                             Figura.Right, Figura.Bottom);
        const TRect Alvo = S.Retangulo();
        QCOMPARE(Texto(Posto(Figura, Elemento, Alvo)), Texto(Ref::NoDispositivo(Figura, Elemento, Alvo)));
    }
}

void TesteGeometriaDeElementos::AMargemEntraDosDoisLados()
{
    // One pixel and a half to each side, the figure as large as fits.
    QCOMPARE(Texto(Posto({0, 0, 10, 10}, {0, 0, 10, 10}, {0, 0, 43, 43})), QStringLiteral("(1, 1, 41, 41)"));
}

QTEST_MAIN(TesteGeometriaDeElementos)
#include "TesteGeometriaDeElementos.moc"
