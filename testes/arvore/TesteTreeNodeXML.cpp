// SPDX-License-Identifier: LGPL-2.1-or-later
#include "arvore/ListaXML.h"
#include "arvore/TagsXML.h"
#include "arvore/TreeNodeXML.h"
#include "arvore/TreeNodesXML.h"
#include "lumbrix/DecodeDateTimeXML.h"
#include "lumbrix/TextoParaURL.h"
#include "plataforma/Exception.h"

#include <QTest>

#include <memory>

using namespace Sibrel;

namespace
{

class TNoComOutraLegenda : public ComClasse<TNoComOutraLegenda, TTreeNodeXML>
{
public:
    using ComClasse::ComClasse;
    static constexpr const char *NomeDaClasse = "TNoComOutraLegenda";
    bool AtribuirNoXML(const IXMLNode &No) override
    {
        ComClasse::AtribuirNoXML(No);
        AtribuirText(QStringLiteral("outra"));
        return true;
    }
    bool ObterApagado() const override { return true; }
};

TTreeNodeXML *NovoNo(TTreeNodesXML &Nos, const QString &XML, TTreeNode *Pai = nullptr)
{
    auto *No = static_cast<TTreeNodeXML *>(Nos.AddNode(std::make_unique<TTreeNodeXML>(Nos), Pai));
    if (!XML.isEmpty())
        No->AtribuirXML(XML);
    return No;
}

QString Elemento(const QString &Atributos, const QString &Identificadores = {},
                 const QString &Informacoes = {})
{
    QString XML = QStringLiteral("<U %1>").arg(Atributos);
    if (!Identificadores.isNull())
        XML += QStringLiteral("<Identificadores>%1</Identificadores>").arg(Identificadores);
    if (!Informacoes.isNull())
        XML += QStringLiteral("<Informações>%1</Informações>").arg(Informacoes);
    return XML + QStringLiteral("</U>");
}

QString Id(const QString &Nome, const QString &Valor)
{
    return QStringLiteral("<Identificador Rótulo='%1' Valor='%2'/>").arg(Nome, Valor);
}

QString Info(const QString &Nome, const QString &Valor)
{
    return QStringLiteral("<Informação Rótulo='%1' Valor='%2'/>").arg(Nome, Valor);
}

} // namespace

class TesteTreeNodeXML : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void NomesComAcentos();
    void NovoNoEVazio();
    void LegendaPelaOrdem();
    void CorESimbolo();
    void CorErradaDeixaTudoComoEstava();
    void SimboloErradoDeixaALegendaNova();
    void IdentificacaoESubstituida();
    void InformacaoEFundida();
    void InformacaoVaziaTiraALinha();
    void ListaSemElemento();
    void ItensDeOutroNomeSaoPulados();
    void ListasLongasComoAsCurtas();
    void TextoMalformadoNaoMudaONo();
    void XMLDasListas();
    void XMLComNomesRepetidosLevaOPrimeiroValor();
    void IdaEVoltaPeloXML();
    void Identifica_data();
    void Identifica();
    void LinkSoComSim_data();
    void LinkSoComSim();
    void LinkCopiaOAlvo();
    void LinkParaLinkNaoHa();
    void LinkQueAchaDepois();
    void ClasseDoHospedeiro();
    void TextoParaURLEscapa();
    void DatasISO_data();
    void DatasISO();
    void DatasErradas();
    void EstruturaDosNos();
    void NoRetiradoSoMorreDepoisDeSolto();
    void ListaDoNoComoTStrings();
    void ArvoreFundaMorreSemRecursao();
};

void TesteTreeNodeXML::NomesComAcentos()
{
    QVERIFY(_INFORMACAO_ != u"Informacao");
    QCOMPARE(_INFORMACOES_, u"Informações");
    QCOMPARE(_DATAHORA_, u"Datahora");
    QCOMPARE(_NOME_FONTE_, u"Fonte");
    QCOMPARE(_SIMBOLO_.toString().toLatin1(), QByteArray("S\xEDmbolo"));
    QCOMPARE(PULALINHA, u"\r\n");
    QCOMPARE(CABECALHOXML, u"<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>");
}

void TesteTreeNodeXML::NovoNoEVazio()
{
    TTreeNodesXML Nos;
    const TTreeNodeXML *No = NovoNo(Nos, {});
    QCOMPARE(No->Cor(), 0);
    QVERIFY(!No->Link() && !No->Apagado() && !No->ObterApagado() && No->Vazio());
    QCOMPARE(No->Identificacao().Count(), 0);
    QCOMPARE(No->Text(), QString());
}

void TesteTreeNodeXML::LegendaPelaOrdem()
{
    TTreeNodesXML Nos;
    QCOMPARE(NovoNo(Nos, QStringLiteral("<Coisa/>"))->Text(), QStringLiteral("Coisa"));
    QCOMPARE(NovoNo(Nos, QStringLiteral("<Coisa Cor='5' X='y'/>"))->Text(), QStringLiteral("5"));
    QCOMPARE(NovoNo(Nos, QStringLiteral("<Coisa Cor='5' Nome='çã'/>"))->Text(), QStringLiteral("çã"));
    QCOMPARE(NovoNo(Nos, QStringLiteral("<Coisa Nome='' Cor='5'/>"))->Text(), QString());
}

void TesteTreeNodeXML::CorESimbolo()
{
    TTreeNodesXML Nos;
    TTreeNodeXML *No = NovoNo(Nos, Elemento(QStringLiteral("Nome='a' Cor='-16777208' Símbolo='7'")));
    QCOMPARE(No->Cor(), -16777208);
    QCOMPARE(No->ImageIndex(), 7);
    QCOMPARE(No->SelectedIndex(), 7);
    No->AtribuirSelectedIndex(3);
    No->AtribuirXML(Elemento(QStringLiteral("Nome='b'")));
    QCOMPARE(No->ImageIndex(), 7);
    QCOMPARE(No->SelectedIndex(), 7); // follows the image always
    QCOMPARE(No->Cor(), -16777208);
}

void TesteTreeNodeXML::CorErradaDeixaTudoComoEstava()
{
    TTreeNodesXML Nos;
    TTreeNodeXML *No = NovoNo(Nos, Elemento(QStringLiteral("Nome='a' Cor='1'")));
    QVERIFY_THROWS_EXCEPTION(EConvertError,
                             No->AtribuirXML(Elemento(QStringLiteral("Cor='verde' Nome='b'"))));
    QCOMPARE(No->Text(), QStringLiteral("a"));
    QCOMPARE(No->Cor(), 1);
}

void TesteTreeNodeXML::SimboloErradoDeixaALegendaNova()
{
    TTreeNodesXML Nos;
    TTreeNodeXML *No = NovoNo(Nos, Elemento(QStringLiteral("Nome='a' Símbolo='4'"), Id("c", "1")));
    QVERIFY_THROWS_EXCEPTION(
        EConvertError,
        No->AtribuirXML(Elemento(QStringLiteral("Nome='b' Cor='9' Símbolo='1.5'"), Id("c", "2"))));
    QCOMPARE(No->Text(), QStringLiteral("b"));
    QCOMPARE(No->Cor(), 9);
    QCOMPARE(No->ImageIndex(), 4);
    QCOMPARE(No->Identificacao().Linha(0), QStringLiteral("c=1"));
}

void TesteTreeNodeXML::IdentificacaoESubstituida()
{
    TTreeNodesXML Nos;
    TTreeNodeXML *No = NovoNo(Nos, Elemento(QStringLiteral("Nome='a'"), Id("c", "1") + Id("d", "2")));
    QCOMPARE(No->Identificacao().ParaQStringList(), QStringList({"c=1", "d=2"}));
    No->AtribuirXML(Elemento(QStringLiteral("Nome='a'"), Id("d", "3")));
    QCOMPARE(No->Identificacao().ParaQStringList(), QStringList({"d=3"}));
}

void TesteTreeNodeXML::InformacaoEFundida()
{
    TTreeNodesXML Nos;
    TTreeNodeXML *No = NovoNo(Nos, Elemento(QStringLiteral("Nome='a'"), {}, Info("p", "1") + Info("q", "2")));
    No->AtribuirXML(
        Elemento(QStringLiteral("Nome='a'"), {}, Info("Q", "3") + Info("r", "") + Info("p", "1")));
    QCOMPARE(No->Informacao().ParaQStringList(), QStringList({"p=1", "Q=3", "r="}));
}

void TesteTreeNodeXML::InformacaoVaziaTiraALinha()
{
    TTreeNodesXML Nos;
    TTreeNodeXML *No = NovoNo(Nos, Elemento(QStringLiteral("Nome='a'"), {}, Info("p", "1") + Info("q", "2")));
    No->AtribuirXML(Elemento(QStringLiteral("Nome='a'"), {}, Info("p", "")));
    QCOMPARE(No->Informacao().ParaQStringList(), QStringList({"q=2"}));
    QVERIFY(!No->Vazio());
}

void TesteTreeNodeXML::ListaSemElemento()
{
    TTreeNodesXML Nos;
    TTreeNodeXML *No = NovoNo(Nos, Elemento(QStringLiteral("Nome='a'"), Id("c", "1"), Info("p", "1")));
    No->AtribuirXML(QStringLiteral("<U Nome='a'/>"));
    QCOMPARE(No->Identificacao().Count(), 0);
    QCOMPARE(No->Informacao().Count(), 1);
}

void TesteTreeNodeXML::ItensDeOutroNomeSaoPulados()
{
    const auto XML =
        TXMLDocument::DeTexto(QStringLiteral("<U><L> <!--x--><i n='a' v='1'/><j n='b' v='2'/><I n='c' "
                                             "v='3'/><i v='4'/><i n='d'/></L><L><i n='z' v='9'/></L></U>"));
    TStringList Lista(QStringList{QStringLiteral("velha=1")});
    AtribuirListaXML(XML->Raiz(), {u"L", u"i", u"n", u"v"}, Lista, false);
    QCOMPARE(Lista.Linhas(), QStringList({"velha=1", "a=1", "=4", "d="}));
    AtribuirListaXML(XML->Raiz(), {u"Nada", u"i", u"n", u"v"}, Lista, true);
    QCOMPARE(Lista.Count(), 0);
}

// The merge of long lists takes another way: what it gives must be what the plain rules give.
void TesteTreeNodeXML::ListasLongasComoAsCurtas()
{
    TStringList Esperada;
    QString Itens;
    TTreeNodesXML Nos;
    TTreeNodeXML *No = NovoNo(Nos, {});
    unsigned Acaso = 7;
    for (int I = 0; I < 600; ++I) {
        Acaso = Acaso * 1103515245U + 12345U;
        const QString Nome = (Acaso >> 16) % 3 == 0 ? QStringLiteral("ÇÃO%1").arg((Acaso >> 18) % 60)
                                                    : QStringLiteral("ção%1").arg((Acaso >> 18) % 60);
        const QString Valor = (Acaso >> 8) % 5 == 0 ? QString() : QString::number(I);
        Itens += Info(Nome, Valor);
        if (Esperada.IndexOfName(Nome) >= 0)
            Esperada.AtribuirValor(Nome, Valor);
        else
            Esperada.Add(Nome + u'=' + Valor);
    }
    No->AtribuirXML(Elemento(QStringLiteral("Nome='a'"), {}, Itens));
    QVERIFY(Esperada.Count() > 30);
    QCOMPARE(No->Informacao().ParaQStringList(), Esperada.Linhas());
}

void TesteTreeNodeXML::TextoMalformadoNaoMudaONo()
{
    TTreeNodesXML Nos;
    TTreeNodeXML *No = NovoNo(Nos, Elemento(QStringLiteral("Nome='a'"), Id("c", "1")));
    QVERIFY_THROWS_EXCEPTION(EDOMParseError, No->AtribuirXML(QStringLiteral("<U Nome='b'>")));
    QVERIFY_THROWS_EXCEPTION(EDOMParseError, No->AtribuirXMLInformacao(QString()));
    QVERIFY_THROWS_EXCEPTION(EDOMParseError, No->AtribuirXMLIdentificacao(QStringLiteral("x")));
    QCOMPARE(No->Text(), QStringLiteral("a"));
    QCOMPARE(No->Identificacao().Count(), 1);
}

void TesteTreeNodeXML::XMLDasListas()
{
    TTreeNodesXML Nos;
    const TTreeNodeXML *Vazio = NovoNo(Nos, {});
    QCOMPARE(Vazio->ObterXMLInformacao(), QStringLiteral("<Informações>\r\n</Informações>"));
    const TTreeNodeXML *No =
        NovoNo(Nos, Elemento(QStringLiteral("Nome='a'"), Id("c", "1"), Info("p", "a&lt;b")));
    QCOMPARE(No->ObterXMLIdentificacao(),
             QStringLiteral(
                 "<Identificadores>\r\n<Identificador Rótulo=\"c\" Valor=\"1\"/>\r\n</Identificadores>"));
    QCOMPARE(
        No->ObterXMLInformacao(),
        QStringLiteral("<Informações>\r\n<Informação Rótulo=\"p\" Valor=\"a&lt;b\"/>\r\n</Informações>"));
}

void TesteTreeNodeXML::XMLComNomesRepetidosLevaOPrimeiroValor()
{
    const TStringList Lista(QStringList{"a=1", "a=2", "solta"});
    QCOMPARE(ObterXMLStrings({u"L", u"i", u"n", u"v&"}, Lista),
             QStringLiteral("<L>\r\n<i n=\"a\" v&amp;=\"1\"/>\r\n<i n=\"a\" v&amp;=\"1\"/>\r\n"
                            "<i n=\"\" v&amp;=\"\"/>\r\n</L>"));
}

void TesteTreeNodeXML::IdaEVoltaPeloXML()
{
    TTreeNodesXML Nos;
    TTreeNodeXML *No = NovoNo(Nos, {});
    const QStringList Linhas{QStringLiteral("a=\"1\" & <2> 'três'"), QStringLiteral("tab=\tx\r\ny"),
                             QStringLiteral("😀=€")};
    No->Informacao().Assign(TStringList(Linhas));
    TTreeNodeXML *Outro = NovoNo(Nos, {});
    Outro->AtribuirXML(QStringLiteral("<U>") + No->ObterXMLInformacao() + QStringLiteral("</U>"));
    QCOMPARE(Outro->Informacao().ParaQStringList(), Linhas);
}

void TesteTreeNodeXML::Identifica_data()
{
    QTest::addColumn<QStringList>("DoNo");
    QTest::addColumn<QStringList>("Lista");
    QTest::addColumn<bool>("Sim");
    QTest::newRow("outra ordem") << QStringList{"a=1", "b=2"} << QStringList{"b=2", "a=1"} << true;
    QTest::newRow("um a mais") << QStringList{"a=1", "b=2"} << QStringList{"a=1", "b=2", "c=3"} << false;
    QTest::newRow("um a menos") << QStringList{"a=1", "b=2"} << QStringList{"a=1"} << false;
    QTest::newRow("lista vazia") << QStringList{} << QStringList{} << false;
    QTest::newRow("valor em outra caixa") << QStringList{"a=x"} << QStringList{"a=X"} << false;
    QTest::newRow("nome em outra caixa") << QStringList{"ção=x"} << QStringList{"ÇÃO=x"} << true;
    QTest::newRow("repetidos valem pelo primeiro")
        << QStringList{"a=1", "b=2"} << QStringList{"a=1", "a=2"} << true;
    QTest::newRow("valor vazio vale ausente")
        << QStringList{"a=1", "c=5"} << QStringList{"a=1", "b="} << true;
    QTest::newRow("linhas sem igual") << QStringList{"x"} << QStringList{"y"} << true;
}

void TesteTreeNodeXML::Identifica()
{
    QFETCH(QStringList, DoNo);
    QFETCH(QStringList, Lista);
    QFETCH(bool, Sim);
    TTreeNodesXML Nos;
    TTreeNodeXML *No = NovoNo(Nos, {});
    No->Identificacao().Assign(TStringList(DoNo));
    QCOMPARE(No->Identifica(TStringList(Lista)), Sim);
}

void TesteTreeNodeXML::LinkSoComSim_data()
{
    QTest::addColumn<QString>("Texto");
    QTest::addColumn<bool>("Link");
    QTest::newRow("sim") << "sim" << true;
    QTest::newRow("SIM") << "SIM" << true;
    QTest::newRow("Sim") << "Sim" << true;
    QTest::newRow("s") << "s" << false;
    QTest::newRow("1") << "1" << false;
    QTest::newRow("com branco") << "sim " << false;
}

void TesteTreeNodeXML::LinkSoComSim()
{
    QFETCH(QString, Texto);
    QFETCH(bool, Link);
    TTreeNodesXML Nos;
    NovoNo(Nos, Elemento(QStringLiteral("Nome='alvo'"), Id("c", "1")));
    const TTreeNodeXML *No =
        NovoNo(Nos, Elemento(QStringLiteral("Nome='elo' Link='%1'").arg(Texto), Id("c", "1")));
    QCOMPARE(No->Link(), Link);
    QCOMPARE(No->Text(), Link ? QStringLiteral("alvo") : QStringLiteral("elo"));
}

void TesteTreeNodeXML::LinkCopiaOAlvo()
{
    TTreeNodesXML Nos;
    auto *Alvo = static_cast<TTreeNodeXML *>(Nos.AddNode(std::make_unique<TNoComOutraLegenda>(Nos), nullptr));
    Alvo->AtribuirXML(Elemento(QStringLiteral("Cor='77' Símbolo='5'"), Id("c", "1"), Info("p", "1")));
    TTreeNodeXML *No = NovoNo(Nos, Elemento(QStringLiteral("Nome='elo' Link='sim'"), Id("c", "1")));
    QVERIFY(No->Link());
    QCOMPARE(No->Cor(), 77);
    QCOMPARE(No->Text(), QStringLiteral("outra"));
    QCOMPARE(No->ImageIndex(), 5);
    QVERIFY(No->Apagado()); // by the target's class
    QVERIFY(!Alvo->Apagado());
    QCOMPARE(No->Informacao().Count(), 0);
    QCOMPARE(No->ObterNoLink(), Alvo);
    QVERIFY(No->TransformarEmLink());
}

void TesteTreeNodeXML::LinkParaLinkNaoHa()
{
    TTreeNodesXML Nos;
    TTreeNodeXML *Alvo = NovoNo(Nos, Elemento(QStringLiteral("Nome='alvo'"), Id("c", "1")));
    TTreeNodeXML *A = NovoNo(Nos, Elemento(QStringLiteral("Nome='a' Link='sim'"), Id("c", "1")));
    Nos.Delete(Alvo);
    TTreeNodeXML *B = NovoNo(Nos, Elemento(QStringLiteral("Nome='b' Link='sim'"), Id("c", "1")));
    QVERIFY(A->Link());
    QVERIFY(!B->Link());
    QCOMPARE(A->ObterNoLink(), B); // which is a plain node with that identification
    QVERIFY(B->ObterNoLink() == B);
}

void TesteTreeNodeXML::LinkQueAchaDepois()
{
    TTreeNodesXML Nos;
    TTreeNodeXML *No = NovoNo(Nos, Elemento(QStringLiteral("Nome='elo' Link='sim'"), Id("c", "1")));
    QVERIFY(!No->Link());
    QCOMPARE(No->Text(), QStringLiteral("elo"));
    NovoNo(Nos, Elemento(QStringLiteral("Nome='alvo'"), Id("c", "1")));
    QVERIFY(No->TransformarEmLink());
    QCOMPARE(No->Text(), QStringLiteral("alvo"));
    QVERIFY(!NovoNo(Nos, QStringLiteral("<U Nome='só' Link='sim'/>"))->Link()); // no identification at all
}

void TesteTreeNodeXML::ClasseDoHospedeiro()
{
    TTreeNodesXML Nos;
    const TRefNoXML Classe = TRefNoXML::De<TNoComOutraLegenda>();
    auto *No = static_cast<TTreeNodeXML *>(Nos.AddNode(Classe.Criar(Nos), nullptr));
    No->AtribuirXML(QStringLiteral("<U Nome='a'/>"));
    QCOMPARE(No->Text(), QStringLiteral("outra"));
    QVERIFY(No->ObterClasse() == Classe);
    QVERIFY(No->ObterClasse() != TRefNoXML::De<TTreeNodeXML>());
    QCOMPARE(QByteArray(No->ObterClasse().Nome()), QByteArray("TNoComOutraLegenda"));
}

void TesteTreeNodeXML::TextoParaURLEscapa()
{
    QCOMPARE(TextoParaURL(u"a&b<c>\"d'\t\r\né😀"),
             QStringLiteral("a&amp;b&lt;c&gt;&quot;d&apos;&#9;&#13;&#10;é😀"));
    QCOMPARE(TextoParaURL(QStringView(u"a\x01\xD800z")), QStringLiteral("az"));
}

void TesteTreeNodeXML::DatasISO_data()
{
    QTest::addColumn<QString>("Texto");
    QTest::addColumn<QDateTime>("Esperado");
    const QDate Dia(2024, 5, 6);
    QTest::newRow("local") << "2024-05-06T06:20:30" << QDateTime(Dia, QTime(6, 20, 30), Qt::LocalTime);
    QTest::newRow("sem segundos") << "2024-05-06T06:20" << QDateTime(Dia, QTime(6, 20), Qt::LocalTime);
    QTest::newRow("zona") << "2024-05-06T06:20:30-03:00" << QDateTime(Dia, QTime(9, 20, 30), Qt::UTC);
    QTest::newRow("utc") << "2024-05-06T06:20:30Z" << QDateTime(Dia, QTime(6, 20, 30), Qt::UTC);
    QTest::newRow("zona curta") << "2024-05-06T06:20:30+0530" << QDateTime(Dia, QTime(0, 50, 30), Qt::UTC);
    QTest::newRow("fracao") << "2024-05-06T06:20:30.1239Z" << QDateTime(Dia, QTime(6, 20, 30, 123), Qt::UTC);
    QTest::newRow("virgula") << "2024-05-06T06:20:30,5Z" << QDateTime(Dia, QTime(6, 20, 30, 500), Qt::UTC);
}

void TesteTreeNodeXML::DatasISO()
{
    QFETCH(QString, Texto);
    QFETCH(QDateTime, Esperado);
    QCOMPARE(DecodeDateTimeXML(Texto).toUTC(), Esperado.toUTC());
}

void TesteTreeNodeXML::DatasErradas()
{
    for (const char *Texto : {"", "ontem", "2024-13-01T00:00:00", "2024-02-30T00:00:00", "2024-05-06",
                              "2024-05-06T25:00:00", "2024-05-06T06:20:30+99:00", "06/05/2024 06:20"})
        QVERIFY_THROWS_EXCEPTION(EConvertError, DecodeDateTimeXML(QString::fromLatin1(Texto)));
}

void TesteTreeNodeXML::EstruturaDosNos()
{
    TTreeNodesXML Nos;
    TTreeNode *A = Nos.AddChild(nullptr, QStringLiteral("A"));
    TTreeNode *B = Nos.AddChild(A, QStringLiteral("B"));
    TTreeNode *C = Nos.AddChild(A, QStringLiteral("C"));
    TTreeNode *D = Nos.AddChild(nullptr, QStringLiteral("D"));
    TTreeNode *E = Nos.AddChild(B, QStringLiteral("E"));
    QCOMPARE(Nos.Count(), 5);
    QList<TTreeNode *> Ordem;
    for (TTreeNode *No = Nos.GetFirstNode(); No != nullptr; No = No->GetNext())
        Ordem.append(No);
    QCOMPARE(Ordem, QList<TTreeNode *>({A, B, E, C, D}));
    for (int I = 0; I < Ordem.size(); ++I)
        for (int J = 0; J < Ordem.size(); ++J)
            QCOMPARE(Nos.Antes(Ordem[I], Ordem[J]), I < J);
    QCOMPARE(E->Level(), 2);
    QCOMPARE(C->Index(), 1);
    QVERIFY(A->Contem(E) && !C->Contem(E));
    Nos.Delete(B);
    QCOMPARE(Nos.Count(), 3);
    QCOMPARE(A->GetFirstChild(), C);
    QVERIFY(C->GetPrevSibling() == nullptr);
    Nos.Clear();
    QCOMPARE(Nos.Count(), 0);
    QVERIFY(Nos.GetFirstNode() == nullptr);
}

namespace
{

class TNoContado : public TTreeNode
{
public:
    TNoContado(TTreeNodes &Owner, int &Vivos)
        : TTreeNode(Owner)
        , FVivos(Vivos)
    {
        ++FVivos;
    }
    ~TNoContado() override { --FVivos; }

private:
    int &FVivos;
};

} // namespace

void TesteTreeNodeXML::NoRetiradoSoMorreDepoisDeSolto()
{
    int Vivos = 0;
    TTreeNodesXML Nos;
    TTreeNode *A = Nos.AddNode(std::make_unique<TNoContado>(Nos, Vivos), nullptr);
    TTreeNode *B = Nos.AddNode(std::make_unique<TNoContado>(Nos, Vivos), A);
    Nos.Segurar();
    Nos.Delete(A);
    QCOMPARE(Vivos, 2);
    QVERIFY(!A->NaArvore() && !B->NaArvore());
    QCOMPARE(Nos.Count(), 0);
    Nos.Delete(B); // ignored: it has left with its parent
    Nos.Soltar();
    QCOMPARE(Vivos, 0);
    Nos.Delete(Nos.AddNode(std::make_unique<TNoContado>(Nos, Vivos), nullptr));
    QCOMPARE(Vivos, 0); // at once when nobody holds
    Nos.AddNode(std::make_unique<TNoContado>(Nos, Vivos), nullptr);
    Nos.Clear();
    QCOMPARE(Vivos, 0);
}

void TesteTreeNodeXML::ListaDoNoComoTStrings()
{
    TTreeNodesXML Nos;
    const TTreeNodeXML *No = NovoNo(Nos, {});
    TListaDeNo Lista = No->Informacao();
    Lista.Add(QStringLiteral("a=1"));
    Lista.Insert(0, QStringLiteral("b=2"));
    Lista.AtribuirLinha(1, QStringLiteral("a=3"));
    Lista.AtribuirValor(QStringLiteral("c"), QStringLiteral("4"));
    QCOMPARE(No->Informacao().ParaQStringList(), QStringList({"b=2", "a=3", "c=4"}));
    Lista.Delete(0);
    QCOMPARE(Lista.Values(u"A"), QStringLiteral("3"));
    QVERIFY_THROWS_EXCEPTION(EStringListError, Lista.Linha(2));
    QVERIFY_THROWS_EXCEPTION(EStringListError, Lista.Delete(-1));
    Lista.Clear();
    QVERIFY(No->Vazio());
}

void TesteTreeNodeXML::ArvoreFundaMorreSemRecursao()
{
    TTreeNodesXML Nos;
    TTreeNode *No = nullptr;
    for (int I = 0; I < 200000; ++I)
        No = Nos.AddChild(No, QString());
    QCOMPARE(No->Level(), 199999);
    Nos.Clear();
    QCOMPARE(Nos.Count(), 0);
}

QTEST_MAIN(TesteTreeNodeXML)
#include "TesteTreeNodeXML.moc"
