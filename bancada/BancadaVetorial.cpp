// SPDX-License-Identifier: LGPL-2.1-or-later
// Vector symbols: a figure of ten elements drawn for the first time and again, beside the same figure as SVG,
// by painter calls and as a ready picture; and figure files read beside the DOM of Qt.
#include "plataforma/Arquivo.h"
#include "plataforma/Canvas.h"
#include "simbolos/CacheDePinturas.h"
#include "simbolos/Poligono.h"
#include "simbolos/Ponto.h"
#include "simbolos/Setor.h"
#include "simbolos/SimboloComposto.h"
#include "simbolos/SimboloFonte.h"
#include "simbolos/SimboloGrafico.h"
#include "simbolos/SimboloVetorial.h"
#include "simbolos/TabelaDeSimbolos.h"

#include <QApplication>
#include <QDomDocument>
#include <QFile>
#include <QFontDatabase>
#include <QPainter>
#include <QSvgRenderer>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <array>
#include <cstdlib>
#include <numbers>

using namespace Sibrel;

namespace
{

constexpr int Lado = 32;
// Around the origin of a painter that stands in the middle of the screen, as maps draw their markers: a text
// stands where its own coordinates say.
const TRect Onde(-Lado / 2, -Lado / 2, Lado / 2, Lado / 2);
constexpr QPoint Meio(116, 116);

QImage Tela()
{
    QImage Imagem(640, 480, QImage::Format_RGB32);
    Imagem.fill(Qt::white);
    return Imagem;
}

// A unit in its frame on a disc: two discs, a slice, four polygons, a text and two dots.
const QString Figura = QStringLiteral(
    "<FiguraVet>"
    "<Setor X='0' Y='0' RaioMaior='14' RaioMenor='0' AngI='0' AngF='0' CorLinha='000000' CorFundo='FFE0C0' "
    "EstiloLinha='0' EstiloFundo='0'/>"
    "<Setor X='0' Y='0' RaioMaior='10' RaioMenor='0' AngI='0' AngF='0' CorLinha='000000' CorFundo='FFFFFF' "
    "EstiloLinha='0' EstiloFundo='0'/>"
    "<Setor X='0' Y='0' Fechado='S' RaioMaior='9' RaioMenor='0' AngI='0' AngF='1.5707963267948966' "
    "CorLinha='0000FF' CorFundo='0000FF' EstiloLinha='0' EstiloFundo='0'/>"
    "<Poligono Fechado='S' CorLinha='000000' CorFundo='80FFFF' EstiloLinha='0' EstiloFundo='0'>"
    "<P X='-12' Y='-6'/><P X='12' Y='-6'/><P X='12' Y='6'/><P X='-12' Y='6'/></Poligono>"
    "<Poligono Fechado='N' CorLinha='000000' EstiloLinha='0'><P X='-12' Y='-6'/><P X='12' Y='6'/></Poligono>"
    "<Poligono Fechado='S' CorLinha='000000' CorFundo='00C000' EstiloLinha='0' EstiloFundo='0'>"
    "<P X='-3' Y='-12'/><P X='3' Y='-12'/><P X='0' Y='-7'/></Poligono>"
    "<Ponto X='-12' Y='0' Cor='000000'/>"
    "<Ponto X='12' Y='0' Cor='000000'/>"
    "<Poligono Fechado='N' CorLinha='FF0000' EstiloLinha='1'>"
    "<P X='-9' Y='10'/><P X='-3' Y='12'/><P X='3' Y='10'/><P X='9' Y='12'/></Poligono>"
    "<Texto X='0' Y='4' Cor='000000' Fonte='Sibrel Teste' Tamanho='7' Texto='II' Orientacao='0' "
    "AlinhamentoVertical='0' AlinhamentoHorizontal='2'/>"
    "</FiguraVet>");

// The same, as a program that draws SVG would have it.
const QByteArray FiguraSvg = R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="-16 -16 32 32">
<g stroke="#000000" stroke-width="1">
<circle cx="0" cy="0" r="14" fill="#C0E0FF"/>
<circle cx="0" cy="0" r="10" fill="#FFFFFF"/>
<path d="M0 0 L9 0 A9 9 0 0 0 0 -9 Z" fill="#FF0000" stroke="#FF0000"/>
<polygon points="-12,-6 12,-6 12,6 -12,6" fill="#FFFF80"/>
<polyline points="-12,-6 12,6" fill="none"/>
<polygon points="-3,-12 3,-12 0,-7" fill="#00C000"/>
<circle cx="-12" cy="0" r="2" fill="#000000"/>
<circle cx="12" cy="0" r="2" fill="#000000"/>
<polyline points="-9,10 -3,12 3,10 9,12" fill="none" stroke="#0000FF" stroke-dasharray="4,2"/>
<text x="0" y="4" font-family="Sibrel Teste" font-size="9px" text-anchor="middle" fill="#000000" stroke="none">II</text>
</g></svg>)";

std::unique_ptr<TSimboloVetorial> Simbolo()
{
    auto S = std::make_unique<TSimboloVetorial>();
    S->Atualizar(Figura);
    return S;
}

// What a programmer would write for this very figure at this very size, every coordinate worked out before.
class TDesenhoAMao
{
public:
    TDesenhoAMao()
        : FFonte(QStringLiteral("Sibrel Teste"))
    {
        FFonte.setPixelSize(9);
        FFonte.setHintingPreference(QFont::PreferNoHinting);
        TSetor Setor;
        for (std::size_t I = 0; I < 3; ++I) {
            constexpr std::array<double, 3> Raios = {14, 10, 9};
            Setor.AtribuirRaioMaior(Raios[I]);
            Setor.AtribuirRaioMenor(0);
            Setor.AtribuirFechado(I == 2);
            Setor.AtribuirAngI(0);
            Setor.AtribuirAngF(I == 2 ? std::numbers::pi / 2 : 0);
            std::array<TPoint, TSetor::PontosDoContorno> Pontos;
            const int R = static_cast<int>(Raios[I]);
            Setor.ObterPontos(Pontos, {-R, -R, R, R});
            for (std::size_t K = 0; K < Pontos.size(); ++K)
                FSetores[I][K] = Pontos[K].ParaQPoint();
        }
    }

    void Desenhar(QPainter &P) const
    {
        const QPen Preta(Qt::black, 1, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
        P.setPen(Preta);
        P.setBrush(QColor(0xC0, 0xE0, 0xFF));
        P.drawPolygon(FSetores[0].data(), TSetor::PontosDoContorno);
        P.setBrush(Qt::white);
        P.drawPolygon(FSetores[1].data(), TSetor::PontosDoContorno);
        P.setPen(QPen(Qt::red, 1, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
        P.setBrush(Qt::red);
        P.drawPolygon(FSetores[2].data(), TSetor::PontosDoContorno);
        P.setPen(Preta);
        P.setBrush(QColor(0xFF, 0xFF, 0x80));
        static constexpr QPoint Quadro[] = {{-12, -6}, {12, -6}, {12, 6}, {-12, 6}};
        P.drawPolygon(Quadro, 4);
        static constexpr QPoint Descida[] = {{-12, -6}, {12, 6}};
        P.drawPolyline(Descida, 2);
        P.setBrush(QColor(0, 0xC0, 0));
        static constexpr QPoint Seta[] = {{-3, -12}, {3, -12}, {0, -7}};
        P.drawPolygon(Seta, 3);
        P.setBrush(Qt::black);
        P.drawEllipse(-14, -2, 3, 3);
        P.drawEllipse(10, -2, 3, 3);
        P.setPen(QPen(Qt::blue, 1, Qt::DashLine, Qt::FlatCap, Qt::MiterJoin));
        static constexpr QPoint Tracos[] = {{-9, 10}, {-3, 12}, {3, 10}, {9, 12}};
        P.drawPolyline(Tracos, 4);
        P.setPen(Qt::black);
        P.setFont(FFonte);
        P.drawText(QPoint(-QFontMetrics(FFonte).horizontalAdvance(FTexto) / 2, 4), FTexto);
    }

private:
    std::array<std::array<QPoint, TSetor::PontosDoContorno>, 3> FSetores;
    QFont FFonte;
    QString FTexto = QStringLiteral("II");
};

void SvgQtPrimeiraVez(benchmark::State &Estado)
{
    QImage Imagem = Tela();
    QPainter Pintor(&Imagem);
    QSvgRenderer Desenhista(FiguraSvg);
    if (!Desenhista.isValid())
        std::abort();
    Pintor.translate(Meio);
    for (auto _ : Estado)
        Desenhista.render(&Pintor, QRectF(-Lado / 2, -Lado / 2, Lado, Lado));
}
BENCHMARK(SvgQtPrimeiraVez);

void AMaoPrimeiraVez(benchmark::State &Estado)
{
    QImage Imagem = Tela();
    QPainter Pintor(&Imagem);
    Pintor.translate(Meio);
    const TDesenhoAMao Desenho;
    for (auto _ : Estado)
        Desenho.Desenhar(Pintor);
}
BENCHMARK(AMaoPrimeiraVez);

// The figure changes before each drawing, so that each is a first one.
void SibrelPrimeiraVez(benchmark::State &Estado)
{
    QImage Imagem = Tela();
    QPainter Pintor(&Imagem);
    Pintor.translate(Meio);
    TCanvas Canvas(Pintor);
    const auto S = Simbolo();
    auto *Ponto = dynamic_cast<TPonto *>(S->ObterElementos().ObterElementoGrafico(6));
    std::int32_t Cor = 0;
    for (auto _ : Estado) {
        Ponto->AtribuirCor(Cor ^= 0x10);
        S->Desenhar(Canvas, Onde);
    }
    Estado.counters["preparadas"] = static_cast<double>(TCacheDePinturas::Preparadas());
}
BENCHMARK(SibrelPrimeiraVez);

// A picture of the figure, as any program would keep it ready.
QImage FiguraPronta()
{
    QImage Pronta(Lado, Lado, QImage::Format_ARGB32_Premultiplied);
    Pronta.fill(Qt::transparent);
    QPainter Pintor(&Pronta);
    Pintor.translate(Lado / 2, Lado / 2);
    TDesenhoAMao().Desenhar(Pintor);
    return Pronta;
}

void DrawImageDeNovo(benchmark::State &Estado)
{
    QImage Imagem = Tela();
    QPainter Pintor(&Imagem);
    const QImage Pronta = FiguraPronta();
    Pintor.translate(Meio);
    for (auto _ : Estado)
        Pintor.drawImage(QPoint(-Lado / 2, -Lado / 2), Pronta);
}
BENCHMARK(DrawImageDeNovo);

void DesenharDeNovo(benchmark::State &Estado, ISimbolo &S)
{
    QImage Imagem = Tela();
    QPainter Pintor(&Imagem);
    Pintor.translate(Meio);
    TCanvas Canvas(Pintor);
    for (int Vez = 0; Vez < 4; ++Vez)
        S.Desenhar(Canvas, Onde);
    const std::uint64_t Antes = TCacheDePinturas::Preparadas();
    for (auto _ : Estado)
        S.Desenhar(Canvas, Onde);
    if (TCacheDePinturas::Preparadas() != Antes)
        std::abort(); // not drawn from memory
}

void SibrelDeNovo(benchmark::State &Estado)
{
    DesenharDeNovo(Estado, *Simbolo());
}
BENCHMARK(SibrelDeNovo);

std::unique_ptr<TSimboloComposto> Composto()
{
    auto C = std::make_unique<TSimboloComposto>();
    auto Quadro = std::make_unique<TSimboloGrafico>();
    Quadro->LerArquivo(QStringLiteral(SIBREL_PASTA_DE_EXEMPLOS "/dados/imagens/ponte.bmp"));
    auto Glifo = std::make_unique<TSimboloFonte>();
    Glifo->Caracter = 37;
    Glifo->Fonte.AtribuirName(QStringLiteral("Sibrel Simbolos"));
    Glifo->Fonte.AtribuirCharset(TFont::CharsetSimbolo);
    C->Lista.Add(std::move(Quadro));
    C->Lista.Add(Simbolo());
    C->Lista.Add(std::move(Glifo));
    return C;
}

void SibrelCompostoDeNovo(benchmark::State &Estado)
{
    DesenharDeNovo(Estado, *Composto());
}
BENCHMARK(SibrelCompostoDeNovo);

// --- files ---

constexpr int Arquivos = 1000;

const QStringList &MilFiguras()
{
    static const QTemporaryDir Pasta;
    static QStringList Nomes;
    for (int I = static_cast<int>(Nomes.size()); I < Arquivos; ++I) {
        const QString Nome = Pasta.filePath(QString::number(I) + QStringLiteral(".xml"));
        const auto S = Simbolo();
        dynamic_cast<TPonto &>(*S->ObterElementos().ObterElementoGrafico(6)).AtribuirX(I);
        S->GravarArquivo(Nome);
        Nomes += Nome;
    }
    return Nomes;
}

void SibrelMilArquivos(benchmark::State &Estado)
{
    const QStringList &Nomes = MilFiguras();
    for (auto _ : Estado)
        for (const QString &Nome : Nomes) {
            TSimboloVetorial S;
            S.LerArquivo(Nome);
            if (S.ObterElementos().Count() != 10)
                std::abort();
        }
}
BENCHMARK(SibrelMilArquivos)->Unit(benchmark::kMillisecond);

// The documents alone: nothing is made of them.
void QDomDocumentMilArquivos(benchmark::State &Estado)
{
    const QStringList &Nomes = MilFiguras();
    for (auto _ : Estado)
        for (const QString &Nome : Nomes) {
            QFile Arquivo(Nome);
            QDomDocument Documento;
            if (!Arquivo.open(QIODevice::ReadOnly) || !Documento.setContent(&Arquivo) ||
                Documento.documentElement().childNodes().count() != 10)
                std::abort();
        }
}
BENCHMARK(QDomDocumentMilArquivos)->Unit(benchmark::kMillisecond);

// What both pay: opening and reading the files.
void SoLerMilArquivos(benchmark::State &Estado)
{
    const QStringList &Nomes = MilFiguras();
    for (auto _ : Estado)
        for (const QString &Nome : Nomes)
            benchmark::DoNotOptimize(LerArquivoInteiro(Nome).size());
}
BENCHMARK(SoLerMilArquivos)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication Aplicacao(argc, argv);
    for (const char *Fonte : {SIBREL_PASTA_DE_EXEMPLOS "/dados/fontes/SibrelSimbolos.ttf",
                              SIBREL_PASTA_DE_TESTES "/dados/fontes/SibrelTeste.ttf"})
        QFontDatabase::addApplicationFont(QString::fromUtf8(Fonte));
    ModuloTabelaDeSimbolos().Iniciar();
    ModuloSimboloVetorial().Iniciar();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    ModuloSimboloVetorial().Parar();
    ModuloTabelaDeSimbolos().Parar();
    return 0;
}
