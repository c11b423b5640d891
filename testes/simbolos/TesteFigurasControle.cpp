// SPDX-License-Identifier: LGPL-2.1-or-later
// Golden pictures: every element kind in its pen and brush styles, and whole figures at several sizes.
#include "comum/Controle.h"
#include "comum/Dados.h"

#include "simbolos/Poligono.h"
#include "simbolos/Ponto.h"
#include "simbolos/Setor.h"
#include "simbolos/SimboloVetorial.h"
#include "simbolos/TabelaDeSimbolos.h"
#include "simbolos/Texto.h"

#include <QImage>
#include <QPainter>
#include <QTest>

#include <functional>
#include <numbers>

using namespace Sibrel;

namespace
{

constexpr int Casa = 48;

template <class T>
std::unique_ptr<IElementoGrafico> Elemento(const std::function<void(T &)> &Preparar)
{
    auto E = std::make_unique<T>();
    Preparar(*E);
    return E;
}

using TElementos = std::vector<std::unique_ptr<IElementoGrafico>>;

// The elements side by side, each drawn twice (texts turn behind their first drawing) into its own square.
QImage Tabuleiro(const TElementos &Elementos, int Colunas)
{
    const int Linhas = (static_cast<int>(Elementos.size()) + Colunas - 1) / Colunas;
    QImage Imagem(Colunas * Casa, Linhas * Casa, QImage::Format_RGB32);
    Imagem.fill(Qt::white);
    for (std::size_t I = 0; I < Elementos.size(); ++I) {
        QImage Parte(Casa, Casa, QImage::Format_RGB32);
        for (int Vez = 0; Vez < 2; ++Vez) {
            Parte.fill(Qt::white);
            TCanvas Canvas(Parte);
            Canvas.Brush.Style = TBrushStyle::bsClear;
            Elementos[I]->Desenhar(Canvas, {4, 4, Casa - 4, Casa - 4});
        }
        QPainter Pintor(&Imagem);
        Pintor.drawImage((static_cast<int>(I) % Colunas) * Casa, (static_cast<int>(I) / Colunas) * Casa,
                         Parte);
    }
    return Imagem;
}

std::unique_ptr<IElementoGrafico> Setor(double Menor, double De, double Ate, bool Fechado,
                                        const std::function<void(TSetor &)> &Mais = {})
{
    return Elemento<TSetor>([&](TSetor &S) {
        S.AtribuirRaioMaior(20);
        S.AtribuirRaioMenor(Menor);
        S.AtribuirAngI(De);
        S.AtribuirAngF(Ate);
        S.AtribuirFechado(Fechado);
        S.AtribuirEstiloLinha(TPenStyle::psSolid);
        S.AtribuirCorFundo(0x40C0FF);
        if (Mais)
            Mais(S);
    });
}

std::unique_ptr<IElementoGrafico> Estrela(bool Fechado, const std::function<void(TPoligono &)> &Mais = {})
{
    return Elemento<TPoligono>([&](TPoligono &P) {
        P.AtribuirFechado(Fechado);
        P.AtribuirEstiloLinha(TPenStyle::psSolid);
        P.AtribuirCorLinha(clBlue);
        P.AtribuirCorFundo(0x80E080);
        for (const TPoint &V :
             {TPoint(0, -20), TPoint(12, 16), TPoint(-19, -6), TPoint(19, -6), TPoint(-12, 16)})
            P.ObterListaPosicao().Add(V);
        if (Mais)
            Mais(P);
    });
}

std::unique_ptr<IElementoGrafico> Frase(int Vertical, int Horizontal, int Orientacao)
{
    return Elemento<TTexto>([&](TTexto &T) {
        T.Fonte().AtribuirName(Testes::FamiliaDeTexto);
        T.Fonte().AtribuirSize(9);
        T.Fonte().AtribuirColor(clBlack);
        T.AtribuirTexto(QStringLiteral(u"Ação"));
        T.AtribuirX(Casa / 2);
        T.AtribuirY(Casa / 2);
        T.AtribuirAlinhamentoVertical(static_cast<TAlinhamentoVertical>(Vertical));
        T.AtribuirAlinhamentoHorizontal(static_cast<TAlinhamentoHorizontal>(Horizontal));
        T.AtribuirOrientacao(static_cast<std::uint16_t>(Orientacao));
    });
}

void Conferir(const QImage &Imagem, const QString &Nome)
{
    QCOMPARE(Testes::CompararComControle(Imagem, QStringLiteral("figura-") + Nome), QString());
}

} // namespace

class TesteFigurasControle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void Pontos();
    void Setores();
    void EstilosDeSetor();
    void Poligonos();
    void EstilosDePoligono();
    void TextosAlinhados();
    void TextosGirados();
    void FigurasInteiras_data();
    void FigurasInteiras();
};

void TesteFigurasControle::initTestCase()
{
    ModuloTabelaDeSimbolos().Iniciar();
    Testes::CarregarFontes();
}

void TesteFigurasControle::cleanupTestCase()
{
    ModuloTabelaDeSimbolos().Parar();
}

void TesteFigurasControle::Pontos()
{
    TElementos E;
    for (const TColor Cor : {clBlack, clRed, clLime, clBlue})
        E.push_back(Elemento<TPonto>([Cor](TPonto &P) { P.AtribuirCor(Cor); }));
    Conferir(Tabuleiro(E, 4), QStringLiteral("pontos"));
}

void TesteFigurasControle::Setores()
{
    constexpr double Pi = std::numbers::pi;
    TElementos E;
    E.push_back(Setor(0, 0.3, 0.3, false));           // disc
    E.push_back(Setor(-1, 0.3, 0.3, true));           // disc too
    E.push_back(Setor(12, 0.3, 0.3, false));          // ring
    E.push_back(Setor(0, 0, Pi / 2, true));           // pie slice
    E.push_back(Setor(0, 0, Pi / 2, false));          // the same with 25 centres
    E.push_back(Setor(12, Pi / 6, Pi * 5 / 6, true)); // slice of a ring
    E.push_back(Setor(12, Pi, 2 * Pi, false));
    E.push_back(Setor(-12, 0, Pi / 3, true)); // inner arc on the other side
    E.push_back(Setor(30, 0, 1, true));       // inner radius beyond the outer one
    E.push_back(Setor(0, 2, -1, true));       // backwards
    E.push_back(Setor(8, 0, 1, true, [](TSetor &S) {
        S.AtribuirX(6);
        S.AtribuirY(-4);
    }));
    E.push_back(Elemento<TSetor>([](TSetor &) {})); // as made
    Conferir(Tabuleiro(E, 4), QStringLiteral("setores"));
}

void TesteFigurasControle::EstilosDeSetor()
{
    TElementos E;
    for (int Estilo = 0; Estilo < 8; ++Estilo)
        E.push_back(Setor(8, 0, 0, false, [Estilo](TSetor &S) {
            S.AtribuirEstiloLinha(static_cast<TPenStyle>(Estilo));
            S.AtribuirEstiloFundo(static_cast<TBrushStyle>(Estilo));
        }));
    Conferir(Tabuleiro(E, 4), QStringLiteral("setores-estilos"));
}

void TesteFigurasControle::Poligonos()
{
    TElementos E;
    E.push_back(Estrela(true));
    E.push_back(Estrela(false));
    E.push_back(Estrela(true, [](TPoligono &P) { P.AtribuirEstiloLinha(TPenStyle::psClear); }));
    E.push_back(Estrela(true, [](TPoligono &P) { P.ObterListaPosicao().Clear(); }));
    Conferir(Tabuleiro(E, 4), QStringLiteral("poligonos"));
}

void TesteFigurasControle::EstilosDePoligono()
{
    TElementos E;
    for (const bool Fechado : {true, false})
        for (int Estilo = 0; Estilo < 8; ++Estilo)
            E.push_back(Estrela(Fechado, [Estilo](TPoligono &P) {
                P.AtribuirEstiloLinha(static_cast<TPenStyle>(Estilo));
                P.AtribuirEstiloFundo(static_cast<TBrushStyle>(Estilo));
            }));
    Conferir(Tabuleiro(E, 4), QStringLiteral("poligonos-estilos"));
}

void TesteFigurasControle::TextosAlinhados()
{
    TElementos E;
    for (int V = 0; V < 3; ++V)
        for (int H = 0; H < 3; ++H)
            E.push_back(Frase(V, H, 0));
    Conferir(Tabuleiro(E, 3), QStringLiteral("textos"));
}

void TesteFigurasControle::TextosGirados()
{
    TElementos E;
    for (const int Decimos : {0, 300, 900, 1350, 1800, 2700, 3300, 3600})
        E.push_back(Frase(0, 0, Decimos));
    Conferir(Tabuleiro(E, 4), QStringLiteral("textos-girados"));
}

void TesteFigurasControle::FigurasInteiras_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<int>("Lado");
    QTest::addColumn<int>("Densidade");
    for (const QByteArray Nome : {"alvo", "rosa_dos_ventos", "hachuras", "tracos", "busca_de_radar",
                                  "campo_minado", "textos_girados", "alinhamentos"}) {
        for (const int Lado : {8, 16, 32, 64, 257})
            QTest::newRow(Nome + ' ' + QByteArray::number(Lado)) << QString::fromLatin1(Nome) << Lado << 1;
        QTest::newRow(Nome + " 32 a 2") << QString::fromLatin1(Nome) << 32 << 2;
    }
}

void TesteFigurasControle::FigurasInteiras()
{
    QFETCH(QString, Nome);
    QFETCH(int, Lado);
    QFETCH(int, Densidade);
    TSimboloVetorial S;
    S.LerArquivo(Testes::DadoDeExemplo(QStringLiteral("figuras/%1.xml").arg(Nome)));
    for (const auto &E : S.ObterElementos())
        if (auto *T = dynamic_cast<TTexto *>(E.get()))
            T->Fonte().AtribuirName(Testes::FamiliaDeTexto);
    const QString Controle = QStringLiteral("%1-%2%3").arg(Nome).arg(Lado).arg(
        Densidade == 1 ? QString() : QStringLiteral("@%1").arg(Densidade));
    QImage Primeira;
    for (int Vez = 0; Vez < 4; ++Vez) {
        QImage Imagem(Lado * Densidade, Lado * Densidade, QImage::Format_RGB32);
        Imagem.setDevicePixelRatio(Densidade);
        Imagem.fill(Qt::white);
        TCanvas Canvas(Imagem);
        // The origin is in the middle, where texts expect it.
        Canvas.Pintor().translate(Lado / 2, Lado / 2);
        S.Desenhar(Canvas, {-(Lado / 2), -(Lado / 2), Lado - Lado / 2, Lado - Lado / 2});
        if (Vez > 0) // directly the second time, from memory afterwards
            Conferir(Imagem, Controle);
    }
}

QTEST_MAIN(TesteFigurasControle)
#include "TesteFigurasControle.moc"
