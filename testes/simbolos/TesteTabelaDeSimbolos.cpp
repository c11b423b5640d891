// SPDX-License-Identifier: LGPL-2.1-or-later
// The table as a component: its properties, whom it tells, what it draws by index, its turned buffer.
#include "comum/Erros.h"
#include "simbolos/ArquivosDeTeste.h"
#include "simbolos/SimbolosDeTeste.h"
#include "simbolos/TabelaDeSimbolos.h"

#include <QElapsedTimer>
#include <QPainter>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

#include <numbers>

using namespace Sibrel;
using namespace Sibrel::Testes;

namespace
{

constexpr QRgb Fundo = 0xFF336699U;

QImage Folha(int Largura, int Altura)
{
    QImage Imagem(Largura, Altura, QImage::Format_RGB32);
    Imagem.fill(Fundo);
    return Imagem;
}

// A picture of which no two neighbours are equal, with some pixels of the see-through colour.
QImage Variada(int Largura, int Altura)
{
    QImage Imagem(Largura, Altura, QImage::Format_RGB32);
    for (int Y = 0; Y < Altura; ++Y)
        for (int X = 0; X < Largura; ++X)
            Imagem.setPixel(
                X, Y, (X * 7 + Y * 3) % 5 == 0 ? 0xFFFF00FFU : qRgb(X * 5 % 256, Y * 7 % 256, (X ^ Y) % 256));
    return Imagem;
}

// The rule of the turned buffer, one canvas pixel at a time.
void DesenharBufferPontoAPonto(QImage &Folha, const TRect &Rect, const QImage &Origem, QRgb Transparente,
                               double Angulo)
{
    const int W = Rect.Right - Rect.Left;
    const int H = Rect.Bottom - Rect.Top;
    const int CX = W / 2;
    const int CY = H / 2;
    const int SX = Origem.width() / 2;
    const int SY = Origem.height() / 2;
    for (int X = 0; X < W; ++X)
        for (int Y = 0; Y < H; ++Y) {
            const double D = std::sqrt((CX - X) * (CX - X) + (CY - Y) * (CY - Y));
            const double A = std::atan2(Y - CY, X - CX);
            const double OX = std::nearbyint(SX + D * std::cos(A - Angulo));
            const double OY = std::nearbyint(SY + D * std::sin(A - Angulo));
            if (OX < 0 || OY < 0 || OX >= Origem.width() || OY >= Origem.height())
                continue;
            const QRgb Pixel = Origem.pixel(static_cast<int>(OX), static_cast<int>(OY));
            if (Pixel != Transparente && Folha.valid(Rect.Left + X, Rect.Top + Y))
                Folha.setPixel(Rect.Left + X, Rect.Top + Y, Pixel);
        }
}

QImage ComBuffer(TTabelaDeSimbolos &Tabela, const TRect &Rect, double Angulo, QImage Imagem = Folha(40, 40))
{
    TCanvas Canvas(Imagem);
    Tabela.DesenharBuffer(Canvas, Rect, Angulo);
    return Imagem;
}

} // namespace

class TesteTabelaDeSimbolos : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { CarregarFontes(); }

    void Nova();
    void PropriedadesPublicadas();
    void ComponenteNaoAparece();
    void DestruidaDestroiOsSimbolos();
    void RotulosPeloIndice();
    void QuemAvisaEQuemNaoAvisa();
    void SinalAcompanhaOsObservers();
    void TrocarAListaDevolveAAntiga();

    void DesenharForaDaTabela();
    void DesenharRotacionadoNaoRoda();
    void DesenharRotacionadoAlemDoFim();
    void DesenharNumaLinhaDoPaintEvent();

    void BufferSemAnguloECopia();
    void BufferComUmQuartoDeVolta();
    void BufferComoARegraPontoAPonto();
    void BufferEmRetanguloVazio();
    void BufferVazioEAnguloSemValor();
    void BufferEmRetanguloEnorme();
    void BufferComOutraCorTransparente();
};

void TesteTabelaDeSimbolos::Nova()
{
    TTabelaDeSimbolos Tabela;
    QCOMPARE(Tabela.Simbolos().Count(), 0);
    QCOMPARE(Tabela.ObterRotulos().Count(), 0);
    QCOMPARE(Tabela.CorTransparente.Valor(), 0xFF00FF);
    QCOMPARE(Tabela.NomeArquivo, QString());
    QVERIFY(Tabela.Buffer.Empty());
    QCOMPARE(Tabela.Tag(), 0);
    QVERIFY(Tabela.AvisosDaImportacao().empty());
}

void TesteTabelaDeSimbolos::PropriedadesPublicadas()
{
    TTabelaDeSimbolos Tabela;
    TContador Contador;
    Tabela.InscreverObserver(Contador);
    QVERIFY(Tabela.setProperty("CorTransparente", QColor(1, 2, 3)));
    QCOMPARE(Tabela.CorTransparente.Valor(), 0x030201);
    QCOMPARE(Tabela.property("CorTransparente").value<QColor>(), QColor(1, 2, 3));
    QVERIFY(Tabela.setProperty("Rotulos", QStringList{"a", "b"}));
    QCOMPARE(Tabela.property("Rotulos").toStringList(), (QStringList{"a", "b"}));
    QCOMPARE(Contador.Avisos, 1);
    QVERIFY(Tabela.setProperty("Tag", 7));
    QCOMPARE(Tabela.Tag(), 7);
    QCOMPARE(Tabela.property("Simbolos").value<TListaSimbolo *>(), &Tabela.Simbolos());
}

void TesteTabelaDeSimbolos::ComponenteNaoAparece()
{
    QWidget Form;
    auto *Tabela = new TTabelaDeSimbolos(&Form); // owned by the form
    Form.show();
    Tabela->show();
    Tabela->setVisible(true);
    QVERIFY(!Tabela->isVisible());
    QCOMPARE(Tabela->sizeHint(), QSize(0, 0));
}

void TesteTabelaDeSimbolos::DestruidaDestroiOsSimbolos()
{
    {
        QWidget Form;
        auto *Tabela = new TTabelaDeSimbolos(&Form);
        Tabela->Simbolos().Add(std::make_unique<TSimboloDoHospedeiro>());
        Tabela->Simbolos().Add(Composto(std::make_unique<TSimboloDoHospedeiro>()));
        QCOMPARE(TSimboloDoHospedeiro::Vivos, 2);
    }
    QCOMPARE(TSimboloDoHospedeiro::Vivos, 0);
}

void TesteTabelaDeSimbolos::RotulosPeloIndice()
{
    TTabelaDeSimbolos Tabela;
    Tabela.AtribuirListaDeRotulos({QStringLiteral("um"), QStringLiteral("dois")});
    QCOMPARE(Tabela.ObterRotulo(0), QStringLiteral("um"));
    QCOMPARE(Tabela.ObterRotulo(1), QStringLiteral("dois"));
    for (const int Fora : {-1, 2, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        QCOMPARE(Tabela.ObterRotulo(Fora), QString());
    TStringList Outros(QStringList{"x"});
    Tabela.AtribuirRotulos(Outros);
    Outros.Add(QStringLiteral("y"));
    QCOMPARE(Tabela.ListaDeRotulos(), QStringList{"x"}); // a copy
}

void TesteTabelaDeSimbolos::QuemAvisaEQuemNaoAvisa()
{
    TTabelaDeSimbolos Tabela;
    TContador Contador;
    Tabela.InscreverObserver(Contador);
    Tabela.AtribuirRotulos(TStringList());
    QCOMPARE(Contador.Avisos, 1);
    Tabela.Simbolos().DoChange();
    QCOMPARE(Contador.Avisos, 2);
    Tabela.AtribuirRotulos(Tabela.ObterRotulos());
    QCOMPARE(Contador.Avisos, 3);
    Tabela.ObterRotulos().Add(QStringLiteral("a"));
    Tabela.Simbolos().Add(Composto());
    Tabela.Simbolos().Delete(0);
    Tabela.Limpar();
    Tabela.CorTransparente = clRed;
    QCOMPARE(Contador.Avisos, 3);
    QCOMPARE(Tabela.ObterRotulos().Count(), 0);
}

void TesteTabelaDeSimbolos::SinalAcompanhaOsObservers()
{
    TTabelaDeSimbolos Tabela;
    const QSignalSpy Sinal(&Tabela, &TSubject::Mudou);
    Tabela.Simbolos().DoChange();
    Tabela.Limpar();
    QCOMPARE(Sinal.count(), 1);
}

void TesteTabelaDeSimbolos::TrocarAListaDevolveAAntiga()
{
    TTabelaDeSimbolos Tabela;
    TContador Contador;
    Tabela.InscreverObserver(Contador);
    Tabela.Simbolos().Add(std::make_unique<TSimboloDoHospedeiro>());
    TListaSimbolo *Antiga = &Tabela.Simbolos();
    const std::unique_ptr<TListaSimbolo> Devolvida =
        Tabela.AtribuirSimbolos(std::make_unique<TListaSimbolo>());
    QCOMPARE(Devolvida.get(), Antiga);
    QCOMPARE(Devolvida->Count(), 1);
    QCOMPARE(Tabela.Simbolos().Count(), 0);
    QCOMPARE(Contador.Avisos, 0);
    Tabela.Simbolos().DoChange(); // the new list was not attached
    QCOMPARE(Contador.Avisos, 0);
    Devolvida->DoChange(); // and the old one still is
    QCOMPARE(Contador.Avisos, 1);
}

void TesteTabelaDeSimbolos::DesenharForaDaTabela()
{
    TTabelaDeSimbolos Tabela;
    Tabela.Simbolos().Add(Glifo(74));
    QImage Imagem = Folha(16, 16);
    const QImage Antes = Imagem.copy();
    {
        TCanvas Canvas(Imagem);
        for (const int Fora : {-1, 1, 1000})
            ErroDe<EListError>([&] { Tabela.Desenhar(Fora, Canvas, {0, 0, 16, 16}); });
        ErroDe<EListError>([&] { Tabela.DesenharRotacionado(-1, Canvas, {0, 0, 16, 16}, 0); });
    }
    QCOMPARE(Imagem, Antes);
}

void TesteTabelaDeSimbolos::DesenharRotacionadoNaoRoda()
{
    TTabelaDeSimbolos Tabela;
    Tabela.Simbolos().Add(Glifo(70));
    const auto Desenhar = [](const auto &Como) {
        QImage Imagem = Folha(32, 32);
        TCanvas Canvas(Imagem);
        Como(Canvas);
        return Imagem;
    };
    const QImage Direito = Desenhar([&](TCanvas &C) { Tabela.Desenhar(0, C, {0, 0, 32, 32}); });
    QVERIFY(Direito != Folha(32, 32));
    for (const double Angulo : {0.0, 1.0, std::numbers::pi})
        QCOMPARE(Desenhar([&](TCanvas &C) {
                     Tabela.DesenharRotacionado(0, C, {0, 0, 32, 32}, Angulo);
                 }),
                 Direito);
}

void TesteTabelaDeSimbolos::DesenharRotacionadoAlemDoFim()
{
    TTabelaDeSimbolos Tabela;
    Tabela.Simbolos().Add(Glifo(70));
    QImage Imagem = Folha(32, 32);
    {
        TCanvas Canvas(Imagem);
        Tabela.DesenharRotacionado(1, Canvas, {0, 0, 32, 32}, 0);
        Tabela.DesenharRotacionado(1000, Canvas, {0, 0, 32, 32}, 0);
    }
    QCOMPARE(Imagem, Folha(32, 32));
}

void TesteTabelaDeSimbolos::DesenharNumaLinhaDoPaintEvent()
{
    TTabelaDeSimbolos Tabela;
    Tabela.Simbolos().Add(Glifo(35)); // a filled square
    QImage Imagem = Folha(32, 32);
    {
        QPainter Pintor(&Imagem);
        Pintor.setPen(QPen(Qt::green, 3));
        Pintor.setBrush(Qt::yellow);
        Pintor.setFont(QFont(QStringLiteral("Sibrel Teste"), 7));
        const QPen Caneta = Pintor.pen();
        const QFont Fonte = Pintor.font();
        Tabela.Desenhar(0, Pintor, QRect(0, 0, 32, 32), Qt::red);
        QCOMPARE(Pintor.pen(), Caneta);
        QCOMPARE(Pintor.brush(), QBrush(Qt::yellow));
        QCOMPARE(Pintor.font(), Fonte);
    }
    int Vermelhos = 0;
    for (int Y = 0; Y < 32; ++Y)
        for (int X = 0; X < 32; ++X)
            Vermelhos += Imagem.pixel(X, Y) == 0xFFFF0000U ? 1 : 0;
    QVERIFY(Vermelhos > 50);
}

void TesteTabelaDeSimbolos::BufferSemAnguloECopia()
{
    TTabelaDeSimbolos Tabela;
    const QImage Origem = Variada(20, 15);
    Tabela.Buffer.AtribuirImagem(Origem);
    const QImage Imagem = ComBuffer(Tabela, {5, 7, 25, 22}, 0);
    for (int Y = 0; Y < 40; ++Y)
        for (int X = 0; X < 40; ++X) {
            const bool Dentro = Origem.valid(X - 5, Y - 7);
            const QRgb DaOrigem = Dentro ? Origem.pixel(X - 5, Y - 7) : 0xFFFF00FFU;
            QCOMPARE(Imagem.pixel(X, Y), DaOrigem == 0xFFFF00FFU ? Fundo : DaOrigem);
        }
}

void TesteTabelaDeSimbolos::BufferComUmQuartoDeVolta()
{
    // Odd sides have a true centre; clockwise on the screen, the top row becomes the right column.
    TTabelaDeSimbolos Tabela;
    Tabela.CorTransparente = clBlack;
    const QImage Origem = Variada(21, 21);
    Tabela.Buffer.AtribuirImagem(Origem);
    const QImage Imagem = ComBuffer(Tabela, {0, 0, 21, 21}, std::numbers::pi / 2);
    for (int I = 0; I < 21; ++I)
        QCOMPARE(Imagem.pixel(20, I), Origem.pixel(I, 0) == 0xFF000000U ? Fundo : Origem.pixel(I, 0));
    QCOMPARE(Imagem.pixel(0, 20), Origem.pixel(20, 20));
}

void TesteTabelaDeSimbolos::BufferComoARegraPontoAPonto()
{
    QRandomGenerator Acaso(7);
    for (int Vez = 0; Vez < 300; ++Vez) {
        TTabelaDeSimbolos Tabela;
        const QImage Origem = Variada(Acaso.bounded(1, 40), Acaso.bounded(1, 40));
        Tabela.Buffer.AtribuirImagem(Origem);
        const int X = Acaso.bounded(-10, 30);
        const int Y = Acaso.bounded(-10, 30);
        const TRect Rect(X, Y, X + Acaso.bounded(-3, 60), Y + Acaso.bounded(-3, 60));
        const double Angulo =
            Vez % 10 == 0 ? (Vez / 10) * std::numbers::pi / 4 : Acaso.generateDouble() * 20 - 10;
        QImage Esperada = Folha(40, 40);
        DesenharBufferPontoAPonto(Esperada, Rect, Origem, 0xFFFF00FFU, Angulo);
        const QImage Obtida = ComBuffer(Tabela, Rect, Angulo);
        QVERIFY2(Obtida == Esperada, qPrintable(QStringLiteral("vez %1, ângulo %2").arg(Vez).arg(Angulo)));
    }
}

void TesteTabelaDeSimbolos::BufferEmRetanguloVazio()
{
    TTabelaDeSimbolos Tabela;
    Tabela.Buffer.AtribuirImagem(Variada(10, 10));
    for (const TRect &Rect : {TRect(5, 5, 5, 20), TRect(5, 5, 20, 5), TRect(20, 20, 5, 5), TRect()})
        QCOMPARE(ComBuffer(Tabela, Rect, 0.3), Folha(40, 40));
}

void TesteTabelaDeSimbolos::BufferVazioEAnguloSemValor()
{
    TTabelaDeSimbolos Tabela;
    QCOMPARE(ComBuffer(Tabela, {0, 0, 40, 40}, 0), Folha(40, 40));
    Tabela.Buffer.AtribuirImagem(Variada(10, 10));
    for (const double Angulo : {std::nan(""), std::numeric_limits<double>::infinity()})
        QCOMPARE(ComBuffer(Tabela, {0, 0, 40, 40}, Angulo), Folha(40, 40));
}

void TesteTabelaDeSimbolos::BufferEmRetanguloEnorme()
{
    TTabelaDeSimbolos Tabela;
    Tabela.CorTransparente = clBlack;
    Tabela.Buffer.AtribuirImagem(Variada(10, 10));
    constexpr int Lado = 2000000000;
    QElapsedTimer Tempo;
    Tempo.start();
    const QImage Imagem = ComBuffer(Tabela, {-Lado, -Lado, Lado, Lado}, 0);
    QVERIFY(Imagem != Folha(40, 40)); // its centre is the corner of the sheet
    ComBuffer(Tabela,
              {std::numeric_limits<int>::min(), std::numeric_limits<int>::min(),
               std::numeric_limits<int>::max(), std::numeric_limits<int>::max()},
              1);
    QVERIFY(Tempo.elapsed() < 2000);
}

void TesteTabelaDeSimbolos::BufferComOutraCorTransparente()
{
    TTabelaDeSimbolos Tabela;
    QImage Origem(10, 10, QImage::Format_RGB32);
    Origem.fill(Qt::red);
    Tabela.Buffer.AtribuirImagem(Origem);
    Tabela.CorTransparente = clRed;
    QCOMPARE(ComBuffer(Tabela, {0, 0, 10, 10}, 0), Folha(40, 40));
    Tabela.CorTransparente = clBlue;
    QCOMPARE(ComBuffer(Tabela, {0, 0, 10, 10}, 0).pixel(9, 9), 0xFFFF0000U);
}

QTEST_MAIN(TesteTabelaDeSimbolos)
#include "TesteTabelaDeSimbolos.moc"
