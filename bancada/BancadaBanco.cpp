// SPDX-License-Identifier: LGPL-2.1-or-later
// Rows of a database into a symbol table, into the lines of a tree document and into a tree's nodes, each
// beside a plain loop that only reads the columns of the same rows.
#include "arvore/DocumentoDeTabelas.h"
#include "arvore/ParseTableXMLMapeada.h"
#include "arvore/TreeViewXMLBD.h"
#include "plataforma/ClientDataSet.h"
#include "plataforma/CustomConnection.h"
#include "simbolos/TabelaDeSimbolosBD.h"

#include <QApplication>
#include <QFile>
#include <QSqlError>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>

using namespace Sibrel;

namespace
{

constexpr int Linhas = 100'000;

const QString Simbolos =
    QStringLiteral("SELECT CARACTER, PROPORCAO, FONTE, IDTIPOBJ FROM SIMBOLOS ORDER BY ORDEM");
const QString Unidades =
    QStringLiteral("SELECT ID, PAI, TAG, NOME, COR, SIMBOLO, CODIGO, EFETIVO FROM UNIDADES "
                   "ORDER BY ID");

// One row in three continues its predecessor's object type; every unit but the first hundred has a parent.
TCustomConnection &Banco()
{
    static QTemporaryDir Pasta;
    static TCustomConnection Conexao;
    if (Conexao.Connected())
        return Conexao;
    const QString Nome = Pasta.filePath(QStringLiteral("bancada.sqlite"));
    QFile(Nome).open(QIODevice::WriteOnly);
    Conexao.AtribuirEndereco(Nome);
    Conexao.Open();
    const QString Contagem =
        QStringLiteral("WITH RECURSIVE t(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM t WHERE n < %1) ")
            .arg(Linhas);
    QSqlQuery Consulta(Conexao.Banco());
    for (const QString &SQL :
         {QStringLiteral("CREATE TABLE SIMBOLOS AS ") + Contagem +
              QStringLiteral(
                  "SELECT n AS ORDEM, n % 256 AS CARACTER, 0.5 + (n % 50) / 100.0 AS PROPORCAO, 'Sibrel "
                  "Simbolos' AS FONTE, 'TIPO' || (n / 3) AS IDTIPOBJ FROM t"),
          QStringLiteral("CREATE TABLE UNIDADES AS ") + Contagem +
              QStringLiteral(
                  "SELECT n AS ID, CASE WHEN n > 100 THEN n / 10 END AS PAI, 'Unidade' AS TAG, 'Unidade ' "
                  "|| n AS NOME, n AS COR, n % 68 AS SIMBOLO, 'U' || n AS CODIGO, n % 900 AS EFETIVO FROM "
                  "t")})
        if (!Consulta.exec(SQL)) {
            std::fputs(qPrintable(Consulta.lastError().text()), stderr);
            std::exit(1);
        }
    return Conexao;
}

void Contar(benchmark::State &Estado)
{
    Estado.SetItemsProcessed(Estado.iterations() * Linhas);
}

// The peer: every column of every row read as what it is.
template <class... Leitores>
void LerColunas(benchmark::State &Estado, const QString &SQL, Leitores... Ler)
{
    for (auto _ : Estado) {
        QSqlQuery Consulta = Banco().Consultar(SQL);
        while (Consulta.next()) {
            int Coluna = 0;
            (benchmark::DoNotOptimize(Ler(Consulta.value(Coluna++))), ...);
        }
    }
    Contar(Estado);
}

int Inteiro(const QVariant &V)
{
    return V.toInt();
}
double Real(const QVariant &V)
{
    return V.toDouble();
}
QString Texto(const QVariant &V)
{
    return V.toString();
}

void BM_LerSimbolosComQSqlQuery(benchmark::State &Estado)
{
    LerColunas(Estado, Simbolos, Inteiro, Real, Texto, Texto);
}

// The same loop with the query as it is by default, able to go back.
void BM_LerSimbolosComQSqlQueryQueVolta(benchmark::State &Estado)
{
    for (auto _ : Estado) {
        QSqlQuery Consulta(Simbolos, Banco().Banco());
        while (Consulta.next()) {
            benchmark::DoNotOptimize(Inteiro(Consulta.value(0)));
            benchmark::DoNotOptimize(Real(Consulta.value(1)));
            benchmark::DoNotOptimize(Texto(Consulta.value(2)));
            benchmark::DoNotOptimize(Texto(Consulta.value(3)));
        }
    }
    Contar(Estado);
}

void BM_AbrirDados(benchmark::State &Estado)
{
    for (auto _ : Estado) {
        TClientDataSet Dados;
        Dados.Open(Banco(), Simbolos);
        benchmark::DoNotOptimize(Dados.RecordCount());
    }
    Contar(Estado);
}

void BM_ImportarTabelaDeSimbolos(benchmark::State &Estado)
{
    TTabelaDeSimbolosBD Tabela;
    for (auto _ : Estado) {
        TClientDataSet Dados;
        Dados.Open(Banco(), Simbolos);
        Tabela.ImportarBD(Dados);
        benchmark::DoNotOptimize(Tabela.Simbolos().Count());
    }
    Contar(Estado);
}

void BM_LerUnidadesComQSqlQuery(benchmark::State &Estado)
{
    LerColunas(Estado, Unidades, Inteiro, Inteiro, Texto, Texto, Inteiro, Inteiro, Texto, Inteiro);
}

TMapeamentoXML Mapeamento()
{
    TMapeamentoXML M;
    M.ColunaTag = QStringLiteral("TAG");
    M.ColunaNome = QStringLiteral("NOME");
    M.ColunaCor = QStringLiteral("COR");
    M.ColunaSimbolo = QStringLiteral("SIMBOLO");
    M.ColunaChave = QStringLiteral("ID");
    M.ColunaPai = QStringLiteral("PAI");
    M.Identificacao = {{QStringLiteral("Código"), QStringLiteral("CODIGO")}};
    M.Informacao = {{QStringLiteral("Efetivo"), QStringLiteral("EFETIVO")}};
    return M;
}

void BM_MontarDocumentoDeUnidades(benchmark::State &Estado)
{
    TParseTableXMLList Parses(&Banco());
    Parses.Add(std::make_unique<TParseTableXMLMapeada>(Mapeamento(), Unidades));
    for (auto _ : Estado) {
        TStringList Documento;
        MontarDocumentoDeTabelas(Parses, QStringLiteral("Unidades"), Documento);
        benchmark::DoNotOptimize(Documento.Count());
    }
    Contar(Estado);
}

void BM_ExecutarArvore(benchmark::State &Estado)
{
    TTreeViewXML::RegistrarClasse(QStringLiteral("Unidade"), TRefNoXML::De<TTreeNodeXML>());
    {
        TTreeViewXMLBD Arvore;
        Arvore.ElementoRaiz = QStringLiteral("Unidades");
        Arvore.AtribuirDataBase(&Banco());
        Arvore.Parses().Add(std::make_unique<TParseTableXMLMapeada>(Mapeamento(), Unidades));
        for (auto _ : Estado) {
            Arvore.Executar();
            while (TPreparaAtualizacao::Instancias() > 0) // the nodes are made by a thread of its own
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
            if (Arvore.Items().Count() != Linhas)
                Estado.SkipWithError("the tree has not all nodes");
        }
    }
    TTreeViewXML::RemoverRegistroClasse(QStringLiteral("Unidade"));
    Contar(Estado);
}

BENCHMARK(BM_LerSimbolosComQSqlQuery)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LerSimbolosComQSqlQueryQueVolta)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AbrirDados)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ImportarTabelaDeSimbolos)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LerUnidadesComQSqlQuery)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MontarDocumentoDeUnidades)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ExecutarArvore)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication Aplicacao(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
