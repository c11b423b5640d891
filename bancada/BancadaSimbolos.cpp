// SPDX-License-Identifier: LGPL-2.1-or-later
// Drawing the symbols of a table, and reading and writing libraries, each beside what it is compared with.
#include "plataforma/Arquivo.h"
#include "plataforma/Canvas.h"
#include "simbolos/CacheDePinturas.h"
#include "simbolos/SimboloComposto.h"
#include "simbolos/SimboloFonte.h"
#include "simbolos/SimboloGrafico.h"
#include "simbolos/TabelaDeSimbolos.h"

#include <QApplication>
#include <QFile>
#include <QFontDatabase>
#include <QPainter>
#include <QTemporaryDir>
#include <QTextStream>

#include <benchmark/benchmark.h>

#include <cstdlib>

using namespace Sibrel;

namespace
{

constexpr int Lado = 32;
constexpr int SimbolosDaTabela = 1000;

QImage Tela()
{
    return {640, 480, QImage::Format_RGB32};
}

// A picture of the size drawn, as any program would keep it ready: with alpha, like a glyph.
QImage FiguraPronta()
{
    QImage Figura(Lado, Lado, QImage::Format_ARGB32_Premultiplied);
    Figura.fill(Qt::transparent);
    QPainter Pintor(&Figura);
    Pintor.setRenderHint(QPainter::Antialiasing);
    Pintor.setBrush(Qt::darkBlue);
    Pintor.drawEllipse(2, 2, Lado - 4, Lado - 4);
    return Figura;
}

std::unique_ptr<TSimboloFonte> Glifo(int Indice)
{
    auto Simbolo = std::make_unique<TSimboloFonte>();
    Simbolo->Caracter = static_cast<std::uint8_t>(33 + Indice % 50);
    Simbolo->Fonte.AtribuirName(QStringLiteral("Sibrel Simbolos"));
    Simbolo->Fonte.AtribuirCharset(TFont::CharsetSimbolo);
    return Simbolo;
}

std::unique_ptr<TSimboloGrafico> Figura()
{
    auto Simbolo = std::make_unique<TSimboloGrafico>();
    Simbolo->LerArquivo(QStringLiteral(SIBREL_PASTA_DE_EXEMPLOS "/dados/imagens/ponte.bmp"));
    return Simbolo;
}

void Desenhar(benchmark::State &Estado, TListaSimbolo &Lista)
{
    QImage Imagem = Tela();
    TCanvas Canvas(Imagem);
    Canvas.Pen.Color = clBlue;
    const TRect Onde(100, 100, 100 + Lado, 100 + Lado);
    for (const auto &Simbolo : Lista)
        Simbolo->Desenhar(Canvas, Onde); // first draws apart
    int Indice = 0;
    for (auto _ : Estado) {
        Lista[Indice]->Desenhar(Canvas, Onde);
        Indice = (Indice + 1) % Lista.Count();
    }
    Estado.counters["preparadas"] = static_cast<double>(TCacheDePinturas::Quantas());
}

void DrawImageUmaFigura(benchmark::State &Estado)
{
    QImage Imagem = Tela();
    QPainter Pintor(&Imagem);
    const QImage Pronta = FiguraPronta();
    for (auto _ : Estado)
        Pintor.drawImage(QPoint(100, 100), Pronta);
}
BENCHMARK(DrawImageUmaFigura);

void DrawImageMilFiguras(benchmark::State &Estado)
{
    QImage Imagem = Tela();
    QPainter Pintor(&Imagem);
    std::vector<QImage> Prontas;
    for (int I = 0; I < SimbolosDaTabela; ++I)
        Prontas.push_back(FiguraPronta());
    std::size_t Indice = 0;
    for (auto _ : Estado) {
        Pintor.drawImage(QPoint(100, 100), Prontas[Indice]);
        Indice = (Indice + 1) % Prontas.size();
    }
}
BENCHMARK(DrawImageMilFiguras);

void SibrelGlifos(benchmark::State &Estado)
{
    TListaSimbolo Lista;
    for (int I = 0; I < SimbolosDaTabela; ++I)
        Lista.Add(Glifo(I));
    Desenhar(Estado, Lista);
}
BENCHMARK(SibrelGlifos);

void SibrelFiguras(benchmark::State &Estado)
{
    TListaSimbolo Lista;
    for (int I = 0; I < SimbolosDaTabela; ++I)
        Lista.Add(Figura());
    Desenhar(Estado, Lista);
}
BENCHMARK(SibrelFiguras);

void SibrelCompostos(benchmark::State &Estado)
{
    TListaSimbolo Lista;
    for (int I = 0; I < SimbolosDaTabela; ++I) {
        auto Composto = std::make_unique<TSimboloComposto>();
        Composto->Lista.Add(Figura());
        Composto->Lista.Add(Glifo(I));
        Composto->Lista.Add(Glifo(I + 1));
        Lista.Add(std::move(Composto));
    }
    Desenhar(Estado, Lista);
}
BENCHMARK(SibrelCompostos);

void SibrelPrimeiroGlifo(benchmark::State &Estado)
{
    QImage Imagem = Tela();
    TCanvas Canvas(Imagem);
    const auto Simbolo = Glifo(0);
    int Tamanho = 0;
    for (auto _ : Estado) {
        TCacheDePinturas::Esvaziar();
        Simbolo->Desenhar(Canvas, {0, 0, Lado, Lado + Tamanho});
        Tamanho = (Tamanho + 1) % 8;
    }
}
BENCHMARK(SibrelPrimeiroGlifo);

// --- libraries ---

QByteArray Biblioteca(std::int64_t Registros)
{
    QByteArray Bytes = QByteArray::number(static_cast<qlonglong>(Registros)) + "\r\n";
    for (std::int64_t I = 0; I < Registros; ++I)
        Bytes += "Fonte      \"Unidade " + QByteArray::number(static_cast<qlonglong>(I)) + "\"          " +
                 QByteArray::number(static_cast<qlonglong>(33 + I % 50)) + "     2 1.00 Sibrel Simbolos \r\n";
    return Bytes;
}

QString ArquivoDaBiblioteca(std::int64_t Registros)
{
    static const QTemporaryDir Pasta;
    const QString Nome = Pasta.filePath(QString::number(Registros) + QStringLiteral(".txt"));
    if (!QFile::exists(Nome))
        GravarArquivoInteiro(Nome, Biblioteca(Registros));
    return Nome;
}

void Importar(benchmark::State &Estado)
{
    const QString Nome = ArquivoDaBiblioteca(Estado.range(0));
    for (auto _ : Estado) {
        TTabelaDeSimbolos Tabela;
        Tabela.Importar(Nome);
        benchmark::DoNotOptimize(Tabela.Simbolos().Count());
    }
    Estado.SetComplexityN(Estado.range(0));
}
BENCHMARK(Importar)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->Complexity();

// The same tokens read the plain way, without making any object.
void QTextStreamMesmosTokens(benchmark::State &Estado)
{
    const QString Nome = ArquivoDaBiblioteca(Estado.range(0));
    for (auto _ : Estado) {
        QFile Arquivo(Nome);
        if (!Arquivo.open(QIODevice::ReadOnly | QIODevice::Text))
            std::abort();
        QTextStream Fluxo(&Arquivo);
        Fluxo.setEncoding(QStringConverter::Latin1);
        int Quantos = 0;
        Fluxo >> Quantos;
        Fluxo.readLine();
        for (int I = 0; I < Quantos; ++I) {
            const QString Tipo = Fluxo.read(10).trimmed();
            QString Rotulo;
            Fluxo >> Rotulo;
            while (!Rotulo.endsWith(u'"')) {
                QString Resto;
                Fluxo >> Resto;
                Rotulo += u' ' + Resto;
            }
            int Caracter = 0;
            int Charset = 0;
            double Proporcao = 0;
            Fluxo >> Caracter >> Charset >> Proporcao;
            const QString Fonte = Fluxo.readLine().trimmed();
            benchmark::DoNotOptimize(Fonte.size() + Tipo.size() + Caracter + Charset);
        }
    }
}
BENCHMARK(QTextStreamMesmosTokens)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

void Exportar(benchmark::State &Estado)
{
    TTabelaDeSimbolos Tabela;
    Tabela.Importar(ArquivoDaBiblioteca(Estado.range(0)));
    const QString Nome = ArquivoDaBiblioteca(Estado.range(0)) + QStringLiteral(".saida");
    for (auto _ : Estado)
        Tabela.Exportar(Nome);
    Estado.SetComplexityN(Estado.range(0));
}
BENCHMARK(Exportar)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->Complexity();

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication Aplicacao(argc, argv);
    QFontDatabase::addApplicationFont(
        QStringLiteral(SIBREL_PASTA_DE_EXEMPLOS "/dados/fontes/SibrelSimbolos.ttf"));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
