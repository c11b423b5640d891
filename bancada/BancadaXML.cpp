// SPDX-License-Identifier: LGPL-2.1-or-later
// Reading a tree document of some 30 MB: our document against the readers that a Qt host could use instead.
// bytes_elemento is what the read document keeps in memory, divided by its elements.
#include "plataforma/XMLDocument.h"

#include <QDomDocument>
#include <QXmlStreamReader>

#include <benchmark/benchmark.h>
#include <libxml/parser.h>
#include <malloc.h>

namespace
{

constexpr int Grupos = 100'000;
constexpr int ElementosDoGrupo = 6;

// Each group is a node of the tree with its two lists, as the tree documents have them: six elements.
const QByteArray &Documento()
{
    static const QByteArray Bytes = [] {
        QByteArray B = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<Arvore>\r\n";
        for (int N = 0; N < Grupos; ++N) {
            const QByteArray Numero = QByteArray::number(N);
            B += "  <Navio Nome=\"Navio n\xFAmero " + Numero + "\" Cor=\"255\" S\xEDmbolo=\"" +
                 QByteArray::number(N % 40) +
                 "\">\r\n    <Identificadores>\r\n      <Identificador R\xF3tulo=\"c\xF3"
                 "digo\" Valor=\"" +
                 Numero +
                 "\"/>\r\n    </Identificadores>\r\n    <Informa\xE7\xF5"
                 "es>\r\n      <Informa\xE7\xE3o R\xF3tulo=\"Velocidade\" "
                 "Valor=\"12,5 n\xF3s\"/>\r\n      <Informa\xE7\xE3o R\xF3tulo=\"Rumo\" Valor=\"270\"/>\r\n"
                 "    </Informa\xE7\xF5"
                 "es>\r\n  </Navio>\r\n";
        }
        return B + "</Arvore>\r\n";
    }();
    return Bytes;
}

std::size_t MemoriaEmUso()
{
    const struct mallinfo2 M = mallinfo2();
    return M.uordblks + M.hblkhd;
}

void Contar(benchmark::State &Estado, std::size_t Retidos)
{
    Estado.SetBytesProcessed(static_cast<std::int64_t>(Estado.iterations()) * Documento().size());
    Estado.counters["bytes_elemento"] = static_cast<double>(Retidos) / (Grupos * ElementosDoGrupo + 1);
    Estado.counters["MB"] = static_cast<double>(Documento().size()) / 1e6;
}

void Sibrel_TXMLDocument(benchmark::State &Estado)
{
    std::size_t Retidos = 0;
    Documento();
    for (auto _ : Estado) {
        const std::size_t Antes = MemoriaEmUso();
        auto D = Sibrel::TXMLDocument::DeBytes(Documento());
        Retidos = MemoriaEmUso() - Antes;
        benchmark::DoNotOptimize(D);
    }
    Contar(Estado, Retidos);
}

// Tokens only: nothing is kept.
void Qt_QXmlStreamReader(benchmark::State &Estado)
{
    Documento();
    for (auto _ : Estado) {
        QXmlStreamReader Leitor(Documento());
        std::size_t Atributos = 0;
        while (!Leitor.atEnd())
            if (Leitor.readNext() == QXmlStreamReader::StartElement)
                Atributos += static_cast<std::size_t>(Leitor.attributes().size());
        if (Leitor.hasError())
            Estado.SkipWithError("documento recusado");
        benchmark::DoNotOptimize(Atributos);
    }
    Contar(Estado, 0);
}

void Qt_QDomDocument(benchmark::State &Estado)
{
    std::size_t Retidos = 0;
    Documento();
    for (auto _ : Estado) {
        const std::size_t Antes = MemoriaEmUso();
        QDomDocument D;
        if (!D.setContent(Documento()))
            Estado.SkipWithError("documento recusado");
        Retidos = MemoriaEmUso() - Antes;
    }
    Contar(Estado, Retidos);
}

void Libxml2_DOM(benchmark::State &Estado)
{
    std::size_t Retidos = 0;
    Documento();
    for (auto _ : Estado) {
        const std::size_t Antes = MemoriaEmUso();
        xmlDoc *D =
            xmlReadMemory(Documento().constData(), static_cast<int>(Documento().size()), nullptr, nullptr, 0);
        Retidos = MemoriaEmUso() - Antes;
        if (!D)
            Estado.SkipWithError("documento recusado");
        xmlFreeDoc(D);
    }
    Contar(Estado, Retidos);
}

// A walk over all nodes and attribute texts of a document that was read: by cursor, and by counted handle.
template <class No>
std::size_t Percorrer(const No &Pai)
{
    std::size_t Soma = static_cast<std::size_t>(Pai.AttributeCount());
    for (const No &Filho : Pai.Filhos())
        Soma += Percorrer<No>(Filho);
    return Soma;
}

void Percorrer_Cursor(benchmark::State &Estado)
{
    const auto D = Sibrel::TXMLDocument::DeBytes(Documento());
    for (auto _ : Estado)
        benchmark::DoNotOptimize(Percorrer(D->Raiz()));
    Estado.SetItemsProcessed(static_cast<std::int64_t>(Estado.iterations()) * D->Nos());
}

void Percorrer_Handle(benchmark::State &Estado)
{
    const auto D = Sibrel::TXMLDocument::DeBytes(Documento());
    for (auto _ : Estado)
        benchmark::DoNotOptimize(Percorrer(D->DocumentElement()));
    Estado.SetItemsProcessed(static_cast<std::int64_t>(Estado.iterations()) * D->Nos());
}

void ProcurarAtributo(benchmark::State &Estado)
{
    const auto D = Sibrel::TXMLDocument::DeBytes(Documento());
    const QString Nome = QStringLiteral("Símbolo");
    const QString Ausente = QStringLiteral("Visivel");
    for (auto _ : Estado) {
        int Achados = 0;
        for (const Sibrel::TCursorXML No : D->Raiz().Filhos())
            Achados += No.HasAttribute(Nome) + No.HasAttribute(Ausente);
        benchmark::DoNotOptimize(Achados);
    }
    Estado.SetItemsProcessed(static_cast<std::int64_t>(Estado.iterations()) * Grupos * 2);
}

BENCHMARK(Sibrel_TXMLDocument)->Unit(benchmark::kMillisecond);
BENCHMARK(Qt_QXmlStreamReader)->Unit(benchmark::kMillisecond);
BENCHMARK(Qt_QDomDocument)->Unit(benchmark::kMillisecond);
BENCHMARK(Libxml2_DOM)->Unit(benchmark::kMillisecond);
BENCHMARK(Percorrer_Cursor)->Unit(benchmark::kMillisecond);
BENCHMARK(Percorrer_Handle)->Unit(benchmark::kMillisecond);
BENCHMARK(ProcurarAtributo)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
