// SPDX-License-Identifier: LGPL-2.1-or-later
#include "comum/Bancos.h"
#include "comum/Dados.h"
#include "comum/Erros.h"
#include "plataforma/ClientDataSet.h"
#include "plataforma/CustomConnection.h"
#include "plataforma/Exception.h"

#include <QIdentityProxyModel>
#include <QSqlTableModel>
#include <QStandardItemModel>
#include <QTemporaryDir>
#include <QTest>

#include <climits>
#include <memory>

using namespace Sibrel;
using namespace Sibrel::Testes;

namespace
{

QStringList Valores(TClientDataSet &Dados, const char *Coluna)
{
    QStringList Lista;
    for (Dados.First(); !Dados.Eof(); Dados.Next())
        Lista += Dados.FieldByName(QString::fromUtf8(Coluna)).AsString();
    return Lista;
}

void PreencherModelo(QStandardItemModel &Modelo, const QStringList &Colunas,
                     const QList<QVariantList> &Linhas)
{
    Modelo.setHorizontalHeaderLabels(Colunas);
    for (const QVariantList &Linha : Linhas) {
        QList<QStandardItem *> Itens;
        for (const QVariant &Valor : Linha) {
            Itens += new QStandardItem;
            Itens.last()->setData(Valor, Qt::EditRole);
        }
        Modelo.appendRow(Itens);
    }
}

// A model that brings its rows ten at a time, and may promise more than it has.
class TModeloAosPoucos : public QIdentityProxyModel
{
    Q_OBJECT

public:
    int Mostradas = 0;
    bool PrometeSempre = false;

    int rowCount(const QModelIndex &) const override { return Mostradas; }
    bool canFetchMore(const QModelIndex &) const override
    {
        return PrometeSempre || Mostradas < sourceModel()->rowCount();
    }
    void fetchMore(const QModelIndex &) override
    {
        Mostradas = std::min(Mostradas + 10, sourceModel()->rowCount());
    }
};

} // namespace

class TesteClientDataSet : public QObject, private TComBancos
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void NovoEstaFechado();
    void AndaDaPrimeiraAteAUltima_data() { CadaBanco(); }
    void AndaDaPrimeiraAteAUltima();
    void SemLinhasEstaNoFim_data() { CadaBanco(); }
    void SemLinhasEstaNoFim();
    void NuloLeComoZeroEVazio_data() { CadaBanco(); }
    void NuloLeComoZeroEVazio();
    void ColunasEmQualquerCaixa_data() { CadaBanco(); }
    void ColunasEmQualquerCaixa();
    void ColunaQueFaltaDizAsQueHa_data() { CadaBanco(); }
    void ColunaQueFaltaDizAsQueHa();
    void ConsultaSoParaFrente_data() { CadaBanco(); }
    void ConsultaSoParaFrente();
    void ConsultaQueVoltaEJaAndou_data() { CadaBanco(); }
    void ConsultaQueVoltaEJaAndou();
    void ConsultaApenasPreparada_data() { CadaBanco(); }
    void ConsultaApenasPreparada();
    void ValoresNoLugarDasMarcas_data() { CadaBanco(); }
    void ValoresNoLugarDasMarcas();
    void ConsultaQueFalha_data() { CadaBanco(); }
    void ConsultaQueFalha();
    void ComandoSemLinhas_data() { CadaBanco(); }
    void ComandoSemLinhas();
    void ErroNoMeioDaLeituraDeixaOQueHavia_data() { CadaBanco(); }
    void ErroNoMeioDaLeituraDeixaOQueHavia();
    void TextosComAcentos_data() { CadaBanco(); }
    void TextosComAcentos();
    void ModeloSobreConsulta_data() { CadaBanco(); }
    void ModeloSobreConsulta();
    void CodificacoesDoServidor_data();
    void CodificacoesDoServidor();
    void CodificacoesDoArquivo_data();
    void CodificacoesDoArquivo();
    void Conversoes_data();
    void Conversoes();
    void ConversoesQueFalham_data();
    void ConversoesQueFalham();
    void ConversaoQueFalhaDizOnde();
    void ModeloDeItens();
    void ModeloQueBuscaAosPoucos();
    void ModeloQuePrometeSempre();
    void ModeloAbaixoDeUmItem();
    void OModeloPodeMudarDepois();
    void EnderecoQueFalta_data();
    void EnderecoQueFalta();
    void ConexaoDoHospedeiro();
    void ServidorQueSaiNoMeioDaLeitura();
    void ServidorQueVoltaENotadoSozinho();

private:
    QTemporaryDir FPasta;
};

void TesteClientDataSet::initTestCase()
{
    const QString Arquivo = FPasta.filePath(QStringLiteral("teste.sqlite"));
    EscreverBytes(Arquivo, {});
    QCOMPARE(SubirBancos(Arquivo), QString());
    for (TCustomConnection *C : {FArquivo.get(), FNoServidor.get()})
        RodarSQL(*C,
                 QStringLiteral("CREATE TABLE letras (Ordem INTEGER, Nome TEXT, Valor DOUBLE PRECISION);\n"
                                "INSERT INTO letras VALUES (1, 'a', 0.5), (2, 'b', 1.5), (3, NULL, NULL), "
                                "(4, 'ação', -2)"));
}

void TesteClientDataSet::cleanupTestCase()
{
    DescerBancos();
}

void TesteClientDataSet::NovoEstaFechado()
{
    TClientDataSet Dados;
    QVERIFY(!Dados.Active());
    ErroDe<EDatabaseError>([&] { Dados.First(); });
    ErroDe<EDatabaseError>([&] { Dados.Next(); });
    ErroDe<EDatabaseError>([&] { (void)Dados.Eof(); });
    ErroDe<EDatabaseError>([&] { (void)Dados.RecordCount(); });
    ErroDe<EDatabaseError>([&] { (void)Dados.FieldByName(u"Nome"); });
    Dados.Open(*FArquivo, QStringLiteral("SELECT * FROM letras"));
    QVERIFY(Dados.Active());
    Dados.Close();
    QVERIFY(!Dados.Active());
    const auto Erro = ErroDe<EDatabaseError>([&] { Dados.First(); });
    QCOMPARE(Erro.Message, QStringLiteral("O conjunto de dados está fechado!"));
}

void TesteClientDataSet::AndaDaPrimeiraAteAUltima()
{
    TClientDataSet Dados;
    Dados.Open(Conexao(), QStringLiteral("SELECT Ordem, Nome FROM letras ORDER BY Ordem"));
    QCOMPARE(Dados.RecordCount(), 4);
    QCOMPARE(Dados.FieldCount(), 2);
    QCOMPARE(Dados.RecNo(), 1); // opened on the first row
    const TField &Ordem = Dados.FieldByName(u"Ordem");
    for (int Linha = 1; Linha <= 4; ++Linha) {
        QVERIFY(!Dados.Eof());
        QCOMPARE(Dados.RecNo(), Linha);
        QCOMPARE(Ordem.AsInteger(), Linha);
        Dados.Next();
    }
    QVERIFY(Dados.Eof());
    QCOMPARE(Ordem.AsInteger(), 4); // the last row stays current
    Dados.Next();
    QVERIFY(Dados.Eof());
    QCOMPARE(Dados.RecNo(), 4);
    Dados.First();
    QVERIFY(!Dados.Eof());
    QCOMPARE(Ordem.AsInteger(), 1);
}

void TesteClientDataSet::SemLinhasEstaNoFim()
{
    TClientDataSet Dados;
    Dados.Open(Conexao(), QStringLiteral("SELECT * FROM letras WHERE Ordem > 100"));
    QVERIFY(Dados.Active());
    QVERIFY(Dados.Eof());
    QCOMPARE(Dados.RecordCount(), 0);
    QCOMPARE(Dados.RecNo(), 0);
    QCOMPARE(Dados.FieldCount(), 3);
    Dados.Next();
    Dados.First();
    QVERIFY(Dados.Eof());
    QVERIFY(Dados.FieldByName(u"Nome").IsNull());
    QCOMPARE(Dados.FieldByName(u"Nome").AsString(), QString());
    QCOMPARE(Dados.FieldByName(u"Ordem").AsInteger(), 0);
}

void TesteClientDataSet::NuloLeComoZeroEVazio()
{
    TClientDataSet Dados;
    Dados.Open(Conexao(), QStringLiteral("SELECT * FROM letras WHERE Ordem = 3"));
    for (const char16_t *Nome : {u"Nome", u"Valor"}) {
        const TField &Campo = Dados.FieldByName(Nome);
        QVERIFY(Campo.IsNull());
        QCOMPARE(Campo.AsInteger(), 0);
        QCOMPARE(Campo.AsFloat(), 0.0);
        QCOMPARE(Campo.AsString(), QString());
    }
    QVERIFY(!Dados.FieldByName(u"Ordem").IsNull());
}

void TesteClientDataSet::ColunasEmQualquerCaixa()
{
    TClientDataSet Dados;
    Dados.Open(Conexao(), QStringLiteral("SELECT Ordem AS \"Posição\", Nome FROM letras ORDER BY 1"));
    QCOMPARE(Dados.FieldByName(u"POSIÇÃO").AsInteger(), 1);
    QCOMPARE(Dados.FieldByName(u"posição").AsInteger(), 1);
    QCOMPARE(Dados.FieldByName(u"nOmE").AsString(), QStringLiteral("a"));
    QCOMPARE(Dados.FindField(u"posicao"), nullptr);
    // Of two columns that differ in nothing else, the first.
    Dados.Open(Conexao(), QStringLiteral("SELECT 1 AS \"X\", 2 AS \"x\""));
    QCOMPARE(Dados.FieldByName(u"x").AsInteger(), 1);
    QCOMPARE(Dados.Field(1).AsInteger(), 2);
}

void TesteClientDataSet::ColunaQueFaltaDizAsQueHa()
{
    TClientDataSet Dados;
    Dados.Open(Conexao(), QStringLiteral("SELECT 1 AS \"Um\", 2 AS \"Dois\""));
    const auto Erro = ErroDe<EDatabaseError>([&] { (void)Dados.FieldByName(u"Três"); });
    QCOMPARE(Erro.Message, QStringLiteral("A coluna <Três> não existe!"));
    QCOMPARE(Erro.Detalhe, QStringLiteral("Colunas: Um, Dois."));
    ErroDe<EListError>([&] { (void)Dados.Field(2); });
    ErroDe<EListError>([&] { (void)Dados.Field(-1); });
}

void TesteClientDataSet::ConsultaSoParaFrente()
{
    Conexao().Open();
    QSqlQuery Consulta(Conexao().Banco());
    Consulta.setForwardOnly(true);
    QVERIFY(Consulta.exec(QStringLiteral("SELECT Nome FROM letras ORDER BY Ordem")));
    QVERIFY(Consulta.next());
    TClientDataSet Dados;
    Dados.Open(Consulta);
    QCOMPARE(Valores(Dados, "nome"), QStringList({QStringLiteral("b"), QString(), QStringLiteral("ação")}));
    QCOMPARE(Valores(Dados, "nome").size(), 3); // read again from memory
}

void TesteClientDataSet::ConsultaQueVoltaEJaAndou()
{
    Conexao().Open();
    QSqlQuery Consulta(Conexao().Banco());
    QVERIFY(Consulta.exec(QStringLiteral("SELECT Ordem FROM letras ORDER BY Ordem")));
    QVERIFY(Consulta.last());
    TClientDataSet Dados;
    Dados.Open(Consulta);
    QCOMPARE(Valores(Dados, "ordem").join(u' '), QStringLiteral("1 2 3 4"));
}

void TesteClientDataSet::ConsultaApenasPreparada()
{
    Conexao().Open();
    QSqlQuery Consulta(Conexao().Banco());
    QVERIFY(Consulta.prepare(QStringLiteral("SELECT Nome FROM letras WHERE Ordem = :o")));
    Consulta.bindValue(QStringLiteral(":o"), 2);
    TClientDataSet Dados;
    Dados.Open(Consulta);
    QCOMPARE(Valores(Dados, "nome"), QStringList(QStringLiteral("b")));
}

void TesteClientDataSet::ValoresNoLugarDasMarcas()
{
    TClientDataSet Dados;
    Dados.Open(Conexao(), QStringLiteral("SELECT Ordem FROM letras WHERE Nome = ?"),
               {QStringLiteral("ação")});
    QCOMPARE(Dados.RecordCount(), 1);
    QCOMPARE(Dados.FieldByName(u"Ordem").AsInteger(), 4);
}

void TesteClientDataSet::ConsultaQueFalha()
{
    TClientDataSet Dados;
    Dados.Open(Conexao(), QStringLiteral("SELECT 7 AS n"));
    const auto Erro =
        ErroDe<EDatabaseError>([&] { Dados.Open(Conexao(), QStringLiteral("SELECT * FROM nao_existe")); });
    QCOMPARE(Erro.Message, QStringLiteral("Não foi possível consultar o banco de dados!"));
    QVERIFY2(Erro.Detalhe.contains(QStringLiteral("nao_existe")), qPrintable(Erro.Detalhe));
    QCOMPARE(Dados.FieldByName(u"n").AsInteger(), 7); // as it was
    QSqlQuery Vazia(Conexao().Banco());
    ErroDe<EDatabaseError>([&] { Dados.Open(Vazia); });
}

void TesteClientDataSet::ComandoSemLinhas()
{
    TClientDataSet Dados;
    const auto Erro = ErroDe<EDatabaseError>(
        [&] { Dados.Open(Conexao(), QStringLiteral("CREATE TEMPORARY TABLE nada (n INTEGER)")); });
    QCOMPARE(Erro.Message, QStringLiteral("A consulta não devolve linhas!"));
    QVERIFY(!Dados.Active());
}

void TesteClientDataSet::ErroNoMeioDaLeituraDeixaOQueHavia()
{
    QFETCH(bool, DoServidor);
    TClientDataSet Dados;
    Dados.Open(Conexao(), QStringLiteral("SELECT Nome FROM letras ORDER BY Ordem"));
    Dados.Next();
    // Rows come, then one that cannot be computed.
    const QString SQL =
        DoServidor ? QStringLiteral("SELECT 1 / (500 - n) FROM generate_series(1, 1000) AS t(n)")
                   : QStringLiteral("WITH RECURSIVE t(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM t LIMIT "
                                    "1000) SELECT abs(CASE WHEN n = 500 THEN -9223372036854775807 - 1 "
                                    "ELSE n END) FROM t");
    const auto Erro = ErroDe<EDatabaseError>([&] { Dados.Open(Conexao(), SQL); });
    QCOMPARE(Erro.Message, QStringLiteral("A leitura do banco de dados falhou!"));
    QVERIFY2(Erro.Detalhe.contains(DoServidor ? QStringLiteral("division by zero")
                                              : QStringLiteral("integer overflow")),
             qPrintable(Erro.Detalhe));
    QCOMPARE(Dados.RecNo(), 2);
    QCOMPARE(Dados.FieldByName(u"nome").AsString(), QStringLiteral("b"));
    Dados.Open(Conexao(), QStringLiteral("SELECT 1 AS n")); // the connection goes on
    QCOMPARE(Dados.FieldByName(u"n").AsInteger(), 1);
}

void TesteClientDataSet::TextosComAcentos()
{
    TClientDataSet Dados;
    const QString Texto = QStringLiteral(u"Força-Tarefa “Águia” € Ω 🛰");
    Dados.Open(Conexao(), QStringLiteral("SELECT '%1' AS t").arg(Texto));
    QCOMPARE(Dados.FieldByName(u"t").AsString(), Texto);
}

void TesteClientDataSet::ModeloSobreConsulta()
{
    Conexao().Open();
    QSqlTableModel Modelo(nullptr, Conexao().Banco());
    Modelo.setTable(QStringLiteral("letras"));
    Modelo.setSort(0, Qt::DescendingOrder);
    QVERIFY(Modelo.select());
    TClientDataSet Dados;
    Dados.Open(Modelo);
    QCOMPARE(Valores(Dados, "ORDEM").join(u' '), QStringLiteral("4 3 2 1"));
    Modelo.setTable(QStringLiteral("nao_existe"));
    Modelo.select();
    ErroDe<EDatabaseError>([&] { Dados.Open(Modelo); });
    QCOMPARE(Dados.RecordCount(), 4);
}

void TesteClientDataSet::CodificacoesDoServidor_data()
{
    QTest::addColumn<QString>("Codificacao");
    QTest::newRow("utf-8") << "UTF8";
    QTest::newRow("latin-1") << "LATIN1";
    QTest::newRow("windows-1252") << "WIN1252";
}

void TesteClientDataSet::CodificacoesDoServidor()
{
    QFETCH(QString, Codificacao);
    FServidor->CriarBanco(QStringLiteral("em_") + Codificacao.toLower(), Codificacao);
    TCustomConnection C(FServidor->Endereco(QStringLiteral("em_") + Codificacao.toLower()));
    C.Open();
    QSqlQuery Consulta(C.Banco());
    QVERIFY(Consulta.exec(QStringLiteral("CREATE TABLE \"Posições\" (\"Posição\" TEXT)")));
    QVERIFY(Consulta.exec(QStringLiteral("INSERT INTO \"Posições\" VALUES ('à direita do açude')")));
    TClientDataSet Dados;
    Dados.Open(C, QStringLiteral("SELECT * FROM \"Posições\""));
    QCOMPARE(Dados.FieldByName(u"POSIÇÃO").AsString(), QStringLiteral("à direita do açude"));
}

void TesteClientDataSet::CodificacoesDoArquivo_data()
{
    QTest::addColumn<QString>("Codificacao");
    for (const char *Nome : {"UTF-8", "UTF-16le", "UTF-16be"})
        QTest::newRow(Nome) << QString::fromLatin1(Nome);
}

void TesteClientDataSet::CodificacoesDoArquivo()
{
    QFETCH(QString, Codificacao);
    TCustomConnection C(QStringLiteral(":memory:"));
    C.Open();
    QSqlQuery Consulta(C.Banco());
    QVERIFY(Consulta.exec(QStringLiteral("PRAGMA encoding = '%1'").arg(Codificacao)));
    QVERIFY(Consulta.exec(QStringLiteral("CREATE TABLE t (a TEXT, b BLOB, c BLOB)")));
    // Bytes of another program: a text in code page 1252 and one in UTF-8.
    QVERIFY(Consulta.exec(
        QStringLiteral("INSERT INTO t VALUES ('açude', x'61E775646580', x'61C3A775646520E282AC')")));
    TClientDataSet Dados;
    Dados.Open(C, QStringLiteral("SELECT * FROM t"));
    QCOMPARE(Dados.FieldByName(u"a").AsString(), QStringLiteral("açude"));
    QCOMPARE(Dados.FieldByName(u"b").AsString(), QStringLiteral(u"açude€"));
    QCOMPARE(Dados.FieldByName(u"c").AsString(), QStringLiteral(u"açude €"));
}

void TesteClientDataSet::Conversoes_data()
{
    QTest::addColumn<QVariant>("Valor");
    QTest::addColumn<int>("Inteiro");
    QTest::addColumn<double>("Real");
    QTest::addColumn<QString>("Texto");
    QTest::newRow("inteiro") << QVariant(321) << 321 << 321.0 << "321";
    QTest::newRow("inteiro largo") << QVariant(qlonglong(-7)) << -7 << -7.0 << "-7";
    QTest::newRow("meio para o par, abaixo") << QVariant(2.5) << 2 << 2.5 << "2.5";
    QTest::newRow("meio para o par, acima") << QVariant(3.5) << 4 << 3.5 << "3.5";
    QTest::newRow("texto de inteiro") << QVariant(QStringLiteral(" 65")) << 65 << 65.0 << " 65";
    QTest::newRow("logico") << QVariant(true) << 1 << 1.0 << "true";
    QTest::newRow("bytes") << QVariant(QByteArray("12")) << 12 << 12.0 << "12";
    QTest::newRow("menor inteiro") << QVariant(qlonglong(INT_MIN)) << INT_MIN << double(INT_MIN)
                                   << "-2147483648";
    QTest::newRow("nulo") << QVariant() << 0 << 0.0 << "";
}

void TesteClientDataSet::Conversoes()
{
    QFETCH(QVariant, Valor);
    QStandardItemModel Modelo;
    PreencherModelo(Modelo, {QStringLiteral("v")}, {{Valor}});
    TClientDataSet Dados;
    Dados.Open(Modelo);
    QTEST(Dados.Field(0).AsInteger(), "Inteiro");
    QTEST(Dados.Field(0).AsFloat(), "Real");
    QTEST(Dados.Field(0).AsString(), "Texto");
}

void TesteClientDataSet::ConversoesQueFalham_data()
{
    QTest::addColumn<QVariant>("Valor");
    QTest::addColumn<bool>("SoInteiro"); // as a real it reads
    QTest::newRow("palavra") << QVariant(QStringLiteral("abc")) << false;
    QTest::newRow("texto vazio") << QVariant(QStringLiteral("")) << false;
    QTest::newRow("texto de real") << QVariant(QStringLiteral("0,75")) << true;
    QTest::newRow("inteiro acima") << QVariant(qlonglong(INT_MAX) + 1) << true;
    QTest::newRow("inteiro abaixo") << QVariant(qlonglong(INT_MIN) - 1) << true;
    QTest::newRow("real acima") << QVariant(1e10) << true;
    QTest::newRow("infinito") << QVariant(qInf()) << true;
    QTest::newRow("nenhum numero") << QVariant(qQNaN()) << true;
}

void TesteClientDataSet::ConversoesQueFalham()
{
    QFETCH(QVariant, Valor);
    QFETCH(bool, SoInteiro);
    QStandardItemModel Modelo;
    PreencherModelo(Modelo, {QStringLiteral("v")}, {{Valor}});
    TClientDataSet Dados;
    Dados.Open(Modelo);
    ErroDe<EConvertError>([&] { (void)Dados.Field(0).AsInteger(); });
    if (SoInteiro)
        (void)Dados.Field(0).AsFloat();
    else
        ErroDe<EConvertError>([&] { (void)Dados.Field(0).AsFloat(); });
}

void TesteClientDataSet::ConversaoQueFalhaDizOnde()
{
    QStandardItemModel Modelo;
    PreencherModelo(Modelo, {QStringLiteral("a"), QStringLiteral("Cota")},
                    {{1, 1}, {2, QStringLiteral("alta")}});
    TClientDataSet Dados;
    Dados.Open(Modelo);
    Dados.Next();
    const auto Erro = ErroDe<EConvertError>([&] { (void)Dados.FieldByName(u"COTA").AsInteger(); });
    QVERIFY(Erro.Message.contains(QStringLiteral("alta")));
    QCOMPARE(Erro.Detalhe, QStringLiteral("Coluna <Cota>, linha 2."));
}

void TesteClientDataSet::ModeloDeItens()
{
    QStandardItemModel Modelo;
    PreencherModelo(Modelo, {QStringLiteral("Nome"), QStringLiteral("N")},
                    {{QStringLiteral("x"), 1}, {QStringLiteral("y"), 2}});
    TClientDataSet Dados;
    Dados.Open(Modelo);
    QCOMPARE(Valores(Dados, "nome"), QStringList({QStringLiteral("x"), QStringLiteral("y")}));
    QStandardItemModel Vazio;
    Dados.Open(Vazio);
    QVERIFY(Dados.Active() && Dados.Eof());
    QCOMPARE(Dados.FieldCount(), 0);
}

void TesteClientDataSet::ModeloQueBuscaAosPoucos()
{
    QStandardItemModel Base(35, 1);
    TModeloAosPoucos Modelo;
    Modelo.setSourceModel(&Base);
    TClientDataSet Dados;
    Dados.Open(Modelo);
    QCOMPARE(Dados.RecordCount(), 35);
}

void TesteClientDataSet::ModeloQuePrometeSempre()
{
    QStandardItemModel Base(15, 1);
    TModeloAosPoucos Modelo;
    Modelo.setSourceModel(&Base);
    Modelo.PrometeSempre = true;
    TClientDataSet Dados;
    Dados.Open(Modelo);
    QCOMPARE(Dados.RecordCount(), 15);
}

void TesteClientDataSet::ModeloAbaixoDeUmItem()
{
    QStandardItemModel Modelo;
    PreencherModelo(Modelo, {QStringLiteral("n")}, {{1}, {2}});
    for (const int Filho : {10, 20, 30}) {
        auto *Item = new QStandardItem;
        Item->setData(Filho, Qt::EditRole);
        Modelo.item(1)->appendRow(Item);
    }
    TClientDataSet Dados;
    Dados.Open(Modelo, Modelo.index(1, 0));
    QCOMPARE(Valores(Dados, "n").join(u' '), QStringLiteral("10 20 30"));
}

void TesteClientDataSet::OModeloPodeMudarDepois()
{
    TClientDataSet Dados;
    {
        QStandardItemModel Modelo;
        PreencherModelo(Modelo, {QStringLiteral("n")}, {{1}, {2}});
        Dados.Open(Modelo);
        Modelo.removeRow(0);
    }
    QCOMPARE(Valores(Dados, "n").join(u' '), QStringLiteral("1 2"));
}

void TesteClientDataSet::EnderecoQueFalta_data()
{
    QTest::addColumn<QString>("Endereco");
    QTest::addColumn<QString>("Mensagem");
    QTest::newRow("nenhum") << ""
                            << "A conexão não tem endereço!";
    QTest::newRow("arquivo") << FPasta.filePath(QStringLiteral("outro.sqlite"))
                             << "O arquivo de banco de dados <" +
                                    FPasta.filePath(QStringLiteral("outro.sqlite")) + "> não existe!";
    QTest::newRow("servidor") << "postgresql:///x?host=" + FPasta.path()
                              << "Não foi possível conectar ao banco de dados!";
    QTest::newRow("banco no servidor") << FServidor->Endereco(QStringLiteral("nao_existe"))
                                       << "Não foi possível conectar ao banco de dados!";
}

void TesteClientDataSet::EnderecoQueFalta()
{
    QFETCH(QString, Endereco);
    TCustomConnection C(Endereco);
    const auto Erro = ErroDe<EDatabaseError>([&] { C.Open(); });
    QTEST(Erro.Message, "Mensagem");
    QVERIFY(!C.Connected());
    QVERIFY(!QFile::exists(FPasta.filePath(QStringLiteral("outro.sqlite"))));
    if (Endereco.startsWith(u"postgresql"))
        QVERIFY(!Erro.Detalhe.isEmpty());
}

void TesteClientDataSet::ConexaoDoHospedeiro()
{
    const QString Nome = QStringLiteral("do hospedeiro");
    {
        QSqlDatabase Banco = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), Nome);
        Banco.setDatabaseName(QStringLiteral(":memory:"));
        TClientDataSet Dados;
        {
            TCustomConnection C(Banco);
            QVERIFY(!C.Connected());
            Dados.Open(C, QStringLiteral("SELECT 5 AS n")); // opened when needed
            QVERIFY(C.Connected());
        }
        QVERIFY(Banco.isOpen()); // and left as it is
        QCOMPARE(Dados.FieldByName(u"n").AsInteger(), 5);
    }
    QVERIFY(QSqlDatabase::contains(Nome));
    QSqlDatabase::removeDatabase(Nome);
}

void TesteClientDataSet::ServidorQueSaiNoMeioDaLeitura()
{
    TClientDataSet Dados;
    TCustomConnection C(FServidor->Endereco());
    Dados.Open(C, QStringLiteral("SELECT 7 AS n"));
    // Rows come, then the session that sends them is ended.
    const auto Erro = ErroDe<EDatabaseError>([&] {
        Dados.Open(C, QStringLiteral(
                          "SELECT n, CASE WHEN n = 5000 THEN pg_terminate_backend(pg_backend_pid())::text "
                          "ELSE repeat('x', 100) END FROM generate_series(1, 100000) AS t(n)"));
    });
    QVERIFY2(!Erro.Detalhe.isEmpty(), qPrintable(Erro.Message));
    QCOMPARE(Dados.FieldByName(u"n").AsInteger(), 7); // as it was
    Dados.Open(C, QStringLiteral("SELECT 8 AS n"));   // and the next use finds it again
    QCOMPARE(Dados.FieldByName(u"n").AsInteger(), 8);
}

void TesteClientDataSet::ServidorQueVoltaENotadoSozinho()
{
    TClientDataSet Dados;
    TCustomConnection C(FServidor->Endereco());
    Dados.Open(C, QStringLiteral("SELECT 7 AS n"));
    FServidor->Derrubar();
    const auto Erro = ErroDe<EDatabaseError>([&] { Dados.Open(C, QStringLiteral("SELECT 8 AS n")); });
    QVERIFY2(!Erro.Detalhe.isEmpty(), qPrintable(Erro.Message));
    QVERIFY(!C.Connected());
    QCOMPARE(Dados.FieldByName(u"n").AsInteger(), 7);
    FServidor->Subir();
    Dados.Open(C, QStringLiteral("SELECT 8 AS n"));
    QCOMPARE(Dados.FieldByName(u"n").AsInteger(), 8);
    // Restarted behind the back of an open connection: no error at all.
    FServidor->Derrubar();
    FServidor->Subir();
    QVERIFY(C.Connected());
    Dados.Open(C, QStringLiteral("SELECT 9 AS n"));
    QCOMPARE(Dados.FieldByName(u"n").AsInteger(), 9);
}

QTEST_GUILESS_MAIN(TesteClientDataSet)
#include "TesteClientDataSet.moc"
