// SPDX-License-Identifier: LGPL-2.1-or-later
#include "ComumTabelas.h"
#include "arvore/DocumentoDeTabelas.h"
#include "arvore/ParseTableXML.h"
#include "arvore/ParseTableXMLMapeada.h"
#include "arvore/TreeViewXMLBD.h"
#include "comum/Bancos.h"
#include "comum/Dados.h"
#include "comum/Erros.h"
#include "plataforma/ClientDataSet.h"
#include "plataforma/Exception.h"
#include "plataforma/XMLDocument.h"

#include <QTest>

#include <functional>
#include <memory>

using namespace Sibrel;
using namespace Sibrel::Testes;

namespace
{

class TQueFalha : public TParseTableXML
{
public:
    void GerarXML(TStrings &) override { throw EDatabaseError(QStringLiteral("tabela sem linhas")); }
};

QString Documento(const TParseTableXMLList &Lista, const QString &Raiz = QStringLiteral("Raiz"))
{
    TStringList Linhas;
    MontarDocumentoDeTabelas(Lista, Raiz, Linhas);
    return Linhas.Text();
}

TMapeamentoXML SoNome()
{
    TMapeamentoXML M;
    M.Tag = QStringLiteral("No");
    M.ColunaNome = QStringLiteral("nome");
    return M;
}

} // namespace

class TesteParseTableXML : public QObject, private TComBancos
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void ALinhaDeCimaEADeBaixo();
    void SemTabelasSoARaiz();
    void AsTabelasNaOrdemDaLista();
    void TodoEComercialEEscapadoUmaVez();
    void OCabecalhoEORodapeDoHospedeiro();
    void LinhasComQuebraViramLinhas();
    void OErroDeUmaTabelaChegaAQuemChama();
    void AConexaoVaiATodas();
    void AConexaoQueMorreFicaNula();
    void AListaEDonaDosObjetos();
    void ExtrairDevolveSemDestruir();
    void ErrosDeIndice();
    void MoverTambemDaAConexao();
    void CadaParteDoElemento_data() { CadaBanco(); }
    void CadaParteDoElemento();
    void NulosFicamDeFora_data() { CadaBanco(); }
    void NulosFicamDeFora();
    void NomeDeTabela_data() { CadaBanco(); }
    void NomeDeTabela();
    void ConsultaComValores_data() { CadaBanco(); }
    void ConsultaComValores();
    void LinhasAninhadasPeloPai_data() { CadaBanco(); }
    void LinhasAninhadasPeloPai();
    void AninhadasQueNaoFormamArvore_data();
    void AninhadasQueNaoFormamArvore();
    void NiveisDemais();
    void ValoresQueODocumentoNaoLeva_data();
    void ValoresQueODocumentoNaoLeva();
    void ValoresQueODocumentoLeva_data();
    void ValoresQueODocumentoLeva();
    void NomesDeElemento_data();
    void NomesDeElemento();
    void CorQueNaoENumero();
    void ColunaQueFalta();
    void SemConexao();
    void DepoisDeUmErroNadaFoiAcrescentado();
    void OHospedeiroConverteOQueNaoPassa();
    void ABaseDeExemplo_data() { CadaBanco(); }
    void ABaseDeExemplo();

private:
    QString Gerado(TCustomConnection &Onde, const TMapeamentoXML &M, const QString &SQL,
                   const QVariantList &Valores = {});
};

void TesteParseTableXML::initTestCase()
{
    QCOMPARE(SubirBancos(), QString());
}

void TesteParseTableXML::cleanupTestCase()
{
    DescerBancos();
}

QString TesteParseTableXML::Gerado(TCustomConnection &Onde, const TMapeamentoXML &M, const QString &SQL,
                                   const QVariantList &Valores)
{
    TParseTableXMLMapeada Tabela(M, SQL, Valores);
    Tabela.DataBase = &Onde;
    TStringList Linhas;
    Tabela.GerarXML(Linhas);
    return Linhas.Linhas().join(u'\n');
}

void TesteParseTableXML::ALinhaDeCimaEADeBaixo()
{
    QCOMPARE(CABECALHO_XML, QStringLiteral("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>"));
    QCOMPARE(RODAPE_XML, QString());
    RODAPE_XML = QStringLiteral("x");
    ModuloTreeViewXMLBD().Parar();
    QCOMPARE(CABECALHO_XML, QString());
    QCOMPARE(RODAPE_XML, QString());
    ModuloTreeViewXMLBD().Iniciar();
    QCOMPARE(CABECALHO_XML, QStringLiteral("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>"));
}

void TesteParseTableXML::SemTabelasSoARaiz()
{
    QCOMPARE(Documento(TParseTableXMLList()),
             QStringLiteral("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<Raiz>\r\n</Raiz>\r\n\r\n"));
}

void TesteParseTableXML::AsTabelasNaOrdemDaLista()
{
    TParseTableXMLList Lista;
    Lista.Add(std::make_unique<TLinhasFixas>(QStringList{QStringLiteral("<B/>"), QStringLiteral("<C/>")}));
    Lista.Add(nullptr); // an empty slot writes nothing
    Lista.Insert(0, std::make_unique<TLinhasFixas>(QStringList{QStringLiteral("<A/>")}));
    QCOMPARE(Documento(Lista, QStringLiteral("Força")),
             QStringLiteral(
                 "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<Força>\r\n<A/>\r\n<B/>\r\n<C/>\r\n"
                 "</Força>\r\n\r\n"));
}

void TesteParseTableXML::TodoEComercialEEscapadoUmaVez()
{
    TParseTableXMLList Lista;
    Lista.Add(std::make_unique<TLinhasFixas>(
        QStringList{QStringLiteral("<N a=\"A&B\" b=\"A&amp;B\" c=\"&lt;&\"/>")}));
    const QString Texto = Documento(Lista);
    QVERIFY(Texto.contains(QStringLiteral("<N a=\"A&amp;B\" b=\"A&amp;amp;B\" c=\"&amp;lt;&amp;\"/>")));
    const auto Lido = TXMLDocument::DeTexto(Texto);
    const TCursorXML No = Lido->Raiz().FindNode(u"N");
    QCOMPARE(No.Attribute(u"a"), QStringLiteral("A&B"));
    QCOMPARE(No.Attribute(u"b"), QStringLiteral("A&amp;B"));
    QCOMPARE(No.Attribute(u"c"), QStringLiteral("&lt;&"));
}

void TesteParseTableXML::OCabecalhoEORodapeDoHospedeiro()
{
    const QString Antes = CABECALHO_XML;
    CABECALHO_XML = QStringLiteral("<?xml version=\"1.0\"?>");
    RODAPE_XML = QStringLiteral("<!-- fim & fim -->");
    const QString Texto = Documento(TParseTableXMLList());
    CABECALHO_XML = Antes;
    RODAPE_XML.clear();
    // The footer comes after the escaping.
    QCOMPARE(Texto, QStringLiteral("<?xml version=\"1.0\"?>\r\n<Raiz>\r\n</Raiz>\r\n<!-- fim & fim -->\r\n"));
}

void TesteParseTableXML::LinhasComQuebraViramLinhas()
{
    TParseTableXMLList Lista;
    Lista.Add(std::make_unique<TLinhasFixas>(QStringList{QStringLiteral("<A>\n</A>\r<B/>")}));
    TStringList Linhas;
    MontarDocumentoDeTabelas(Lista, QStringLiteral("R"), Linhas);
    QCOMPARE(Linhas.Count(), 7);
    QCOMPARE(Linhas.Linha(3), QStringLiteral("</A>"));
}

void TesteParseTableXML::OErroDeUmaTabelaChegaAQuemChama()
{
    TParseTableXMLList Lista;
    Lista.Add(std::make_unique<TQueFalha>());
    const auto Erro = ErroDe<EDatabaseError>([&] { Documento(Lista); });
    QCOMPARE(Erro.Message, QStringLiteral("tabela sem linhas"));
}

void TesteParseTableXML::AConexaoVaiATodas()
{
    TCustomConnection A;
    TCustomConnection B;
    TParseTableXMLList Lista(&A);
    QCOMPARE(Lista.DataBase(), &A);
    Lista.Add(std::make_unique<TLinhasFixas>());
    Lista.Insert(0, std::make_unique<TLinhasFixas>());
    QCOMPARE(Lista[0]->DataBase.data(), &A);
    QCOMPARE(Lista[1]->DataBase.data(), &A);
    Lista.AtribuirDataBase(&B); // to those that are there...
    QCOMPARE(Lista[0]->DataBase.data(), &B);
    QCOMPARE(Lista[1]->DataBase.data(), &B);
    Lista.Add(std::make_unique<TLinhasFixas>()); // ...and to those that come
    QCOMPARE(Lista.Last()->DataBase.data(), &B);
    auto Nova = std::make_unique<TLinhasFixas>();
    Nova->DataBase = &A;
    Lista.AtribuirParseTableXML(1, std::move(Nova));
    QCOMPARE(Lista.ObterParseTableXML(1)->DataBase.data(), &B);
    Lista.AtribuirDataBase(nullptr);
    QVERIFY(Lista[0]->DataBase.isNull());
    auto ComOutra = std::make_unique<TLinhasFixas>();
    ComOutra->DataBase = &A;
    Lista.Add(std::move(ComOutra)); // none is handed down too
    QVERIFY(Lista.Last()->DataBase.isNull());
}

void TesteParseTableXML::AConexaoQueMorreFicaNula()
{
    TParseTableXMLList Lista;
    Lista.Add(std::make_unique<TLinhasFixas>());
    {
        TCustomConnection C;
        Lista.AtribuirDataBase(&C);
    }
    QCOMPARE(Lista.DataBase(), nullptr);
    QVERIFY(Lista[0]->DataBase.isNull());
}

void TesteParseTableXML::AListaEDonaDosObjetos()
{
    int Mortas = 0;
    {
        TParseTableXMLList Lista;
        for (int I = 0; I < 3; ++I)
            Lista.Add(std::make_unique<TLinhasFixas>(QStringList(), &Mortas));
        Lista.SetItem(0, std::make_unique<TLinhasFixas>(QStringList(), &Mortas));
        QCOMPARE(Mortas, 1);
        QCOMPARE(Lista.Remove(Lista[1]), 1);
        QCOMPARE(Mortas, 2);
        QCOMPARE(Lista.IndexOf(Lista.Last()), 1);
        QCOMPARE(Lista.IndexOf(nullptr), -1);
    }
    QCOMPARE(Mortas, 4);
}

void TesteParseTableXML::ExtrairDevolveSemDestruir()
{
    int Mortas = 0;
    TParseTableXMLList Lista;
    Lista.Add(std::make_unique<TLinhasFixas>(QStringList(), &Mortas));
    TParseTableXML *Primeira = Lista.First();
    auto Tirada = Lista.Extract(Primeira);
    QCOMPARE(Tirada.get(), Primeira);
    QCOMPARE(Lista.Count(), 0);
    QCOMPARE(Mortas, 0);
    QVERIFY(!Lista.Extract(Primeira));
}

void TesteParseTableXML::ErrosDeIndice()
{
    TParseTableXMLList Lista;
    QVERIFY_THROWS_EXCEPTION(EListError, (void)Lista.ObterParseTableXML(0));
    QVERIFY_THROWS_EXCEPTION(EListError, (void)Lista.First());
    QVERIFY_THROWS_EXCEPTION(EListError, (void)Lista.Last());
    QVERIFY_THROWS_EXCEPTION(EListError, Lista.Insert(1, std::make_unique<TLinhasFixas>()));
    QVERIFY_THROWS_EXCEPTION(EListError, Lista.AtribuirParseTableXML(-1, nullptr));
}

void TesteParseTableXML::MoverTambemDaAConexao()
{
    TCustomConnection C;
    TParseTableXMLList De;
    De.Add(std::make_unique<TLinhasFixas>());
    TParseTableXMLList Para(&C);
    Para.MoverDe(De);
    QCOMPARE(Para[0]->DataBase.data(), &C);
    QCOMPARE(De.Count(), 0);
}

void TesteParseTableXML::CadaParteDoElemento()
{
    TMapeamentoXML M;
    M.ColunaTag = QStringLiteral("tipo");
    M.ColunaNome = QStringLiteral("nome");
    M.ColunaCor = QStringLiteral("cor");
    M.ColunaSimbolo = QStringLiteral("simbolo");
    M.ColunaLink = QStringLiteral("link");
    M.Identificacao = {{QStringLiteral("Código"), QStringLiteral("codigo")}};
    M.Informacao = {{QStringLiteral("Efetivo"), QStringLiteral("efetivo")},
                    {QStringLiteral("Peso"), QStringLiteral("peso")}};
    QCOMPARE(
        Gerado(
            Conexao(), M,
            QStringLiteral("SELECT 'Batalhão' AS TIPO, '1º & 2º' AS NOME, 255 AS COR, 3 AS SIMBOLO, 'sim' AS "
                           "LINK, 'B''1' AS CODIGO, 648 AS EFETIVO, CAST(0.5 AS DOUBLE PRECISION) AS PESO")),
        QStringLiteral("<Batalhão Nome=\"1º & 2º\" Cor=\"255\" Símbolo=\"3\" Link=\"sim\">"
                       "<Identificadores><Identificador Rótulo=\"Código\" Valor=\"B'1\"/></Identificadores>"
                       "<Informações><Informação Rótulo=\"Efetivo\" Valor=\"648\"/>"
                       "<Informação Rótulo=\"Peso\" Valor=\"0.5\"/></Informações></Batalhão>"));
}

void TesteParseTableXML::NulosFicamDeFora()
{
    TMapeamentoXML M = SoNome();
    M.ColunaCor = QStringLiteral("cor");
    M.ColunaLink = QStringLiteral("link");
    M.Identificacao = {{QStringLiteral("A"), QStringLiteral("a")}};
    M.Informacao = {{QStringLiteral("B"), QStringLiteral("b")}, {QStringLiteral("C"), QStringLiteral("c")}};
    QCOMPARE(Gerado(Conexao(), M,
                    QStringLiteral(
                        "SELECT NULL AS nome, NULL AS cor, NULL AS link, NULL AS a, NULL AS b, '' AS c")),
             QStringLiteral(
                 "<No Nome=\"\"><Informações><Informação Rótulo=\"C\" Valor=\"\"/></Informações></No>"));
}

void TesteParseTableXML::NomeDeTabela()
{
    RodarSQL(Conexao(), QStringLiteral("DROP TABLE IF EXISTS nomes;\nCREATE TABLE nomes (nome TEXT);\n"
                                       "INSERT INTO nomes VALUES ('x'), ('y')"));
    QCOMPARE(Gerado(Conexao(), SoNome(), QStringLiteral(" nomes ")),
             QStringLiteral("<No Nome=\"x\"></No>\n<No Nome=\"y\"></No>"));
    QCOMPARE(Gerado(Conexao(), SoNome(), QStringLiteral("SELECT * FROM nomes WHERE nome > 'z'")), QString());
}

void TesteParseTableXML::ConsultaComValores()
{
    QCOMPARE(Gerado(Conexao(), SoNome(), QStringLiteral("SELECT CAST(? AS TEXT) AS nome"),
                    {QStringLiteral("ação")}),
             QStringLiteral("<No Nome=\"ação\"></No>"));
}

void TesteParseTableXML::LinhasAninhadasPeloPai()
{
    RodarSQL(Conexao(),
             QStringLiteral(
                 "DROP TABLE IF EXISTS unidades;\nCREATE TABLE unidades (ordem INTEGER, id INTEGER, pai "
                 "INTEGER, nome TEXT);\nINSERT INTO unidades VALUES (1, 10, NULL, 'a'), (2, 30, 20, 'a2x'), "
                 "(3, 11, 10, 'a1'), (4, 20, 10, 'a2'), (5, NULL, NULL, 'b'), (6, 31, 20, 'a2y'), (7, NULL, "
                 "11, 'a1x')"));
    TMapeamentoXML M = SoNome();
    M.ColunaChave = QStringLiteral("ID");
    M.ColunaPai = QStringLiteral("PAI");
    QCOMPARE(
        Gerado(Conexao(), M, QStringLiteral("SELECT * FROM unidades ORDER BY ordem")),
        QStringLiteral("<No Nome=\"a\">\n<No Nome=\"a1\">\n<No Nome=\"a1x\"></No>\n</No>\n<No Nome=\"a2\">\n"
                       "<No Nome=\"a2x\"></No>\n<No Nome=\"a2y\"></No>\n</No>\n</No>\n<No Nome=\"b\"></No>"));
    M.ColunaPai.clear(); // one of the two is no nesting
    QCOMPARE(Gerado(Conexao(), M, QStringLiteral("SELECT * FROM unidades ORDER BY ordem")).count(u'\n'), 6);
}

void TesteParseTableXML::AninhadasQueNaoFormamArvore_data()
{
    QTest::addColumn<QString>("Linhas");
    QTest::addColumn<QString>("Mensagem");
    QTest::addColumn<QString>("Detalhe");
    QTest::newRow("pai que falta") << "(1, NULL), (2, 7)"
                                   << "A linha pai <7> não existe!"
                                   << "Linha 2.";
    QTest::newRow("chave repetida") << "(1, NULL), (1, NULL)"
                                    << "A chave <1> se repete!"
                                    << "Linha 2.";
    QTest::newRow("de si mesma") << "(1, NULL), (5, 5)"
                                 << "A linha <5> está abaixo de si mesma!"
                                 << "Linha 2.";
    QTest::newRow("em roda") << "(1, 2), (2, 3), (3, 1)"
                             << "A linha <1> está abaixo de si mesma!"
                             << "Linha 1.";
}

void TesteParseTableXML::AninhadasQueNaoFormamArvore()
{
    QFETCH(QString, Linhas);
    TMapeamentoXML M;
    M.Tag = QStringLiteral("No");
    M.ColunaChave = QStringLiteral("column1");
    M.ColunaPai = QStringLiteral("column2");
    const auto Erro = ErroDe<EDatabaseError>(
        [&] { Gerado(*FArquivo, M, QStringLiteral("SELECT * FROM (VALUES %1)").arg(Linhas)); });
    QTEST(Erro.Message, "Mensagem");
    QTEST(Erro.Detalhe, "Detalhe");
}

void TesteParseTableXML::NiveisDemais()
{
    TMapeamentoXML M;
    M.Tag = QStringLiteral("No");
    M.ColunaChave = QStringLiteral("n");
    M.ColunaPai = QStringLiteral("pai");
    M.Informacao = {{QStringLiteral("N"), QStringLiteral("n")}};
    const auto Corrente = [](int Niveis) {
        return QStringLiteral(
                   "WITH RECURSIVE t(n, pai) AS (SELECT 1, NULL UNION ALL SELECT n + 1, n FROM t WHERE n < "
                   "%1) SELECT * FROM t")
            .arg(Niveis);
    };
    constexpr int Maior = TLimitesXML::Profundidade - 3;
    // The deepest that is let through is one that the reader of documents takes.
    TParseTableXMLList Lista(FArquivo.get());
    Lista.Add(std::make_unique<TParseTableXMLMapeada>(M, Corrente(Maior)));
    QVERIFY(TXMLDocument::DeTexto(Documento(Lista)));
    const auto Erro = ErroDe<EDatabaseError>([&] { Gerado(*FArquivo, M, Corrente(Maior + 1)); });
    QCOMPARE(Erro.Message, QStringLiteral("As linhas têm mais de %1 níveis!").arg(Maior));
    ErroDe<EDatabaseError>([&] { Gerado(*FArquivo, M, Corrente(100'000)); }); // and no stack is lost
}

void TesteParseTableXML::ValoresQueODocumentoNaoLeva_data()
{
    QTest::addColumn<QString>("Valor");
    QTest::addColumn<QString>("Detalhe");
    QTest::newRow("menor") << "a<b"
                           << "Coluna <nome>, linha 2, caracter U+003C na posição 2.";
    QTest::newRow("maior") << "->"
                           << "Coluna <nome>, linha 2, caracter U+003E na posição 2.";
    QTest::newRow("aspas") << "\"x"
                           << "Coluna <nome>, linha 2, caracter U+0022 na posição 1.";
    QTest::newRow("quebra") << "a\r\nb"
                            << "Coluna <nome>, linha 2, caracter U+000D na posição 2.";
    QTest::newRow("tabulacao") << "a\tb"
                               << "Coluna <nome>, linha 2, caracter U+0009 na posição 2.";
    QTest::newRow("controle") << "ab\x01"
                              << "Coluna <nome>, linha 2, caracter U+0001 na posição 3.";
    QTest::newRow("fora da pagina") << QStringLiteral(u"Ω<")
                                    << "Coluna <nome>, linha 2, caracter U+03A9 na posição 1.";
    QTest::newRow("marca antes") << QStringLiteral(u"<Ω")
                                 << "Coluna <nome>, linha 2, caracter U+003C na posição 1.";
    QTest::newRow("controle alto") << QStringLiteral(u"a\u0085")
                                   << "Coluna <nome>, linha 2, caracter U+0085 na posição 2.";
}

void TesteParseTableXML::ValoresQueODocumentoNaoLeva()
{
    QFETCH(QString, Valor);
    const auto Erro = ErroDe<EConvertError>([&] {
        Gerado(*FArquivo, SoNome(), QStringLiteral("SELECT 'bom' AS nome UNION ALL SELECT ?"), {Valor});
    });
    QCOMPARE(Erro.Message, QStringLiteral("O valor <%1> não pode ser escrito no documento!").arg(Valor));
    QTEST(Erro.Detalhe, "Detalhe");
}

void TesteParseTableXML::ValoresQueODocumentoLeva_data()
{
    QTest::addColumn<QString>("Valor");
    QTest::newRow("e comercial") << "A&B";
    QTest::newRow("entidade como texto") << "A&amp;B &#65; &lt;";
    QTest::newRow("apostrofo") << "caixa d'água";
    QTest::newRow("acentos") << QStringLiteral(u"Força-Tarefa “Águia” €");
    QTest::newRow("brancos") << "  a  b  ";
    QTest::newRow("vazio") << "";
}

void TesteParseTableXML::ValoresQueODocumentoLeva()
{
    QFETCH(QString, Valor);
    TParseTableXMLList Lista(FArquivo.get());
    Lista.Add(std::make_unique<TParseTableXMLMapeada>(SoNome(), QStringLiteral("SELECT ? AS nome"),
                                                      QVariantList{Valor}));
    const auto Lido = TXMLDocument::DeTexto(Documento(Lista));
    QCOMPARE(Lido->Raiz().FindNode(u"No").Attribute(u"Nome"), Valor);
}

void TesteParseTableXML::NomesDeElemento_data()
{
    QTest::addColumn<QString>("Tag");
    QTest::addColumn<bool>("Bom");
    QTest::newRow("letras") << "Pelotao" << true;
    QTest::newRow("acentos") << "Divisão" << true;
    QTest::newRow("digitos e sinais") << "_a-1.b" << true;
    QTest::newRow("vazio") << "" << false;
    QTest::newRow("branco") << "a b" << false;
    QTest::newRow("digito no comeco") << "1a" << false;
    QTest::newRow("marca") << "a>" << false;
    QTest::newRow("fora da pagina") << QStringLiteral(u"Ω") << false;
}

void TesteParseTableXML::NomesDeElemento()
{
    QFETCH(QString, Tag);
    QFETCH(bool, Bom);
    TMapeamentoXML M;
    M.ColunaTag = QStringLiteral("tag");
    const auto Gerar = [&] { return Gerado(*FArquivo, M, QStringLiteral("SELECT ? AS tag"), {Tag}); };
    if (Bom) {
        QCOMPARE(Gerar(), QStringLiteral("<%1></%1>").arg(Tag));
        return;
    }
    const auto Erro = ErroDe<EConvertError>(Gerar);
    QCOMPARE(Erro.Message, QStringLiteral("<%1> não é um nome de elemento!").arg(Tag));
    QCOMPARE(Erro.Detalhe, QStringLiteral("Coluna <tag>, linha 1."));
}

void TesteParseTableXML::CorQueNaoENumero()
{
    TMapeamentoXML M = SoNome();
    M.ColunaCor = QStringLiteral("cor");
    const auto Erro = ErroDe<EConvertError>(
        [&] { Gerado(*FArquivo, M, QStringLiteral("SELECT 'a' AS nome, 'azul' AS cor")); });
    QCOMPARE(Erro.Detalhe, QStringLiteral("Coluna <cor>, linha 1."));
}

void TesteParseTableXML::ColunaQueFalta()
{
    ErroDe<EDatabaseError>([&] { Gerado(*FArquivo, SoNome(), QStringLiteral("SELECT 1 AS outra")); });
}

void TesteParseTableXML::SemConexao()
{
    TParseTableXMLMapeada Tabela(SoNome(), QStringLiteral("nomes"));
    TStringList Linhas;
    const auto Erro = ErroDe<EDatabaseError>([&] { Tabela.GerarXML(Linhas); });
    QCOMPARE(Erro.Message, QStringLiteral("A tabela não tem conexão com o banco de dados!"));
}

void TesteParseTableXML::DepoisDeUmErroNadaFoiAcrescentado()
{
    TParseTableXMLMapeada Tabela(SoNome(), QStringLiteral("SELECT 'bom' AS nome UNION ALL SELECT '<'"));
    Tabela.DataBase = FArquivo.get();
    TStringList Linhas;
    QVERIFY_THROWS_EXCEPTION(EConvertError, Tabela.GerarXML(Linhas));
    QCOMPARE(Linhas.Count(), 0);
}

void TesteParseTableXML::OHospedeiroConverteOQueNaoPassa()
{
    TParseTableXMLMapeada Tabela(SoNome(), QStringLiteral("SELECT 'a<b' AS nome"));
    Tabela.DataBase = FArquivo.get();
    QString Coluna;
    Tabela.AoConverterValor = [&](const QString &Nome, const QString &Valor) {
        Coluna = Nome;
        return QString(Valor).replace(u'<', u'(');
    };
    TStringList Linhas;
    Tabela.GerarXML(Linhas);
    QCOMPARE(Linhas.Linha(0), QStringLiteral("<No Nome=\"a(b\"></No>"));
    QCOMPARE(Coluna, QStringLiteral("nome"));
    Tabela.AoConverterValor = [](const QString &, const QString &) { return QStringLiteral("\""); };
    QVERIFY_THROWS_EXCEPTION(EConvertError, Tabela.GerarXML(Linhas)); // what it gives is checked too
}

void TesteParseTableXML::ABaseDeExemplo()
{
    QFETCH(bool, DoServidor);
    const QString Endereco = DoServidor ? CriarExercicio(*FServidor, QStringLiteral("UTF8"))
                                        : DadoDeExemplo(QStringLiteral("exercicio.sqlite"));
    const auto Base = std::make_unique<TCustomConnection>(Endereco);
    TParseTableXMLList Lista(Base.get());
    Lista.Add(std::make_unique<TParseTableXMLMapeada>(DasUnidades(),
                                                      QStringLiteral("SELECT * FROM UNIDADES ORDER BY ID")));
    const auto Lido = TXMLDocument::DeTexto(Documento(Lista, QStringLiteral("OrdemDeBatalha")));
    int Unidades = 0;
    const std::function<void(const TCursorXML &)> Contar = [&](const TCursorXML &No) {
        Unidades += No.HasAttribute(u"Nome") ? 1 : 0;
        for (const TCursorXML &Filho : No.Filhos())
            Contar(Filho);
    };
    Contar(Lido->Raiz());
    TClientDataSet Dados;
    Dados.Open(*Base, QStringLiteral("SELECT COUNT(*) AS n FROM UNIDADES"));
    QCOMPARE(Unidades, Dados.FieldByName(u"n").AsInteger());
    QVERIFY(Unidades >= 300);
}

QTEST_GUILESS_MAIN(TesteParseTableXML)
#include "TesteParseTableXML.moc"
