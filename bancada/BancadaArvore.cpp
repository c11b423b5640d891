// SPDX-License-Identifier: LGPL-2.1-or-later
// Documents into trees that are shown: an update against a stream reader and a document object that fill the
// platform's own tree widget. Times are from the call to the last report, with the view visible and every
// node expanded; memory is what stays when the document has gone.
// With --com_dom_grande the document object is measured at a million nodes too.
#include "arvore/PrepararAtualizacao.h"
#include "arvore/TreeViewXML.h"

#include <QApplication>
#include <QDomDocument>
#include <QElapsedTimer>
#include <QTimer>
#include <QTreeWidget>
#include <QXmlStreamReader>

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <algorithm>

using namespace Sibrel;

namespace
{

// Six elements a node: itself, two lists, three items.
QString NoXML(int Numero, const QString &Dentro)
{
    return QStringLiteral(
               "<Unidade Nome=\"Unidade %1\" Cor=\"255\" Símbolo=\"%2\">\n"
               " <Identificadores>\n  <Identificador Rótulo=\"Código\" Valor=\"U.%1\"/>\n"
               " </Identificadores>\n <Informações>\n"
               "  <Informação Rótulo=\"Posição\" Valor=\"23K %1 7508700\"/>\n"
               "  <Informação Rótulo=\"Comandante\" Valor=\"Cap %2\"/>\n </Informações>\n%3</Unidade>\n")
        .arg(Numero)
        .arg(Numero % 40)
        .arg(Dentro);
}

// Ten children each, four levels and then as many top-level nodes as it takes.
QString Documento(int Nos)
{
    QString XML = QStringLiteral("<Ordem>\n");
    int Numero = 0;
    const auto Ramo = [&](auto &&Eu, int Nivel) -> QString {
        const int Meu = Numero++;
        QString Dentro;
        for (int I = 0; Nivel < 3 && I < 10 && Numero < Nos; ++I)
            Dentro += Eu(Eu, Nivel + 1);
        return NoXML(Meu, Dentro);
    };
    while (Numero < Nos)
        XML += Ramo(Ramo, 0);
    return XML + QStringLiteral("</Ordem>\n");
}

const QString &DocumentoDe(int Nos)
{
    static QMap<int, QString> Feitos;
    auto Lugar = Feitos.find(Nos);
    if (Lugar == Feitos.end())
        Lugar = Feitos.insert(Nos, Documento(Nos));
    return *Lugar;
}

double Alocado()
{
    const struct mallinfo2 Info = mallinfo2();
    return double(Info.uordblks) + double(Info.hblkhd);
}

// The longest time that the event loop could not serve a timer, the timer's own millisecond included: one
// without a pause would take a core away from what is measured.
class TMaiorParada : public QObject
{
public:
    void Comecar()
    {
        FMaior = 0;
        FRelogio.start();
        FTimer.callOnTimeout([this] {
            FMaior = std::max(FMaior, FRelogio.nsecsElapsed());
            FRelogio.restart();
        });
        FTimer.setTimerType(Qt::PreciseTimer);
        FTimer.start(1);
    }
    double Milissegundos()
    {
        FTimer.stop();
        return double(FMaior) / 1e6;
    }

private:
    QTimer FTimer;
    QElapsedTimer FRelogio;
    qint64 FMaior = 0;
};

// Runs an update to its end; seconds.
double Aplicar(TTreeViewXML &Vista, const QString &XML, double *Parada = nullptr)
{
    QElapsedTimer Relogio;
    Relogio.start();
    QEventLoop Espera;
    qint64 Fim = 0;
    quint64 Passos = 0;
    Vista.OnProgresso = [&](TTreeViewXML &, TPreparaAtualizacao &A) {
        ++Passos;
        if (A.Etapa() == u"Terminado" || A.Etapa() == u"XML em formato inválido!") {
            Fim = Relogio.nsecsElapsed();
            Espera.quit();
        }
    };
    Vista.Atualizar(XML);
    TMaiorParada Maior;
    Maior.Comecar();
    Espera.exec();
    while (TPreparaAtualizacao::Instancias() > 0)
        QCoreApplication::processEvents();
    Vista.viewport()->repaint();
    if (Parada != nullptr)
        *Parada = Maior.Milissegundos();
    Vista.OnProgresso = nullptr;
    return double(Fim) / 1e9;
}

void Sibrel_Carga(benchmark::State &Estado)
{
    const int Nos = int(Estado.range(0));
    const QString &XML = DocumentoDe(Nos);
    double Bytes = 0;
    double Parada = 0;
    for (auto _ : Estado) {
        malloc_trim(0);
        TTreeViewXML Vista;
        Vista.resize(600, 800);
        Vista.show();
        QCoreApplication::processEvents();
        const double Antes = Alocado();
        double Desta = 0;
        Estado.SetIterationTime(Aplicar(Vista, XML, &Desta));
        Parada = std::max(Parada, Desta);
        QCoreApplication::processEvents();
        Bytes = (Alocado() - Antes) / Nos;
        if (Vista.Nos().Count() != Nos)
            Estado.SkipWithError("faltam nós");
    }
    Estado.counters["bytes/no"] = Bytes;
    Estado.counters["parada_ms"] = Parada;
}

// What the peers keep of an element: the same as a node of ours, in the way of the widget.
void Guardar(QTreeWidgetItem &Item, const QStringList &Identificacao, const QStringList &Informacao)
{
    Item.setData(0, Qt::UserRole, Identificacao);
    Item.setData(0, Qt::UserRole + 1, Informacao);
}

void PorStream(QTreeWidget &Arvore, const QString &XML)
{
    QXmlStreamReader Leitor(XML);
    std::vector<QTreeWidgetItem *> Pilha;
    QStringList Identificacao;
    QStringList Informacao;
    while (!Leitor.atEnd()) {
        Leitor.readNext();
        if (Leitor.isStartElement()) {
            if (Leitor.name() == u"Unidade") {
                auto *Item = Pilha.empty() ? new QTreeWidgetItem(&Arvore) : new QTreeWidgetItem(Pilha.back());
                Item->setText(0, Leitor.attributes().value(QLatin1String("Nome")).toString());
                Item->setForeground(0, QColor(QRgb(Leitor.attributes().value(QLatin1String("Cor")).toInt())));
                Item->setExpanded(true);
                Pilha.push_back(Item);
            } else if (Leitor.name() == u"Identificador" || Leitor.name() == u"Informação") {
                const auto A = Leitor.attributes();
                (Leitor.name() == u"Identificador" ? Identificacao : Informacao)
                    .append(A.value(QStringLiteral("Rótulo")).toString() + u'=' +
                            A.value(QLatin1String("Valor")).toString());
            }
        } else if (Leitor.isEndElement()) {
            if (Leitor.name() == u"Informações") {
                Guardar(*Pilha.back(), Identificacao, Informacao);
                Identificacao.clear();
                Informacao.clear();
            } else if (Leitor.name() == u"Unidade") {
                Pilha.pop_back();
            }
        }
    }
}

void PorDom(QTreeWidget &Arvore, QTreeWidgetItem *Pai, const QDomElement &E)
{
    auto *Item = Pai == nullptr ? new QTreeWidgetItem(&Arvore) : new QTreeWidgetItem(Pai);
    Item->setText(0, E.attribute(QStringLiteral("Nome")));
    Item->setForeground(0, QColor(QRgb(E.attribute(QStringLiteral("Cor")).toInt())));
    Item->setExpanded(true);
    const auto Lista = [&E](const QString &Tag) {
        QStringList Linhas;
        for (QDomElement I = E.firstChildElement(Tag).firstChildElement(); !I.isNull();
             I = I.nextSiblingElement())
            Linhas.append(I.attribute(QStringLiteral("Rótulo")) + u'=' +
                          I.attribute(QStringLiteral("Valor")));
        return Linhas;
    };
    Guardar(*Item, Lista(QStringLiteral("Identificadores")), Lista(QStringLiteral("Informações")));
    for (QDomElement F = E.firstChildElement(QStringLiteral("Unidade")); !F.isNull();
         F = F.nextSiblingElement(QStringLiteral("Unidade")))
        PorDom(Arvore, Item, F);
}

template <class Encher>
void Widget_Carga(benchmark::State &Estado, Encher &&Fazer)
{
    const int Nos = int(Estado.range(0));
    const QString &XML = DocumentoDe(Nos);
    double Bytes = 0;
    for (auto _ : Estado) {
        malloc_trim(0);
        QTreeWidget Arvore;
        Arvore.setUniformRowHeights(true);
        Arvore.resize(600, 800);
        Arvore.show();
        QCoreApplication::processEvents();
        const double Antes = Alocado();
        QElapsedTimer Relogio;
        Relogio.start();
        Fazer(Arvore, XML);
        Arvore.viewport()->repaint();
        Estado.SetIterationTime(double(Relogio.nsecsElapsed()) / 1e9);
        Bytes = (Alocado() - Antes) / Nos;
    }
    Estado.counters["bytes/no"] = Bytes;
}

void QXmlStreamReader_QTreeWidget(benchmark::State &Estado)
{
    Widget_Carga(Estado, [](QTreeWidget &A, const QString &XML) { PorStream(A, XML); });
}

void QDomDocument_QTreeWidget(benchmark::State &Estado)
{
    Widget_Carga(Estado, [](QTreeWidget &A, const QString &XML) {
        QDomDocument D;
        D.setContent(XML);
        for (QDomElement E = D.documentElement().firstChildElement(); !E.isNull(); E = E.nextSiblingElement())
            PorDom(A, nullptr, E);
    });
}

// A flat document: N siblings, each of what `Cada` says.
template <class Cada>
QString Irmaos(int N, Cada &&C)
{
    QString XML = QStringLiteral("<Ordem>");
    for (int I = 0; I < N; ++I)
        XML += C(I);
    return XML + QStringLiteral("</Ordem>");
}

QString Irmao(int I, const QString &Atributos)
{
    return QStringLiteral("<Unidade Nome=\"U %1\" %2><Identificadores><Identificador Rótulo=\"Código\" "
                          "Valor=\"%1\"/></Identificadores></Unidade>")
        .arg(I)
        .arg(Atributos);
}

template <class Cada>
void Segunda(benchmark::State &Estado, Cada &&C)
{
    const int N = int(Estado.range(0));
    const QString Primeiro = Irmaos(N, [](int I) { return Irmao(I, QStringLiteral("Cor=\"0\"")); });
    const QString Outro = Irmaos(N, C);
    for (auto _ : Estado) {
        TTreeViewXML Vista;
        Vista.resize(600, 800);
        Vista.show();
        Aplicar(Vista, Primeiro);
        Estado.SetIterationTime(Aplicar(Vista, Outro));
    }
}

void Sibrel_Alterar(benchmark::State &Estado)
{
    Segunda(Estado, [](int I) { return Irmao(I, QStringLiteral("Cor=\"7\"")); });
}

void Sibrel_ExcluirPelaIdentificacao(benchmark::State &Estado)
{
    Segunda(Estado, [](int I) {
        return QStringLiteral("<Unidade Nome=\"outro\"><Identificadores><Identificador Rótulo=\"Código\" "
                              "Valor=\"%1\"/></Identificadores></Unidade>")
            .arg(I);
    });
}

void Sibrel_Links(benchmark::State &Estado)
{
    Segunda(Estado, [](int I) {
        return QStringLiteral("<Unidade Nome=\"L %1\" Link=\"sim\"><Identificadores><Identificador "
                              "Rótulo=\"Código\" Valor=\"%1\"/></Identificadores></Unidade>")
            .arg(I);
    });
}

TTreeViewXML &VistaCom(int Nos)
{
    static QMap<int, TTreeViewXML *> Vistas;
    TTreeViewXML *&Vista = Vistas[Nos];
    if (Vista == nullptr) {
        Vista = new TTreeViewXML;
        Vista->resize(600, 800);
        Vista->show();
        Aplicar(*Vista, DocumentoDe(Nos));
    }
    return *Vista;
}

void Sibrel_Repintar(benchmark::State &Estado)
{
    TTreeViewXML &Vista = VistaCom(int(Estado.range(0)));
    QImage Tela(Vista.viewport()->size(), QImage::Format_ARGB32_Premultiplied);
    for (auto _ : Estado)
        Vista.viewport()->render(&Tela);
}

void QTreeView_Repintar(benchmark::State &Estado)
{
    TTreeViewXML &Vista = VistaCom(int(Estado.range(0)));
    QTreeView Outra;
    Outra.setUniformRowHeights(true);
    Outra.setHeaderHidden(true);
    Outra.setModel(&Vista.Modelo());
    Outra.expandAll();
    Outra.resize(600, 800);
    Outra.show();
    QCoreApplication::processEvents();
    QImage Tela(Outra.viewport()->size(), QImage::Format_ARGB32_Premultiplied);
    for (auto _ : Estado)
        Outra.viewport()->render(&Tela);
}

void Sibrel_ObterNoPelaIdentificacao(benchmark::State &Estado)
{
    const int Nos = int(Estado.range(0));
    const TTreeViewXML &Vista = VistaCom(Nos);
    int I = 0;
    for (auto _ : Estado) {
        I = (I + 7919) % Nos;
        benchmark::DoNotOptimize(
            Vista.ObterNo(TStringList(QStringList{QStringLiteral("Código=U.%1").arg(I)})));
    }
}

void Sibrel_ObterNoPeloCaminho(benchmark::State &Estado)
{
    const int Nos = int(Estado.range(0));
    const TTreeViewXML &Vista = VistaCom(Nos);
    TTreeNode *Ultimo = Vista.Nos().GetFirstNode();
    while (Ultimo->GetNextSibling() != nullptr)
        Ultimo = Ultimo->GetNextSibling();
    while (Ultimo->GetLastChild() != nullptr)
        Ultimo = Ultimo->GetLastChild();
    const QString Caminho = ObterCaminho(Ultimo, QStringLiteral("/"));
    for (auto _ : Estado)
        if (Vista.ObterNo(Caminho) != Ultimo)
            Estado.SkipWithError("não é o nó");
}

void Sibrel_ObterNoPelaLegenda(benchmark::State &Estado)
{
    const int Nos = int(Estado.range(0));
    const TTreeViewXML &Vista = VistaCom(Nos);
    const QString Legenda = QStringLiteral("Unidade %1").arg(Nos - 1);
    for (auto _ : Estado)
        if (Vista.ObterPrimeiroNo(Legenda, nullptr, 0) == nullptr)
            Estado.SkipWithError("não é o nó");
}

constexpr auto Unidade = benchmark::kMillisecond;

BENCHMARK(Sibrel_Carga)->Arg(10000)->Arg(100000)->Arg(1000000)->UseManualTime()->Unit(Unidade)->Iterations(3);
BENCHMARK(QXmlStreamReader_QTreeWidget)
    ->Arg(10000)
    ->Arg(100000)
    ->Arg(1000000)
    ->UseManualTime()
    ->Unit(Unidade)
    ->Iterations(2);
BENCHMARK(QDomDocument_QTreeWidget)->Arg(10000)->Arg(100000)->UseManualTime()->Unit(Unidade)->Iterations(2);
BENCHMARK(Sibrel_Alterar)->Arg(10000)->Arg(100000)->UseManualTime()->Unit(Unidade)->Iterations(3);
BENCHMARK(Sibrel_ExcluirPelaIdentificacao)
    ->Arg(10000)
    ->Arg(100000)
    ->UseManualTime()
    ->Unit(Unidade)
    ->Iterations(3);
BENCHMARK(Sibrel_Links)->Arg(10000)->Arg(100000)->UseManualTime()->Unit(Unidade)->Iterations(3);
BENCHMARK(Sibrel_Repintar)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMicrosecond);
BENCHMARK(QTreeView_Repintar)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMicrosecond);
BENCHMARK(Sibrel_ObterNoPelaIdentificacao)->Arg(10000)->Arg(1000000)->Unit(benchmark::kMicrosecond);
BENCHMARK(Sibrel_ObterNoPeloCaminho)->Arg(10000)->Arg(1000000)->Unit(benchmark::kMicrosecond);
BENCHMARK(Sibrel_ObterNoPelaLegenda)->Arg(10000)->Arg(1000000)->Unit(benchmark::kMicrosecond);

// Fonts, style and the code itself are in memory before the first clock starts, whoever comes first.
void Aquecer()
{
    constexpr int Poucos = 1'000;
    TTreeViewXML Vista;
    Vista.show();
    Aplicar(Vista, DocumentoDe(Poucos));
    QTreeWidget Arvore;
    Arvore.show();
    PorStream(Arvore, DocumentoDe(Poucos));
    Arvore.viewport()->repaint();
}

// The document object of a million nodes takes some 14 GB and a minute: only who asks for it gets it.
void RegistrarDomGrande()
{
    benchmark::RegisterBenchmark("QDomDocument_QTreeWidget", QDomDocument_QTreeWidget)
        ->Arg(1000000)
        ->UseManualTime()
        ->Unit(Unidade)
        ->Iterations(1);
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication Aplicacao(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    TTreeViewXML::RegistrarClasse(QStringLiteral("Unidade"), TRefNoXML::De<TTreeNodeXML>());
    Aquecer();
    benchmark::Initialize(&argc, argv);
    if (argc > 1 && QByteArrayView(argv[1]) == "--com_dom_grande")
        RegistrarDomGrande();
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
