// SPDX-License-Identifier: LGPL-2.1-or-later
// The drawing surface, fonts and pictures.
#include "comum/Dados.h"
#include "plataforma/Bitmap.h"
#include "plataforma/Canvas.h"
#include "plataforma/Exception.h"
#include "plataforma/Font.h"
#include "plataforma/FontesInstaladas.h"
#include "plataforma/LinhaDeTexto.h"
#include "plataforma/Picture.h"

#include <QBuffer>
#include <QFontDatabase>
#include <QImageWriter>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryDir>
#include <QTest>

#include <array>

using namespace Sibrel;
using namespace Sibrel::Testes;

namespace
{

QImage Branca(int Largura, int Altura)
{
    QImage Imagem(Largura, Altura, QImage::Format_RGB32);
    Imagem.fill(Qt::white);
    return Imagem;
}

// The smallest rectangle that holds every pixel that is not white.
QRect Pintado(const QImage &Imagem)
{
    QRect Area;
    for (int Y = 0; Y < Imagem.height(); ++Y)
        for (int X = 0; X < Imagem.width(); ++X)
            if (Imagem.pixel(X, Y) != 0xFFFFFFFFU)
                Area |= QRect(X, Y, 1, 1);
    return Area;
}

QImage Xadrez()
{
    QImage Imagem(2, 2, QImage::Format_RGB32);
    Imagem.setPixel(0, 0, qRgb(255, 0, 0));
    Imagem.setPixel(1, 0, qRgb(0, 255, 0));
    Imagem.setPixel(0, 1, qRgb(0, 0, 255));
    Imagem.setPixel(1, 1, qRgb(0, 0, 0));
    return Imagem;
}

} // namespace

class TesteCanvas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { CarregarFontes(); }

    void AlturaETamanhoSaoDuasVistas_data();
    void AlturaETamanhoSaoDuasVistas();
    void OSeloMudaComCadaAtributo();
    void AlturaPositivaEDaCelula();
    void CodigoDeFonteDeSimbolos();
    void CodigoPelosCharsets();
    void FontesInstaladasPorNome();

    void DireitaEBaseNaoSaoPintadas();
    void OUltimoPontoDaLinhaNaoEPintado();
    void PoligonoEPintadoELinhaAbertaNao();
    void PincelVazioNaoPreenche();
    void AlinhamentosDoTexto_data();
    void AlinhamentosDoTexto();
    void FundoDoTexto();
    void TextoRecortado();
    void TextoGirado();
    void LinhaComGlifosAchadosEOMesmoTexto_data();
    void LinhaComGlifosAchadosEOMesmoTexto();
    void MedidasDoTexto();
    void OPintorDoHospedeiroVolta();
    void ACorVemDoPintor();
    void Densidades();

    void ModosDeCopia_data();
    void ModosDeCopia();
    void EsticarEscolheOPixelDoCentro();
    void RetanguloTrocadoEspelha();
    void RetanguloVazioNaoDesenha();
    void TransparenciaPeloCantoDeBaixo();
    void TransparenciaPeloAlfa();
    void BitmapMonocromatico();
    void TamanhoDoBitmap();
    void DesenharNoBitmap();
    void FormatosDeFigura();
    void FiguraIlegivel();
};

void TesteCanvas::AlturaETamanhoSaoDuasVistas_data()
{
    QTest::addColumn<int>("Altura");
    QTest::addColumn<int>("Tamanho");
    QTest::newRow("8 pontos") << -11 << 8;
    QTest::newRow("24 pixels") << -24 << 18;
    QTest::newRow("celula de 24") << 24 << -18;
    QTest::newRow("metade para longe do zero") << -2 << 2; // 1.5
    QTest::newRow("zero") << 0 << 0;
}

void TesteCanvas::AlturaETamanhoSaoDuasVistas()
{
    QFETCH(int, Altura);
    TFont Fonte;
    Fonte.AtribuirHeight(Altura);
    QTEST(Fonte.Size(), "Tamanho");
    Fonte.AtribuirSize(10);
    QCOMPARE(Fonte.Height(), -13);
    QCOMPARE(Fonte.Size(), 10);
    Fonte.AtribuirSize(std::numeric_limits<int>::max()); // goes to a limit, does not overflow
    QVERIFY(Fonte.Height() < 0);
}

void TesteCanvas::OSeloMudaComCadaAtributo()
{
    TFont A;
    const TFont B;
    QCOMPARE(A.Selo(), B.Selo()); // two new fonts are the same font
    std::uint64_t Antes = A.Selo();
    const auto Mudou = [&] { return std::exchange(Antes, A.Selo()) != A.Selo(); };
    A.AtribuirName(QStringLiteral("X"));
    QVERIFY(Mudou());
    A.AtribuirName(QStringLiteral("X"));
    QVERIFY(!Mudou());
    A.AtribuirCharset(2);
    QVERIFY(Mudou());
    A.AtribuirHeight(-50);
    QVERIFY(Mudou());
    A.AtribuirColor(clRed);
    QVERIFY(Mudou());
    A.AtribuirOrientation(900);
    QVERIFY(Mudou());
    A.AtribuirStyle(TFontStyle::fsBold, true);
    QVERIFY(Mudou());
    QVERIFY(A.Tem(TFontStyle::fsBold) && !A.Tem(TFontStyle::fsItalic));
    const TFont Copia = A;
    QVERIFY(Copia == A && Copia.Selo() == A.Selo());
}

void TesteCanvas::AlturaPositivaEDaCelula()
{
    TFont Fonte;
    Fonte.AtribuirName(FamiliaDeTexto);
    Fonte.AtribuirHeight(50);
    const QFontMetricsF M(Fonte.ParaQFont());
    QVERIFY(M.ascent() + M.descent() <= 50);
    QVERIFY(M.ascent() + M.descent() > 48);
    Fonte.AtribuirHeight(-50);
    QCOMPARE(Fonte.ParaQFont().pixelSize(), 50);
}

void TesteCanvas::CodigoDeFonteDeSimbolos()
{
    TFont Fonte;
    Fonte.AtribuirName(FamiliaDeSimbolos);
    Fonte.AtribuirCharset(TFont::CharsetSimbolo);
    QCOMPARE(Fonte.TextoDoCodigo(33), QString(QChar(0xF021)));
    // The text font has no glyph at U+F021: the plain code stands in.
    Fonte.AtribuirName(FamiliaDeTexto);
    QCOMPARE(Fonte.TextoDoCodigo(33), QStringLiteral("!"));
}

void TesteCanvas::CodigoPelosCharsets()
{
    TFont Fonte;
    Fonte.AtribuirCharset(161);
    QCOMPARE(Fonte.TextoDoCodigo(0xD9), QStringLiteral("Ω"));
    Fonte.AtribuirCharset(204);
    QCOMPARE(Fonte.TextoDoCodigo(0xC6), QStringLiteral("Ж"));
}

void TesteCanvas::FontesInstaladasPorNome()
{
    QVERIFY(FonteInstalada(FamiliaDeTexto));
    QVERIFY(FonteInstalada(QStringLiteral("sibrel TESTE")));
    QVERIFY(!FonteInstalada(QStringLiteral("Não existe esta fonte")));
    const std::uint64_t Antes = GeracaoDasFontes();
    const int Outra =
        QFontDatabase::addApplicationFont(DadoDeTeste(QStringLiteral("fontes/SibrelTeste.ttf")));
    QVERIFY(GeracaoDasFontes() != Antes);
    QFontDatabase::removeApplicationFont(Outra);
}

void TesteCanvas::DireitaEBaseNaoSaoPintadas()
{
    const auto Pinta = [](auto Desenho) {
        QImage Imagem = Branca(20, 20);
        {
            TCanvas C(Imagem);
            C.Brush.Color = clBlack;
            Desenho(C);
        }
        return Pintado(Imagem);
    };
    const TRect R(3, 4, 13, 15);
    const QRect Esperado(3, 4, 10, 11);
    QCOMPARE(Pinta([&](TCanvas &C) { C.Rectangle(R); }), Esperado);
    QCOMPARE(Pinta([&](TCanvas &C) { C.Ellipse(R); }), Esperado);
    QCOMPARE(Pinta([&](TCanvas &C) { C.FillRect(R); }), Esperado);
    QCOMPARE(Pinta([&](TCanvas &C) { C.FillRect({5, 5, 5, 9}); }), QRect());
    QCOMPARE(Pinta([&](TCanvas &C) { C.Rectangle({9, 5, 5, 9}); }), QRect());
}

void TesteCanvas::OUltimoPontoDaLinhaNaoEPintado()
{
    QImage Imagem = Branca(20, 20);
    {
        TCanvas C(Imagem);
        C.MoveTo(2, 3);
        C.LineTo(8, 3);
        C.LineTo(8, 9);
    }
    QCOMPARE(Pintado(Imagem), QRect(2, 3, 7, 6));
    QCOMPARE(Imagem.pixelColor(8, 3), QColor(Qt::black)); // where the second line begins
    QCOMPARE(Imagem.pixelColor(8, 9), QColor(Qt::white));
}

void TesteCanvas::PoligonoEPintadoELinhaAbertaNao()
{
    constexpr std::array<TPoint, 4> Pontos = {TPoint(2, 2), TPoint(12, 2), TPoint(12, 12), TPoint(2, 12)};
    QImage Fechado = Branca(20, 20);
    QImage Aberto = Branca(20, 20);
    {
        TCanvas C(Fechado);
        C.Brush.Color = clRed;
        C.Polygon(Pontos);
        TCanvas D(Aberto);
        D.Brush.Color = clRed;
        D.Polyline(Pontos);
        D.Polygon({});
        D.Polyline({});
    }
    QCOMPARE(Fechado.pixelColor(7, 7), QColor(Qt::red));
    QCOMPARE(Fechado.pixelColor(2, 7), QColor(Qt::black));
    QCOMPARE(Aberto.pixelColor(7, 7), QColor(Qt::white));
    QCOMPARE(Aberto.pixelColor(2, 7), QColor(Qt::white)); // the side that would close it
    QCOMPARE(Aberto.pixelColor(12, 7), QColor(Qt::black));
}

void TesteCanvas::PincelVazioNaoPreenche()
{
    QImage Imagem = Branca(20, 20);
    {
        TCanvas C(Imagem);
        C.Brush.Style = TBrushStyle::bsClear;
        C.Rectangle({2, 2, 12, 12});
        C.FillRect({14, 14, 18, 18});
    }
    QCOMPARE(Imagem.pixelColor(7, 7), QColor(Qt::white));
    QCOMPARE(Imagem.pixelColor(15, 15), QColor(Qt::white));
    QCOMPARE(Imagem.pixelColor(2, 7), QColor(Qt::black));
}

void TesteCanvas::AlinhamentosDoTexto_data()
{
    QTest::addColumn<uint>("Alinhamento");
    QTest::addColumn<int>("Esquerda"); // -1 left of the point, 0 around it, 1 right of it
    QTest::addColumn<int>("Topo");     // -1 above, 1 below, 0 on the base line
    QTest::newRow("0") << TA_TOP << 1 << 1;
    QTest::newRow("direita") << TA_RIGHT << -1 << 1;
    QTest::newRow("centro") << TA_CENTER << 0 << 1;
    QTest::newRow("base") << TA_BOTTOM << 1 << -1;
    QTest::newRow("24") << 24U << 1 << 0;
    QTest::newRow("26") << 26U << -1 << 0;
    QTest::newRow("30") << 30U << 0 << 0;
}

void TesteCanvas::AlinhamentosDoTexto()
{
    QFETCH(uint, Alinhamento);
    QFETCH(int, Esquerda);
    QFETCH(int, Topo);
    QImage Imagem = Branca(200, 100);
    {
        TCanvas C(Imagem);
        C.Font.AtribuirName(FamiliaDeTexto);
        C.Font.AtribuirHeight(-25);
        C.Font.AtribuirColor(clBlack);
        C.Brush.Style = TBrushStyle::bsClear;
        C.TextAlign = Alinhamento;
        C.TextOut(100, 50, QStringLiteral("HHH")); // no part below the base line
    }
    const QRect P = Pintado(Imagem);
    QVERIFY(!P.isEmpty());
    if (Esquerda > 0)
        QVERIFY(P.left() >= 100 && P.left() < 106);
    else if (Esquerda < 0)
        QVERIFY(P.right() < 100 && P.right() > 90);
    else
        QVERIFY(std::abs(P.center().x() - 100) <= 3);
    if (Topo > 0)
        QVERIFY(P.top() >= 50);
    else if (Topo < 0)
        QVERIFY(P.bottom() < 50 && P.bottom() > 38);
    else
        QCOMPARE(P.bottom(), 49);
}

void TesteCanvas::FundoDoTexto()
{
    QImage Imagem = Branca(100, 40);
    {
        TCanvas C(Imagem);
        C.Font.AtribuirName(FamiliaDeTexto);
        C.Font.AtribuirHeight(-25);
        C.Brush.Color = clRed;
        C.TextOut(10, 5, QStringLiteral("H H"));
        QCOMPARE(Pintado(Imagem),
                 QRect(10, 5, C.TextWidth(QStringLiteral("H H")), C.TextHeight(QStringLiteral("H"))));
    }
}

void TesteCanvas::TextoRecortado()
{
    QImage Imagem = Branca(100, 40);
    {
        QPainter Pintor(&Imagem);
        Pintor.setClipRect(0, 0, 30, 40);
        TCanvas C(Pintor);
        C.Font.AtribuirName(FamiliaDeTexto);
        C.Font.AtribuirHeight(-25);
        C.Brush.Color = clRed;
        C.Brush.Style = TBrushStyle::bsSolid;
        C.TextRect({20, 10, 60, 15}, 5, 5, QStringLiteral("HHHHHHHH"));
        QCOMPARE(Pintor.clipBoundingRect(), QRectF(0, 0, 30, 40)); // the host's clip is back
        C.FillRect({0, 30, 100, 35});
    }
    QCOMPARE(Pintado(Imagem.copy(0, 0, 100, 30)), QRect(20, 10, 10, 5));
    QCOMPARE(Pintado(Imagem.copy(0, 30, 100, 10)), QRect(0, 0, 30, 5));
}

void TesteCanvas::TextoGirado()
{
    QImage Imagem = Branca(200, 200);
    {
        TCanvas C(Imagem);
        C.Font.AtribuirName(FamiliaDeTexto);
        C.Font.AtribuirHeight(-25);
        C.Font.AtribuirOrientation(900); // a quarter turn, counter-clockwise: it climbs
        C.Brush.Style = TBrushStyle::bsClear;
        C.TextAlign = TA_BASELINE;
        C.TextOut(100, 100, QStringLiteral("HHHH"));
    }
    const QRect P = Pintado(Imagem);
    QVERIFY(P.bottom() <= 100 && P.height() > 2 * P.width());
    QVERIFY(P.right() <= 100);
}

void TesteCanvas::LinhaComGlifosAchadosEOMesmoTexto_data()
{
    QTest::addColumn<QString>("Texto");
    QTest::addColumn<int>("Estilos");
    QTest::newRow("uma letra") << QStringLiteral("A") << 0;
    QTest::newRow("palavras") << QStringLiteral("3º BI Mtz  \"À direita\"") << 0;
    QTest::newRow("vazio") << QString() << 0;
    QTest::newRow("da direita para a esquerda") << QStringLiteral("\u05D0\u05D1 12 \u05D2") << 0;
    QTest::newRow("sublinhado") << QStringLiteral("sub") << 4;
    QTest::newRow("negrito e riscado") << QStringLiteral("risco") << 9;
}

void TesteCanvas::LinhaComGlifosAchadosEOMesmoTexto()
{
    QFETCH(QString, Texto);
    QFETCH(int, Estilos);
    const auto Escrita = [&](auto &&Escrever, unsigned Alinhamento, int Altura, double Densidade) {
        QImage Imagem = Branca(static_cast<int>(200 * Densidade), static_cast<int>(100 * Densidade));
        Imagem.setDevicePixelRatio(Densidade);
        TCanvas C(Imagem);
        C.Font.AtribuirName(FamiliaDeTexto);
        C.Font.AtribuirHeight(Altura);
        for (const int Estilo : {1, 2, 4, 8})
            C.Font.AtribuirStyle(static_cast<TFontStyle>(Estilo), (Estilos & Estilo) != 0);
        C.Brush.Style = TBrushStyle::bsClear;
        C.TextAlign = Alinhamento;
        Escrever(C);
        return Imagem;
    };
    for (const unsigned Alinhamento : {TA_LEFT, TA_CENTER, TA_RIGHT | TA_BOTTOM, TA_CENTER | TA_BASELINE})
        for (const int Altura : {-9, -14, 23})
            for (const double Densidade : {1.0, 1.5, 2.0}) {
                const QImage Como =
                    Escrita([&](TCanvas &C) { C.TextOut(90, 40, Texto); }, Alinhamento, Altura, Densidade);
                const QImage Agora =
                    Escrita([&](TCanvas &C) { C.TextOut(90, 40, TLinhaDeTexto(C.Font, Texto)); }, Alinhamento,
                            Altura, Densidade);
                QCOMPARE(Agora, Como);
                QCOMPARE(Como == Branca(Como.width(), Como.height()), Texto.isEmpty());
                // Made with another font, it is written with the canvas's.
                TFont Outra;
                Outra.AtribuirHeight(-50);
                QCOMPARE(Escrita([&](TCanvas &C) { C.TextOut(90, 40, TLinhaDeTexto(Outra, Texto)); },
                                 Alinhamento, Altura, Densidade),
                         Como);
            }
}

void TesteCanvas::MedidasDoTexto()
{
    QImage Imagem = Branca(10, 10);
    TCanvas C(Imagem);
    C.Font.AtribuirName(FamiliaDeTexto);
    C.Font.AtribuirHeight(-100);
    const std::uint64_t Antes = TCanvas::Medidas();
    QVERIFY(C.TextWidth(QStringLiteral("HH")) > 0);
    QCOMPARE(C.TextHeight(QStringLiteral("H")), 100); // ascent 800 and descent 200 of 1000
    QCOMPARE(TCanvas::Medidas(), Antes + 2);
    QCOMPARE(C.TextWidth(QString()), 0);
}

void TesteCanvas::OPintorDoHospedeiroVolta()
{
    QImage Imagem = Branca(50, 50);
    QPainter Pintor(&Imagem);
    const QPen Caneta(Qt::green, 3);
    const QBrush Pincel(Qt::blue, Qt::Dense4Pattern);
    QFont Fonte(FamiliaDeTexto);
    Fonte.setPixelSize(17);
    Pintor.setPen(Caneta);
    Pintor.setBrush(Pincel);
    Pintor.setFont(Fonte);
    {
        TCanvas C(Pintor);
        C.Pen.Color = clRed;
        C.Brush.Color = clLime;
        C.Rectangle({1, 1, 20, 20});
        C.Font.AtribuirOrientation(450);
        C.TextOut(10, 10, QStringLiteral("x"));
        C.TextRect({0, 0, 50, 50}, 10, 10, QStringLiteral("x"));
    }
    QCOMPARE(Pintor.pen(), Caneta);
    QCOMPARE(Pintor.brush(), Pincel);
    QCOMPARE(Pintor.font(), Fonte);
    QVERIFY(Pintor.worldTransform().isIdentity());
    QVERIFY(!Pintor.hasClipping());
}

void TesteCanvas::ACorVemDoPintor()
{
    QImage Imagem = Branca(5, 5);
    QPainter Pintor(&Imagem);
    Pintor.setPen(QPen(Qt::red, 2, Qt::DashLine));
    const TCanvas C(Pintor);
    QVERIFY(C.Pen.Color == clRed);
    QCOMPARE(C.Pen.Width, 2);
    QCOMPARE(int(C.Pen.Style), int(TPenStyle::psDash));
    QCOMPARE(int(C.Brush.Style), int(TBrushStyle::bsClear));
}

void TesteCanvas::Densidades()
{
    QImage Imagem = Branca(20, 20);
    Imagem.setDevicePixelRatio(2);
    {
        QPainter Pintor(&Imagem);
        TCanvas C(Pintor);
        QCOMPARE(C.DensidadeDePixels(), std::optional(2.0));
        Pintor.translate(3, 3);
        QCOMPARE(C.DensidadeDePixels(), std::optional(2.0));
        Pintor.scale(1.5, 1.5);
        QVERIFY(!C.DensidadeDePixels());
    }
    QByteArray Bytes;
    QBuffer Destino(&Bytes);
    QPdfWriter Pdf(&Destino);
    TCanvas NoPapel(Pdf);
    QVERIFY(!NoPapel.DensidadeDePixels());
}

void TesteCanvas::ModosDeCopia_data()
{
    QTest::addColumn<uint>("Modo");
    QTest::addColumn<QRgb>("Esperado");
    constexpr QRgb Destino = 0x0F3355;
    constexpr QRgb Origem = 0x33F0AA;
    constexpr QRgb Pincel = 0x0FF0FF; // RGB
    const auto Caso = [](const char *Nome, TCopyMode Modo, QRgb Rgb) {
        QTest::newRow(Nome) << uint(Modo) << QRgb((Rgb & 0xFFFFFFU) | 0xFF000000U);
    };
    Caso("copia", TCopyMode::cmSrcCopy, Origem);
    Caso("inverte o destino", TCopyMode::cmDstInvert, ~Destino);
    Caso("origem e pincel", TCopyMode::cmMergeCopy, Origem & Pincel);
    Caso("e", TCopyMode::cmSrcAnd, Origem & Destino);
    Caso("ou", TCopyMode::cmSrcPaint, Origem | Destino);
    Caso("ou exclusivo", TCopyMode::cmSrcInvert, Origem ^ Destino);
    Caso("nao origem", TCopyMode::cmNotSrcCopy, ~Origem);
}

void TesteCanvas::ModosDeCopia()
{
    QFETCH(uint, Modo);
    QFETCH(QRgb, Esperado);
    for (const double Densidade : {1.0, 2.0}) {
        QImage Imagem(20, 20, QImage::Format_RGB32);
        Imagem.fill(0xFF0F3355U);
        Imagem.setDevicePixelRatio(Densidade);
        QImage Origem(4, 4, QImage::Format_RGB32);
        Origem.fill(0xFF33F0AAU);
        {
            TCanvas C(Imagem);
            C.CopyMode = static_cast<TCopyMode>(Modo);
            C.Brush.Color = TColor(QColor(0x0F, 0xF0, 0xFF));
            C.Draw(2, 2, TBitmap(Origem));
        }
        const int Lado = int(4 * Densidade);
        const int Canto = int(2 * Densidade);
        QCOMPARE(Imagem.pixel(Canto, Canto), Esperado);
        QCOMPARE(Imagem.pixel(Canto + Lado - 1, Canto + Lado - 1), Esperado);
        QCOMPARE(Imagem.pixel(Canto - 1, Canto), 0xFF0F3355U);
        QCOMPARE(Imagem.pixel(Canto + Lado, Canto), 0xFF0F3355U);
    }
}

void TesteCanvas::EsticarEscolheOPixelDoCentro()
{
    const TBitmap B(Xadrez());
    const QImage Tres = B.Preparada({3, 3});
    QCOMPARE(Tres.pixelColor(0, 0), QColor(255, 0, 0));
    QCOMPARE(Tres.pixelColor(1, 0), QColor(0, 255, 0)); // the centre of the middle pixel is on the border
    QCOMPARE(Tres.pixelColor(2, 2), QColor(0, 0, 0));
    const QImage Quatro = B.Preparada({4, 4});
    QCOMPARE(Quatro.pixelColor(1, 1), QColor(255, 0, 0));
    QCOMPARE(Quatro.pixelColor(2, 1), QColor(0, 255, 0));
    QImage Larga(9, 1, QImage::Format_RGB32);
    for (int X = 0; X < 9; ++X)
        Larga.setPixel(X, 0, qRgb(X, 0, 0));
    const QImage Reduzida = TBitmap(Larga).Preparada({3, 1});
    for (int X = 0; X < 3; ++X)
        QCOMPARE(qRed(Reduzida.pixel(X, 0)), 3 * X + 1);
    QVERIFY(B.Preparada({0, 5}).isNull());
    QVERIFY(TBitmap().Preparada({5, 5}).isNull());
}

void TesteCanvas::RetanguloTrocadoEspelha()
{
    QImage Imagem = Branca(10, 10);
    {
        TCanvas C(Imagem);
        C.StretchDraw({6, 2, 2, 6}, TBitmap(Xadrez())); // left and right exchanged
    }
    QCOMPARE(Imagem.pixelColor(2, 2), QColor(0, 255, 0));
    QCOMPARE(Imagem.pixelColor(5, 2), QColor(255, 0, 0));
    QCOMPARE(Imagem.pixelColor(5, 5), QColor(0, 0, 255));
    QCOMPARE(Imagem.pixelColor(6, 2), QColor(Qt::white));
}

void TesteCanvas::RetanguloVazioNaoDesenha()
{
    QImage Imagem = Branca(10, 10);
    {
        TCanvas C(Imagem);
        C.StretchDraw({2, 2, 2, 6}, TBitmap(Xadrez()));
        C.StretchDraw({2, 2, 6, 2}, TBitmap(Xadrez()));
        C.Draw(0, 0, TBitmap());
    }
    QCOMPARE(Pintado(Imagem), QRect());
}

void TesteCanvas::TransparenciaPeloCantoDeBaixo()
{
    TBitmap B(Xadrez());
    const std::uint64_t Antes = B.Selo();
    QCOMPARE(qAlpha(B.Preparada({2, 2}).pixel(0, 1)), 255);
    B.AtribuirTransparent(true);
    QVERIFY(B.Selo() != Antes);
    QCOMPARE(qAlpha(B.Preparada({2, 2}).pixel(0, 1)), 0); // bottom left, blue
    QCOMPARE(qAlpha(B.Preparada({2, 2}).pixel(0, 0)), 255);
}

void TesteCanvas::TransparenciaPeloAlfa()
{
    QImage ComAlfa(2, 2, QImage::Format_ARGB32);
    ComAlfa.fill(qRgba(255, 0, 0, 255));
    ComAlfa.setPixel(1, 1, qRgba(0, 0, 255, 0));
    TBitmap B(ComAlfa);
    B.AtribuirTransparent(true);
    QCOMPARE(qAlpha(B.Preparada({2, 2}).pixel(0, 1)), 255); // the corner plays no part
    QCOMPARE(qAlpha(B.Preparada({2, 2}).pixel(1, 1)), 0);
}

void TesteCanvas::BitmapMonocromatico()
{
    QImage Cinzas(3, 1, QImage::Format_RGB32);
    Cinzas.setPixel(0, 0, qRgb(127, 127, 127));
    Cinzas.setPixel(1, 0, qRgb(128, 128, 128));
    Cinzas.setPixel(2, 0, qRgb(0, 0, 255));
    TBitmap B(Cinzas);
    B.AtribuirMonochrome(true);
    QVERIFY(B.Pixel(0, 0) == clBlack);
    QVERIFY(B.Pixel(1, 0) == clWhite);
    QVERIFY(B.Pixel(2, 0) == clBlack);
    B.Canvas().Brush.Color = TColor(QColor(200, 200, 200));
    B.Canvas().FillRect({0, 0, 1, 1});
    QVERIFY(B.Pixel(0, 0) == clWhite); // what is drawn later is reduced too
}

void TesteCanvas::TamanhoDoBitmap()
{
    TBitmap B(Xadrez());
    B.AtribuirTamanho(3, 1);
    QCOMPARE(B.Width(), 3);
    QVERIFY(B.Pixel(1, 0) == clLime);
    QVERIFY(B.Pixel(2, 0) == clWhite);
    QVERIFY(B.Pixel(5, 5) == clWhite);
    B.AtribuirTamanho(-1, 4);
    QVERIFY(B.Empty());
}

void TesteCanvas::DesenharNoBitmap()
{
    TBitmap B;
    B.AtribuirTamanho(10, 10);
    std::uint64_t Antes = B.Selo();
    B.Canvas().Pen.Color = clRed;
    B.Canvas().MoveTo(0, 0);
    B.Canvas().LineTo(5, 0);
    QVERIFY(B.Selo() != Antes);
    QVERIFY(B.Pixel(4, 0) == clRed); // reading lets go of the painter; the state stays
    B.Canvas().LineTo(5, 5);
    QVERIFY(B.Canvas().Pixel(5, 4) == clRed);
    B.Canvas().AtribuirPixel(9, 9, clBlue);
    B.AtribuirTamanho(20, 20);
    QVERIFY(B.Pixel(9, 9) == clBlue);
    TBitmap Copia;
    Copia.Assign(B);
    QCOMPARE(Copia.Imagem(), B.Imagem());
}

void TesteCanvas::FormatosDeFigura()
{
    const QTemporaryDir Pasta;
    int Quantos = 0;
    for (const QByteArray &Formato : QImageWriter::supportedImageFormats()) {
        const QString Nome = Pasta.filePath(QStringLiteral("figura.") + QString::fromLatin1(Formato));
        if (!Xadrez().scaled(8, 8).save(Nome, Formato.constData()))
            continue;
        const std::unique_ptr<TGraphic> Grafico = LerGrafico(Nome);
        QVERIFY2(Grafico && Grafico->Width() == 8, Formato.constData());
        ++Quantos;
    }
    QVERIFY2(Quantos >= 5, "few picture formats were tried");
}

void TesteCanvas::FiguraIlegivel()
{
    const QTemporaryDir Pasta;
    const QString Nome = Pasta.filePath(QStringLiteral("falsa.bmp"));
    EscreverBytes(Nome, "isto não é uma figura");
    try {
        LerGrafico(Nome);
        QFAIL("devia recusar");
    } catch (const EInvalidGraphic &E) {
        QVERIFY(E.Message.contains(QStringLiteral("falsa.bmp")));
        QVERIFY(!E.Detalhe.isEmpty());
    }
}

QTEST_MAIN(TesteCanvas)
#include "TesteCanvas.moc"
