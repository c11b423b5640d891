// SPDX-License-Identifier: LGPL-2.1-or-later
#include "arvore/ComumAtualizacao.h"
#include "comum/Dados.h"
#include "plataforma/Exception.h"
#include "plataforma/SeparadorDecimal.h"

#include <QAbstractItemModelTester>
#include <QElapsedTimer>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QThread>

#include <atomic>

using namespace Sibrel;
using namespace Sibrel::Testes;

namespace
{

class TNoQueRejeita : public ComClasse<TNoQueRejeita, TTreeNodeXML>
{
public:
    using ComClasse::ComClasse;
    static constexpr const char *NomeDaClasse = "TNoQueRejeita";
    bool AtribuirNoXML(const IXMLNode &No) override
    {
        ComClasse::AtribuirNoXML(No);
        return No.Attribute(u"Rejeitar").value_or(QString()) != u"S";
    }
};

class TNoQueFalha : public ComClasse<TNoQueFalha, TTreeNodeXML>
{
public:
    using ComClasse::ComClasse;
    static constexpr const char *NomeDaClasse = "TNoQueFalha";
    bool AtribuirNoXML(const IXMLNode &No) override
    {
        ComClasse::AtribuirNoXML(No);
        if (NaArvore() && No.HasAttribute(u"Falhar"))
            throw EInvalidOperation(QStringLiteral("Falhou!"), QStringLiteral("De propósito."));
        return true;
    }
};

class TNoLento : public ComClasse<TNoLento, TTreeNodeXML>
{
public:
    using ComClasse::ComClasse;
    static constexpr const char *NomeDaClasse = "TNoLento";
    bool AtribuirNoXML(const IXMLNode &No) override
    {
        if (NaArvore())
            QThread::msleep(50);
        return ComClasse::AtribuirNoXML(No);
    }
};

class TNoQueEspera : public ComClasse<TNoQueEspera, TTreeNodeXML>
{
public:
    using ComClasse::ComClasse;
    static constexpr const char *NomeDaClasse = "TNoQueEspera";
    static inline std::atomic<int> Pedidos = 0;
    static inline std::atomic<int> Atendidos = 0;
    static inline std::atomic<int> EmVao = 0;
    bool AtribuirNoXML(const IXMLNode &No) override
    {
        if (NaArvore()) {
            const int Meu = ++Pedidos;
            int Voltas = 0;
            while (Atendidos < Meu && ++Voltas < 2000)
                QThread::msleep(1);
            EmVao += Atendidos < Meu ? 1 : 0;
        }
        return ComClasse::AtribuirNoXML(No);
    }
};

} // namespace

class TestePrepararAtualizacao : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void InsereEmOrdem();
    void EtapasEPassos();
    void TextoQueNaoEXML_data();
    void TextoQueNaoEXML();
    void ElementoRaizQueNaoConfere();
    void DataHora();
    void DataHoraErradaFalha();
    void VisibilidadePelaTabela_data();
    void VisibilidadePelaTabela();
    void TagNaoRegistradaELevadaComTudo();
    void TagSemClasseSoAgrupa();
    void AlteraONoQueHa();
    void FilhosDeInclusaoProcuramNoTopo();
    void ExcluiONoDoElemento();
    void ExclusaoNaoVisitaOsFilhos();
    void ExcluiPelaIdentificacao();
    void ExclusaoPelaIdentificacaoPoupaOsDaFila();
    void ExclusaoSemNoRetiraAsInclusoes();
    void ExclusaoRetiraAsOperacoesDoNo();
    void AoExcluirNoNegaPelaIdentificacao();
    void RejeicaoNaInclusaoEFilhosPulados();
    void RejeicaoNaAlteracaoMarcaExclusao();
    void SeparadorDecimalFicaPonto();
    void GanchoRodaNaThreadEMuda();
    void GanchoQueFalhaPergunta();
    void PerguntaComSimSegue();
    void PerguntaComNaoFalha();
    void FalhaNaAtualizacaoGravaODocumento();
    void ArquivoDeErroComNomeTomado();
    void ArquivoDeErroQueNaoSeGrava();
    void CancelarDeixaOFeito();
    void VistaDestruidaNoMeio_data();
    void VistaDestruidaNoMeio();
    void NoExcluidoPeloHospedeiroNoMeio();
    void ManipuladorQueFalhaEFalhaDaAtualizacao();
    void UmaPorVezENaOrdem();
    void NoLentoNaoTravaAJanela();
    void SinaisEmSequencia();
    void RolagemSelecaoEExpansaoFicam();
    void LerEAcrescentar();
    void LerErros();
    void ModeloPassaNoTestador();

private:
    QTemporaryDir FPasta;
};

void TestePrepararAtualizacao::initTestCase()
{
    TPreparaAtualizacao::AtribuirPastaDeErros(FPasta.path());
}

void TestePrepararAtualizacao::cleanup()
{
    QCOMPARE(TPreparaAtualizacao::Instancias(), 0);
    TPreparaAtualizacao::AtribuirPastaDeErros(FPasta.path());
    QDir Pasta(FPasta.path());
    for (const QString &Nome : Pasta.entryList(QDir::Files))
        Pasta.remove(Nome);
}

void TestePrepararAtualizacao::InsereEmOrdem()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TTreeViewXML Vista;
    Vista.Atualizar(Doc(U("A", "1", U("B", "2") + U("C", "3", U("D", "4"))) + U("E", "5")));
    QCOMPARE(TPreparaAtualizacao::Instancias(), 1);
    QCOMPARE(Vista.Nos().Count(), 0); // not before the event loop runs
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Texto(Vista.Nos()), QStringLiteral("A(B C(D)) E"));
    QCOMPARE(Mostrado(Vista.Modelo()), QStringLiteral("A(B C(D)) E"));
    QVERIFY(Vista.Nos().GetFirstNode()->Expanded());
    QVERIFY(Vista.isExpanded(Vista.Modelo().IndiceDe(Vista.Nos().GetFirstNode())));
}

void TestePrepararAtualizacao::EtapasEPassos()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TTreeViewXML Vista;
    TDiario Diario(Vista);
    QObject Contexto;
    QObject *Visto = nullptr;
    connect(&Vista, &TTreeViewXML::Progresso, [&](TPreparaAtualizacao *A) { Visto = A->Contexto(); });
    Vista.Atualizar(Doc(U("A", "1") + U("B", "2") + U("C", "3")), &Contexto);
    QCOMPARE(Diario.Linhas, QStringList({"Abertura 0/4"}));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Diario.Linhas,
             QStringList({"Abertura 0/4", "Abertura 4/4", "Preparação 0/0", "Atualização 0/3",
                          "Atualização 1/3", "Atualização 2/3", "Atualização 3/3", "Terminado 0/0"}));
    QVERIFY(Diario.NaGui);
    QCOMPARE(Visto, &Contexto);
    Diario.Linhas.clear();
    Vista.Atualizar(Doc(Fora("A", "1") + U("B", "2")));
    QVERIFY(EsperarAtualizacoes());
    QVERIFY(Diario.Linhas.contains(QStringLiteral("Atualização 1/2")));
    QVERIFY(!Diario.Linhas.contains(QStringLiteral("Atualização 2/2"))); // a deletion counts no step
    QCOMPARE(Texto(Vista.Nos()), QStringLiteral("B C"));
}

void TestePrepararAtualizacao::TextoQueNaoEXML_data()
{
    QTest::addColumn<QString>("XML");
    QTest::newRow("vazio") << "";
    QTest::newRow("sem elemento") << "<!-- nada -->";
    QTest::newRow("aberto") << "<R><U></R>";
    QTest::newRow("solto") << "isto não é";
    QTest::newRow("entidade") << "<R>&nada;</R>";
}

void TestePrepararAtualizacao::TextoQueNaoEXML()
{
    QFETCH(QString, XML);
    TTreeViewXML Vista;
    try {
        Vista.Atualizar(XML);
        QFAIL("devia falhar");
    } catch (const Exception &E) {
        QCOMPARE(E.Message, QStringLiteral("XML em formato inválido!"));
        QVERIFY(!E.Detalhe.isEmpty());
        QVERIFY(typeid(E) == typeid(Exception));
    }
    QCOMPARE(TPreparaAtualizacao::Instancias(), 0);
}

void TestePrepararAtualizacao::ElementoRaizQueNaoConfere()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TTreeViewXML Vista;
    TDiario Diario(Vista);
    Vista.ElementoRaiz = QStringLiteral("r");
    Vista.Atualizar(Doc(U("A", "1")));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Vista.Nos().Count(), 0);
    QCOMPARE(Diario.Linhas.last(), QStringLiteral("Terminado 0/0"));
    Vista.ElementoRaiz = QStringLiteral("R");
    Vista.Atualizar(Doc(U("A", "1")));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Vista.Nos().Count(), 1);
}

void TestePrepararAtualizacao::DataHora()
{
    TTreeViewXML Vista;
    Vista.Atualizar(QStringLiteral("<R DataHora='2024-05-06T06:20:00Z'/>"));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Vista.DataHora().toUTC(), QDateTime(QDate(2024, 5, 6), QTime(6, 20), Qt::UTC));
}

void TestePrepararAtualizacao::DataHoraErradaFalha()
{
    TTreeViewXML Vista;
    TDiario Diario(Vista);
    Vista.Atualizar(QStringLiteral("<R DataHora='ontem'/>"));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Diario.Linhas.last(), QStringLiteral("XML em formato inválido! 0/0"));
    QVERIFY(
        BytesDe(Diario.ArquivoDeErro).startsWith("<!--Erro gerado:XML em formato inv\xE1lido! -->\r\n<R "));
}

void TestePrepararAtualizacao::VisibilidadePelaTabela_data()
{
    QTest::addColumn<QString>("Elemento");
    QTest::addColumn<bool>("Visivel");
    const QString Id = QStringLiteral("<Identificadores/>");
    QTest::newRow("Visivel=S") << "<U Visivel='S'>" + Id + "</U>" << true;
    QTest::newRow("Visivel=s") << "<U Visivel='s'>" + Id + "</U>" << true;
    QTest::newRow("Visivel=n") << "<U Visivel='n' a='1' b='2'/>" << false;
    QTest::newRow("Visivel vazio") << "<U Visivel='' a='1' b='2'/>" << false;
    QTest::newRow("dois atributos") << "<U a='1' b='2'>" + Id + "</U>" << true;
    QTest::newRow("Link") << "<U Link='sim'>" + Id + "</U>" << true;
    QTest::newRow("quatro filhos") << "<U>" + Id + "<x/><x/><x/></U>" << true;
    QTest::newRow("brancos contam") << "<U> " + Id + " <x/> </U>" << true;
    QTest::newRow("tres filhos") << "<U>" + Id + "<x/><x/></U>" << false;
    QTest::newRow("sem Identificadores") << "<U/>" << true;
    QTest::newRow("um atributo") << "<U a='1'>" + Id + "</U>" << false;
    QTest::newRow("nem atributo") << "<U>" + Id + "</U>" << false;
}

void TestePrepararAtualizacao::VisibilidadePelaTabela()
{
    QFETCH(QString, Elemento);
    QFETCH(bool, Visivel);
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TTreeViewXML Vista;
    Vista.Atualizar(Doc(Elemento));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Vista.Nos().Count(), Visivel ? 1 : 0);
}

void TestePrepararAtualizacao::TagNaoRegistradaELevadaComTudo()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TTreeViewXML Vista;
    Vista.Atualizar(Doc(QStringLiteral("<Outra>%1</Outra>texto<!--c-->").arg(U("A", "1")) + U("B", "2")));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Texto(Vista.Nos()), QStringLiteral("B"));
}

void TestePrepararAtualizacao::TagSemClasseSoAgrupa()
{
    const TTagsRegistradas Tags{{"u", TRefNoXML::De<TTreeNodeXML>()}, {"G", TRefNoXML()}};
    TTreeViewXML Vista;
    Vista.Atualizar(Doc(U("A", "1", QStringLiteral("<G>%1<G>%2</G></G>").arg(U("B", "2"), U("C", "3")))));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Texto(Vista.Nos()), QStringLiteral("A(B C)"));
}

void TestePrepararAtualizacao::AlteraONoQueHa()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TTreeViewXML Vista;
    Vista.Atualizar(Doc(U("A", "1", U("B", "2"))));
    QVERIFY(EsperarAtualizacoes());
    TTreeNode *A = Vista.Nos().GetFirstNode();
    Vista.Atualizar(Doc(U("A", "1", U("B", "2", {}, "Cor='7'") + U("C", "3"), "Cor='5'")));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Vista.Nos().GetFirstNode(), A);
    QCOMPARE(static_cast<TTreeNodeXML *>(A)->Cor(), 5);
    QCOMPARE(static_cast<TTreeNodeXML *>(A->GetFirstChild())->Cor(), 7);
    QCOMPARE(Texto(Vista.Nos()), QStringLiteral("A(B C)"));
}

// Below an insertion there is no node yet: children are looked for at the top level, as the system has it.
void TestePrepararAtualizacao::FilhosDeInclusaoProcuramNoTopo()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TTreeViewXML Vista;
    Vista.Atualizar(Doc(U("B", "2")));
    QVERIFY(EsperarAtualizacoes());
    Vista.Atualizar(Doc(U("A", "1", U("B", "2", {}, "Cor='9'"))));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Texto(Vista.Nos()), QStringLiteral("B A"));
    QCOMPARE(static_cast<TTreeNodeXML *>(Vista.Nos().GetFirstNode())->Cor(), 9);
}

void TestePrepararAtualizacao::ExcluiONoDoElemento()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TTreeViewXML Vista;
    bool Perguntado = false;
    Vista.AoExcluirNo = [&](TTreeViewXML &, TTreeNode &, bool &) { Perguntado = true; };
    Vista.Atualizar(Doc(U("A", "1", U("B", "2"))));
    QVERIFY(EsperarAtualizacoes());
    Vista.Atualizar(Doc(Fora("A", "1")));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Vista.Nos().Count(), 0);
    QVERIFY(!Perguntado); // the node itself goes without asking
}

void TestePrepararAtualizacao::ExclusaoNaoVisitaOsFilhos()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TTreeViewXML Vista;
    int Operacoes = 0;
    Vista.ConfigurarOperacao = [&](TPreparaAtualizacao &, TAtualizacao &) { ++Operacoes; };
    Vista.Atualizar(Doc(QStringLiteral("<U Visivel='N'>%1</U>").arg(U("A", "1"))));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Operacoes, 1);
    QCOMPARE(Vista.Nos().Count(), 0);
}

void TestePrepararAtualizacao::ExcluiPelaIdentificacao()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TTreeViewXML Vista;
    Vista.Atualizar(Doc(U("A", "1", U("X", "9") + U("Y", "9", U("Z", "9"))) + U("E", "5")));
    QVERIFY(EsperarAtualizacoes());
    std::atomic<int> Perguntas = 0;
    std::atomic<bool> NaGui = false;
    Vista.AoExcluirNo = [&](TTreeViewXML &V, TTreeNode &, bool &) {
        ++Perguntas;
        NaGui = QThread::currentThread() == V.thread();
    };
    Vista.Atualizar(Doc(Fora("Nenhum", "9")));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Texto(Vista.Nos()), QStringLiteral("A E"));
    QCOMPARE(Perguntas.load(), 2); // Z left with Y
    QVERIFY(!NaGui);
}

void TestePrepararAtualizacao::ExclusaoPelaIdentificacaoPoupaOsDaFila()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TTreeViewXML Vista;
    Vista.Atualizar(Doc(U("A", "9") + U("B", "9") + U("C", "9")));
    QVERIFY(EsperarAtualizacoes());
    Vista.Atualizar(Doc(U("B", "9", {}, "Cor='3'") + Fora("Nenhum", "9")));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Texto(Vista.Nos()), QStringLiteral("B"));
    Vista.Atualizar(Doc(Fora("Nenhum", "9")));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Vista.Nos().Count(), 0); // spared for that update only
}

void TestePrepararAtualizacao::ExclusaoSemNoRetiraAsInclusoes()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TTreeViewXML Vista;
    TDiario Diario(Vista);
    Vista.Atualizar(Doc(U("A", "1", U("B", "2") + Fora("Nenhum", "9") + U("C", "3")) + U("D", "4")));
    QVERIFY(EsperarAtualizacoes());
    // A and B are withdrawn; C was to lie under A; D came later.
    QCOMPARE(Texto(Vista.Nos()), QStringLiteral("D"));
    QVERIFY(Diario.Linhas.contains(QStringLiteral("Atualização 0/3")));
    QCOMPARE(Diario.Linhas.last(), QStringLiteral("Terminado 0/0"));
}

void TestePrepararAtualizacao::ExclusaoRetiraAsOperacoesDoNo()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TTreeViewXML Vista;
    TDiario Diario(Vista);
    Vista.Atualizar(Doc(U("A", "1") + U("B", "2")));
    QVERIFY(EsperarAtualizacoes());
    Diario.Linhas.clear();
    Vista.Atualizar(Doc(U("A", "1", U("N", "7"), "Cor='3'") + U("A", "1", {}, "Cor='4'") + Fora("A", "1")));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Texto(Vista.Nos()), QStringLiteral("B"));
    QVERIFY(Diario.Linhas.contains(QStringLiteral("Atualização 0/2"))); // N's insertion and the deletion
}

void TestePrepararAtualizacao::AoExcluirNoNegaPelaIdentificacao()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TTreeViewXML Vista;
    Vista.Atualizar(Doc(U("A", "9") + U("B", "9") + U("C", "9")));
    QVERIFY(EsperarAtualizacoes());
    Vista.AoExcluirNo = [](TTreeViewXML &, TTreeNode &No, bool &Pode) { Pode = No.Text() != u"B"; };
    Vista.Atualizar(Doc(Fora("Nenhum", "9")));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Texto(Vista.Nos()), QStringLiteral("B"));
    TStringList Lista(QStringList{"c=9"});
    Vista.ExcluirTodosOsNos(Lista);
    QCOMPARE(Texto(Vista.Nos()), QStringLiteral("B"));
}

void TestePrepararAtualizacao::RejeicaoNaInclusaoEFilhosPulados()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TNoQueRejeita>()}};
    TTreeViewXML Vista;
    TDiario Diario(Vista);
    Vista.Atualizar(Doc(U("A", "1", U("B", "2"), "Rejeitar='S'") + U("C", "3")));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Texto(Vista.Nos()), QStringLiteral("C"));
    QCOMPARE(Mostrado(Vista.Modelo()), QStringLiteral("C"));
    QCOMPARE(Diario.Linhas.last(), QStringLiteral("Terminado 0/0"));
    QVERIFY(Diario.Linhas.contains(QStringLiteral("Atualização 2/3")));
    QVERIFY(!Diario.Linhas.contains(QStringLiteral("Atualização 3/3")));
}

void TestePrepararAtualizacao::RejeicaoNaAlteracaoMarcaExclusao()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TNoQueRejeita>()}};
    TTreeViewXML Vista;
    Vista.Atualizar(Doc(U("A", "1")));
    QVERIFY(EsperarAtualizacoes());
    TOperacoes Vista1 = TOperacoes::inclusao;
    Vista.OnProgresso = [&](TTreeViewXML &, TPreparaAtualizacao &A) {
        if (A.Etapa() == u"Atualização" && A.Posicao() == 1)
            Vista1 = A.Operacoes().front()->Operacao;
    };
    Vista.Atualizar(Doc(U("A", "1", {}, "Rejeitar='S'")));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(int(Vista1), int(TOperacoes::exclusao));
    QCOMPARE(Texto(Vista.Nos()), QStringLiteral("A"));
}

void TestePrepararAtualizacao::SeparadorDecimalFicaPonto()
{
    AtribuirSeparadorDecimal(u',');
    TTreeViewXML Vista;
    Vista.Atualizar(QStringLiteral("<R/>"));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(SeparadorDecimal(), QChar(u'.'));
}

void TestePrepararAtualizacao::GanchoRodaNaThreadEMuda()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TTreeViewXML Vista;
    Vista.Atualizar(Doc(U("A", "1")));
    QVERIFY(EsperarAtualizacoes());
    std::atomic<bool> NaGui = true;
    Vista.ConfigurarOperacao = [&](TPreparaAtualizacao &, TAtualizacao &A) {
        NaGui = QThread::currentThread() == Vista.thread();
        if (A.NoXML.Attribute(u"Nome") == QStringLiteral("A"))
            A.Operacao = TOperacoes::inclusao; // although it is there
        else
            A.Operacao = TOperacoes::alteracao; // although it is not: skipped
    };
    Vista.Atualizar(Doc(U("A", "1", U("F", "6")) + U("B", "2")));
    QVERIFY(EsperarAtualizacoes());
    QVERIFY(!NaGui);
    QCOMPARE(Texto(Vista.Nos()), QStringLiteral("A A"));
}

void TestePrepararAtualizacao::GanchoQueFalhaPergunta()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TVistaQueResponde Vista;
    Vista.ConfigurarOperacao = [](TPreparaAtualizacao &, TAtualizacao &A) {
        if (A.NoXML.Attribute(u"Nome") == QStringLiteral("B"))
            throw 42;
    };
    Vista.Atualizar(Doc(U("A", "1", U("B", "2") + U("C", "3"))));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Vista.Perguntas.size(), std::size_t(1));
    QVERIFY(Vista.NaGui);
    QCOMPARE(Vista.Perguntas[0].Caminho, QStringLiteral("R/U/U"));
    QCOMPARE(Texto(Vista.Nos()), QStringLiteral("A(C)"));
}

void TestePrepararAtualizacao::PerguntaComSimSegue()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TVistaQueResponde Vista;
    TDiario Diario(Vista);
    QCOMPARE(TPreparaAtualizacao::TextoDaPergunta(),
             QStringLiteral("Erro ao tratar o xml de resposta\r\nDeseja continuar?"));
    Vista.Atualizar(Doc(QStringLiteral("\n<U Nome='A' Cor='verde'/>") + U("B", "2")));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Vista.Perguntas.size(), std::size_t(1));
    QCOMPARE(Vista.Perguntas[0].Linha, 2);
    QCOMPARE(Vista.Perguntas[0].Elemento, QStringLiteral("U"));
    QVERIFY(Vista.Perguntas[0].Mensagem.contains(QStringLiteral("<verde>")));
    QCOMPARE(Texto(Vista.Nos()), QStringLiteral("B"));
    QCOMPARE(Diario.Linhas.last(), QStringLiteral("Terminado 0/0"));
}

void TestePrepararAtualizacao::PerguntaComNaoFalha()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TVistaQueResponde Vista;
    TDiario Diario(Vista);
    Vista.Resposta = false;
    const QString XML = Doc(U("A", "1") + QStringLiteral("<U Nome='Ω' Cor='verde'/>") + U("B", "2"));
    Vista.Atualizar(XML);
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Vista.Nos().Count(), 0);
    QCOMPARE(Diario.Linhas.last(), QStringLiteral("XML em formato inválido! 0/0"));
    QString Esperado = QStringLiteral("<!--Erro gerado:XML em formato inválido! -->\r\n") + XML + "\r\n";
    QCOMPARE(BytesDe(Diario.ArquivoDeErro), Esperado.replace(u'Ω', QStringLiteral("&#937;")).toLatin1());
    QVERIFY(QRegularExpression(QStringLiteral("/Erro[0-9]{8}_[0-9]{6}\\.xml$"))
                .match(Diario.ArquivoDeErro)
                .hasMatch());
    Vista.Resposta = true;
    Vista.Atualizar(Doc(U("B", "2")));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Texto(Vista.Nos()), QStringLiteral("B"));
}

void TestePrepararAtualizacao::FalhaNaAtualizacaoGravaODocumento()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TNoQueFalha>()}};
    TTreeViewXML Vista;
    TDiario Diario(Vista);
    Vista.Atualizar(Doc(U("A", "1") + QStringLiteral("\n\n") + U("B", "2", {}, "Falhar='1'") + U("C", "3")));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Texto(Vista.Nos()), QStringLiteral("A B")); // what was done stays
    QCOMPARE(Diario.Linhas.last(), QStringLiteral("XML em formato inválido! 0/0"));
    QVERIFY(BytesDe(Diario.ArquivoDeErro).startsWith("<!--Erro gerado:Falhou! -->\r\n<R>"));
    QCOMPARE(Diario.Falhas.back().Mensagem, QStringLiteral("Falhou!"));
    QCOMPARE(Diario.Falhas.back().Detalhe, QStringLiteral("De propósito."));
    QCOMPARE(Diario.Falhas.back().Linha, 3);
    QVERIFY(Diario.Linhas.contains(QStringLiteral("Atualização 1/3")));
}

void TestePrepararAtualizacao::ArquivoDeErroComNomeTomado()
{
    TTreeViewXML Vista;
    TDiario Diario(Vista);
    for (int I = 0; I < 3; ++I)
        Vista.Atualizar(QStringLiteral("<R DataHora='ontem' N='%1'/>").arg(I));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(QDir(FPasta.path()).entryList(QDir::Files).size(), 3); // in the same second or not
}

void TestePrepararAtualizacao::ArquivoDeErroQueNaoSeGrava()
{
    TTreeViewXML Vista;
    TDiario Diario(Vista);
    TPreparaAtualizacao::AtribuirPastaDeErros(FPasta.path() + QStringLiteral("/nao/existe"));
    const QString XML = QStringLiteral("<R DataHora='ontem'/>");
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("^Sibrel: Não foi possível gravar")));
    Vista.Atualizar(XML);
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Diario.Linhas.last(), QStringLiteral("XML em formato inválido! 0/0"));
    QVERIFY(Diario.ArquivoDeErro.isEmpty());
    QVERIFY(Diario.Falhas.back().Detalhe.contains(QStringLiteral("Não foi possível gravar")));
    QCOMPARE(Vista.DocumentosNaoGravados, QStringList({XML}));
    Vista.Atualizar(QStringLiteral("<R/>"));
    QVERIFY(EsperarAtualizacoes()); // the next one gets its turn
    QCOMPARE(Diario.Linhas.last(), QStringLiteral("Terminado 0/0"));
}

void TestePrepararAtualizacao::CancelarDeixaOFeito()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TNoLento>()}};
    TTreeViewXML Vista;
    TDiario Diario(Vista);
    const auto DoDiario = Vista.OnProgresso;
    Vista.OnProgresso = [&](TTreeViewXML &V, TPreparaAtualizacao &A) {
        DoDiario(V, A);
        if (A.Etapa() == u"Atualização" && A.Posicao() == 2)
            A.Cancelar();
    };
    QString Muitos;
    for (int I = 0; I < 40; ++I)
        Muitos += U(QString::number(I), QString::number(I));
    Vista.Atualizar(Doc(Muitos));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Diario.Linhas.last(), QStringLiteral("Cancelado 0/0"));
    QCOMPARE(Vista.Nos().Count(), 2);
    QCOMPARE(QDir(FPasta.path()).entryList(QDir::Files).size(), 0);
}

void TestePrepararAtualizacao::VistaDestruidaNoMeio_data()
{
    QTest::addColumn<QString>("Etapa");
    QTest::addColumn<int>("Posicao");
    QTest::newRow("leitura") << "Abertura" << 4;
    QTest::newRow("preparacao") << "Preparação" << 0;
    QTest::newRow("antes do primeiro") << "Atualização" << 0;
    QTest::newRow("no meio") << "Atualização" << 5;
    QTest::newRow("no fim") << "Terminado" << 0;
}

void TestePrepararAtualizacao::VistaDestruidaNoMeio()
{
    QFETCH(QString, Etapa);
    QFETCH(int, Posicao);
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    auto *Vista = new TTreeViewXML;
    Vista->show();
    bool Destruida = false;
    Vista->OnProgresso = [&](TTreeViewXML &V, TPreparaAtualizacao &A) {
        if (A.Etapa() == Etapa && A.Posicao() == Posicao) {
            Destruida = true;
            delete &V;
        }
    };
    QString Muitos;
    for (int I = 0; I < 20; ++I)
        Muitos += U(QString::number(I), QString::number(I));
    Vista->Atualizar(Doc(Muitos));
    Vista->Atualizar(Doc(Muitos)); // which waits for its turn
    QVERIFY(EsperarAtualizacoes());
    QVERIFY(Destruida);
}

void TestePrepararAtualizacao::NoExcluidoPeloHospedeiroNoMeio()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TTreeViewXML Vista;
    Vista.Atualizar(Doc(U("A", "1", U("B", "2")) + U("C", "3")));
    QVERIFY(EsperarAtualizacoes());
    TDiario Diario(Vista);
    const auto DoDiario = Vista.OnProgresso;
    Vista.OnProgresso = [&](TTreeViewXML &V, TPreparaAtualizacao &A) {
        DoDiario(V, A);
        if (A.Etapa() == u"Atualização" && A.Posicao() == 0)
            V.Excluir(V.Nos().GetFirstNode()); // to which queued operations refer
    };
    Vista.Atualizar(
        Doc(U("A", "1", U("B", "2") + U("N", "7", U("M", "8")), "Cor='4'") + U("C", "3", {}, "Cor='5'")));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Texto(Vista.Nos()), QStringLiteral("C"));
    QCOMPARE(static_cast<TTreeNodeXML *>(Vista.Nos().GetFirstNode())->Cor(), 5);
    QCOMPARE(Diario.Linhas.last(), QStringLiteral("Terminado 0/0"));
}

void TestePrepararAtualizacao::ManipuladorQueFalhaEFalhaDaAtualizacao()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TTreeViewXML Vista;
    QString Ultima;
    Vista.OnProgresso = [&](TTreeViewXML &, TPreparaAtualizacao &A) {
        Ultima = A.Etapa();
        if (A.Etapa() == u"Atualização" && A.Posicao() == 0)
            throw Exception(QStringLiteral("manipulador"));
    };
    Vista.Atualizar(Doc(U("A", "1")));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Ultima, QStringLiteral("XML em formato inválido!"));
    QCOMPARE(Vista.Nos().Count(), 0);
}

void TestePrepararAtualizacao::UmaPorVezENaOrdem()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TTreeViewXML Vistas[2];
    QStringList Terminos;
    std::atomic<int> Dentro = 0;
    std::atomic<bool> Juntas = false;
    for (TTreeViewXML &Vista : Vistas) {
        Vista.ConfigurarOperacao = [&](TPreparaAtualizacao &, TAtualizacao &) {
            if (++Dentro > 1)
                Juntas = true;
            QThread::msleep(2);
            --Dentro;
        };
        Vista.OnProgresso = [&](TTreeViewXML &, TPreparaAtualizacao &A) {
            if (A.Etapa() == u"Terminado")
                Terminos.append(A.XML().mid(3, 8));
        };
    }
    QStringList Esperados;
    for (int I = 0; I < 20; ++I) {
        const QString XML = Doc(QStringLiteral("<U N='%1'/>").arg(I, 2, 10, QLatin1Char('0')) + U("B", "2"));
        Esperados.append(XML.mid(3, 8));
        Vistas[I % 2].Atualizar(XML);
    }
    QVERIFY(EsperarAtualizacoes());
    QVERIFY(!Juntas);
    QCOMPARE(Terminos, Esperados);
}

// A node that does not go on before the window has looked at the tree: with the tree locked it would wait
// in vain.
void TestePrepararAtualizacao::NoLentoNaoTravaAJanela()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TNoQueEspera>()}};
    TTreeViewXML Vista;
    Vista.resize(200, 200);
    Vista.show();
    TNoQueEspera::EmVao = 0;
    Vista.Atualizar(Doc(U("A", "1") + U("B", "2") + U("C", "3")));
    while (TPreparaAtualizacao::Instancias() > 0) {
        const int Pedidos = TNoQueEspera::Pedidos;
        Vista.viewport()->repaint();
        for (TTreeNode *No = Vista.Nos().GetFirstNode(); No != nullptr; No = No->GetNext())
            No->Text();
        TNoQueEspera::Atendidos = Pedidos;
        QCoreApplication::processEvents();
    }
    QCOMPARE(TNoQueEspera::EmVao.load(), 0);
    QCOMPARE(TNoQueEspera::Pedidos.load(), 3);
    QCOMPARE(Texto(Vista.Nos()), QStringLiteral("A B C"));
}

void TestePrepararAtualizacao::SinaisEmSequencia()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TTreeViewXML Vista;
    Vista.Atualizar(Doc(U("A", "1", U("B", "2") + U("C", "3") + U("D", "4")) + U("E", "5") + U("F", "6")));
    QVERIFY(EsperarAtualizacoes());
    QStringList Sinais;
    const TModeloDeNos *Modelo = &Vista.Modelo();
    const auto Nota = [&](const char *Sinal, const QModelIndex &Pai, int De, int Para) {
        Sinais.append(
            QStringLiteral("%1 %2 %3-%4").arg(QLatin1String(Sinal), Pai.data().toString()).arg(De).arg(Para));
    };
    connect(Modelo, &QAbstractItemModel::rowsInserted, this,
            [&](const QModelIndex &P, int De, int Para) { Nota("mais", P, De, Para); });
    connect(Modelo, &QAbstractItemModel::rowsRemoved, this,
            [&](const QModelIndex &P, int De, int Para) { Nota("menos", P, De, Para); });
    connect(Modelo, &QAbstractItemModel::dataChanged, this,
            [&](const QModelIndex &De, const QModelIndex &Para) {
                Nota("muda", De.parent(), De.row(), Para.row());
            });
    connect(Modelo, &QAbstractItemModel::modelReset, this, [&] { Sinais.append(QStringLiteral("tudo")); });
    connect(Modelo, &QAbstractItemModel::layoutChanged, this,
            [&] { Sinais.append(QStringLiteral("forma")); });
    // One publication: the view is told what there is to show when the update is over.
    Vista.Nos().BeginUpdate();
    Vista.Nos().EndUpdate();
    Vista.Atualizar(Doc(U("A", "1",
                          U("B", "2", {}, "Cor='1'") + U("C", "3", {}, "Cor='1'") + Fora("D", "4") +
                              U("N", "7", U("M", "8"))) +
                        Fora("E", "5") + U("G", "9") + U("H", "10")));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Mostrado(*Modelo), QStringLiteral("A(B C N(M)) F G H"));
    // Nothing of A: what its element says is what it shows already.
    QCOMPARE(Sinais, QStringList({"menos A 2-2", "menos  1-1", "mais A 2-2", "mais  2-3", "muda A 0-1"}));
    Sinais.clear();
    Vista.Items().Clear();
    QCOMPARE(Sinais, QStringList({"tudo"}));
}

void TestePrepararAtualizacao::RolagemSelecaoEExpansaoFicam()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TTreeViewXML Vista;
    Vista.resize(200, 200);
    Vista.show();
    QVERIFY(QTest::qWaitForWindowExposed(&Vista));
    QString Muitos;
    for (int I = 0; I < 100; ++I)
        Muitos += U(QStringLiteral("N%1").arg(I), QString::number(I),
                    U(QStringLiteral("F%1").arg(I), QStringLiteral("f%1").arg(I)));
    Vista.Atualizar(Doc(Muitos));
    QVERIFY(EsperarAtualizacoes());
    TTreeNode *N50 = Vista.ObterNo(QStringLiteral("N50"));
    TTreeNode *N52 = Vista.ObterNo(QStringLiteral("N52"));
    Vista.AtribuirSelected(N50);
    Vista.scrollTo(Vista.Modelo().IndiceDe(N50), QAbstractItemView::PositionAtTop);
    Vista.collapse(Vista.Modelo().IndiceDe(N52));
    QVERIFY(!N52->Expanded());
    Vista.repaint();
    const int Topo = Vista.DisplayRect(N50).Top;
    Vista.Atualizar(Doc(U("N3", "3", U("Novo", "n") + U("Novo2", "n2") + U("Novo3", "n3")) + Fora("N7", "7") +
                        U("N52", "52", {}, "Cor='3'") + U("X", "x")));
    QVERIFY(EsperarAtualizacoes());
    QCoreApplication::processEvents();
    Vista.repaint();
    QCOMPARE(Vista.Selected(), N50);
    QCOMPARE(Vista.DisplayRect(N50).Top, Topo);
    QVERIFY(!Vista.isExpanded(Vista.Modelo().IndiceDe(N52)));
    QVERIFY(Vista.isExpanded(Vista.Modelo().IndiceDe(Vista.ObterNo(QStringLiteral("N3")))));
}

void TestePrepararAtualizacao::LerEAcrescentar()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TTreeViewXML Vista;
    const QString Arquivo = FPasta.filePath(QStringLiteral("a.xml"));
    EscreverBytes(Arquivo, ("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>" + Doc(U("Aço €", "1")))
                               .toUtf8()
                               .replace("ç", "\xE7")
                               .replace("€", "\x80")
                               .replace("ó", "\xF3"));
    Vista.Ler(Arquivo, false);
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Texto(Vista.Nos()), QStringLiteral("Aço €"));
    EscreverBytes(Arquivo, ("\xEF\xBB\xBF" + Doc(U("É", "2")).toUtf8()));
    Vista.Ler(Arquivo, true);
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Texto(Vista.Nos()), QStringLiteral("Aço € É"));
    Vista.AtribuirXML(TStringList(QStringList{"<R>", U("Z", "1"), "</R>"}));
    QVERIFY(QGuiApplication::overrideCursor() == nullptr);
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Texto(Vista.Nos()), QStringLiteral("Z"));
}

void TestePrepararAtualizacao::LerErros()
{
    TTreeViewXML Vista;
    Vista.Nos().AddChild(nullptr, QStringLiteral("A"));
    QVERIFY_THROWS_EXCEPTION(EFOpenError, Vista.Ler(FPasta.filePath("nao-ha.xml"), true));
    QCOMPARE(Vista.Nos().Count(), 1);
    QVERIFY_THROWS_EXCEPTION(EFOpenError, Vista.Ler(FPasta.path(), true));
    const QString Arquivo = FPasta.filePath(QStringLiteral("ruim.xml"));
    for (const QByteArray &Bytes :
         {QByteArray("<R>"), QByteArray("<?xml version='1.0' encoding='UTF-8'?><R a='\xE7'/>")}) {
        EscreverBytes(Arquivo, Bytes);
        Vista.Nos().AddChild(nullptr, QStringLiteral("B"));
        try {
            Vista.Ler(Arquivo, false);
            QFAIL("devia falhar");
        } catch (const Exception &E) {
            QCOMPARE(E.Message, QStringLiteral("Arquivo em formato inválido!"));
        }
        QCOMPARE(Vista.Nos().Count(), 0);
    }
    QVERIFY_THROWS_EXCEPTION(Exception, Vista.AtribuirXML(TStringList(QStringList{"<R>"})));
    QVERIFY(QGuiApplication::overrideCursor() != nullptr); // stays, so that the failure shows
    QGuiApplication::restoreOverrideCursor();
}

void TestePrepararAtualizacao::ModeloPassaNoTestador()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TTreeViewXML Vista;
    Vista.resize(200, 300);
    Vista.show();
    const QAbstractItemModelTester Testador(&Vista.Modelo(),
                                            QAbstractItemModelTester::FailureReportingMode::QtTest);
    unsigned Acaso = 99;
    const auto Ate = [&Acaso](unsigned Limite) {
        Acaso = Acaso * 1103515245U + 12345U;
        return int((Acaso >> 16) % Limite);
    };
    for (int Volta = 0; Volta < 60; ++Volta) {
        QString XML;
        for (int I = 0; I < 30; ++I) {
            const QString Nome = QString::number(Ate(80));
            QString Dentro;
            for (int J = 0; J < Ate(6); ++J) {
                const QString Filho = QString::number(Ate(9));
                Dentro +=
                    Ate(4) == 0 ? Fora(Filho, Filho) : U(Filho, Filho, Ate(2) ? U("x", "x") : QString());
            }
            XML += Ate(6) == 0 ? Fora(Nome, Nome)
                               : U(Nome, Nome, Dentro, QStringLiteral("Cor='%1'").arg(Ate(3)));
        }
        if (Volta % 20 == 19)
            Vista.AtribuirXML(TStringList(QStringList{Doc(XML)}));
        else
            Vista.Atualizar(Doc(XML));
        for (int I = Ate(5); I > 0; --I) {
            QCoreApplication::processEvents();
            TTreeNode *No = Vista.Nos().GetFirstNode();
            for (int K = Ate(10); K > 0 && No != nullptr; --K)
                No = No->GetNext();
            if (No != nullptr && Ate(3) == 0)
                Vista.Excluir(No);
        }
        if (Volta % 3 == 0) {
            QVERIFY(EsperarAtualizacoes());
            QCOMPARE(Mostrado(Vista.Modelo()), Texto(Vista.Nos()));
        }
    }
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Mostrado(Vista.Modelo()), Texto(Vista.Nos()));
    // Many places at once: a change of layout instead of rows.
    TStringList Lista(QStringList{"c=x"});
    for (int I = 0; I < 300; ++I)
        Vista.Nos().AddChild(Vista.Nos().AddChild(nullptr, QString::number(I)), QStringLiteral("f"));
    QSignalSpy Formas(&Vista.Modelo(), &QAbstractItemModel::layoutChanged);
    {
        const TAtualizacaoDeNos Junta(Vista.Nos());
        for (TTreeNode *No = Vista.Nos().GetFirstNode(); No != nullptr;) {
            TTreeNode *Proximo = No->GetNextSibling();
            if (No->Text().toInt() % 2 == 0)
                Vista.Nos().Delete(No);
            else
                Vista.Nos().AddChild(No, QStringLiteral("g"));
            No = Proximo;
        }
    }
    QVERIFY(Formas.count() >= 2);
    QCOMPARE(Mostrado(Vista.Modelo()), Texto(Vista.Nos()));
}

QTEST_MAIN(TestePrepararAtualizacao)
#include "TestePrepararAtualizacao.moc"
