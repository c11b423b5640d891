// SPDX-License-Identifier: LGPL-2.1-or-later
// Remembered pictures: the same pixels as drawing anew, never stale, bounded, and the caller's canvas left
// alone.
#include "simbolos/CacheDePinturas.h"
#include "simbolos/SimbolosDeTeste.h"
#include "simbolos/TabelaDeSimbolos.h"

#include <QFontDatabase>
#include <QPainter>
#include <QTest>

#include <functional>

using namespace Sibrel;
using namespace Sibrel::Testes;

namespace
{

using TPreparo = std::function<void(TCanvas &)>;

QImage Folha(int Lado = 48, QRgb Cor = 0xFFDDEEFFU)
{
    QImage Imagem(Lado, Lado, QImage::Format_ARGB32_Premultiplied);
    Imagem.fill(Cor);
    return Imagem;
}

constexpr TRect Area(4, 6, 44, 40);

QImage Desenhado(ISimbolo &Simbolo, TColor Cor = clBlack, const TRect &Rect = Area, QRgb Fundo = 0xFFDDEEFFU)
{
    QImage Imagem = Folha(48, Fundo);
    TCanvas Canvas(Imagem);
    Canvas.Pen.Color = Cor;
    Simbolo.Desenhar(Canvas, Rect);
    return Imagem;
}

// Drawn without any memory: glyphs on a painter that transforms (by nothing), pictures by their pixel under
// the centre of each pixel, composites part by part.
void DesenharDireto(QImage &Imagem, ISimbolo &Simbolo, TColor Cor, const TRect &Rect)
{
    if (const auto *Varios = dynamic_cast<TSimboloComposto *>(&Simbolo)) {
        for (const auto &Parte : Varios->Lista)
            DesenharDireto(Imagem, *Parte, Cor, Rect);
        return;
    }
    QPainter Pintor(&Imagem);
    if (const auto *Desenho = dynamic_cast<TSimboloGrafico *>(&Simbolo)) {
        const QImage Origem =
            Desenho->Grafico->Preparada({Desenho->Grafico->Width(), Desenho->Grafico->Height()});
        const QSize Alvo = Rect.ParaQRect().size();
        for (int Y = 0; Y < Alvo.height(); ++Y)
            for (int X = 0; X < Alvo.width(); ++X)
                Pintor.drawImage(QPoint(Rect.Left + X, Rect.Top + Y),
                                 Origem.copy((2 * X + 1) * Origem.width() / (2 * Alvo.width()),
                                             (2 * Y + 1) * Origem.height() / (2 * Alvo.height()), 1, 1));
        return;
    }
    Pintor.setViewTransformEnabled(true);
    TCanvas Canvas(Pintor);
    Canvas.Pen.Color = Cor;
    Simbolo.Desenhar(Canvas, Rect);
}

QImage Direto(ISimbolo &Simbolo, TColor Cor = clBlack, const TRect &Rect = Area, QRgb Fundo = 0xFFDDEEFFU)
{
    QImage Imagem = Folha(48, Fundo);
    DesenharDireto(Imagem, Simbolo, Cor, Rect);
    return Imagem;
}

int MaiorDiferenca(const QImage &A, const QImage &B)
{
    int Maior = A.size() == B.size() ? 0 : 256;
    for (int Y = 0; Maior < 256 && Y < A.height(); ++Y)
        for (int X = 0; X < A.width(); ++X) {
            const QRgb P = A.pixel(X, Y);
            const QRgb Q = B.pixel(X, Y);
            Maior = std::max({Maior, std::abs(qRed(P) - qRed(Q)), std::abs(qGreen(P) - qGreen(Q)),
                              std::abs(qBlue(P) - qBlue(Q)), std::abs(qAlpha(P) - qAlpha(Q))});
        }
    return Maior;
}

template <class F>
std::uint64_t Preparadas(const F &Operacao)
{
    const std::uint64_t Antes = TCacheDePinturas::Preparadas();
    Operacao();
    return TCacheDePinturas::Preparadas() - Antes;
}

QString Imagem(const char *Nome)
{
    return DadoDeExemplo(QStringLiteral("imagens/") + QLatin1String(Nome));
}

// One of each kind, by name.
std::unique_ptr<ISimbolo> DoTipo(const QString &Tipo)
{
    if (Tipo == QLatin1String("glifo"))
        return Glifo(39);
    if (Tipo == QLatin1String("figura opaca"))
        return Figura(Imagem("ponte.bmp"));
    if (Tipo == QLatin1String("figura com alfa"))
        return Figura(Imagem("hostil.png"));
    if (Tipo == QLatin1String("composto"))
        return Composto(Figura(Imagem("amigo.png")), Glifo(37), Glifo(85, 0.4));
    return Composto(Composto(Figura(Imagem("neutro.png")), Glifo(45, 0.8)), Glifo(85, 0.25));
}

void CadaTipo()
{
    QTest::addColumn<QString>("Tipo");
    for (const char *Tipo : {"glifo", "figura opaca", "figura com alfa", "composto", "composto de compostos"})
        QTest::newRow(Tipo) << QString::fromLatin1(Tipo);
}

} // namespace

class TestePinturas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { CarregarFontes(); }
    void init() { TCacheDePinturas::Esvaziar(); }

    void SegundoDesenhoNaoMedeNemPrepara_data() { CadaTipo(); }
    void SegundoDesenhoNaoMedeNemPrepara();
    void LembradaIgualADireta_data() { CadaTipo(); }
    void LembradaIgualADireta();
    void EstadoDoCanvasIntacto_data() { CadaTipo(); }
    void EstadoDoCanvasIntacto();

    void CadaCampoMudadoEVisto_data();
    void CadaCampoMudadoEVisto();
    void CorDaCanetaEVista();
    void FiguraTrocadaEVista();
    void PartesMudadasSaoVistas();
    void FontesMudadasSaoVistas();
    void FundoNaoFicaNaFigura();
    void DensidadesNaoSeMisturam();
    void OutroModoDeCopiaNaoEDeMemoria();

    void CompostoEmDuasCoresNaoSePreparaSempre();
    void CompostoComTipoQueNaoSeLembra();
    void LimiteDeBytes();
    void GrandeDemaisNaoSeGuarda();
    void CompostoDePartesSemFimNaoSeGuarda();
    void RetanguloVazioNaoGuardaNada();
    void PintorDoHospedeiroIntacto();
    void RecorteDoHospedeiroRespeitado();
};

void TestePinturas::SegundoDesenhoNaoMedeNemPrepara()
{
    QFETCH(QString, Tipo);
    const std::unique_ptr<ISimbolo> Simbolo = DoTipo(Tipo);
    QImage Primeira;
    QVERIFY(Preparadas([&] { Primeira = Desenhado(*Simbolo); }) > 0);
    QVERIFY(Primeira != Folha());
    QImage Segunda;
    const std::uint64_t Medidas = TCanvas::Medidas();
    QCOMPARE(Preparadas([&] { Segunda = Desenhado(*Simbolo); }), 0U);
    QCOMPARE(TCanvas::Medidas(), Medidas);
    QCOMPARE(Segunda, Primeira);
    // Elsewhere in the same size it is the same picture.
    QCOMPARE(Preparadas([&] { Desenhado(*Simbolo, clBlack, {0, 0, 40, 34}); }), 0U);
}

void TestePinturas::LembradaIgualADireta()
{
    QFETCH(QString, Tipo);
    const std::unique_ptr<ISimbolo> Simbolo = DoTipo(Tipo);
    for (const QRgb Fundo : {0xFFDDEEFFU, 0xFF000000U, 0U})
        for (const TRect &Rect : {Area, TRect(-10, -7, 20, 60), TRect(3, 3, 9, 45), TRect(0, 0, 48, 1)}) {
            const QImage Lembrada = Desenhado(*Simbolo, clBlue, Rect, Fundo);
            QVERIFY2(MaiorDiferenca(Lembrada, Direto(*Simbolo, clBlue, Rect, Fundo)) <= 1, qPrintable(Tipo));
            QCOMPARE(Desenhado(*Simbolo, clBlue, Rect, Fundo), Lembrada);
        }
}

void TestePinturas::EstadoDoCanvasIntacto()
{
    QFETCH(QString, Tipo);
    const std::unique_ptr<ISimbolo> Simbolo = DoTipo(Tipo);
    QImage Superficie = Folha();
    TCanvas Canvas(Superficie);
    Canvas.Pen = {clRed, TPenStyle::psDot, 3};
    Canvas.Brush = {clLime, TBrushStyle::bsCross};
    Canvas.Font.AtribuirName(FamiliaDeTexto);
    Canvas.Font.AtribuirSize(17);
    Canvas.TextAlign = TA_CENTER | TA_BASELINE;
    const TFont Fonte = Canvas.Font;
    for (int Vez = 0; Vez < 2; ++Vez) { // prepared, then remembered
        Simbolo->Desenhar(Canvas, Area);
        QVERIFY(Canvas.Pen == (TPen{clRed, TPenStyle::psDot, 3}));
        QVERIFY(Canvas.Brush == (TBrush{clLime, TBrushStyle::bsCross}));
        QVERIFY(Canvas.Font == Fonte);
        QCOMPARE(Canvas.TextAlign, TA_CENTER | TA_BASELINE);
        QCOMPARE(Canvas.CopyMode, TCopyMode::cmSrcCopy);
    }
}

void TestePinturas::CadaCampoMudadoEVisto_data()
{
    QTest::addColumn<int>("Campo");
    QTest::newRow("codigo") << 0;
    QTest::newRow("proporcao") << 1;
    QTest::newRow("fonte") << 2;
    QTest::newRow("charset") << 3;
    QTest::newRow("negrito") << 4;
    QTest::newRow("italico") << 5;
}

void TestePinturas::CadaCampoMudadoEVisto()
{
    QFETCH(int, Campo);
    const auto Mudar = [Campo](TSimboloFonte &S) {
        if (Campo == 0)
            S.Caracter = 0xE9;
        else if (Campo == 1)
            S.Proporcao = 0.5;
        else if (Campo == 2)
            S.Fonte.AtribuirName(FamiliaDeSimbolos);
        else if (Campo == 3)
            S.Fonte.AtribuirCharset(204);
        else
            S.Fonte.AtribuirStyle(Campo == 4 ? TFontStyle::fsBold : TFontStyle::fsItalic, true);
    };
    const auto Novo = [] { return Glifo(0xC6, 1, FamiliaDeTexto, 0); };
    const auto Simbolo = Novo();
    const auto Envolto = Composto(Novo());
    const QImage Antes = Desenhado(*Simbolo);
    QCOMPARE(Desenhado(*Envolto), Antes);
    Mudar(*Simbolo);
    Mudar(dynamic_cast<TSimboloFonte &>(*Envolto->Lista[0]));
    const QImage Depois = Desenhado(*Simbolo);
    QVERIFY(Depois != Antes);
    QCOMPARE(Desenhado(*Envolto), Depois); // not what is remembered of the composite
    const auto Fresco = Novo();
    Mudar(*Fresco);
    TCacheDePinturas::Esvaziar();
    QCOMPARE(Desenhado(*Fresco), Depois);
}

void TestePinturas::CorDaCanetaEVista()
{
    for (const QString &Tipo : {QStringLiteral("glifo"), QStringLiteral("composto")}) {
        const std::unique_ptr<ISimbolo> Simbolo = DoTipo(Tipo);
        const QImage Preto = Desenhado(*Simbolo, clBlack);
        const QImage Verde = Desenhado(*Simbolo, clLime);
        QVERIFY(Preto != Verde);
        QVERIFY(MaiorDiferenca(Verde, Direto(*Simbolo, clLime)) <= 1);
        QCOMPARE(Desenhado(*Simbolo, clBlack), Preto);
    }
}

void TestePinturas::FiguraTrocadaEVista()
{
    const auto Simbolo = Figura(Imagem("ponte.bmp"));
    const auto Envolto = Composto(Figura(Imagem("ponte.bmp")));
    const QImage Antes = Desenhado(*Simbolo);
    QCOMPARE(Desenhado(*Envolto), Antes);
    Simbolo->Grafico->AtribuirTransparent(false);
    const QImage Opaca = Desenhado(*Simbolo);
    QVERIFY(Opaca != Antes);
    Simbolo->LerArquivo(Imagem("cruz.bmp"));
    dynamic_cast<TSimboloGrafico &>(*Envolto->Lista[0]).LerArquivo(Imagem("cruz.bmp"));
    const QImage Outra = Desenhado(*Simbolo);
    QVERIFY(Outra != Antes);
    QCOMPARE(Desenhado(*Envolto), Outra);
    // Drawn into, by its own canvas.
    auto &Bitmap = dynamic_cast<TBitmap &>(*Simbolo->Grafico);
    Bitmap.Canvas().Brush.Color = clRed;
    Bitmap.Canvas().FillRect({0, 0, Bitmap.Width() / 2, Bitmap.Height()});
    QVERIFY(Desenhado(*Simbolo) != Outra);
    Simbolo->Grafico.reset();
    QCOMPARE(Desenhado(*Simbolo), Folha());
}

void TestePinturas::PartesMudadasSaoVistas()
{
    const auto Simbolo = Composto(Figura(Imagem("amigo.png")), Glifo(37));
    const QImage Antes = Desenhado(*Simbolo);
    Simbolo->Lista.Insert(0, Simbolo->Lista.Extract(Simbolo->Lista.Last()));
    const QImage Trocados = Desenhado(*Simbolo);
    QVERIFY(Trocados != Antes);
    Simbolo->Lista.Add(Glifo(74, 0.5));
    QVERIFY(Desenhado(*Simbolo) != Trocados);
    Simbolo->Lista.Delete(2);
    QCOMPARE(Desenhado(*Simbolo), Trocados);
    Simbolo->Lista.Clear();
    QCOMPARE(Desenhado(*Simbolo), Folha());
}

void TestePinturas::FontesMudadasSaoVistas()
{
    for (const QString &Tipo : {QStringLiteral("glifo"), QStringLiteral("composto")}) {
        const std::unique_ptr<ISimbolo> Simbolo = DoTipo(Tipo);
        const QImage Com = Desenhado(*Simbolo);
        QVERIFY(QFontDatabase::removeAllApplicationFonts());
        const QImage Sem = Desenhado(*Simbolo);
        QVERIFY(Sem != Com);
        QVERIFY(MaiorDiferenca(Sem, Direto(*Simbolo)) <= 1);
        CarregarFontes();
        QCOMPARE(Desenhado(*Simbolo), Com);
    }
}

void TestePinturas::FundoNaoFicaNaFigura()
{
    const auto Simbolo = Glifo(39);
    const QImage SobreAzul = Desenhado(*Simbolo, clRed, Area, 0xFF0000FFU);
    const QImage SobreVerde = Desenhado(*Simbolo, clRed, Area, 0xFF00FF00U);
    for (int Y = 0; Y < 48; ++Y)
        for (int X = 0; X < 48; ++X) {
            QCOMPARE(qGreen(SobreAzul.pixel(X, Y)), 0);
            QCOMPARE(qBlue(SobreVerde.pixel(X, Y)), 0);
        }
}

void TestePinturas::DensidadesNaoSeMisturam()
{
    const auto Simbolo = Glifo(39);
    const QImage Antes = Desenhado(*Simbolo);
    QImage Dupla(96, 96, QImage::Format_ARGB32_Premultiplied);
    Dupla.fill(0xFFDDEEFFU);
    Dupla.setDevicePixelRatio(2);
    {
        TCanvas Canvas(Dupla);
        Simbolo->Desenhar(Canvas, Area);
    }
    QCOMPARE(Desenhado(*Simbolo), Antes);
    // Twice the detail, not the same pixels doubled.
    Dupla.setDevicePixelRatio(1);
    QVERIFY(Dupla != Antes.scaled(96, 96));
}

void TestePinturas::OutroModoDeCopiaNaoEDeMemoria()
{
    const auto Simbolo = Figura(Imagem("ponte.bmp"));
    const auto Com = [&Simbolo](TCopyMode Modo) {
        QImage Superficie = Folha().convertToFormat(QImage::Format_RGB32);
        TCanvas Canvas(Superficie);
        Canvas.CopyMode = Modo;
        Simbolo->Desenhar(Canvas, Area);
        return Superficie;
    };
    const QImage Copiada = Com(TCopyMode::cmSrcCopy);
    QCOMPARE(Preparadas([&] { QVERIFY(Com(TCopyMode::cmSrcAnd) != Copiada); }), 0U);
    QCOMPARE(Preparadas([&] { QCOMPARE(Com(TCopyMode::cmSrcCopy), Copiada); }), 0U);
}

void TestePinturas::CompostoEmDuasCoresNaoSePreparaSempre()
{
    // As in a tree whose nodes of two colours show the same symbol.
    const std::unique_ptr<ISimbolo> Simbolo = DoTipo(QStringLiteral("composto de compostos"));
    const QImage Vermelho = Desenhado(*Simbolo, clRed);
    const QImage Azul = Desenhado(*Simbolo, clBlue);
    QVERIFY(Vermelho != Azul);
    QCOMPARE(Preparadas([&] {
                 for (int Vez = 0; Vez < 10; ++Vez) {
                     QCOMPARE(Desenhado(*Simbolo, clRed), Vermelho);
                     QCOMPARE(Desenhado(*Simbolo, clBlue), Azul);
                 }
             }),
             0U);
}

void TestePinturas::CompostoComTipoQueNaoSeLembra()
{
    const auto Simbolo =
        Composto(Figura(Imagem("amigo.png")), std::make_unique<TSimboloDoHospedeiro>(), Glifo(37));
    TSimboloDoHospedeiro::Desenhados = 0;
    const QImage Primeira = Desenhado(*Simbolo, clBlue);
    QCOMPARE(Desenhado(*Simbolo, clBlue), Primeira);
    QCOMPARE(TSimboloDoHospedeiro::Desenhados, 2);
    // What the kind leaves in the canvas is what the parts above it find: the glyph is red, not blue.
    QImage Superficie = Folha();
    TCanvas Canvas(Superficie);
    Canvas.Pen.Color = clBlue;
    Simbolo->Desenhar(Canvas, Area);
    QCOMPARE(Canvas.Pen.Color, clRed);
    bool Vermelho = false;
    for (int Y = 0; Y < 48; ++Y)
        for (int X = 0; X < 48; ++X)
            Vermelho = Vermelho || Superficie.pixel(X, Y) == 0xFFFF0000U;
    QVERIFY(Vermelho);
}

void TestePinturas::LimiteDeBytes()
{
    constexpr int Lado = 100;
    const auto Fazer = [] {
        QImage Cheia(Lado, Lado, QImage::Format_ARGB32_Premultiplied);
        Cheia.fill(0x80800000U);
        auto Simbolo = std::make_unique<TSimboloGrafico>();
        Simbolo->Grafico = std::make_unique<TBitmap>(Cheia);
        return Simbolo;
    };
    std::vector<std::unique_ptr<TSimboloGrafico>> Simbolos;
    constexpr int Quantos = 2000; // of 40,000 bytes each
    QImage Superficie = Folha(Lado);
    TCanvas Canvas(Superficie);
    for (int I = 0; I < Quantos; ++I) {
        Simbolos.push_back(Fazer());
        Simbolos.back()->Desenhar(Canvas, {0, 0, Lado, Lado});
        QVERIFY(TCacheDePinturas::Bytes() <= TCacheDePinturas::BytesMaximos);
    }
    QVERIFY(TCacheDePinturas::Quantas() > 700);
    QVERIFY(TCacheDePinturas::Quantas() < 900);
    QCOMPARE(Preparadas([&] { Simbolos.back()->Desenhar(Canvas, {0, 0, Lado, Lado}); }), 0U);
    QCOMPARE(Preparadas([&] { Simbolos.front()->Desenhar(Canvas, {0, 0, Lado, Lado}); }), 1U);
    TCacheDePinturas::Esvaziar();
    QCOMPARE(TCacheDePinturas::Bytes(), 0);
    QCOMPARE(TCacheDePinturas::Quantas(), 0);
}

void TestePinturas::GrandeDemaisNaoSeGuarda()
{
    const auto Simbolo = Glifo(35);
    QImage Superficie(1100, 1100, QImage::Format_RGB32);
    Superficie.fill(Qt::white);
    TCanvas Canvas(Superficie);
    QCOMPARE(Preparadas([&] { Simbolo->Desenhar(Canvas, {0, 0, 1100, 1100}); }), 0U);
    QImage Branca = Superficie.copy();
    Branca.fill(Qt::white);
    QVERIFY(Superficie != Branca);
    QCOMPARE(TCacheDePinturas::Quantas(), 0);
    Composto(Glifo(35), Glifo(36))->Desenhar(Canvas, {0, 0, 1100, 1100});
    QCOMPARE(TCacheDePinturas::Quantas(), 0);
}

void TestePinturas::CompostoDePartesSemFimNaoSeGuarda()
{
    const auto Simbolo = Composto(Figura(Imagem("amigo.png")));
    for (int I = 0; I < 800000; ++I)
        Simbolo->Lista.Add(std::make_unique<TSimboloGrafico>());
    QCOMPARE(Desenhado(*Simbolo), Desenhado(*Simbolo->Lista.First()));
    QVERIFY(TCacheDePinturas::Bytes() <= TCacheDePinturas::BytesDeUma);
}

void TestePinturas::RetanguloVazioNaoGuardaNada()
{
    for (const QString &Tipo :
         {QStringLiteral("glifo"), QStringLiteral("figura opaca"), QStringLiteral("composto")}) {
        const std::unique_ptr<ISimbolo> Simbolo = DoTipo(Tipo);
        for (const TRect &Rect : {TRect(5, 5, 5, 30), TRect(5, 5, 30, 5), TRect()})
            QCOMPARE(Desenhado(*Simbolo, clBlack, Rect), Folha());
        QCOMPARE(TCacheDePinturas::Quantas(), 0);
    }
}

void TestePinturas::PintorDoHospedeiroIntacto()
{
    QImage Superficie = Folha();
    QPainter Pintor(&Superficie);
    Pintor.setPen(QPen(Qt::magenta, 2.5, Qt::DashLine, Qt::RoundCap));
    Pintor.setBrush(QBrush(Qt::cyan, Qt::Dense4Pattern));
    Pintor.setFont(QFont(FamiliaDeTexto, 9, QFont::Bold));
    Pintor.translate(3, 4);
    Pintor.setOpacity(0.5);
    const QPen Caneta = Pintor.pen();
    const QBrush Pincel = Pintor.brush();
    const QFont Fonte = Pintor.font();
    const QTransform Transformacao = Pintor.transform();
    for (const char *Tipo : {"glifo", "figura com alfa", "composto"})
        for (int Vez = 0; Vez < 3; ++Vez) {
            Pintor.setViewTransformEnabled(Vez == 2); // the last time directly
            {
                TCanvas Canvas(Pintor);
                DoTipo(QLatin1String(Tipo))->Desenhar(Canvas, Area);
            }
            QCOMPARE(Pintor.pen(), Caneta);
            QCOMPARE(Pintor.brush(), Pincel);
            QCOMPARE(Pintor.font(), Fonte);
            QCOMPARE(Pintor.transform(), Transformacao);
            QCOMPARE(Pintor.opacity(), 0.5);
            QVERIFY(!Pintor.hasClipping());
            QCOMPARE(Pintor.compositionMode(), QPainter::CompositionMode_SourceOver);
        }
}

void TestePinturas::RecorteDoHospedeiroRespeitado()
{
    for (const bool Lembrar : {true, false}) {
        QImage Superficie = Folha();
        {
            QPainter Pintor(&Superficie);
            Pintor.setViewTransformEnabled(!Lembrar);
            Pintor.setClipRect(0, 0, 24, 48);
            TCanvas Canvas(Pintor);
            Glifo(35)->Desenhar(Canvas, Area);
            QCOMPARE(Pintor.clipRegion(), QRegion(0, 0, 24, 48));
        }
        QCOMPARE(Superficie.copy(24, 0, 24, 48), Folha().copy(24, 0, 24, 48));
        QVERIFY(Superficie.copy(0, 0, 24, 48) != Folha().copy(0, 0, 24, 48));
    }
}

QTEST_MAIN(TestePinturas)
#include "TestePinturas.moc"
