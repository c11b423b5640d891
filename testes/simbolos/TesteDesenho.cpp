// SPDX-License-Identifier: LGPL-2.1-or-later
// What symbols look like: golden pictures, and the rules that a picture alone does not show.
#include "comum/Controle.h"
#include "comum/Erros.h"
#include "simbolos/ArquivosDeTeste.h"
#include "simbolos/SimbolosDeTeste.h"
#include "simbolos/TabelaDeSimbolos.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <QPicture>
#include <QPixmap>
#include <QRawFont>
#include <QTest>
#include <QWidget>

using namespace Sibrel;
using namespace Sibrel::Testes;

namespace
{

constexpr QRgb CorDoFundo = 0xFFE8F0D8U;

QImage Folha(int Largura, int Altura, double Densidade = 1)
{
    QImage Imagem(static_cast<int>(Largura * Densidade), static_cast<int>(Altura * Densidade),
                  QImage::Format_RGB32);
    Imagem.fill(CorDoFundo);
    Imagem.setDevicePixelRatio(Densidade);
    return Imagem;
}

QString DaPasta(const char *Nome)
{
    return DadoDeExemplo(QStringLiteral("imagens/") + QLatin1String(Nome));
}

constexpr int Casa = 48;

// Symbols side by side, each in its frame: four pixels of margin on every side.
struct TQuadro {
    explicit TQuadro(int Casas, double Densidade = 1)
        : Imagem(Folha(Casas * Casa, Casa, Densidade))
    {
    }
    void Por(ISimbolo &Simbolo, TColor Cor = clBlack)
    {
        QPainter Pintor(&Imagem);
        Pintor.setPen(QColor(0xB0, 0xC0, 0xA0));
        Pintor.drawRect(Lugar * Casa + 3, 3, Casa - 7, Casa - 7);
        TCanvas Canvas(Pintor);
        Canvas.Pen.Color = Cor;
        Simbolo.Desenhar(Canvas, {Lugar * Casa + 4, 4, (Lugar + 1) * Casa - 4, Casa - 4});
        ++Lugar;
    }
    QImage Imagem;
    int Lugar = 0;
};

// The smallest rectangle that holds all that a symbol changes, drawn in a sheet of 100 x 100.
QRect Tinta(ISimbolo &Simbolo, const TRect &Rect)
{
    QImage Imagem = Folha(100, 100);
    {
        TCanvas Canvas(Imagem);
        Simbolo.Desenhar(Canvas, Rect);
    }
    QRect Area;
    for (int Y = 0; Y < 100; ++Y)
        for (int X = 0; X < 100; ++X)
            if (Imagem.pixel(X, Y) != CorDoFundo)
                Area |= QRect(X, Y, 1, 1);
    return Area;
}

class TVista : public QWidget
{
public:
    explicit TVista(TTabelaDeSimbolos &Tabela)
        : FTabela(Tabela)
    {
        resize(3 * Casa, Casa);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter Pintor(this);
        Pintor.fillRect(rect(), QColor(CorDoFundo));
        for (int I = 0; I < FTabela.Simbolos().Count(); ++I)
            FTabela.Desenhar(I, Pintor, QRect(I * Casa + 4, 4, 40, 40), Qt::darkBlue);
    }

private:
    TTabelaDeSimbolos &FTabela;
};

void Encher(TTabelaDeSimbolos &Tabela)
{
    Tabela.Simbolos().Add(Glifo(39));
    Tabela.Simbolos().Add(Figura(DaPasta("ponte.bmp")));
    Tabela.Simbolos().Add(Composto(Figura(DaPasta("amigo.png")), Glifo(38)));
}

// The table of Encher on any painter, as the view draws it.
void Desenhar(TTabelaDeSimbolos &Tabela, QPainter &Pintor)
{
    for (int I = 0; I < Tabela.Simbolos().Count(); ++I)
        Tabela.Desenhar(I, Pintor, QRect(I * Casa + 4, 4, 40, 40), Qt::darkBlue);
}

} // namespace

#define COMPARAR(Imagem, Nome) QCOMPARE(CompararComControle(Imagem, QStringLiteral(Nome)), QString())

class TesteDesenho : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { CarregarFontes(); }

    void Glifos();
    void GlifosDoTexto();
    void Proporcoes();
    void CoresDaCaneta();
    void Figuras();
    void CompostosNasDuasOrdens();
    void DensidadeDois();
    void DensidadeUmEMeio();
    void CadaCharset_data();
    void CadaCharset();

    void NoPaintEvent();
    void NumPixmap();
    void NumaSuperficieSemPixels();
    void NumPainelAmpliado();

    void RetanguloSemLarguraNaoMudaNada();
    void GlifoCentradoESemSair();
    void ProporcaoMeiaETransbordante();
    void GlifoLargoCentradoNaAltura();
    void CompoeSobreOQueHa();
    void FiguraEscondeOGlifoSalvoOndeEVazada();
    void RetangulosExtremos();

    void LerArquivoAparaOsBrancos();
    void LerArquivoAusenteFicaComAAnterior();
    void LerArquivoDanificadoSoMudaONome();
};

void TesteDesenho::Glifos()
{
    TQuadro Quadro(8);
    for (const int Codigo : {37, 45, 50, 61, 80, 82, 86, 255})
        Quadro.Por(*Glifo(static_cast<std::uint8_t>(Codigo)));
    COMPARAR(Quadro.Imagem, "simbolos-glifos");
}

void TesteDesenho::GlifosDoTexto()
{
    TQuadro Quadro(6);
    for (const int Codigo : {0x41, 0x69, 0x57, 0xC7, 0x67})
        Quadro.Por(*Glifo(static_cast<std::uint8_t>(Codigo), 1, FamiliaDeTexto, 0));
    const auto Negrito = Glifo('A', 1, FamiliaDeTexto, 0);
    Negrito->Fonte.AtribuirStyle(TFontStyle::fsBold, true);
    Negrito->Fonte.AtribuirStyle(TFontStyle::fsItalic, true);
    Negrito->Fonte.AtribuirStyle(TFontStyle::fsUnderline, true);
    Quadro.Por(*Negrito);
    COMPARAR(Quadro.Imagem, "simbolos-texto");
}

void TesteDesenho::Proporcoes()
{
    TQuadro Quadro(6);
    for (const double Proporcao : {0.5, 1.0, 1.5, 0.0, -0.5, 10.0})
        Quadro.Por(*Glifo(74, Proporcao));
    COMPARAR(Quadro.Imagem, "simbolos-proporcoes");
}

void TesteDesenho::CoresDaCaneta()
{
    TQuadro Quadro(3);
    const auto Simbolo = Glifo(75);
    Simbolo->Fonte.AtribuirColor(clLime); // plays no part
    for (const TColor Cor : {clRed, clBlue, TColor(0x123456)})
        Quadro.Por(*Simbolo, Cor);
    COMPARAR(Quadro.Imagem, "simbolos-cores");
}

void TesteDesenho::Figuras()
{
    TQuadro Quadro(8);
    for (const char *Nome : {"ponte.bmp", "quadro.bmp", "hostil.png", "cidade.png", "fogo.gif",
                             "floresta.ppm", "farol.svg", "periscopio.xbm"})
        Quadro.Por(*Figura(DaPasta(Nome)));
    COMPARAR(Quadro.Imagem, "simbolos-figuras");
}

void TesteDesenho::CompostosNasDuasOrdens()
{
    TQuadro Quadro(6);
    Quadro.Por(*Composto(Figura(DaPasta("cidade.png")), Glifo(34)), clRed);
    Quadro.Por(*Composto(Glifo(34), Figura(DaPasta("cidade.png"))), clRed);
    Quadro.Por(*Composto(Figura(DaPasta("ponte.bmp")), Glifo(75, 0.5)), clRed);
    Quadro.Por(*Composto(Glifo(75, 0.5), Figura(DaPasta("ponte.bmp"))), clRed);
    Quadro.Por(*Composto(Composto(Figura(DaPasta("neutro.png")), Glifo(45, 0.8)), Glifo(85, 0.25)));
    Quadro.Por(*Composto());
    COMPARAR(Quadro.Imagem, "simbolos-compostos");
}

void TesteDesenho::DensidadeDois()
{
    TQuadro Quadro(4, 2);
    Quadro.Por(*Glifo(39));
    Quadro.Por(*Glifo(80, 0.5));
    Quadro.Por(*Figura(DaPasta("ponte.bmp")));
    Quadro.Por(*Composto(Figura(DaPasta("amigo.png")), Glifo(38)));
    COMPARAR(Quadro.Imagem, "simbolos-densidade-2");
}

void TesteDesenho::DensidadeUmEMeio()
{
    TQuadro Quadro(4, 1.5);
    Quadro.Por(*Glifo(39));
    Quadro.Por(*Glifo(80, 0.5));
    Quadro.Por(*Figura(DaPasta("ponte.bmp")));
    Quadro.Por(*Composto(Figura(DaPasta("amigo.png")), Glifo(38)));
    COMPARAR(Quadro.Imagem, "simbolos-densidade-1-5");
}

void TesteDesenho::CadaCharset_data()
{
    QTest::addColumn<int>("Charset");
    for (const int Charset : {0, 1, 2, 161, 162, 163, 177, 178, 186, 204, 222, 238, 255})
        QTest::addRow("%d", Charset) << Charset;
}

void TesteDesenho::CadaCharset()
{
    QFETCH(int, Charset);
    constexpr int Lado = 20;
    QImage Imagem = Folha(16 * Lado, 16 * Lado);
    {
        TCanvas Canvas(Imagem);
        for (int Codigo = 0; Codigo < 256; ++Codigo) {
            const int X = Codigo % 16 * Lado;
            const int Y = Codigo / 16 * Lado;
            // Codes without a letter are left out: what stands for them is another font's business.
            const auto Simbolo =
                Glifo(static_cast<std::uint8_t>(Codigo), 1, Charset == 2 ? FamiliaDeSimbolos : FamiliaDeTexto,
                      static_cast<std::uint8_t>(Charset));
            const QChar Letra = Simbolo->Fonte.TextoDoCodigo(Simbolo->Caracter)[0];
            if (QRawFont::fromFont(Simbolo->Fonte.ParaQFont()).supportsCharacter(Letra))
                Simbolo->Desenhar(Canvas, {X + 1, Y + 1, X + Lado - 1, Y + Lado - 1});
        }
    }
    QCOMPARE(CompararComControle(Imagem, QStringLiteral("simbolos-charset-%1").arg(Charset)), QString());
}

void TesteDesenho::NoPaintEvent()
{
    TTabelaDeSimbolos Tabela;
    Encher(Tabela);
    TVista Vista(Tabela);
    const QImage Vista1 = Vista.grab().toImage();
    COMPARAR(Vista1, "simbolos-paintevent");
    QImage Imagem = Folha(3 * Casa, Casa);
    {
        QPainter Pintor(&Imagem);
        Desenhar(Tabela, Pintor);
    }
    QCOMPARE(Vista1.convertToFormat(QImage::Format_RGB32), Imagem);
}

void TesteDesenho::NumPixmap()
{
    TTabelaDeSimbolos Tabela;
    Encher(Tabela);
    QPixmap Pixmap(3 * Casa, Casa);
    Pixmap.fill(QColor(CorDoFundo));
    {
        QPainter Pintor(&Pixmap);
        Desenhar(Tabela, Pintor);
    }
    QImage Imagem = Folha(3 * Casa, Casa);
    {
        QPainter Pintor(&Imagem);
        Desenhar(Tabela, Pintor);
    }
    QCOMPARE(Pixmap.toImage().convertToFormat(QImage::Format_RGB32), Imagem);
}

void TesteDesenho::NumaSuperficieSemPixels()
{
    TTabelaDeSimbolos Tabela;
    Encher(Tabela);
    // Recorded and played, it looks as drawn.
    QPicture Gravada;
    {
        QPainter Pintor(&Gravada);
        Desenhar(Tabela, Pintor);
    }
    QImage Tocada = Folha(3 * Casa, Casa);
    {
        QPainter Pintor(&Tocada);
        Pintor.drawPicture(0, 0, Gravada);
    }
    COMPARAR(Tocada, "simbolos-gravados");
    // Printed, the glyphs stay text: the page holds the font.
    const auto Impressa = [](TTabelaDeSimbolos &T) {
        QByteArray Bytes;
        QBuffer Buffer(&Bytes);
        Buffer.open(QIODevice::WriteOnly);
        {
            QPdfWriter Impressora(&Buffer);
            Impressora.setResolution(96);
            QPainter Pintor(&Impressora);
            Desenhar(T, Pintor);
        }
        return Bytes;
    };
    TTabelaDeSimbolos Vazia;
    const QByteArray Pagina = Impressa(Tabela);
    QVERIFY(Pagina.contains("SibrelSimbolos"));
    QVERIFY(Pagina.contains("/Subtype /Image"));
    QVERIFY(!Impressa(Vazia).contains("/Subtype /Image"));
}

void TesteDesenho::NumPainelAmpliado()
{
    // Enlarged by the host's painter the glyph is drawn anew in its size, not a picture of it enlarged.
    QImage Imagem = Folha(144, 144);
    {
        QPainter Pintor(&Imagem);
        Pintor.scale(3, 3);
        TCanvas Canvas(Pintor);
        Glifo(39)->Desenhar(Canvas, {4, 4, 44, 44});
    }
    COMPARAR(Imagem, "simbolos-ampliado");
}

void TesteDesenho::RetanguloSemLarguraNaoMudaNada()
{
    for (const TRect &Rect : {TRect(10, 10, 10, 60), TRect(10, 10, 60, 10), TRect(60, 60, 10, 10)}) {
        QCOMPARE(Tinta(*Glifo(35), Rect), QRect());
        QCOMPARE(Tinta(*Composto(Glifo(35), Glifo(36)), Rect), QRect());
    }
    QCOMPARE(Tinta(*Figura(DaPasta("ponte.bmp")), TRect(10, 10, 10, 60)), QRect());
    // A picture is handed to the stretching as it is: exchanged sides mirror it.
    QVERIFY(!Tinta(*Figura(DaPasta("cidade.png")), TRect(60, 60, 10, 10)).isEmpty());
}

void TesteDesenho::GlifoCentradoESemSair()
{
    constexpr TRect Rect(20, 10, 80, 70);
    for (const int Codigo : {34, 35, 37, 74, 75, 76}) {
        const QRect Area = Tinta(*Glifo(static_cast<std::uint8_t>(Codigo)), Rect);
        QVERIFY(!Area.isEmpty());
        QVERIFY(Rect.ParaQRect().contains(Area));
        QVERIFY2(std::abs(Area.left() + Area.right() + 1 - (Rect.Left + Rect.Right)) <= 3,
                 qPrintable(QString::number(Codigo)));
    }
}

void TesteDesenho::ProporcaoMeiaETransbordante()
{
    constexpr TRect Rect(20, 20, 60, 60);
    const QRect Inteiro = Tinta(*Glifo(74), Rect);
    const QRect Meio = Tinta(*Glifo(74, 0.5), Rect);
    QVERIFY(std::abs(Meio.width() * 2 - Inteiro.width()) <= 4);
    QVERIFY(std::abs(Meio.height() * 2 - Inteiro.height()) <= 4);
    QVERIFY(std::abs(Meio.left() + Meio.right() - Inteiro.left() - Inteiro.right()) <= 2);
    const QRect Maior = Tinta(*Glifo(74, 1.5), Rect);
    QVERIFY(Rect.ParaQRect().contains(Maior)); // clipped
    QCOMPARE(Maior.width(), 40);
    QCOMPARE(Tinta(*Glifo(74, 0), Rect), QRect());
    QCOMPARE(Tinta(*Glifo(74, std::nan("")), Rect), QRect());
}

void TesteDesenho::GlifoLargoCentradoNaAltura()
{
    constexpr TRect Rect(20, 0, 60, 100);
    constexpr std::uint8_t Comboio = 80;
    const QRect Area = Tinta(*Glifo(Comboio), Rect);
    QVERIFY(Area.width() > 30);
    QVERIFY(Area.height() < 40);
    QVERIFY(Area.top() > 25);
    QVERIFY(Area.bottom() < 75);
}

void TesteDesenho::CompoeSobreOQueHa()
{
    QImage Imagem = Folha(40, 40);
    {
        QPainter Pintor(&Imagem);
        Pintor.fillRect(0, 0, 20, 40, Qt::yellow);
        TCanvas Canvas(Pintor);
        Glifo(34)->Desenhar(Canvas, {0, 0, 40, 40});
    }
    QCOMPARE(Imagem.pixel(0, 0), 0xFFFFFF00U);
    QCOMPARE(Imagem.pixel(39, 39), CorDoFundo);
    bool Preto = false;
    for (int I = 0; I < 40; ++I)
        Preto = Preto || Imagem.pixel(I, 20) == 0xFF000000U;
    QVERIFY(Preto);
}

void TesteDesenho::FiguraEscondeOGlifoSalvoOndeEVazada()
{
    QImage Cheia(4, 4, QImage::Format_RGB32);
    Cheia.fill(Qt::blue);
    Cheia.setPixel(0, 3, 0xFF00FF00U); // the bottom-left pixel: its colour is see-through
    Cheia.setPixel(1, 1, 0xFF00FF00U);
    auto Desenho = std::make_unique<TSimboloGrafico>();
    Desenho->Grafico = std::make_unique<TBitmap>(Cheia);
    Desenho->Grafico->AtribuirTransparent(true);
    auto Fundo = std::make_unique<TSimboloDoHospedeiro>(); // black in the left half
    const auto Simbolo = Composto(std::move(Fundo), std::move(Desenho));
    QImage Imagem = Folha(40, 40);
    {
        TCanvas Canvas(Imagem);
        Simbolo->Desenhar(Canvas, {0, 0, 40, 40});
    }
    QCOMPARE(Imagem.pixel(15, 15), 0xFF000000U);
    QCOMPARE(Imagem.pixel(5, 35), 0xFF000000U);
    QCOMPARE(Imagem.pixel(5, 5), 0xFF0000FFU);
    QCOMPARE(Imagem.pixel(35, 35), 0xFF0000FFU);
}

void TesteDesenho::RetangulosExtremos()
{
    constexpr int Menor = std::numeric_limits<int>::min();
    constexpr int Maior = std::numeric_limits<int>::max();
    QImage Imagem = Folha(100, 100);
    TCanvas Canvas(Imagem);
    const TRect Extremos[] = {{Menor, Menor, Menor + 10, Menor + 10},
                              {Maior - 10, Maior - 10, Maior, Maior},
                              {Menor, Menor, Maior, Maior},
                              {0, 0, Maior, 1},
                              {0, 0, 1, Maior},
                              {Maior, Maior, Menor, Menor},
                              {-5, -5, 100000, 100000}};
    for (const TRect &Rect : Extremos)
        for (const double Proporcao : {1.0, 1e300, -1e300, 1.5}) {
            Glifo(35, Proporcao)->Desenhar(Canvas, Rect);
            Composto(Glifo(35, Proporcao), Figura(DaPasta("ponte.bmp")))->Desenhar(Canvas, Rect);
        }
    // The canvas and what is remembered go on working.
    constexpr TRect Normal(20, 20, 60, 60);
    QVERIFY(Normal.ParaQRect().contains(Tinta(*Glifo(35), Normal)));
}

void TesteDesenho::LerArquivoAparaOsBrancos()
{
    const auto Simbolo = Figura(QStringLiteral(" \t") + DaPasta("ponte.bmp") + QStringLiteral("  \r\n"));
    QCOMPARE(Simbolo->Arquivo, DaPasta("ponte.bmp"));
    QVERIFY(Simbolo->Grafico);
    QVERIFY(Simbolo->Grafico->Transparent());
}

void TesteDesenho::LerArquivoAusenteFicaComAAnterior()
{
    const auto Simbolo = Figura(DaPasta("ponte.bmp"));
    const TGraphic *Antes = Simbolo->Grafico.get();
    for (const QString &Nome : {QStringLiteral("nenhuma.bmp"), QString(), DaPasta("")}) {
        Simbolo->LerArquivo(Nome);
        QCOMPARE(Simbolo->Arquivo, Nome);
        QCOMPARE(Simbolo->Grafico.get(), Antes);
    }
}

void TesteDesenho::LerArquivoDanificadoSoMudaONome()
{
    const TPastaDeTeste Pasta;
    const auto Simbolo = Figura(DaPasta("ponte.bmp"));
    const TGraphic *Antes = Simbolo->Grafico.get();
    const QByteArray Inteira = BytesDe(DaPasta("cidade.png"));
    for (const QByteArray &Bytes : {QByteArray(), QByteArray("texto"), Inteira.first(40)}) {
        const QString Nome = Pasta.Com(Bytes, QStringLiteral("ruim.png"));
        const auto Erro = ErroDe<EInvalidGraphic>([&] { Simbolo->LerArquivo(Nome); });
        QCOMPARE(Erro.Message, QStringLiteral("Não foi possível ler a figura <%1>!").arg(Nome));
        QCOMPARE(Simbolo->Arquivo, Nome);
        QCOMPARE(Simbolo->Grafico.get(), Antes);
    }
}

QTEST_MAIN(TesteDesenho)
#include "TesteDesenho.moc"
