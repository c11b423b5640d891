// SPDX-License-Identifier: LGPL-2.1-or-later
#include "ComumArvore.h"
#include "ComumTabelas.h"
#include "arvore/ParseTableXMLMapeada.h"
#include "arvore/TreeViewXMLBD.h"
#include "comum/Bancos.h"
#include "comum/Dados.h"
#include "plataforma/ClientDataSet.h"
#include "plataforma/Exception.h"

#include <QAbstractItemModelTester>
#include <QGuiApplication>

#include <memory>

using namespace Sibrel;
using namespace Sibrel::Testes;

namespace
{

// A view that says that it goes on when an element fails.
class TVista : public TTreeViewXMLBD
{
public:
    TVista() { ElementoRaiz = QStringLiteral("R"); }

protected:
    bool DesejaContinuar(const TFalhaDeAtualizacao &) override { return true; }
};

QString ValorNo(const TTreeNode *No, const char *Rotulo)
{
    const auto *NoXML = dynamic_cast<const TTreeNodeXML *>(No);
    return NoXML != nullptr ? NoXML->Informacao().Values(QString::fromUtf8(Rotulo)) : QString();
}

} // namespace

class TesteTreeViewXMLBD : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void cleanup();
    void NovaComecaSemTabelas();
    void SemTabelasAArvoreFicaVazia();
    void ExecutarTrocaTodosOsNos();
    void OEComercialChegaComoFoiEscrito();
    void AConexaoVaiATodasAsTabelas();
    void AConexaoQueMorreFicaNula();
    void TrocarALista();
    void AVistaDestroiSoAListaQueTem();
    void AmpulhetaEnquantoExecuta();
    void DepoisDeUmErroFicaAAmpulhetaEOsNos();
    void TextoQueNaoEDocumento();
    void ABaseDeExemplo_data();
    void ABaseDeExemplo();
    void OServidorSaiEVolta();

private:
    std::unique_ptr<TServidorPostgres> FServidor;
    std::unique_ptr<TTagsRegistradas> FTags;
};

void TesteTreeViewXMLBD::initTestCase()
{
    const TRefNoXML Classe = TRefNoXML::De<TTreeNodeXML>();
    FTags = std::make_unique<TTagsRegistradas>(
        std::initializer_list<std::pair<const char *, TRefNoXML>>{{"U", Classe},
                                                                  {"Brigada", Classe},
                                                                  {"Divisao", Classe},
                                                                  {"Batalhao", Classe},
                                                                  {"Companhia", Classe},
                                                                  {"Pelotao", Classe},
                                                                  {"Posto", Classe},
                                                                  {"Agrupamento", Classe}});
    try {
        FServidor = std::make_unique<TServidorPostgres>();
        CriarExercicio(*FServidor, QStringLiteral("LATIN1"));
    } catch (const std::exception &E) {
        QFAIL(E.what());
    }
}

void TesteTreeViewXMLBD::cleanupTestCase()
{
    FServidor.reset();
    FTags.reset();
}

void TesteTreeViewXMLBD::cleanup()
{
    QVERIFY(EsperarAtualizacoes());
    while (QGuiApplication::overrideCursor() != nullptr)
        QGuiApplication::restoreOverrideCursor();
}

void TesteTreeViewXMLBD::NovaComecaSemTabelas()
{
    const TTreeViewXMLBD Arvore;
    QCOMPARE(Arvore.DataBase(), nullptr);
    QCOMPARE(Arvore.Parses().Count(), 0);
    QCOMPARE(Arvore.Parses().DataBase(), nullptr);
}

void TesteTreeViewXMLBD::SemTabelasAArvoreFicaVazia()
{
    TVista Arvore;
    Arvore.Parses().Add(
        std::make_unique<TLinhasFixas>(QStringList{U(QStringLiteral("a"), QStringLiteral("1"))}));
    Arvore.Executar();
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Texto(Arvore.Items()), QStringLiteral("a"));
    Arvore.Parses().Clear();
    Arvore.Executar(); // a document of the root alone is a document
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Texto(Arvore.Items()), QString());
}

void TesteTreeViewXMLBD::ExecutarTrocaTodosOsNos()
{
    TVista Arvore;
    const QAbstractItemModelTester Verificador(Arvore.model(),
                                               QAbstractItemModelTester::FailureReportingMode::QtTest);
    Arvore.Parses().Add(
        std::make_unique<TLinhasFixas>(QStringList{U(QStringLiteral("a"), QStringLiteral("1"))}));
    Arvore.Parses().Add(std::make_unique<TLinhasFixas>(QStringList{
        U(QStringLiteral("b"), QStringLiteral("2"), U(QStringLiteral("c"), QStringLiteral("3")))}));
    Arvore.Executar();
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Texto(Arvore.Items()), QStringLiteral("a b(c)"));
    QCOMPARE(Mostrado(*Arvore.model()), QStringLiteral("a b(c)"));
    Arvore.Parses().Delete(0);
    Arvore.Executar();
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Mostrado(*Arvore.model()), QStringLiteral("b(c)"));
}

void TesteTreeViewXMLBD::OEComercialChegaComoFoiEscrito()
{
    TVista Arvore;
    Arvore.Parses().Add(std::make_unique<TLinhasFixas>(QStringList{
        U(QStringLiteral("A&B"), QStringLiteral("1")), U(QStringLiteral("A&amp;B"), QStringLiteral("2"))}));
    Arvore.Executar();
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Texto(Arvore.Items()), QStringLiteral("A&B A&amp;B"));
}

void TesteTreeViewXMLBD::AConexaoVaiATodasAsTabelas()
{
    TCustomConnection C;
    TTreeViewXMLBD Arvore;
    Arvore.Parses().Add(std::make_unique<TLinhasFixas>());
    QVERIFY(Arvore.Parses()[0]->DataBase.isNull());
    Arvore.AtribuirDataBase(&C);
    QCOMPARE(Arvore.DataBase(), &C);
    QCOMPARE(Arvore.Parses()[0]->DataBase.data(), &C);
    Arvore.Parses().Add(std::make_unique<TLinhasFixas>());
    QCOMPARE(Arvore.Parses()[1]->DataBase.data(), &C);
    QVERIFY(Arvore.setProperty("DataBase", QVariant::fromValue<TCustomConnection *>(nullptr)));
    QVERIFY(Arvore.Parses()[1]->DataBase.isNull());
}

void TesteTreeViewXMLBD::AConexaoQueMorreFicaNula()
{
    TTreeViewXMLBD Arvore;
    {
        TCustomConnection C;
        Arvore.AtribuirDataBase(&C);
    }
    QCOMPARE(Arvore.DataBase(), nullptr);
}

void TesteTreeViewXMLBD::TrocarALista()
{
    TCustomConnection C;
    TVista Arvore;
    Arvore.AtribuirDataBase(&C);
    auto Nova = std::make_unique<TParseTableXMLList>();
    Nova->Add(std::make_unique<TLinhasFixas>(QStringList{U(QStringLiteral("n"), QStringLiteral("1"))}));
    const TParseTableXMLList *Velha = &Arvore.Parses();
    const auto Devolvida = Arvore.AtribuirParses(std::move(Nova));
    QCOMPARE(Devolvida.get(), Velha);
    QCOMPARE(Devolvida->DataBase(), &C);
    QVERIFY(Arvore.Parses().DataBase() == nullptr); // the new one keeps what it had
    Arvore.Executar();
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Texto(Arvore.Items()), QStringLiteral("n"));
    QVERIFY_THROWS_EXCEPTION(EInvalidOperation, (void)Arvore.AtribuirParses(nullptr));
    QCOMPARE(Arvore.Parses().Count(), 1);
}

void TesteTreeViewXMLBD::AVistaDestroiSoAListaQueTem()
{
    int Mortas = 0;
    std::unique_ptr<TParseTableXMLList> Antiga;
    {
        TTreeViewXMLBD Arvore;
        Arvore.Parses().Add(std::make_unique<TLinhasFixas>(QStringList(), &Mortas));
        auto Nova = std::make_unique<TParseTableXMLList>();
        Nova->Add(std::make_unique<TLinhasFixas>(QStringList(), &Mortas));
        Antiga = Arvore.AtribuirParses(std::move(Nova));
    }
    QCOMPARE(Mortas, 1);
    Antiga.reset();
    QCOMPARE(Mortas, 2);
}

void TesteTreeViewXMLBD::AmpulhetaEnquantoExecuta()
{
    TVista Arvore;
    auto Tabela = std::make_unique<TLinhasFixas>();
    const TLinhasFixas &Vista = *Tabela;
    Arvore.Parses().Add(std::move(Tabela));
    QGuiApplication::setOverrideCursor(Qt::CrossCursor); // one state, not a stack
    Arvore.Executar();
    QCOMPARE(Vista.CursorNaHora, Qt::WaitCursor);
    QCOMPARE(QGuiApplication::overrideCursor(), nullptr);
}

void TesteTreeViewXMLBD::DepoisDeUmErroFicaAAmpulhetaEOsNos()
{
    TVista Arvore;
    Arvore.Parses().Add(
        std::make_unique<TLinhasFixas>(QStringList{U(QStringLiteral("a"), QStringLiteral("1"))}));
    Arvore.Executar();
    QVERIFY(EsperarAtualizacoes());
    Arvore.Parses().Add(std::make_unique<TParseTableXMLMapeada>(DasUnidades(), QStringLiteral("UNIDADES")));
    QVERIFY_THROWS_EXCEPTION(EDatabaseError, Arvore.Executar()); // without a connection
    QVERIFY(QGuiApplication::overrideCursor());
    QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    QCOMPARE(Texto(Arvore.Items()), QStringLiteral("a"));
}

void TesteTreeViewXMLBD::TextoQueNaoEDocumento()
{
    TVista Arvore;
    Arvore.Parses().Add(std::make_unique<TLinhasFixas>(QStringList{QStringLiteral("<aberto>")}));
    try {
        Arvore.Executar();
        QFAIL("devia recusar");
    } catch (const Exception &E) {
        QCOMPARE(E.Message, QStringLiteral("XML em formato inválido!"));
    }
    QVERIFY(QGuiApplication::overrideCursor());
}

void TesteTreeViewXMLBD::ABaseDeExemplo_data()
{
    QTest::addColumn<QString>("Endereco");
    QTest::newRow("sqlite") << DadoDeExemplo(QStringLiteral("exercicio.sqlite"));
    QTest::newRow("postgresql em latin-1") << FServidor->Endereco(QStringLiteral("exercicio"));
}

void TesteTreeViewXMLBD::ABaseDeExemplo()
{
    QFETCH(QString, Endereco);
    TCustomConnection Base(Endereco);
    TVista Arvore;
    Arvore.AtribuirDataBase(&Base);
    Arvore.Parses().Add(std::make_unique<TParseTableXMLMapeada>(
        DasUnidades(), QStringLiteral("SELECT * FROM UNIDADES ORDER BY ID")));
    Arvore.Executar();
    QVERIFY(EsperarAtualizacoes());
    TClientDataSet Dados;
    Dados.Open(Base, QStringLiteral("SELECT COUNT(*) AS n FROM UNIDADES"));
    QCOMPARE(Arvore.Items().Count(), Dados.FieldByName(u"n").AsInteger());
    const TTreeNode *Brigada = Arvore.ObterNo(QStringLiteral("1ª Brigada de Infantaria"));
    QVERIFY(Brigada);
    QCOMPARE(ValorNo(Brigada, "Comandante"), QStringLiteral("Gen Estêvão"));
    QCOMPARE(ValorNo(Brigada, "Codinome"), QStringLiteral("'Águia' & 'Falcão'"));
    const auto *Ligada = dynamic_cast<const TTreeNodeXML *>(
        Arvore.ObterNo(QStringLiteral("Força-Tarefa Norte/1ª Companhia, 11º")));
    QVERIFY(Ligada);
    QVERIFY(Ligada->Link());
}

void TesteTreeViewXMLBD::OServidorSaiEVolta()
{
    TCustomConnection Base(FServidor->Endereco(QStringLiteral("exercicio")));
    TVista Arvore;
    Arvore.AtribuirDataBase(&Base);
    Arvore.Parses().Add(std::make_unique<TParseTableXMLMapeada>(
        DasUnidades(), QStringLiteral("SELECT * FROM UNIDADES ORDER BY ID")));
    Arvore.Executar();
    QVERIFY(EsperarAtualizacoes());
    const int Antes = Arvore.Items().Count();
    QVERIFY(Antes >= 300);
    FServidor->Derrubar();
    try {
        Arvore.Executar();
        QFAIL("devia falhar");
    } catch (const EDatabaseError &E) {
        QVERIFY(!E.Detalhe.isEmpty());
    }
    QCOMPARE(Arvore.Items().Count(), Antes); // no table was read: the tree is as it was
    FServidor->Subir();
    Arvore.Executar();
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Arvore.Items().Count(), Antes);
}

QTEST_MAIN(TesteTreeViewXMLBD)
#include "TesteTreeViewXMLBD.moc"
