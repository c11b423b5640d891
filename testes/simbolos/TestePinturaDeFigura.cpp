// SPDX-License-Identifier: LGPL-2.1-or-later
// Figures drawn from memory: the same pixels and the same canvas as drawn directly, and never an old figure.
#include "Espia.h"
#include "comum/Dados.h"

#include "simbolos/CacheDePinturas.h"
#include "simbolos/Poligono.h"
#include "simbolos/Ponto.h"
#include "simbolos/Setor.h"
#include "simbolos/SimboloComposto.h"
#include "simbolos/SimboloVetorial.h"
#include "simbolos/TabelaDeSimbolos.h"
#include "simbolos/Texto.h"

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QTest>

#include <functional>

using namespace Sibrel;

namespace
{

struct TModo {
    double Densidade = 1;
    QPointF Translacao = {};
    bool Suave = false;
    double Opacidade = 1;
    QPoint OrigemDoPincel = {};
    TPen Pen = {};
};

struct TResultado {
    QImage Imagem;
    TPen Pen;
    TBrush Brush;
    TFont Font;
    unsigned TextAlign = 0;
    TPoint Centro;
};

TResultado Desenhado(TSimboloVetorial &S, const TRect &Rect, const TModo &Modo = {})
{
    TResultado R;
    const int Lado = static_cast<int>(140 * Modo.Densidade);
    R.Imagem = QImage(Lado, Lado, QImage::Format_RGB32);
    R.Imagem.setDevicePixelRatio(Modo.Densidade);
    R.Imagem.fill(QColor(200, 220, 160));
    QPainter Pintor(&R.Imagem);
    Pintor.translate(Modo.Translacao);
    Pintor.setRenderHint(QPainter::Antialiasing, Modo.Suave);
    Pintor.setOpacity(Modo.Opacidade);
    Pintor.setBrushOrigin(Modo.OrigemDoPincel);
    TCanvas Canvas(Pintor);
    Canvas.Pen = Modo.Pen;
    Canvas.Brush = {clFuchsia, TBrushStyle::bsCross};
    Canvas.TextAlign = TA_BOTTOM;
    S.Desenhar(Canvas, Rect);
    R.Pen = Canvas.Pen;
    R.Brush = Canvas.Brush;
    R.Font = Canvas.Font;
    R.TextAlign = Canvas.TextAlign;
    R.Centro = S.ObterCentro();
    return R;
}

// A figure that was another one at each drawing is never drawn from memory.
TResultado Direto(TSimboloVetorial &S, const TRect &Rect, const TModo &Modo = {})
{
    S.ObterElementos().Add(std::unique_ptr<IElementoGrafico>());
    const std::uint64_t Antes = TCacheDePinturas::Preparadas();
    TResultado R = Desenhado(S, Rect, Modo);
    if (TCacheDePinturas::Preparadas() != Antes)
        throw std::runtime_error("desenhado de memória");
    return R;
}

int MaiorDiferenca(const QImage &A, const QImage &B)
{
    if (A == B)
        return 0;
    int Maior = A.size() == B.size() ? 0 : 256;
    for (int Y = 0; Maior < 256 && Y < A.height(); ++Y)
        for (int X = 0; X < A.width(); ++X) {
            const QColor P = A.pixelColor(X, Y);
            const QColor Q = B.pixelColor(X, Y);
            Maior = std::max({Maior, std::abs(P.red() - Q.red()), std::abs(P.green() - Q.green()),
                              std::abs(P.blue() - Q.blue())});
        }
    return Maior;
}

// Empty when both are the same; texts are smoothed, and blended twice they may differ by one level.
QString Diferenca(const TResultado &A, const TResultado &B, int Tolerancia)
{
    QStringList D;
    if (const int Maior = MaiorDiferenca(A.Imagem, B.Imagem); Maior > Tolerancia)
        D += QStringLiteral("pixels: %1").arg(Maior);
    if (A.Pen != B.Pen)
        D += QStringLiteral("pen");
    if (A.Brush != B.Brush)
        D += QStringLiteral("brush");
    if (!(A.Font == B.Font))
        D += QStringLiteral("font");
    if (A.TextAlign != B.TextAlign)
        D += QStringLiteral("align");
    if (A.Centro != B.Centro)
        D += QStringLiteral("centro");
    return D.join(u',');
}

bool TemTexto(const TSimboloVetorial &S)
{
    return std::any_of(S.ObterElementos().begin(), S.ObterElementos().end(),
                       [](const auto &E) { return dynamic_cast<TTexto *>(E.get()) != nullptr; });
}

void UsarFonteDeTeste(TSimboloVetorial &S)
{
    for (const auto &E : S.ObterElementos())
        if (auto *T = dynamic_cast<TTexto *>(E.get()))
            T->Fonte().AtribuirName(Testes::FamiliaDeTexto);
}

template <class>
struct TArgumentoDe;
template <class T>
struct TArgumentoDe<std::function<void(T &)>> {
    using Tipo = T;
};
template <class F>
using TArgumento = typename TArgumentoDe<F>::Tipo;

template <class T>
T &Por(TSimboloVetorial &S)
{
    auto E = std::make_unique<T>();
    T &Novo = *E;
    S.ObterElementos().Add(std::move(E));
    return Novo;
}

} // namespace

class TestePinturaDeFigura : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init() { TCacheDePinturas::Esvaziar(); }

    void IgualAoDesenhoDireto_data();
    void IgualAoDesenhoDireto();
    void OPrimeiroDesenhoNaoPreparaPintura();
    void DesenhadaDeNovoNaoSePrepara();
    void UmaPinturaServeATodosOsLugares();
    void MudarQualquerCampoSeVe_data();
    void MudarQualquerCampoSeVe();
    void MudarALista();
    void CorDoSistemaSegueAPaleta();
    void OEstiloHerdadoContaNaPintura();
    void ALarguraDaCanetaContaNaPintura();
    void ElementoDeOutremNuncaELembrado();
    void OQueSeLembraTemLimite();
    void CompostoComFigura();
};

void TestePinturaDeFigura::initTestCase()
{
    ModuloTabelaDeSimbolos().Iniciar();
    ModuloSimboloVetorial().Iniciar();
    Testes::CarregarFontes();
}

void TestePinturaDeFigura::cleanupTestCase()
{
    ModuloSimboloVetorial().Parar();
    ModuloTabelaDeSimbolos().Parar();
}

void TestePinturaDeFigura::IgualAoDesenhoDireto_data()
{
    QTest::addColumn<QString>("Arquivo");
    const QDir Pasta(Testes::DadoDeExemplo(QStringLiteral("figuras")));
    for (const QString &A : Pasta.entryList({QStringLiteral("*.xml")}))
        QTest::newRow(qPrintable(A)) << Pasta.filePath(A);
}

void TestePinturaDeFigura::IgualAoDesenhoDireto()
{
    QFETCH(QString, Arquivo);
    TSimboloVetorial Lembrada;
    TSimboloVetorial DeReferencia;
    for (TSimboloVetorial *S : {&Lembrada, &DeReferencia}) {
        S->LerArquivo(Arquivo);
        UsarFonteDeTeste(*S);
        for (int Vez = 0; Vez < 2; ++Vez)
            Desenhado(*S, {0, 0, 20, 20}); // texts have their rotation now
    }
    const int Tolerancia = TemTexto(Lembrada) ? 1 : 0;
    const std::vector<std::pair<const char *, TModo>> Modos = {
        {"simples", {}},
        {"densidade 2", {.Densidade = 2}},
        {"densidade 1,25", {.Densidade = 1.25}},
        {"transladado", {.Translacao = {17, 5}}},
        {"transladado meio pixel", {.Translacao = {17.5, 5.25}}},
        {"translucido", {.Opacidade = 0.5}},
        {"origem do pincel", {.OrigemDoPincel = {3, 2}}},
        {"caneta larga", {.Pen = {clRed, TPenStyle::psDash, 5}}},
    };
    const std::uint64_t Antes = TCacheDePinturas::Preparadas();
    for (const auto &[Nome, Modo] : Modos)
        for (const int Lado : {1, 3, 5, 16, 31, 32, 64, 100})
            for (const TPoint &P : {TPoint(0, 0), TPoint(1, 0), TPoint(8, 8), TPoint(13, 22), TPoint(30, 31),
                                    TPoint(-7, -16), TPoint(-50, 12)}) {
                const TRect Rect(P.X, P.Y, P.X + Lado, P.Y + Lado + P.X % 3);
                const TResultado Esperado = Direto(DeReferencia, Rect, Modo);
                for (int Vez = 0; Vez < 2; ++Vez) {
                    const QString D = Diferenca(Desenhado(Lembrada, Rect, Modo), Esperado, Tolerancia);
                    QVERIFY2(D.isEmpty(), qPrintable(QStringLiteral("%1 lado %2 em %3,%4: %5")
                                                         .arg(QLatin1String(Nome))
                                                         .arg(Lado)
                                                         .arg(P.X)
                                                         .arg(P.Y)
                                                         .arg(D)));
                }
            }
    // Far from the origin the sums of coordinates are rounded otherwise.
    for (const int Longe : {256, 1001, 4096, 65'537, 1'000'000'000})
        for (const int Lado : {16, 32, 33, 64})
            for (const int Passo : {3, 4, 11}) {
                const TRect Rect(Longe + Passo, Longe + 9, Longe + Passo + Lado, Longe + 9 + Lado);
                const TModo Modo{.Translacao = {-1.0 * Longe, -1.0 * Longe}};
                const QString D =
                    Diferenca(Desenhado(Lembrada, Rect, Modo), Direto(DeReferencia, Rect, Modo), Tolerancia);
                QVERIFY2(D.isEmpty(), qPrintable(QStringLiteral("%1 %2 %3").arg(Longe).arg(Lado).arg(D)));
            }
    QVERIFY(TCacheDePinturas::Preparadas() > Antes); // it was the memory that was compared
    // A host that smooths its lines gets them directly: blended twice, overlapping edges would differ.
    for (const int Lado : {16, 33, 64}) {
        const TRect Rect(9, 4, 9 + Lado, 4 + Lado);
        const TResultado Esperado = Direto(DeReferencia, Rect, {.Suave = true});
        for (int Vez = 0; Vez < 2; ++Vez)
            QCOMPARE(Diferenca(Desenhado(Lembrada, Rect, {.Suave = true}), Esperado, 0), QString());
    }
}

void TestePinturaDeFigura::OPrimeiroDesenhoNaoPreparaPintura()
{
    TSimboloVetorial S;
    Por<TPonto>(S);
    const std::uint64_t Antes = TCacheDePinturas::Preparadas();
    Desenhado(S, {0, 0, 32, 32});
    QCOMPARE(TCacheDePinturas::Preparadas(), Antes);
    Desenhado(S, {0, 0, 32, 32});
    QCOMPARE(TCacheDePinturas::Preparadas(), Antes + 1);
}

void TestePinturaDeFigura::DesenhadaDeNovoNaoSePrepara()
{
    TSimboloVetorial S;
    S.LerArquivo(Testes::DadoDeExemplo(QStringLiteral("figuras/rosa_dos_ventos.xml")));
    UsarFonteDeTeste(S);
    for (int Vez = 0; Vez < 4; ++Vez)
        Desenhado(S, {0, 0, 64, 64});
    const std::uint64_t Antes = TCacheDePinturas::Preparadas();
    for (int Vez = 0; Vez < 10; ++Vez)
        Desenhado(S, {0, 0, 64, 64});
    QCOMPARE(TCacheDePinturas::Preparadas(), Antes);
}

void TestePinturaDeFigura::UmaPinturaServeATodosOsLugares()
{
    TSimboloVetorial S;
    S.LerArquivo(Testes::DadoDeExemplo(QStringLiteral("figuras/anel.xml")));
    Desenhado(S, {0, 0, 32, 32});
    const std::uint64_t Antes = TCacheDePinturas::Preparadas();
    for (int X = 40; X < 96; ++X)
        Desenhado(S, {X, 136 - X, X + 32, 168 - X});
    QVERIFY(TCacheDePinturas::Preparadas() - Antes <= 4);
}

void TestePinturaDeFigura::MudarQualquerCampoSeVe_data()
{
    using TMudanca = std::function<void(TSimboloVetorial &)>;
    QTest::addColumn<TMudanca>("Mudar");
    const auto Linha = []<class F>(const char *Nome, F Mudar) {
        QTest::newRow(Nome) << TMudanca([Mudar](TSimboloVetorial &S) {
            using T = TArgumento<decltype(std::function(Mudar))>;
            for (const auto &E : S.ObterElementos())
                if (auto *Este = dynamic_cast<T *>(E.get()))
                    Mudar(*Este);
        });
    };
    Linha("Ponto.X", [](TPonto &P) { P.AtribuirX(9); });
    Linha("Ponto.Y", [](TPonto &P) { P.AtribuirY(9); });
    Linha("Ponto.Cor", [](TPonto &P) { P.AtribuirCor(clLime); });
    Linha("Texto.X", [](TTexto &T) { T.AtribuirX(30); });
    Linha("Texto.Y", [](TTexto &T) { T.AtribuirY(30); });
    Linha("Texto.Texto", [](TTexto &T) { T.AtribuirTexto(QStringLiteral("outro")); });
    Linha("Texto.Fonte.Color", [](TTexto &T) { T.Fonte().AtribuirColor(clRed); });
    Linha("Texto.Fonte.Size", [](TTexto &T) { T.Fonte().AtribuirSize(14); });
    Linha("Texto.Fonte.Name", [](TTexto &T) { T.Fonte().AtribuirName(Testes::FamiliaDeSimbolos); });
    Linha("Texto.Fonte.Style", [](TTexto &T) { T.Fonte().AtribuirStyle(TFontStyle::fsUnderline, true); });
    Linha("Texto.Fonte.Orientation", [](TTexto &T) { T.Fonte().AtribuirOrientation(450); });
    Linha("Texto.Orientacao", [](TTexto &T) { T.AtribuirOrientacao(900); });
    Linha("Texto.AlinhamentoHorizontal",
          [](TTexto &T) { T.AtribuirAlinhamentoHorizontal(TAlinhamentoHorizontal::ahDireita); });
    Linha("Texto.AlinhamentoVertical",
          [](TTexto &T) { T.AtribuirAlinhamentoVertical(TAlinhamentoVertical::avCentro); });
    Linha("Setor.X", [](TSetor &S) { S.AtribuirX(5); });
    Linha("Setor.Y", [](TSetor &S) { S.AtribuirY(5); });
    Linha("Setor.Fechado", [](TSetor &S) { S.AtribuirFechado(true); });
    Linha("Setor.RaioMaior", [](TSetor &S) { S.AtribuirRaioMaior(14); });
    Linha("Setor.RaioMenor", [](TSetor &S) { S.AtribuirRaioMenor(6); });
    Linha("Setor.AngI", [](TSetor &S) { S.AtribuirAngI(0.7); });
    Linha("Setor.AngF", [](TSetor &S) { S.AtribuirAngF(3); });
    Linha("Setor.CorLinha", [](TSetor &S) { S.AtribuirCorLinha(clBlue); });
    Linha("Setor.CorFundo", [](TSetor &S) { S.AtribuirCorFundo(clLime); });
    Linha("Setor.EstiloLinha", [](TSetor &S) { S.AtribuirEstiloLinha(TPenStyle::psClear); });
    Linha("Setor.EstiloFundo", [](TSetor &S) { S.AtribuirEstiloFundo(TBrushStyle::bsClear); });
    Linha("Poligono.Fechado", [](TPoligono &P) { P.AtribuirFechado(false); });
    Linha("Poligono.CorLinha", [](TPoligono &P) { P.AtribuirCorLinha(clBlue); });
    Linha("Poligono.CorFundo", [](TPoligono &P) { P.AtribuirCorFundo(clLime); });
    Linha("Poligono.EstiloLinha", [](TPoligono &P) { P.AtribuirEstiloLinha(TPenStyle::psSolid); });
    Linha("Poligono.EstiloFundo", [](TPoligono &P) { P.AtribuirEstiloFundo(TBrushStyle::bsCross); });
    Linha("Vertices.Add", [](TPoligono &P) { P.ObterListaPosicao().Add(TPoint(-20, 3)); });
    Linha("Vertices.Insert", [](TPoligono &P) { P.ObterListaPosicao().Insert(1, TPoint(-20, 3)); });
    Linha("Vertices.AtribuirPosicao",
          [](TPoligono &P) { P.ObterListaPosicao().AtribuirPosicao(0, TPoint(-20, 3)); });
    Linha("Vertices.Delete", [](TPoligono &P) { P.ObterListaPosicao().Delete(0); });
    Linha("Vertices.Clear", [](TPoligono &P) { P.ObterListaPosicao().Clear(); });
    Linha("Vertices, outra lista", [](TPoligono &P) {
        auto Lista = std::make_unique<TListaPosicoes>();
        Lista->Add(TPoint(0, 0));
        Lista->Add(TPoint(9, 9));
        static_cast<void>(P.AtribuirListaPosicao(std::move(Lista)));
    });
}

void TestePinturaDeFigura::MudarQualquerCampoSeVe()
{
    using TMudanca = std::function<void(TSimboloVetorial &)>;
    QFETCH(TMudanca, Mudar);
    TSimboloVetorial Lembrada;
    TSimboloVetorial DeReferencia;
    for (TSimboloVetorial *S : {&Lembrada, &DeReferencia}) {
        auto &R = Por<TSetor>(*S);
        R.AtribuirRaioMaior(20);
        R.AtribuirRaioMenor(4);
        R.AtribuirAngI(0);
        R.AtribuirAngF(2);
        R.AtribuirEstiloLinha(TPenStyle::psSolid);
        R.AtribuirCorFundo(clRed);
        auto &P = Por<TPoligono>(*S);
        P.AtribuirFechado(true);
        P.AtribuirCorFundo(clGray);
        for (const TPoint &V : {TPoint(-15, 0), TPoint(-3, -14), TPoint(-2, 11)})
            P.ObterListaPosicao().Add(V);
        Por<TPonto>(*S).AtribuirCor(clBlue);
        auto &T = Por<TTexto>(*S);
        T.AtribuirX(20);
        T.AtribuirY(20);
        T.Fonte().AtribuirName(Testes::FamiliaDeTexto);
        T.Fonte().AtribuirColor(clBlack);
        T.AtribuirTexto(QStringLiteral("texto"));
        T.AtribuirAlinhamentoHorizontal(TAlinhamentoHorizontal::ahEsquerda);
        T.AtribuirAlinhamentoVertical(TAlinhamentoVertical::avAbaixo);
    }
    const TRect Rect(10, 10, 60, 60);
    // A closed slice differs from an open one only where its inner radius is 0.
    if (QLatin1String(QTest::currentDataTag()) == QLatin1String("Setor.Fechado"))
        for (TSimboloVetorial *S : {&Lembrada, &DeReferencia})
            dynamic_cast<TSetor &>(*S->ObterElementos().First()).AtribuirRaioMenor(0);
    for (int Vez = 0; Vez < 3; ++Vez)
        Desenhado(Lembrada, Rect);
    const std::uint64_t Antes = TCacheDePinturas::Preparadas();
    const TResultado Velho = Desenhado(Lembrada, Rect);
    QCOMPARE(TCacheDePinturas::Preparadas(), Antes);
    QVERIFY(TCacheDePinturas::Quantas() > 0);
    Direto(DeReferencia, Rect);
    Mudar(Lembrada);
    Mudar(DeReferencia);
    bool Outro = false;
    for (int Vez = 0; Vez < 3; ++Vez) {
        const TResultado Novo = Desenhado(Lembrada, Rect);
        QCOMPARE(Diferenca(Novo, Direto(DeReferencia, Rect), 1), QString());
        Outro = Outro || !Diferenca(Novo, Velho, 0).isEmpty();
    }
    const bool SoSetorFechado = QLatin1String(QTest::currentDataTag()) == QLatin1String("Setor.Fechado");
    QVERIFY(Outro || SoSetorFechado);
}

void TestePinturaDeFigura::MudarALista()
{
    TSimboloVetorial S;
    for (const TColor Cor : {clRed, clLime, clBlue}) {
        auto &P = Por<TPonto>(S);
        P.AtribuirCor(Cor);
        P.AtribuirX(S.ObterElementos().Count() * 4);
    }
    const auto Ver = [&S] {
        QImage Ultima;
        for (int Vez = 0; Vez < 3; ++Vez)
            Ultima = Desenhado(S, {0, 0, 40, 40}).Imagem;
        return Ultima;
    };
    const QImage Tres = Ver();
    std::unique_ptr<IElementoGrafico> Fora = S.ObterElementos().Extract(S.ObterElementos().First());
    const QImage Dois = Ver();
    QVERIFY(Dois != Tres);
    S.ObterElementos().Add(std::move(Fora)); // the same elements in another order
    QCOMPARE(Ver(), Tres);                   // the dots do not overlap
    S.ObterElementos().AtribuirElementoGrafico(0, std::make_unique<TPonto>());
    QVERIFY(Ver() != Tres);
    S.ObterElementos().Clear();
    QVERIFY(Ver() != Dois);
}

void TestePinturaDeFigura::CorDoSistemaSegueAPaleta()
{
    TSimboloVetorial S;
    Por<TPonto>(S).AtribuirCor(clHighlight);
    QPalette Paleta = QGuiApplication::palette();
    const QPalette Antes = Paleta;
    for (const QColor &Cor : {QColor(Qt::red), QColor(Qt::green), QColor(Qt::blue)}) {
        Paleta.setColor(QPalette::Highlight, Cor);
        QGuiApplication::setPalette(Paleta);
        for (int Vez = 0; Vez < 3; ++Vez)
            QCOMPARE(Desenhado(S, {0, 0, 40, 40}).Imagem.pixelColor(20, 20), Cor);
    }
    QGuiApplication::setPalette(Antes);
}

void TestePinturaDeFigura::OEstiloHerdadoContaNaPintura()
{
    TSimboloVetorial S;
    Por<TPonto>(S).AtribuirCor(clRed);
    TSimboloVetorial R;
    Por<TPonto>(R).AtribuirCor(clRed);
    for (int Vez = 0; Vez < 3; ++Vez)
        for (const TPenStyle Estilo : {TPenStyle::psSolid, TPenStyle::psClear, TPenStyle::psDot}) {
            const TModo Modo{.Pen = {clBlack, Estilo, 1}};
            QCOMPARE(Diferenca(Desenhado(S, {0, 0, 40, 40}, Modo), Direto(R, {0, 0, 40, 40}, Modo), 0),
                     QString());
        }
}

void TestePinturaDeFigura::ALarguraDaCanetaContaNaPintura()
{
    TSimboloVetorial S;
    TSimboloVetorial R;
    for (TSimboloVetorial *Este : {&S, &R})
        Este->LerArquivo(Testes::DadoDeExemplo(QStringLiteral("figuras/alvo.xml")));
    for (int Vez = 0; Vez < 3; ++Vez)
        for (const int Largura : {0, 1, 2, 7, 5000}) {
            const TModo Modo{.Pen = {clBlack, TPenStyle::psSolid, Largura}};
            QCOMPARE(Diferenca(Desenhado(S, {40, 40, 80, 80}, Modo), Direto(R, {40, 40, 80, 80}, Modo), 0),
                     QString());
        }
}

void TestePinturaDeFigura::ElementoDeOutremNuncaELembrado()
{
    TSimboloVetorial S;
    Por<TPonto>(S);
    auto &T = Por<Testes::TEspia>(S);
    T.Caixa = {0, 0, 9, 9};
    for (int Vez = 0; Vez < 5; ++Vez)
        Desenhado(S, {0, 0, 40, 40});
    QCOMPARE(int(T.Desenhos.size()), 5);
    QCOMPARE(TCacheDePinturas::Quantas(), 0);
}

void TestePinturaDeFigura::OQueSeLembraTemLimite()
{
    TSimboloVetorial S;
    auto &R = Por<TSetor>(S);
    R.AtribuirRaioMaior(20);
    R.AtribuirEstiloLinha(TPenStyle::psSolid);
    const auto Gravar = [&S](int Lado) {
        QImage Imagem(600, 600, QImage::Format_RGB32);
        TCanvas Canvas(Imagem);
        S.Desenhar(Canvas, {0, 0, Lado, Lado});
    };
    for (int Lado = 480; Lado < 580; ++Lado)
        Gravar(Lado);
    QVERIFY(TCacheDePinturas::Bytes() <= TCacheDePinturas::BytesMaximos);
    QVERIFY(TCacheDePinturas::Quantas() > 10);
    QVERIFY(TCacheDePinturas::Quantas() < 60);
    const std::uint64_t Antes = TCacheDePinturas::Preparadas();
    Gravar(20'000); // too large to be kept
    QCOMPARE(TCacheDePinturas::Preparadas(), Antes);
}

void TestePinturaDeFigura::CompostoComFigura()
{
    const auto Ler = [](TSimboloVetorial &S, const char *Nome) {
        S.LerArquivo(Testes::DadoDeExemplo(QStringLiteral("figuras/") + QLatin1String(Nome)));
    };
    TSimboloComposto C;
    auto Um = std::make_unique<TSimboloVetorial>();
    auto Dois = std::make_unique<TSimboloVetorial>();
    Ler(*Um, "hachuras.xml");
    Ler(*Dois, "alvo.xml");
    auto &Alvo = *Dois;
    C.Lista.Add(std::move(Um));
    C.Lista.Add(std::move(Dois));
    TSimboloVetorial A;
    TSimboloVetorial B;
    Ler(A, "hachuras.xml");
    Ler(B, "alvo.xml");
    const auto Folha = [] {
        QImage Imagem(90, 90, QImage::Format_RGB32);
        Imagem.fill(Qt::white);
        return Imagem;
    };
    for (int Vez = 0; Vez < 3; ++Vez) {
        for (int X = 0; X < 12; ++X) {
            const TRect Rect(X, 3, X + 60, 63);
            QImage Esperada = Folha();
            {
                TCanvas Canvas(Esperada);
                A.Desenhar(Canvas, Rect);
                B.Desenhar(Canvas, Rect);
            }
            QImage Obtida = Folha();
            TCanvas Canvas(Obtida);
            C.Desenhar(Canvas, Rect);
            QCOMPARE(Obtida, Esperada);
        }
        Alvo.AtribuirCor(Vez == 0 ? clLime : clBlue);
        B.AtribuirCor(Vez == 0 ? clLime : clBlue);
    }
    // Several places of one composite are remembered side by side.
    for (int X = 0; X < 8; ++X) {
        QImage Obtida = Folha();
        TCanvas Canvas(Obtida);
        C.Desenhar(Canvas, {X, 3, X + 60, 63});
    }
    const std::uint64_t Antes = TCacheDePinturas::Preparadas();
    for (int X = 0; X < 8; ++X) {
        QImage Obtida = Folha();
        TCanvas Canvas(Obtida);
        C.Desenhar(Canvas, {X, 3, X + 60, 63});
    }
    QCOMPARE(TCacheDePinturas::Preparadas(), Antes);
}

QTEST_MAIN(TestePinturaDeFigura)
#include "TestePinturaDeFigura.moc"
