// SPDX-License-Identifier: LGPL-2.1-or-later
// The size at which a glyph fits: equal to the rule taken step by step, and remembered.
#include "comum/Erros.h"
#include "plataforma/Bitmap.h"
#include "plataforma/FontesInstaladas.h"
#include "simbolos/AjusteDeGlifo.h"
#include "simbolos/SimbolosDeTeste.h"
#include "simbolos/TabelaDeSimbolos.h"

#include <QFontDatabase>
#include <QRandomGenerator>
#include <QTest>

using namespace Sibrel;
using namespace Sibrel::Testes;

namespace
{

// One measure fitted to its limit, a point at a time.
template <class Medir>
int PassoAPasso(TCanvas &Canvas, int Limite, const Medir &Medida)
{
    if (Medida() <= 0)
        return 0;
    if (Canvas.Font.Size() < 0)
        Canvas.Font.AtribuirSize(-Canvas.Font.Size());
    while (Medida() < Limite)
        Canvas.Font.AtribuirSize(Canvas.Font.Size() + 1);
    while (Medida() > Limite && Canvas.Font.Size() > 1)
        Canvas.Font.AtribuirSize(Canvas.Font.Size() - 1);
    return Canvas.Font.Size();
}

int TamanhoPassoAPasso(const TFont &Fonte, std::uint8_t Codigo, int Largura, int Altura)
{
    TBitmap Bitmap;
    TCanvas &Canvas = Bitmap.Canvas();
    const QString Texto = Fonte.TextoDoCodigo(Codigo);
    Canvas.Font = Fonte;
    Canvas.Font.AtribuirHeight(Altura);
    const int PelaLargura = PassoAPasso(Canvas, Largura, [&] { return Canvas.TextWidth(Texto); });
    const int PelaAltura = PassoAPasso(Canvas, Altura, [&] { return Canvas.TextHeight(Texto); });
    return PelaLargura > 0 && PelaLargura < PelaAltura ? PelaLargura : Canvas.Font.Size();
}

TFont Fonte(const QString &Nome, int Charset)
{
    TFont F;
    F.AtribuirName(Nome);
    F.AtribuirCharset(static_cast<std::uint8_t>(Charset));
    return F;
}

TFont FonteAoAcaso(QRandomGenerator &Acaso)
{
    static constexpr int Charsets[] = {0, 1, 161, 204, 238, 255};
    TFont F = Acaso.bounded(2) == 0 ? Fonte(FamiliaDeSimbolos, 2)
                                    : Fonte(FamiliaDeTexto, Charsets[Acaso.bounded(6)]);
    F.AtribuirStyle(TFontStyle::fsBold, Acaso.bounded(4) == 0);
    F.AtribuirStyle(TFontStyle::fsItalic, Acaso.bounded(4) == 0);
    F.AtribuirSize(Acaso.bounded(-5, 60)); // plays no part
    return F;
}

// The number of measurements that an operation takes.
template <class F>
std::uint64_t Medidas(const F &Operacao)
{
    const std::uint64_t Antes = TCanvas::Medidas();
    Operacao();
    return TCanvas::Medidas() - Antes;
}

} // namespace

class TesteAjusteDeGlifo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { CarregarFontes(); }

    void IgualAosPassosDeUmPonto();
    void GlifoSemLarguraEAjustadoPelaAltura();
    void GlifoLargoEAjustadoPelaLargura();
    void RetanguloDeUmPixel();
    void SegundaVezNaoMede();
    void OQueNaoContaNaoEMedidoDeNovo();
    void LembraAteOLimite();
    void FontesQueMudamSaoVistas();
    void FonteQueNaoCresceNaoDemora();
};

void TesteAjusteDeGlifo::IgualAosPassosDeUmPonto()
{
    QRandomGenerator Acaso(42);
    int PelaLargura = 0;
    for (int Vez = 0; Vez < 600; ++Vez) {
        const TFont F = FonteAoAcaso(Acaso);
        const auto Codigo = static_cast<std::uint8_t>(Acaso.bounded(33, 256));
        const int Maior = Vez % 20 == 0 ? 300 : 70;
        const int Largura = Acaso.bounded(1, Maior);
        const int Altura = Acaso.bounded(1, Maior);
        const int Esperado = TamanhoPassoAPasso(F, Codigo, Largura, Altura);
        const int Obtido = TamanhoQueCabe(F, Codigo, Largura, Altura);
        QVERIFY2(Obtido == Esperado,
                 qPrintable(QStringLiteral("%1 charset %2 código %3 em %4 x %5: %6, devia ser %7")
                                .arg(F.Name())
                                .arg(F.Charset())
                                .arg(Codigo)
                                .arg(Largura)
                                .arg(Altura)
                                .arg(Obtido)
                                .arg(Esperado)));
        PelaLargura += Obtido < TamanhoQueCabe(F, Codigo, 100000, Altura) ? 1 : 0;
    }
    // Both limits must have decided often, else half of the rule was not compared.
    QVERIFY(PelaLargura > 100);
    QVERIFY(PelaLargura < 500);
}

void TesteAjusteDeGlifo::GlifoSemLarguraEAjustadoPelaAltura()
{
    const TFont F = Fonte(FamiliaDeSimbolos, 2);
    constexpr std::uint8_t Vazio = 86;
    const int Tamanho = TamanhoQueCabe(F, Vazio, 1, 40);
    QCOMPARE(Tamanho, TamanhoPassoAPasso(F, Vazio, 1, 40));
    QCOMPARE(Tamanho, TamanhoQueCabe(F, Vazio, 1000, 40));
    QVERIFY(Tamanho > 20);
}

void TesteAjusteDeGlifo::GlifoLargoEAjustadoPelaLargura()
{
    const TFont F = Fonte(FamiliaDeSimbolos, 2);
    constexpr std::uint8_t Comboio = 80;
    const int Tamanho = TamanhoQueCabe(F, Comboio, 40, 40);
    QVERIFY(Tamanho < TamanhoQueCabe(F, Comboio, 400, 40));
    TBitmap Bitmap;
    TCanvas &Canvas = Bitmap.Canvas();
    Canvas.Font = F;
    Canvas.Font.AtribuirSize(Tamanho);
    QVERIFY(Canvas.TextWidth(F.TextoDoCodigo(Comboio)) <= 40);
    Canvas.Font.AtribuirSize(Tamanho + 1);
    QVERIFY(Canvas.TextWidth(F.TextoDoCodigo(Comboio)) > 40);
}

void TesteAjusteDeGlifo::RetanguloDeUmPixel()
{
    for (const std::uint8_t Codigo : {std::uint8_t{37}, std::uint8_t{80}, std::uint8_t{86}})
        QCOMPARE(TamanhoQueCabe(Fonte(FamiliaDeSimbolos, 2), Codigo, 1, 1), 1);
}

void TesteAjusteDeGlifo::SegundaVezNaoMede()
{
    const TFont F = Fonte(FamiliaDeSimbolos, 2);
    QVERIFY(Medidas([&] { TamanhoQueCabe(F, 60, 51, 53); }) > 0);
    QCOMPARE(Medidas([&] { TamanhoQueCabe(F, 60, 51, 53); }), 0U);
    QVERIFY(Medidas([&] { TamanhoQueCabe(F, 61, 51, 53); }) > 0);
    QVERIFY(Medidas([&] { TamanhoQueCabe(F, 60, 52, 53); }) > 0);
    QVERIFY(Medidas([&] { TamanhoQueCabe(F, 60, 51, 54); }) > 0);
    TFont Negrito = F;
    Negrito.AtribuirStyle(TFontStyle::fsBold, true);
    QVERIFY(Medidas([&] { TamanhoQueCabe(Negrito, 60, 51, 53); }) > 0);
}

void TesteAjusteDeGlifo::OQueNaoContaNaoEMedidoDeNovo()
{
    TFont F = Fonte(FamiliaDeSimbolos, 2);
    TamanhoQueCabe(F, 61, 50, 50);
    F.AtribuirColor(clRed);
    F.AtribuirSize(99);
    F.AtribuirOrientation(300);
    QCOMPARE(Medidas([&] { TamanhoQueCabe(F, 61, 50, 50); }), 0U);
}

void TesteAjusteDeGlifo::LembraAteOLimite()
{
    const TFont F = Fonte(FamiliaDeTexto, 0);
    TamanhoQueCabe(F, 'A', 1, 1);
    int Pedidos = 1;
    for (int Largura = 1; Pedidos <= AjustesLembrados + 1; ++Largura)
        for (int Altura = 2; Altura <= 60 && Pedidos <= AjustesLembrados + 1; ++Altura, ++Pedidos)
            TamanhoQueCabe(F, 'A', Largura, Altura);
    QVERIFY(Medidas([&] { TamanhoQueCabe(F, 'A', 1, 1); }) > 0); // the oldest went
    QCOMPARE(Medidas([&] { TamanhoQueCabe(F, 'A', 100, 30); }), 0U);
}

void TesteAjusteDeGlifo::FontesQueMudamSaoVistas()
{
    const TFont F = Fonte(FamiliaDeSimbolos, 2);
    const int Com = TamanhoQueCabe(F, 80, 40, 40);
    const std::uint64_t Geracao = GeracaoDasFontes();
    QVERIFY(FonteInstalada(FamiliaDeSimbolos));
    QVERIFY(QFontDatabase::removeAllApplicationFonts());
    QVERIFY(GeracaoDasFontes() != Geracao);
    QVERIFY(!FonteInstalada(FamiliaDeSimbolos));
    QVERIFY(Medidas([&] { QCOMPARE(TamanhoQueCabe(F, 80, 40, 40), TamanhoPassoAPasso(F, 80, 40, 40)); }) > 0);
    CarregarFontes();
    QVERIFY(FonteInstalada(FamiliaDeSimbolos));
    QCOMPARE(TamanhoQueCabe(F, 80, 40, 40), Com);
}

void TesteAjusteDeGlifo::FonteQueNaoCresceNaoDemora()
{
    // A rectangle wider than any size can fill: the search must end, and in few measures.
    const TFont F = Fonte(FamiliaDeSimbolos, 2);
    QVERIFY(Medidas([&] { QVERIFY(TamanhoQueCabe(F, 82, 1 << 24, 1 << 24) <= MaiorTamanho); }) < 200);
}

QTEST_MAIN(TesteAjusteDeGlifo)
#include "TesteAjusteDeGlifo.moc"
