// SPDX-License-Identifier: LGPL-2.1-or-later
#include "comum/Bancos.h"
#include "comum/Dados.h"
#include "plataforma/ClientDataSet.h"
#include "plataforma/CustomConnection.h"
#include "plataforma/Exception.h"
#include "simbolos/SimboloComposto.h"
#include "simbolos/SimboloFonte.h"
#include "simbolos/TabelaDeSimbolosBD.h"

#include <QPainter>
#include <QStandardItemModel>
#include <QTest>

#include <climits>
#include <memory>
#include <random>

using namespace Sibrel;
using namespace Sibrel::Testes;

namespace
{

enum TOrigem { DeModelo, DeArquivo, DeServidor };

class TAvisado : public TObserver
{
public:
    int Vezes = 0;
    void Avisado(TSubject &) override { ++Vezes; }
};

// The table as a text: codes of glyphs, a composite's in parentheses.
QString Descrita(const TListaSimbolo &Lista)
{
    QStringList Partes;
    for (const auto &Simbolo : Lista) {
        if (const auto *Glifo = dynamic_cast<const TSimboloFonte *>(Simbolo.get()))
            Partes += QString::number(Glifo->Caracter);
        else
            Partes += u'(' + Descrita(dynamic_cast<const TSimboloComposto &>(*Simbolo).Lista) + u')';
    }
    return Partes.join(u' ');
}

// What the grouping of keys gives, by the rule read row by row; rows are numbered from 1.
QString DescritaPelaRegra(const QStringList &Chaves)
{
    QStringList Partes;
    for (qsizetype I = 0; I < Chaves.size();) {
        QStringList Grupo;
        const QString Chave = Chaves[I];
        for (; I < Chaves.size() && Chaves[I] == Chave; ++I)
            Grupo += QString::number(I + 1);
        Partes += Grupo.size() > 1 ? u'(' + Grupo.join(u' ') + u')' : Grupo.first();
    }
    return Partes.join(u' ');
}

} // namespace

class TesteTabelaDeSimbolosBD : public QObject, private TComBancos
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void Agrupamento_data();
    void Agrupamento();
    void AgrupamentoDeChavesAoAcaso();
    void CamposDoGlifo_data() { CadaOrigem(); }
    void CamposDoGlifo();
    void SoOsOitoBitsBaixos_data();
    void SoOsOitoBitsBaixos();
    void LerUmSimboloNaoMoveOsDados();
    void OsDadosFicamNaUltimaLinha_data() { CadaOrigem(); }
    void OsDadosFicamNaUltimaLinha();
    void SubstituiOsSimbolosEGuardaOsRotulos();
    void NaoAvisaNinguem();
    void SemLinhasFicaVazia_data() { CadaOrigem(); }
    void SemLinhasFicaVazia();
    void ColunaQueFalta_data();
    void ColunaQueFalta();
    void ValorQueNaoENumeroGuardaOsAnteriores_data();
    void ValorQueNaoENumeroGuardaOsAnteriores();
    void NulosLeemComoZeroEVazio_data() { CadaOrigem(); }
    void NulosLeemComoZeroEVazio();
    void DadosFechados();
    void GlifosDaMesmaFonteDividemOQueSeLembra();
    void OServidorSaiNoMeioDaLeitura();
    void DesenhaOQueLeu();
    void ATabelaDeExemplo();
    void OModuloNaoFazNada();

private:
    static void CadaOrigem();
    void Abrir(TClientDataSet &Dados, const QString &Linhas);
    void Abrir(TClientDataSet &Dados, TOrigem Origem, const QString &Linhas);
    void AbrirChaves(TClientDataSet &Dados, TOrigem Origem, const QStringList &Chaves);

    QStandardItemModel FModelo;
};

void TesteTabelaDeSimbolosBD::initTestCase()
{
    CarregarFontes();
    QCOMPARE(SubirBancos(), QString());
}

void TesteTabelaDeSimbolosBD::cleanupTestCase()
{
    DescerBancos();
}

void TesteTabelaDeSimbolosBD::CadaOrigem()
{
    QTest::addColumn<int>("Origem");
    QTest::newRow("modelo") << int(DeModelo);
    QTest::newRow("sqlite") << int(DeArquivo);
    QTest::newRow("postgresql") << int(DeServidor);
}

void TesteTabelaDeSimbolosBD::Abrir(TClientDataSet &Dados, const QString &Linhas)
{
    QFETCH(int, Origem);
    Abrir(Dados, static_cast<TOrigem>(Origem), Linhas);
}

// Opens rows written as the values of an INSERT: (CARACTER, PROPORCAO, FONTE, IDTIPOBJ), ...
void TesteTabelaDeSimbolosBD::Abrir(TClientDataSet &Dados, TOrigem Origem, const QString &Linhas)
{
    TCustomConnection &Onde = Origem == DeServidor ? *FNoServidor : *FArquivo;
    RodarSQL(Onde, QStringLiteral("DROP TABLE IF EXISTS simbolos;\n"
                                  "CREATE TABLE simbolos (ordem INTEGER, CARACTER INTEGER, PROPORCAO REAL, "
                                  "FONTE TEXT, IDTIPOBJ VARCHAR(20))"));
    if (!Linhas.isEmpty())
        RodarSQL(Onde,
                 QStringLiteral("INSERT INTO simbolos SELECT row_number() OVER (), * FROM (VALUES %1) v")
                     .arg(Linhas));
    TClientDataSet DoBanco;
    TClientDataSet &Lidos = Origem == DeModelo ? DoBanco : Dados;
    Lidos.Open(Onde,
               QStringLiteral("SELECT CARACTER, PROPORCAO, FONTE, IDTIPOBJ FROM simbolos ORDER BY ordem"));
    if (Origem != DeModelo)
        return;
    FModelo.clear();
    FModelo.setHorizontalHeaderLabels({QStringLiteral("Caracter"), QStringLiteral("Proporcao"),
                                       QStringLiteral("Fonte"), QStringLiteral("IdTipObj")});
    for (DoBanco.First(); !DoBanco.Eof(); DoBanco.Next()) {
        QList<QStandardItem *> Itens;
        for (int I = 0; I < DoBanco.FieldCount(); ++I) {
            Itens += new QStandardItem;
            Itens.last()->setData(DoBanco.Field(I).AsVariant(), Qt::EditRole);
        }
        FModelo.appendRow(Itens);
    }
    Dados.Open(FModelo);
}

// Rows whose glyph codes are 1, 2, 3... and whose keys are these.
void TesteTabelaDeSimbolosBD::AbrirChaves(TClientDataSet &Dados, TOrigem Origem, const QStringList &Chaves)
{
    QStringList Linhas;
    for (const QString &Chave : Chaves)
        Linhas += QStringLiteral("(%1, 1.0, 'F', '%2')").arg(Linhas.size() + 1).arg(Chave);
    Abrir(Dados, Origem, Linhas.join(u','));
}

void TesteTabelaDeSimbolosBD::Agrupamento_data()
{
    QTest::addColumn<int>("Origem");
    QTest::addColumn<QString>("Chaves");
    QTest::addColumn<QString>("Tabela");
    struct TCaso {
        const char *Nome;
        const char *Chaves;
        const char *Tabela;
    };
    constexpr TCaso Casos[] = {
        {"duas e uma", "A A B", "(1 2) 3"},
        {"iguais que nao se seguem", "A B A", "1 2 3"},
        {"uma so", "A", "1"},
        {"duas iguais e mais nada", "A A", "(1 2)"},
        {"tres iguais", "A A A", "(1 2 3)"},
        {"grupo no fim", "A B B", "1 (2 3)"},
        {"grupo no meio", "A B B C", "1 (2 3) 4"},
        {"dois grupos seguidos", "A A B B", "(1 2) (3 4)"},
        {"a caixa conta", "a A A a", "1 (2 3) 4"},
        {"grupo que volta", "A A B A A", "(1 2) 3 (4 5)"},
    };
    const char *Origens[] = {"modelo", "sqlite", "postgresql"};
    for (int Origem = DeModelo; Origem <= DeServidor; ++Origem)
        for (const TCaso &Caso : Casos)
            QTest::addRow("%s: %s", Origens[Origem], Caso.Nome)
                << Origem << QString::fromLatin1(Caso.Chaves) << QString::fromLatin1(Caso.Tabela);
}

void TesteTabelaDeSimbolosBD::Agrupamento()
{
    QFETCH(int, Origem);
    QFETCH(QString, Chaves);
    TClientDataSet Dados;
    AbrirChaves(Dados, static_cast<TOrigem>(Origem), Chaves.split(u' '));
    TTabelaDeSimbolosBD Tabela;
    Tabela.ImportarBD(Dados);
    QTEST(Descrita(Tabela.Simbolos()), "Tabela");
}

void TesteTabelaDeSimbolosBD::AgrupamentoDeChavesAoAcaso()
{
    std::mt19937 Sorte(7);
    for (int Vez = 0; Vez < 60; ++Vez) {
        QStringList Chaves;
        const auto Quantas = static_cast<int>(1 + Sorte() % 40);
        for (int I = 0; I < Quantas; ++I)
            Chaves += QString(QChar(static_cast<char16_t>(65 + Sorte() % 3)));
        TClientDataSet Dados;
        AbrirChaves(Dados, DeModelo, Chaves);
        TTabelaDeSimbolosBD Tabela;
        Tabela.ImportarBD(Dados);
        QCOMPARE(Descrita(Tabela.Simbolos()), DescritaPelaRegra(Chaves));
    }
}

void TesteTabelaDeSimbolosBD::CamposDoGlifo()
{
    TClientDataSet Dados;
    Abrir(Dados, QStringLiteral("(65, 0.75, 'Símbolos de Exercício', 'X')"));
    const TTabelaDeSimbolosBD Tabela;
    const auto Simbolo = Tabela.LerSimboloBD(Dados);
    const auto *Glifo = dynamic_cast<const TSimboloFonte *>(Simbolo.get());
    QVERIFY(Glifo);
    QCOMPARE(int(Glifo->Caracter), 65);
    QCOMPARE(Glifo->Proporcao, 0.75);
    TFont Esperada; // as in a new symbol but for name and charset
    Esperada.AtribuirName(QStringLiteral("Símbolos de Exercício"));
    QCOMPARE(int(Glifo->Fonte.Charset()), 1);
    QVERIFY(Glifo->Fonte == Esperada);
}

void TesteTabelaDeSimbolosBD::SoOsOitoBitsBaixos_data()
{
    QTest::addColumn<int>("Valor");
    QTest::addColumn<int>("Caracter");
    QTest::newRow("321") << 321 << 65;
    QTest::newRow("256") << 256 << 0;
    QTest::newRow("255") << 255 << 255;
    QTest::newRow("negativo") << -1 << 255;
    QTest::newRow("maior inteiro") << INT_MAX << 255;
}

void TesteTabelaDeSimbolosBD::SoOsOitoBitsBaixos()
{
    QFETCH(int, Valor);
    TClientDataSet Dados;
    Abrir(Dados, DeArquivo, QStringLiteral("(%1, 1, 'F', 'A')").arg(Valor));
    TTabelaDeSimbolosBD Tabela;
    Tabela.ImportarBD(Dados);
    QTEST(int(dynamic_cast<TSimboloFonte &>(*Tabela.Simbolos()[0]).Caracter), "Caracter");
}

void TesteTabelaDeSimbolosBD::LerUmSimboloNaoMoveOsDados()
{
    TClientDataSet Dados;
    AbrirChaves(Dados, DeArquivo, {QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")});
    Dados.Next();
    const TTabelaDeSimbolosBD Tabela;
    const auto Simbolo = Tabela.LerSimboloBD(Dados);
    QCOMPARE(Dados.RecNo(), 2);
    QVERIFY(!Dados.Eof());
    QCOMPARE(int(dynamic_cast<TSimboloFonte &>(*Simbolo).Caracter), 2);
    QVERIFY(Tabela.Simbolos().Vazia());
}

void TesteTabelaDeSimbolosBD::OsDadosFicamNaUltimaLinha()
{
    TClientDataSet Dados;
    Abrir(Dados, QStringLiteral("(1, 1.0, 'F', 'A'), (2, 1.0, 'F', 'A'), (3, 1.0, 'F', 'B')"));
    Dados.Next();
    TTabelaDeSimbolosBD Tabela;
    Tabela.ImportarBD(Dados); // from the first row, wherever the dataset stood
    QCOMPARE(Descrita(Tabela.Simbolos()), QStringLiteral("(1 2) 3"));
    QCOMPARE(Dados.RecNo(), 3);
    QVERIFY(Dados.Eof());
    Tabela.ImportarBD(Dados);
    QCOMPARE(Descrita(Tabela.Simbolos()), QStringLiteral("(1 2) 3"));
}

void TesteTabelaDeSimbolosBD::SubstituiOsSimbolosEGuardaOsRotulos()
{
    TTabelaDeSimbolosBD Tabela;
    Tabela.Simbolos().Add(std::make_unique<TSimboloComposto>());
    Tabela.ObterRotulos().Add(QStringLiteral("um"));
    Tabela.ObterRotulos().Add(QStringLiteral("dois"));
    TClientDataSet Dados;
    AbrirChaves(Dados, DeArquivo, {QStringLiteral("A")});
    Tabela.ImportarBD(Dados);
    QCOMPARE(Descrita(Tabela.Simbolos()), QStringLiteral("1"));
    QCOMPARE(Tabela.ListaDeRotulos(), QStringList({QStringLiteral("um"), QStringLiteral("dois")}));
}

void TesteTabelaDeSimbolosBD::NaoAvisaNinguem()
{
    TTabelaDeSimbolosBD Tabela;
    TAvisado Observador;
    Tabela.InscreverObserver(Observador);
    TClientDataSet Dados;
    AbrirChaves(Dados, DeArquivo, {QStringLiteral("A"), QStringLiteral("A")});
    Tabela.ImportarBD(Dados);
    QCOMPARE(Observador.Vezes, 0);
    Tabela.Simbolos().DoChange();
    QCOMPARE(Observador.Vezes, 1); // it was listening
}

void TesteTabelaDeSimbolosBD::SemLinhasFicaVazia()
{
    TTabelaDeSimbolosBD Tabela;
    Tabela.Simbolos().Add(std::make_unique<TSimboloFonte>());
    TClientDataSet Dados;
    Abrir(Dados, QString());
    Tabela.ImportarBD(Dados);
    QVERIFY(Tabela.Simbolos().Vazia());
    QVERIFY(Dados.Eof());
    // A set without rows may lack the columns too.
    Dados.Open(*FArquivo, QStringLiteral("SELECT 1 AS outra WHERE 1 = 2"));
    Tabela.ImportarBD(Dados);
    QVERIFY(Tabela.Simbolos().Vazia());
}

void TesteTabelaDeSimbolosBD::ColunaQueFalta_data()
{
    QTest::addColumn<QString>("Coluna");
    for (const char *Coluna : {"CARACTER", "PROPORCAO", "FONTE", "IDTIPOBJ"})
        QTest::newRow(Coluna) << QString::fromLatin1(Coluna);
}

void TesteTabelaDeSimbolosBD::ColunaQueFalta()
{
    QFETCH(QString, Coluna);
    QString SQL = QStringLiteral("SELECT 1 AS CARACTER, 1 AS PROPORCAO, 'F' AS FONTE, 'A' AS IDTIPOBJ");
    SQL.replace(QStringLiteral(" AS ") + Coluna, QStringLiteral(" AS outra"));
    TClientDataSet Dados;
    Dados.Open(*FArquivo, SQL);
    TTabelaDeSimbolosBD Tabela;
    Tabela.Simbolos().Add(std::make_unique<TSimboloFonte>());
    try {
        Tabela.ImportarBD(Dados);
        QFAIL("devia recusar");
    } catch (const EDatabaseError &E) {
        QCOMPARE(E.Message, QStringLiteral("A coluna <%1> não existe!").arg(Coluna));
        QVERIFY(E.Detalhe.contains(QStringLiteral("outra")));
    }
    QVERIFY(Tabela.Simbolos().Vazia()); // cleared before
}

void TesteTabelaDeSimbolosBD::ValorQueNaoENumeroGuardaOsAnteriores_data()
{
    QTest::addColumn<QString>("Linha3");
    QTest::addColumn<QString>("Coluna");
    QTest::newRow("caracter") << "('A', 1, 'F', 'B')"
                              << "CARACTER";
    QTest::newRow("proporcao") << "(3, 'meia', 'F', 'B')"
                               << "PROPORCAO";
    QTest::newRow("caracter grande demais") << "(4294967296, 1, 'F', 'B')"
                                            << "CARACTER";
}

void TesteTabelaDeSimbolosBD::ValorQueNaoENumeroGuardaOsAnteriores()
{
    QFETCH(QString, Linha3);
    QFETCH(QString, Coluna);
    TClientDataSet Dados;
    Abrir(Dados, DeArquivo,
          QStringLiteral("(1, 1, 'F', 'A'), (2, 1, 'F', 'A'), %1, (4, 1, 'F', 'C')").arg(Linha3));
    TTabelaDeSimbolosBD Tabela;
    Tabela.Simbolos().Add(std::make_unique<TSimboloFonte>());
    try {
        Tabela.ImportarBD(Dados);
        QFAIL("devia recusar");
    } catch (const EConvertError &E) {
        QCOMPARE(E.Detalhe, QStringLiteral("Coluna <%1>, linha 3.").arg(Coluna));
    }
    QCOMPARE(Descrita(Tabela.Simbolos()), QStringLiteral("(1 2)"));
    QCOMPARE(Dados.RecNo(), 3);
}

void TesteTabelaDeSimbolosBD::NulosLeemComoZeroEVazio()
{
    TClientDataSet Dados;
    Abrir(Dados, QStringLiteral("(7, 1.0, 'F', NULL), (NULL, NULL, NULL, NULL), (9, 1.0, 'F', 'A')"));
    TTabelaDeSimbolosBD Tabela;
    Tabela.ImportarBD(Dados);
    QCOMPARE(Descrita(Tabela.Simbolos()), QStringLiteral("(7 0) 9")); // two empty keys are equal
    const auto &Grupo = dynamic_cast<TSimboloComposto &>(*Tabela.Simbolos()[0]).Lista;
    const auto &Nulo = dynamic_cast<TSimboloFonte &>(*Grupo[1]);
    QCOMPARE(Nulo.Proporcao, 0.0);
    QCOMPARE(Nulo.Fonte.Name(), QString());
}

void TesteTabelaDeSimbolosBD::DadosFechados()
{
    TTabelaDeSimbolosBD Tabela;
    Tabela.Simbolos().Add(std::make_unique<TSimboloFonte>());
    TClientDataSet Dados;
    QVERIFY_THROWS_EXCEPTION(EDatabaseError, Tabela.ImportarBD(Dados));
    QVERIFY(Tabela.Simbolos().Vazia());
    QVERIFY_THROWS_EXCEPTION(EDatabaseError, (void)Tabela.LerSimboloBD(Dados));
}

void TesteTabelaDeSimbolosBD::GlifosDaMesmaFonteDividemOQueSeLembra()
{
    TClientDataSet Dados;
    AbrirChaves(Dados, DeArquivo, {QStringLiteral("A"), QStringLiteral("B")});
    TTabelaDeSimbolosBD Tabela;
    Tabela.ImportarBD(Dados);
    QCOMPARE(dynamic_cast<TSimboloFonte &>(*Tabela.Simbolos()[0]).Fonte.Selo(),
             dynamic_cast<TSimboloFonte &>(*Tabela.Simbolos()[1]).Fonte.Selo());
}

void TesteTabelaDeSimbolosBD::OServidorSaiNoMeioDaLeitura()
{
    const QString SQL =
        QStringLiteral("SELECT n %% 200 AS caracter, 1 AS proporcao, repeat('F', 200) AS fonte, n AS "
                       "idtipobj FROM generate_series(1, 200000) AS t(n)")
            .replace(QStringLiteral("%%"), QStringLiteral("%"));
    TClientDataSet Dados;
    AbrirChaves(Dados, DeArquivo, {QStringLiteral("A"), QStringLiteral("A")});
    TTabelaDeSimbolosBD Tabela;
    Tabela.ImportarBD(Dados);
    {
        QSqlQuery Consulta = FNoServidor->Consultar(SQL);
        QVERIFY(Consulta.next());
        FServidor->Derrubar(); // rows are still on their way
        try {
            Dados.Open(Consulta);
            QFAIL("devia falhar");
        } catch (const EDatabaseError &E) {
            QCOMPARE(E.Message, QStringLiteral("A leitura do banco de dados falhou!"));
            QVERIFY(!E.Detalhe.isEmpty());
        }
    }
    QCOMPARE(Descrita(Tabela.Simbolos()), QStringLiteral("(1 2)"));
    Tabela.ImportarBD(Dados); // the dataset is as it was before
    QCOMPARE(Descrita(Tabela.Simbolos()), QStringLiteral("(1 2)"));
    FServidor->Subir();
    Dados.Open(*FNoServidor, SQL);
    Tabela.ImportarBD(Dados);
    QCOMPARE(Tabela.Simbolos().Count(), 200000);
}

void TesteTabelaDeSimbolosBD::DesenhaOQueLeu()
{
    TClientDataSet Dados;
    Abrir(Dados, DeArquivo, QStringLiteral("(65, 1.0, '%1', 'A'), (66, 0.5, '%1', 'A')").arg(FamiliaDeTexto));
    TTabelaDeSimbolosBD Tabela;
    Tabela.ImportarBD(Dados);
    const auto Desenho = [&Tabela] {
        QImage Imagem(40, 40, QImage::Format_RGB32);
        Imagem.fill(Qt::white);
        QPainter Pintor(&Imagem);
        Tabela.Desenhar(0, Pintor, Imagem.rect(), Qt::red);
        return Imagem;
    };
    const QImage DosDois = Desenho();
    auto &Partes = dynamic_cast<TSimboloComposto &>(*Tabela.Simbolos()[0]).Lista;
    Partes.Delete(1);
    const QImage DoPrimeiro = Desenho();
    Partes.Clear();
    QVERIFY(DosDois != DoPrimeiro);
    QVERIFY(DoPrimeiro != Desenho());
}

void TesteTabelaDeSimbolosBD::ATabelaDeExemplo()
{
    TCustomConnection Exercicio(DadoDeExemplo(QStringLiteral("exercicio.sqlite")));
    TClientDataSet Dados;
    Dados.Open(Exercicio, QStringLiteral("SELECT * FROM SIMBOLOS ORDER BY ORDEM"));
    TTabelaDeSimbolosBD Tabela;
    Tabela.ImportarBD(Dados);
    QVERIFY(Tabela.Simbolos().Count() > 30);
    bool TemComposto = false;
    for (const auto &Simbolo : Tabela.Simbolos())
        TemComposto = TemComposto || dynamic_cast<const TSimboloComposto *>(Simbolo.get()) != nullptr;
    QVERIFY(TemComposto);
}

void TesteTabelaDeSimbolosBD::OModuloNaoFazNada()
{
    QVERIFY(ModuloTabelaDeSimbolosBD().Iniciado());
    QCOMPARE(ModuloTabelaDeSimbolosBD().Nome(), "TabelaDeSimbolosBD");
}

QTEST_MAIN(TesteTabelaDeSimbolosBD)
#include "TesteTabelaDeSimbolosBD.moc"
