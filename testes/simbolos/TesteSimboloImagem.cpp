// SPDX-License-Identifier: LGPL-2.1-or-later
#include "comum/Controle.h"
#include "comum/Dados.h"
#include "plataforma/Exception.h"
#include "plataforma/Picture.h"
#include "simbolos/SimboloGrafico.h"
#include "simbolos/SimboloImagem.h"

#include <QAccessible>
#include <QApplication>
#include <QBackingStore>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QMetaProperty>
#include <QPainter>
#include <QPicture>
#include <QScreen>
#include <QTest>
#include <QVBoxLayout>
#include <QWindow>

#include <memory>

using namespace Sibrel;
using namespace Sibrel::Testes;

namespace
{

constexpr QRgb Azul = 0xFF0000FFU;

// A figure with no symmetry, so that any mirroring, shift or swap of sides shows: dark on light.
QImage Letra(int Largura = 10, int Altura = 8)
{
    QImage Figura(Largura, Altura, QImage::Format_RGB32);
    Figura.fill(Qt::white);
    for (int Y = 0; Y < Altura; ++Y)
        Figura.setPixel(0, Y, 0xFF000000U);
    for (int X = 0; X < Largura; ++X)
        Figura.setPixel(X, 0, 0xFF000000U);
    for (int X = 0; X < Largura / 2; ++X)
        Figura.setPixel(X, Altura / 2, 0xFF202020U);
    Figura.setPixel(Largura - 1, Altura - 1, 0xFF000000U);
    return Figura;
}

// Squares of three logical pixels in six colours, none of which is black, white or the symbol's.
class TPadronagem : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent *) override
    {
        constexpr QRgb Cores[] = {0xE6C88C, 0x8CC8E6, 0xC8E68C, 0xE68CC8, 0x787878, 0x3C783C};
        QPainter Pintor(this);
        for (int Y = 0; Y * 3 < height(); ++Y)
            for (int X = 0; X * 3 < width(); ++X)
                Pintor.fillRect(X * 3, Y * 3, 3, 3, QColor(Cores[(X + 2 * Y) % 6]));
    }
};

class TImagem : public TSimboloImagem
{
public:
    using TSimboloImagem::BufferDeCor;
    using TSimboloImagem::Canvas;
    using TSimboloImagem::CopyModeDoCanvas;
    using TSimboloImagem::TSimboloImagem;

    int Pinturas = 0;

protected:
    void Paint() override
    {
        ++Pinturas;
        TSimboloImagem::Paint();
    }
};

QImage Desenhado(QWidget &Janela, double Densidade = 1)
{
    QImage Imagem((QSizeF(Janela.size()) * Densidade).toSize(), QImage::Format_RGB32);
    Imagem.setDevicePixelRatio(Densidade);
    Imagem.fill(Qt::white);
    Janela.render(&Imagem);
    return Imagem;
}

// A parent with one control on it, and what stands there without the control.
struct TCena {
    TPadronagem Fundo;
    TImagem Controle{&Fundo};
    QImage Sem;

    explicit TCena(const QRect &Lugar = QRect(5, 4, 20, 16), const QImage &Mascara = Letra())
    {
        Fundo.setFixedSize(40, 30);
        Controle.setGeometry(Lugar);
        Controle.hide();
        Sem = Desenhado(Fundo);
        Controle.show();
        if (!Mascara.isNull()) {
            const TBitmap Copia(Mascara);
            Controle.AtribuirMascara(&Copia);
        }
    }

    // The background with the mask's dark pixels in `Cor` where `Area` (in the control) and the control meet.
    QImage Esperado(const QImage &Mascara, const QRect &Area, QRgb Cor = Azul) const
    {
        QImage Quadro = Sem;
        const QRect Visivel = Controle.geometry() & Fundo.rect();
        for (int Y = 0; Y < Quadro.height(); ++Y)
            for (int X = 0; X < Quadro.width(); ++X) {
                const QPoint NoControle = QPoint(X, Y) - Controle.pos();
                if (!Visivel.contains(X, Y) || !Area.contains(NoControle))
                    continue;
                const QPoint P = NoControle - Area.topLeft();
                const int MX = (2 * P.x() + 1) * Mascara.width() / (2 * Area.width());
                const int MY = (2 * P.y() + 1) * Mascara.height() / (2 * Area.height());
                if (qGray(Mascara.pixel(MX, MY)) < 128)
                    Quadro.setPixel(X, Y, Cor);
            }
        return Quadro;
    }
};

// All modes side by side at odd places, a mask larger than its control among them.
std::unique_ptr<QWidget> Mostruario()
{
    auto Fundo = std::make_unique<TPadronagem>();
    Fundo->setFixedSize(120, 60);
    const TBitmap Mascara(Letra());
    const auto Novo = [&](const QRect &Lugar, TColor Cor) {
        auto *Controle = new TSimboloImagem(Fundo.get());
        Controle->setGeometry(Lugar);
        Controle->AtribuirMascara(&Mascara);
        Controle->AtribuirCor(Cor);
        return Controle;
    };
    Novo({3, 3, 20, 20}, clBlue);
    Novo({27, 5, 15, 13}, clRed)->AtribuirCentralizar(true);
    Novo({47, 3, 33, 21}, clBlack)->AtribuirEsticar(true);
    Novo({3, 31, 6, 5}, clBlue);
    Novo({27, 31, 5, 5}, clRed)->AtribuirCentralizar(true);
    Novo({47, 31, 7, 5}, clWhite)->AtribuirEsticar(true);
    auto *DeSvg = Novo({85, 3, 32, 32}, clFuchsia);
    DeSvg->AtribuirMascara(LerGrafico(DadoDeExemplo(QStringLiteral("imagens/farol.svg"))).get());
    DeSvg->AtribuirEsticar(true);
    auto *DeFigura = Novo({85, 37, 32, 20}, clGray);
    DeFigura->AtribuirMascara(LerGrafico(DadoDeExemplo(QStringLiteral("imagens/cruz.bmp"))).get());
    DeFigura->AtribuirCentralizar(true);
    return Fundo;
}

QString NomeDoControle(double Densidade)
{
    return QStringLiteral("simboloimagem-%1").arg(Densidade);
}

} // namespace

class TesteSimboloImagem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void NovoComecaVazioEAzul();
    void SemMascaraNaoPintaNada();
    void PixelsEscurosNaCorClarosDeixamVer();
    void CorDoMundoInteiro_data();
    void CorDoMundoInteiro();
    void Centralizado_data();
    void Centralizado();
    void Esticado_data();
    void Esticado();
    void SemModoERecortadoADireitaEAbaixo();
    void UmModoAcabaComOOutro();
    void RepeteAPinturaSoQuandoMuda();
    void AMascaraEReduzidaAUmBit();
    void OTransparenteEClaro();
    void APrimeiraPinturaNaoDependeDeQuemLeuAMascara();
    void MascaraDeSvg();
    void FiguraComCorTransparente();
    void MascaraNulaEsvazia();
    void QuemDesenhaNaMascaraMudaOQueSeVe();
    void DepoisDaPinturaAMascaraEAMesma();
    void ModosDeCopiaQueAPinturaDeixa();
    void APinturaNaoAlocaOBuffer();
    void CanvasSoEnquantoPinta();
    void SobreOutroControle();
    void JanelaTransparenteContinuaTransparente();
    void SobreSuperficieSemPixels();
    void DentroDeUmaCena();
    void TamanhoSugerido();
    void EAcessivel();
    void PropriedadesSempreGuardadas();
    void MascaraComoFiguraDeFormulario();
    void OModuloNaoFazNada();
    void EmCadaDensidade_data();
    void EmCadaDensidade();
    void NaTela();
};

void TesteSimboloImagem::NovoComecaVazioEAzul()
{
    const TSimboloImagem Controle;
    QVERIFY(Controle.ObterMascara().Empty());
    QVERIFY(Controle.ObterMascara().Monochrome());
    QCOMPARE(Controle.Cor().Valor(), 0xFF0000);
    QVERIFY(!Controle.Centralizar());
    QVERIFY(!Controle.Esticar());
    QVERIFY(!Controle.testAttribute(Qt::WA_OpaquePaintEvent));
}

void TesteSimboloImagem::SemMascaraNaoPintaNada()
{
    TCena Cena({5, 4, 20, 16}, QImage());
    QCOMPARE(Desenhado(Cena.Fundo), Cena.Sem);
    QVERIFY(Cena.Controle.Pinturas > 0);
    QVERIFY(Cena.Controle.CopyModeDoCanvas() == TCopyMode::cmSrcCopy); // no transfer was made
}

void TesteSimboloImagem::PixelsEscurosNaCorClarosDeixamVer()
{
    TCena Cena;
    QCOMPARE(Desenhado(Cena.Fundo), Cena.Esperado(Letra(), {0, 0, 10, 8}));
    QVERIFY(Desenhado(Cena.Fundo) != Cena.Sem);
}

void TesteSimboloImagem::CorDoMundoInteiro_data()
{
    QTest::addColumn<int>("Cor");
    QTest::addColumn<QRgb>("Rgb");
    QTest::newRow("preto") << 0 << 0xFF000000U;
    QTest::newRow("branco") << 0xFFFFFF << 0xFFFFFFFFU;
    QTest::newRow("vermelho no byte baixo") << 0x0000FF << 0xFFFF0000U;
    QTest::newRow("qualquer uma") << 0x563412 << 0xFF123456U;
    QTest::newRow("do sistema") << clHighlight.Valor() << QApplication::palette().highlight().color().rgb();
}

void TesteSimboloImagem::CorDoMundoInteiro()
{
    QFETCH(int, Cor);
    QFETCH(QRgb, Rgb);
    TCena Cena;
    Cena.Controle.AtribuirCor(Cor);
    QCOMPARE(Desenhado(Cena.Fundo), Cena.Esperado(Letra(), {0, 0, 10, 8}, Rgb));
}

void TesteSimboloImagem::Centralizado_data()
{
    QTest::addColumn<QSize>("Tamanho");
    QTest::addColumn<QPoint>("Canto");
    QTest::newRow("folga par") << QSize(20, 16) << QPoint(5, 4);
    QTest::newRow("folga impar") << QSize(15, 9) << QPoint(2, 0);
    QTest::newRow("justo") << QSize(10, 8) << QPoint(0, 0);
    QTest::newRow("menor que a mascara") << QSize(5, 3) << QPoint(-2, -2);
    QTest::newRow("um a menos") << QSize(9, 7) << QPoint(0, 0); // halves go to zero
}

void TesteSimboloImagem::Centralizado()
{
    QFETCH(QSize, Tamanho);
    QFETCH(QPoint, Canto);
    TCena Cena(QRect({7, 5}, Tamanho));
    Cena.Controle.AtribuirCentralizar(true);
    QCOMPARE(Cena.Controle.AreaDaMascara().ParaQRect(), QRect(Canto, QSize(10, 8)));
    QCOMPARE(Desenhado(Cena.Fundo), Cena.Esperado(Letra(), {Canto, QSize(10, 8)}));
}

void TesteSimboloImagem::Esticado_data()
{
    QTest::addColumn<QSize>("Tamanho");
    QTest::newRow("maior") << QSize(30, 16);
    QTest::newRow("sem guardar a proporcao") << QSize(7, 23);
    QTest::newRow("menor") << QSize(4, 3);
    QTest::newRow("um pixel") << QSize(1, 1);
}

void TesteSimboloImagem::Esticado()
{
    QFETCH(QSize, Tamanho);
    TCena Cena(QRect({3, 2}, Tamanho));
    Cena.Controle.AtribuirEsticar(true);
    QCOMPARE(Desenhado(Cena.Fundo), Cena.Esperado(Letra(), {{0, 0}, Tamanho}));
}

void TesteSimboloImagem::SemModoERecortadoADireitaEAbaixo()
{
    TCena Cena({5, 4, 6, 5});
    QCOMPARE(Desenhado(Cena.Fundo), Cena.Esperado(Letra(), {0, 0, 10, 8}));
    TCena NaBorda({36, 26, 20, 16});
    QCOMPARE(Desenhado(NaBorda.Fundo), NaBorda.Esperado(Letra(), {0, 0, 10, 8}));
}

void TesteSimboloImagem::UmModoAcabaComOOutro()
{
    TSimboloImagem Controle;
    Controle.AtribuirCentralizar(true);
    Controle.AtribuirEsticar(true);
    QVERIFY(Controle.Esticar() && !Controle.Centralizar());
    Controle.AtribuirCentralizar(true);
    QVERIFY(Controle.Centralizar() && !Controle.Esticar());
    Controle.AtribuirEsticar(false); // false leaves the other as it is
    QVERIFY(Controle.Centralizar());
    Controle.AtribuirCentralizar(false);
    QVERIFY(!Controle.Centralizar() && !Controle.Esticar());
}

void TesteSimboloImagem::RepeteAPinturaSoQuandoMuda()
{
    TCena Cena;
    Cena.Fundo.show();
    QVERIFY(QTest::qWaitForWindowExposed(&Cena.Fundo));
    TImagem &C = Cena.Controle;
    const TBitmap Mascara(Letra());
    const auto Pinturas = [&](auto Acao) {
        QTest::qWait(20);
        C.Pinturas = 0;
        Acao();
        QTest::qWait(40);
        return C.Pinturas;
    };
    QCOMPARE(Pinturas([] {}), 0);
    QCOMPARE(Pinturas([&] { C.AtribuirCor(clBlue); }), 0);
    QCOMPARE(Pinturas([&] { C.AtribuirCor(clRed); }), 1);
    QCOMPARE(Pinturas([&] { C.AtribuirCentralizar(false); }), 0);
    QCOMPARE(Pinturas([&] { C.AtribuirCentralizar(true); }), 1);
    QCOMPARE(Pinturas([&] { C.AtribuirCentralizar(true); }), 0);
    QCOMPARE(Pinturas([&] { C.AtribuirEsticar(true); }), 1); // one, though both change
    QCOMPARE(Pinturas([&] { C.AtribuirEsticar(true); }), 0);
    QCOMPARE(Pinturas([&] { C.AtribuirCentralizar(false); }), 0);
    QCOMPARE(Pinturas([&] { C.AtribuirEsticar(false); }), 1);
    QCOMPARE(Pinturas([&] { C.AtribuirMascara(&Mascara); }), 1); // the same once more
    QCOMPARE(Pinturas([&] { C.AtribuirMascara(nullptr); }), 1);
    QCOMPARE(Pinturas([&] { C.AtribuirMascara(nullptr); }), 1); // empty already
}

void TesteSimboloImagem::AMascaraEReduzidaAUmBit()
{
    QImage Colorida(4, 1, QImage::Format_RGB32);
    Colorida.setPixel(0, 0, qRgb(0, 0, 200));
    Colorida.setPixel(1, 0, qRgb(255, 255, 0));
    Colorida.setPixel(2, 0, qRgb(127, 127, 127));
    Colorida.setPixel(3, 0, qRgb(128, 128, 128));
    TCena Cena({5, 4, 20, 16}, Colorida);
    const TBitmap &Mascara = Cena.Controle.ObterMascara();
    QVERIFY(Mascara.Monochrome());
    QVERIFY(Mascara.Pixel(0, 0) == clBlack);
    QVERIFY(Mascara.Pixel(1, 0) == clWhite);
    QVERIFY(Mascara.Pixel(2, 0) == clBlack);
    QVERIFY(Mascara.Pixel(3, 0) == clWhite);
    QCOMPARE(Desenhado(Cena.Fundo), Cena.Esperado(Colorida, {0, 0, 4, 1}));
}

void TesteSimboloImagem::OTransparenteEClaro()
{
    QImage ComAlfa(3, 1, QImage::Format_ARGB32);
    ComAlfa.setPixel(0, 0, 0x00000000U);
    ComAlfa.setPixel(1, 0, 0xFF000000U);
    ComAlfa.setPixel(2, 0, 0x40000000U);
    TCena Cena({5, 4, 20, 16}, ComAlfa);
    const TBitmap &Mascara = Cena.Controle.ObterMascara();
    QVERIFY(Mascara.Pixel(0, 0) == clWhite);
    QVERIFY(Mascara.Pixel(1, 0) == clBlack);
    QVERIFY(Mascara.Pixel(2, 0) == clWhite);
    QVERIFY(!Mascara.Imagem().hasAlphaChannel());
}

// The mask is one bit a pixel before it is first inverted: also when no one has looked at it yet.
void TesteSimboloImagem::APrimeiraPinturaNaoDependeDeQuemLeuAMascara()
{
    QImage ComAlfa = Letra().convertToFormat(QImage::Format_ARGB32);
    for (int Y = 0; Y < ComAlfa.height(); ++Y)
        for (int X = 0; X < ComAlfa.width(); ++X)
            if (qGray(ComAlfa.pixel(X, Y)) >= 128)
                ComAlfa.setPixel(X, Y, 0x00000000U);
    QImage Meios(4, 1, QImage::Format_RGB32); // around the threshold, where inverting first shifts it
    for (int X = 0; X < 4; ++X)
        Meios.setPixel(X, 0, qRgb(126 + X, 126 + X, 126 + X));
    for (const QImage &Mascara : {ComAlfa, Meios}) {
        TCena SemLer({5, 4, 20, 16}, Mascara);
        TCena Lida({5, 4, 20, 16}, Mascara);
        QVERIFY(!Lida.Controle.ObterMascara().Imagem().isNull());
        const QImage Quadro = Desenhado(SemLer.Fundo);
        QCOMPARE(Quadro, Desenhado(Lida.Fundo));
        QVERIFY(Quadro != SemLer.Sem);
    }
    TCena Cena({5, 4, 20, 16}, ComAlfa);
    QCOMPARE(Desenhado(Cena.Fundo), Cena.Esperado(Letra(), {0, 0, 10, 8}));
}

void TesteSimboloImagem::MascaraDeSvg()
{
    const auto Figura = LerGrafico(DadoDeExemplo(QStringLiteral("imagens/farol.svg")));
    TCena Cena({0, 0, 40, 30}, QImage());
    Cena.Controle.AtribuirMascara(Figura.get());
    const QImage Mascara = Cena.Controle.ObterMascara().Imagem();
    QCOMPARE(Mascara.size(), QSize(Figura->Width(), Figura->Height()));
    int Escuros = 0;
    for (int Y = 0; Y < Mascara.height(); ++Y)
        for (int X = 0; X < Mascara.width(); ++X)
            Escuros += Mascara.pixel(X, Y) == 0xFF000000U ? 1 : 0;
    QVERIFY(Escuros > 0 && Escuros < Mascara.width() * Mascara.height());
    QCOMPARE(Mascara.pixel(0, 0), 0xFFFFFFFFU); // the drawing's empty corner lets the parent through
    Cena.Controle.AtribuirEsticar(true);
    QCOMPARE(Desenhado(Cena.Fundo), Cena.Esperado(Mascara, {0, 0, 40, 30}));
}

void TesteSimboloImagem::FiguraComCorTransparente()
{
    // As a picture symbol holds it: its colour of transparency takes no part in the mask.
    TSimboloGrafico Simbolo;
    Simbolo.LerArquivo(DadoDeExemplo(QStringLiteral("imagens/cruz.bmp")));
    QVERIFY(Simbolo.Grafico && Simbolo.Grafico->Transparent());
    TCena Cena({0, 0, 40, 30}, QImage());
    Cena.Controle.AtribuirMascara(Simbolo.Grafico.get());
    const QImage Mascara = Cena.Controle.ObterMascara().Imagem();
    Cena.Controle.AtribuirEsticar(true);
    QCOMPARE(Desenhado(Cena.Fundo), Cena.Esperado(Mascara, {0, 0, 40, 30}));
    QVERIFY(Simbolo.Grafico->Transparent()); // the symbol's own picture is untouched
}

void TesteSimboloImagem::MascaraNulaEsvazia()
{
    TCena Cena;
    Cena.Controle.AtribuirMascara(nullptr);
    QVERIFY(Cena.Controle.ObterMascara().Empty());
    QCOMPARE(Desenhado(Cena.Fundo), Cena.Sem);
    const TBitmap Vazio;
    const TBitmap Cheio(Letra());
    Cena.Controle.AtribuirMascara(&Cheio);
    Cena.Controle.AtribuirMascara(&Vazio);
    QVERIFY(Cena.Controle.ObterMascara().Empty());
    QCOMPARE(Desenhado(Cena.Fundo), Cena.Sem);
}

void TesteSimboloImagem::QuemDesenhaNaMascaraMudaOQueSeVe()
{
    TCena Cena;
    Desenhado(Cena.Fundo);
    TBitmap &Mascara = Cena.Controle.ObterMascara();
    Mascara.Canvas().Brush.Color = clBlack;
    Mascara.Canvas().CopyMode = TCopyMode::cmSrcCopy;
    Mascara.Canvas().FillRect({4, 2, 8, 6});
    QImage Nova = Letra();
    for (int Y = 2; Y < 6; ++Y)
        for (int X = 4; X < 8; ++X)
            Nova.setPixel(X, Y, 0xFF000000U);
    QCOMPARE(Desenhado(Cena.Fundo), Cena.Esperado(Nova, {0, 0, 10, 8}));
    // Another picture put into the mask itself is reduced as well.
    QImage Cinza(3, 3, QImage::Format_RGB32);
    Cinza.fill(qRgb(90, 90, 90));
    Mascara.AtribuirImagem(Cinza);
    QCOMPARE(Desenhado(Cena.Fundo), Cena.Esperado(Cinza, {0, 0, 3, 3}));
}

void TesteSimboloImagem::DepoisDaPinturaAMascaraEAMesma()
{
    TCena Cena;
    const QImage Antes = Cena.Controle.ObterMascara().Imagem().copy();
    for (int Vez = 0; Vez < 3; ++Vez)
        Desenhado(Cena.Fundo);
    QCOMPARE(Cena.Controle.ObterMascara().Imagem(), Antes);
    QVERIFY(Cena.Controle.ObterMascara().Monochrome());
}

void TesteSimboloImagem::ModosDeCopiaQueAPinturaDeixa()
{
    TCena Cena;
    Cena.Controle.AtribuirCor(0x563412);
    Desenhado(Cena.Fundo);
    QVERIFY(Cena.Controle.ObterMascara().Canvas().CopyMode == TCopyMode::cmDstInvert);
    QVERIFY(Cena.Controle.BufferDeCor().Canvas().CopyMode == TCopyMode::cmMergeCopy);
    QVERIFY(Cena.Controle.BufferDeCor().Canvas().Brush.Color == TColor(0x563412));
    QVERIFY(Cena.Controle.BufferDeCor().Canvas().Brush.Style == TBrushStyle::bsSolid);
    QVERIFY(Cena.Controle.CopyModeDoCanvas() == TCopyMode::cmSrcPaint);
    // The layer: the colour under the dark pixels, black under the light ones.
    const QImage Camada = Cena.Controle.BufferDeCor().Imagem();
    const QImage Mascara = Letra();
    QCOMPARE(Camada.size(), Mascara.size());
    for (int Y = 0; Y < Camada.height(); ++Y)
        for (int X = 0; X < Camada.width(); ++X)
            QCOMPARE(Camada.pixel(X, Y), qGray(Mascara.pixel(X, Y)) < 128 ? 0xFF123456U : 0xFF000000U);
}

void TesteSimboloImagem::APinturaNaoAlocaOBuffer()
{
    TCena Cena;
    Desenhado(Cena.Fundo);
    const uchar *Antes = Cena.Controle.BufferDeCor().Imagem().constBits();
    Desenhado(Cena.Fundo);
    QCOMPARE(Cena.Controle.BufferDeCor().Imagem().constBits(), Antes);
    const TBitmap Outra(Letra(30, 3));
    Cena.Controle.AtribuirMascara(&Outra);
    Desenhado(Cena.Fundo);
    QCOMPARE(Cena.Controle.BufferDeCor().Imagem().size(), QSize(30, 3));
}

void TesteSimboloImagem::CanvasSoEnquantoPinta()
{
    TCena Cena;
    Desenhado(Cena.Fundo);
    QVERIFY_THROWS_EXCEPTION(EInvalidOperation, Cena.Controle.Canvas());
}

void TesteSimboloImagem::SobreOutroControle()
{
    TCena Cena;
    QWidget Irmao(&Cena.Fundo);
    Irmao.setGeometry(5, 4, 8, 8);
    Irmao.setAutoFillBackground(true);
    Irmao.setPalette(QPalette(Qt::yellow));
    Irmao.stackUnder(&Cena.Controle);
    Irmao.show();
    const QImage Com = Desenhado(Cena.Fundo);
    QCOMPARE(Com.pixel(5 + 2, 4 + 2), Irmao.palette().window().color().rgb()); // light: the sibling shows
    QCOMPARE(Com.pixel(5 + 2, 4), Azul);
}

void TesteSimboloImagem::JanelaTransparenteContinuaTransparente()
{
    TCena Cena;
    Cena.Controle.setParent(nullptr);
    QImage Imagem(20, 16, QImage::Format_ARGB32_Premultiplied);
    Imagem.fill(Qt::transparent);
    Cena.Controle.render(&Imagem, {}, {}, QWidget::DrawChildren);
    const QImage Mascara = Letra();
    for (int Y = 0; Y < 16; ++Y)
        for (int X = 0; X < 20; ++X) {
            const bool Escuro = Mascara.valid(X, Y) && qGray(Mascara.pixel(X, Y)) < 128;
            QCOMPARE(Imagem.pixel(X, Y), Escuro ? Azul : 0x00000000U);
        }
    Imagem.fill(0x80402010U); // half see-through, premultiplied
    Cena.Controle.render(&Imagem, {}, {}, QWidget::DrawChildren);
    QCOMPARE(Imagem.pixel(0, 0), Azul);
    QCOMPARE(qAlpha(Imagem.pixel(1, 1)), 0x80);
}

void TesteSimboloImagem::SobreSuperficieSemPixels()
{
    TCena Cena;
    QPicture Gravacao;
    Cena.Fundo.render(&Gravacao);
    QImage Imagem(40, 30, QImage::Format_RGB32);
    Imagem.fill(Qt::white);
    QPainter(&Imagem).drawPicture(0, 0, Gravacao);
    QCOMPARE(Imagem, Cena.Esperado(Letra(), {0, 0, 10, 8}));
}

void TesteSimboloImagem::DentroDeUmaCena()
{
    auto *Fundo = new TPadronagem;
    Fundo->setFixedSize(40, 30);
    auto *Controle = new TSimboloImagem(Fundo);
    const TBitmap Mascara(Letra());
    Controle->setGeometry(5, 4, 20, 16);
    Controle->AtribuirMascara(&Mascara);
    QGraphicsScene Cena;
    Cena.addWidget(Fundo);
    QImage Imagem(40, 30, QImage::Format_RGB32);
    Imagem.fill(Qt::white);
    QPainter Pintor(&Imagem);
    Cena.render(&Pintor, QRectF(0, 0, 40, 30), QRectF(0, 0, 40, 30));
    Pintor.end();
    TCena Esperada;
    QCOMPARE(Imagem, Esperada.Esperado(Letra(), {0, 0, 10, 8}));
}

void TesteSimboloImagem::TamanhoSugerido()
{
    QWidget Janela;
    QVBoxLayout Disposicao(&Janela);
    TSimboloImagem Controle;
    Disposicao.addWidget(&Controle);
    QCOMPARE(Controle.sizeHint(), QSize(32, 32));
    QCOMPARE(Controle.minimumSizeHint(), QSize(0, 0));
    const TBitmap Mascara(Letra(50, 7));
    Controle.AtribuirMascara(&Mascara);
    QCOMPARE(Controle.sizeHint(), QSize(50, 7));
    QCOMPARE(Controle.minimumSizeHint(), QSize(50, 7));
    QVERIFY(Disposicao.sizeHint().width() >= 50); // the layout was told
    Controle.AtribuirEsticar(true);
    QCOMPARE(Controle.minimumSizeHint(), QSize(0, 0));
    Controle.setParent(nullptr);
}

void TesteSimboloImagem::EAcessivel()
{
    TCena Cena;
    Cena.Controle.setAccessibleName(QStringLiteral("Infantaria"));
    Cena.Controle.setAccessibleDescription(QStringLiteral("Batalhão amigo"));
    Cena.Controle.AtribuirCentralizar(true);
    QAccessibleInterface *Visto = QAccessible::queryAccessibleInterface(&Cena.Controle);
    QVERIFY(Visto);
    QCOMPARE(Visto->role(), QAccessible::Graphic);
    QCOMPARE(Visto->text(QAccessible::Name), QStringLiteral("Infantaria"));
    QAccessibleImageInterface *Figura = Visto->imageInterface();
    QVERIFY(Figura);
    QCOMPARE(Figura->imageDescription(), QStringLiteral("Batalhão amigo"));
    QCOMPARE(Figura->imageSize(), QSize(10, 8));
    QCOMPARE(Figura->imagePosition(), Cena.Controle.mapToGlobal(QPoint(5, 4)));
}

void TesteSimboloImagem::PropriedadesSempreGuardadas()
{
    TSimboloImagem Controle;
    const QMetaObject *Classe = Controle.metaObject();
    QCOMPARE(Classe->className(), "Sibrel::TSimboloImagem");
    QStringList Nomes;
    for (int I = Classe->propertyOffset(); I < Classe->propertyCount(); ++I) {
        const QMetaProperty P = Classe->property(I);
        Nomes += QString::fromLatin1(P.name());
        QVERIFY2(P.isStored() && P.isDesignable() && P.isWritable() && !P.isResettable(), P.name());
    }
    QCOMPARE(Nomes.join(u' '), QStringLiteral("Mascara Cor Centralizar Esticar"));
    QVERIFY(Controle.setProperty("Cor", QColor(1, 2, 3)));
    QCOMPARE(Controle.Cor().Valor(), 0x030201);
    QVERIFY(Controle.setProperty("Esticar", true));
    QVERIFY(Controle.Esticar());
}

void TesteSimboloImagem::MascaraComoFiguraDeFormulario()
{
    TSimboloImagem Controle;
    QVERIFY(Controle.property("Mascara").value<QPixmap>().isNull());
    QVERIFY(Controle.setProperty("Mascara", QPixmap::fromImage(Letra())));
    QCOMPARE(Controle.ObterMascara().Width(), 10);
    QCOMPARE(Controle.property("Mascara").value<QPixmap>().size(), QSize(10, 8));
    QVERIFY(Controle.setProperty("Mascara", QPixmap()));
    QVERIFY(Controle.ObterMascara().Empty());
}

void TesteSimboloImagem::OModuloNaoFazNada()
{
    QVERIFY(ModuloSimboloImagem().Iniciado()); // with the library
    ModuloSimboloImagem().Iniciar();
    ModuloSimboloImagem().Parar();
    QVERIFY(ModuloSimboloImagem().Iniciado());
    QCOMPARE(ModuloSimboloImagem().Nome(), "SimboloImagem");
}

void TesteSimboloImagem::EmCadaDensidade_data()
{
    QTest::addColumn<double>("Densidade");
    for (const double D : {1.0, 1.5, 2.0})
        QTest::addRow("%g", D) << D;
}

void TesteSimboloImagem::EmCadaDensidade()
{
    QFETCH(double, Densidade);
    const auto Fundo = Mostruario();
    QCOMPARE(CompararComControle(Desenhado(*Fundo, Densidade), NomeDoControle(Densidade)), QString());
}

// What the screen itself shows, at the density and on the platform of this run (see CMakeLists.txt).
void TesteSimboloImagem::NaTela()
{
    const auto Fundo = Mostruario();
    Fundo->setWindowFlag(Qt::FramelessWindowHint);
    Fundo->show();
    QVERIFY(QTest::qWaitForWindowExposed(Fundo.get()));
    QTest::qWait(50);
    const QByteArray Pedida = qgetenv("SIBREL_DENSIDADE_DA_TELA");
    QCOMPARE(Fundo->devicePixelRatio(), Pedida.isEmpty() ? 1.0 : Pedida.toDouble());
    if (qEnvironmentVariableIsSet("SIBREL_PLATAFORMA_DA_TELA"))
        QCOMPARE(QGuiApplication::platformName(), qEnvironmentVariable("SIBREL_PLATAFORMA_DA_TELA"));
    QImage Tela;
    if (QGuiApplication::platformName() == u"offscreen") { // which has no screen but what windows paint on
        QPaintDevice *Pintada = Fundo->backingStore()->paintDevice();
        QCOMPARE(Pintada->devType(), int(QInternal::Image));
        Tela = static_cast<QImage *>(Pintada)->copy();
    } else {
        Tela = Fundo->screen()->grabWindow(Fundo->winId()).toImage();
    }
    QCOMPARE(CompararComControle(Tela, NomeDoControle(Fundo->devicePixelRatio())), QString());
}

QTEST_MAIN(TesteSimboloImagem)
#include "TesteSimboloImagem.moc"
