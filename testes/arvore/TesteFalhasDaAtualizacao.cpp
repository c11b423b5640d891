// SPDX-License-Identifier: LGPL-2.1-or-later
// What goes wrong around an update, and that the next one works whatever it was.
#include "arvore/ComumAtualizacao.h"
#include "comum/Dados.h"
#include "plataforma/Exception.h"

#include <QAbstractItemModelTester>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <atomic>
#include <csignal>
#include <stdexcept>
#include <sys/mount.h>
#include <sys/resource.h>

using namespace Sibrel;
using namespace Sibrel::Testes;

namespace
{

// Fails where its element says: "criar" when it is made for the tree, "casar" when it is made only to find
// its caption, "carregar" when the node in the tree loads it. The attribute Oque says with what.
class TNoQueLanca : public ComClasse<TNoQueLanca, TTreeNodeXML>
{
public:
    using ComClasse::ComClasse;
    static constexpr const char *NomeDaClasse = "TNoQueLanca";

    static void Lancar(const QString &Oque)
    {
        if (Oque == u"nossa")
            throw EInvalidOperation(QStringLiteral("Falhou!"), QStringLiteral("De propósito."));
        if (Oque == u"padrao")
            throw std::runtime_error("falhou");
        if (Oque == u"memoria")
            throw std::bad_alloc();
        if (Oque == u"numero")
            throw 42;
    }

    bool AtribuirNoXML(const IXMLNode &No) override
    {
        const QString Onde = No.Attribute(u"Onde").value_or(QString());
        if (Onde == (NaArvore() ? u"carregar" : u"casar"))
            Lancar(No.Attribute(u"Oque").value_or(QString()));
        return ComClasse::AtribuirNoXML(No);
    }
};

// A class that a host registered by mistake: there is nothing to make.
class TNoAbstrato : public ComClasse<TNoAbstrato, TTreeNodeXML>
{
public:
    using ComClasse::ComClasse;
    static constexpr const char *NomeDaClasse = "TNoAbstrato";
    virtual void Falta() = 0;
};

// Takes 50 ms an element, and notes how many events the window served meanwhile.
class TNoDemorado : public ComClasse<TNoDemorado, TTreeNodeXML>
{
public:
    using ComClasse::ComClasse;
    static constexpr const char *NomeDaClasse = "TNoDemorado";
    static inline std::atomic<int> Servidos = 0;
    static inline std::atomic<int> Elementos = 0;
    static inline std::atomic<int> SemResposta = 0;
    bool AtribuirNoXML(const IXMLNode &No) override
    {
        if (NaArvore()) {
            const int Antes = Servidos;
            QThread::msleep(50);
            ++Elementos;
            SemResposta += Servidos == Antes ? 1 : 0;
        }
        return ComClasse::AtribuirNoXML(No);
    }
};

const QString Invalido = QStringLiteral("XML em formato inválido!");
const QString QueFalha = QStringLiteral("<R DataHora='ontem'/>");

// A folder that cannot be written to by anyone: what is below a file is none, and the kernel's own take no
// files.
QString PastaQueNaoSeGrava(const QString &Qual, const QTemporaryDir &Pasta)
{
    if (Qual == u"abaixo de um arquivo") {
        EscreverBytes(Pasta.filePath(QStringLiteral("arquivo")), "x");
        return Pasta.filePath(QStringLiteral("arquivo/pasta"));
    }
    return Qual == u"não existe" ? Pasta.filePath(QStringLiteral("nao/ha")) : QStringLiteral("/proc");
}

// A file system of one page that is full; empty when this user may not have one.
class TDiscoCheio
{
public:
    explicit TDiscoCheio(const QString &Onde)
        : FOnde(Onde)
    {
        QDir().mkpath(Onde);
        FMontado = mount("tmpfs", QFile::encodeName(Onde).constData(), "tmpfs", 0, "size=4k") == 0;
        if (FMontado)
            EscreverBytes(Onde + QStringLiteral("/cheio"), QByteArray(4096, 'x'));
    }
    ~TDiscoCheio()
    {
        if (FMontado)
            umount(QFile::encodeName(FOnde).constData());
    }
    TDiscoCheio(const TDiscoCheio &) = delete;
    TDiscoCheio &operator=(const TDiscoCheio &) = delete;
    bool Montado() const { return FMontado; }

private:
    QString FOnde;
    bool FMontado = false;
};

// Files may not grow beyond a few bytes, for as long as an object lives.
class TLimiteDeArquivo
{
public:
    TLimiteDeArquivo()
    {
        getrlimit(RLIMIT_FSIZE, &FAntes);
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit Agora = FAntes;
        Agora.rlim_cur = 40;
        setrlimit(RLIMIT_FSIZE, &Agora);
    }
    ~TLimiteDeArquivo() { setrlimit(RLIMIT_FSIZE, &FAntes); }
    TLimiteDeArquivo(const TLimiteDeArquivo &) = delete;
    TLimiteDeArquivo &operator=(const TLimiteDeArquivo &) = delete;

private:
    rlimit FAntes{};
};

void IgnorarAvisoDeGravacao()
{
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("^Sibrel: Não foi possível gravar")));
}

} // namespace

class TesteFalhasDaAtualizacao : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void ArquivoDeErroAoLadoDoExecutavel();
    void PastaDeErrosQueNaoSeGrava_data();
    void PastaDeErrosQueNaoSeGrava();
    void DiscoCheio_data();
    void DiscoCheio();
    void NomeTomadoGanhaNumero_data();
    void NomeTomadoGanhaNumero();
    void DocumentoMalformado_data();
    void DocumentoMalformado();
    void ArquivoQueMente_data();
    void ArquivoQueMente();
    void RaizErradaNaoMudaNada();
    void GanchoQueLanca_data();
    void GanchoQueLanca();
    void ClasseQueLanca_data();
    void ClasseQueLanca();
    void ClasseAbstrata();
    void ManipuladorQueLancaNaAbertura();
    void ClasseDemoradaEAJanelaResponde();
    void OLugarDaFalhaNaPreparacao();
    void OLugarDaFalhaNaRealizacao();
    void OLugarDaDataErrada();
    void DepoisDeUmSimAFalhaSeguinteTemOSeuLugar();
    void PublicacaoQueFalhaERefeita_data();
    void PublicacaoQueFalhaERefeita();
    void MemoriaQueAcaba_data();
    void MemoriaQueAcaba();
    void CadaAlocacaoQueFalha_data();
    void CadaAlocacaoQueFalha();

private:
    void AProximaFunciona(TTreeViewXML &Vista);

    std::unique_ptr<QTemporaryDir> FPasta;
    std::unique_ptr<TTagsRegistradas> FTags;
};

void TesteFalhasDaAtualizacao::init()
{
    FPasta = std::make_unique<QTemporaryDir>();
    FTags = std::make_unique<TTagsRegistradas>(std::initializer_list<std::pair<const char *, TRefNoXML>>{
        {"U", TRefNoXML::De<TTreeNodeXML>()}, {"L", TRefNoXML::De<TNoQueLanca>()}});
    TPreparaAtualizacao::AtribuirPastaDeErros(FPasta->path());
}

void TesteFalhasDaAtualizacao::cleanup()
{
    QCOMPARE(TPreparaAtualizacao::Instancias(), 0);
    TPreparaAtualizacao::AtribuirPastaDeErros(QString());
    FTags.reset();
    FPasta.reset();
}

// The lock was let go, the tree takes nodes and shows them.
void TesteFalhasDaAtualizacao::AProximaFunciona(TTreeViewXML &Vista)
{
    const QString Antes = Texto(Vista.Nos());
    const QString Novo = QStringLiteral("Depois%1").arg(Vista.Nos().Count());
    const TDiario Diario(Vista);
    Vista.Atualizar(Doc(U(Novo, Novo)));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Diario.Linhas.last(), QStringLiteral("Terminado 0/0"));
    QCOMPARE(Texto(Vista.Nos()), QString(Antes + u' ' + Novo).trimmed());
    QCOMPARE(Mostrado(Vista.Modelo()), Texto(Vista.Nos()));
}

void TesteFalhasDaAtualizacao::ArquivoDeErroAoLadoDoExecutavel()
{
    TPreparaAtualizacao::AtribuirPastaDeErros(QString());
    TTreeViewXML Vista;
    const TDiario Diario(Vista);
    Vista.Atualizar(QueFalha);
    QVERIFY(EsperarAtualizacoes());
    const QFileInfo Arquivo(Diario.ArquivoDeErro);
    QCOMPARE(Arquivo.absolutePath(), QCoreApplication::applicationDirPath());
    QVERIFY(QRegularExpression(QStringLiteral("^Erro[0-9]{8}_[0-9]{6}(_[0-9]+)?\\.xml$"))
                .match(Arquivo.fileName())
                .hasMatch());
    QCOMPARE(BytesDe(Diario.ArquivoDeErro),
             QString(QStringLiteral("<!--Erro gerado:XML em formato inválido! -->\r\n") + QueFalha +
                     QStringLiteral("\r\n"))
                 .toLatin1());
    QVERIFY(QFile::remove(Diario.ArquivoDeErro));
}

void TesteFalhasDaAtualizacao::PastaDeErrosQueNaoSeGrava_data()
{
    QTest::addColumn<QString>("Qual");
    for (const char *Qual : {"abaixo de um arquivo", "não existe", "do sistema"})
        QTest::newRow(Qual) << QString::fromUtf8(Qual);
}

void TesteFalhasDaAtualizacao::PastaDeErrosQueNaoSeGrava()
{
    QFETCH(QString, Qual);
    TPreparaAtualizacao::AtribuirPastaDeErros(PastaQueNaoSeGrava(Qual, *FPasta));
    TTreeViewXML Vista;
    const TDiario Diario(Vista);
    IgnorarAvisoDeGravacao();
    Vista.Atualizar(QueFalha);
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Diario.Linhas.last(), QStringLiteral("XML em formato inválido! 0/0"));
    QVERIFY(Diario.ArquivoDeErro.isEmpty());
    QCOMPARE(Diario.Falhas.size(), std::size_t(1));
    QVERIFY(Diario.Falhas[0].Detalhe.contains(QStringLiteral("Não foi possível gravar <")));
    QCOMPARE(Vista.DocumentosNaoGravados, QStringList({QueFalha}));
    AProximaFunciona(Vista);
}

void TesteFalhasDaAtualizacao::DiscoCheio_data()
{
    QTest::addColumn<bool>("Montado");
    QTest::newRow("limite do processo") << false;
    QTest::newRow("disco montado") << true;
}

void TesteFalhasDaAtualizacao::DiscoCheio()
{
    QFETCH(bool, Montado);
    QString Pasta = FPasta->path();
    std::unique_ptr<TDiscoCheio> Disco;
    std::unique_ptr<TLimiteDeArquivo> Limite;
    if (Montado) {
        Pasta = FPasta->filePath(QStringLiteral("disco"));
        Disco = std::make_unique<TDiscoCheio>(Pasta);
        if (!Disco->Montado())
            QSKIP("este usuário não monta discos; a outra linha cobre o mesmo");
    }
    TPreparaAtualizacao::AtribuirPastaDeErros(Pasta);
    TTreeViewXML Vista;
    const TDiario Diario(Vista);
    IgnorarAvisoDeGravacao();
    if (!Montado)
        Limite = std::make_unique<TLimiteDeArquivo>();
    Vista.Atualizar(QueFalha);
    const bool Acabou = EsperarAtualizacoes();
    Limite.reset();
    QVERIFY(Acabou);
    QCOMPARE(Diario.Linhas.last(), QStringLiteral("XML em formato inválido! 0/0"));
    QVERIFY(Diario.ArquivoDeErro.isEmpty());
    QCOMPARE(Vista.DocumentosNaoGravados, QStringList({QueFalha}));
    QCOMPARE(QDir(Pasta).entryList({QStringLiteral("Erro*")}), QStringList()); // no part of it either
    AProximaFunciona(Vista);
}

void TesteFalhasDaAtualizacao::NomeTomadoGanhaNumero_data()
{
    QTest::addColumn<QString>("Como");
    for (const char *Como : {"arquivo", "pasta", "atalho que não leva a nada"})
        QTest::newRow(Como) << QString::fromUtf8(Como);
}

void TesteFalhasDaAtualizacao::NomeTomadoGanhaNumero()
{
    QFETCH(QString, Como);
    // The names of the next minute, whichever second it will be.
    const QDateTime Agora = QDateTime::currentDateTime();
    for (int S = 0; S < 60; ++S) {
        const QString Nome = FPasta->filePath(
            QStringLiteral("Erro%1.xml").arg(Agora.addSecs(S).toString(QStringLiteral("yyyyMMdd_HHmmss"))));
        if (Como == u"arquivo")
            EscreverBytes(Nome, "antes");
        else if (Como == u"pasta")
            QVERIFY(QDir().mkdir(Nome));
        else
            QVERIFY(QFile::link(FPasta->filePath(QStringLiteral("nada")), Nome));
    }
    TTreeViewXML Vista;
    const TDiario Diario(Vista);
    Vista.Atualizar(QueFalha);
    QVERIFY(EsperarAtualizacoes());
    QVERIFY2(Diario.ArquivoDeErro.endsWith(QStringLiteral("_2.xml")), qPrintable(Diario.ArquivoDeErro));
    QVERIFY(BytesDe(Diario.ArquivoDeErro).contains("ontem"));
    QVERIFY(!QFileInfo::exists(FPasta->filePath(QStringLiteral("nada"))));
    AProximaFunciona(Vista);
}

void TesteFalhasDaAtualizacao::DocumentoMalformado_data()
{
    QTest::addColumn<QString>("XML");
    const auto Linha = [](const char *Nome, const QString &XML) { QTest::newRow(Nome) << XML; };
    Linha("vazio", "");
    Linha("brancos", " \r\n\t ");
    Linha("só declaração", "<?xml version='1.0'?>");
    Linha("só comentário", "<!-- nada -->");
    Linha("texto solto", "Terminado");
    Linha("truncado na raiz", "<R");
    Linha("truncado depois da raiz", "<R>");
    Linha("truncado num nome", "<R><U Nom");
    Linha("truncado num valor", "<R><U Nome='A");
    Linha("truncado numa entidade", "<R><U Nome='A&am");
    Linha("truncado num texto", "<R>texto");
    Linha("truncado num comentário", "<R><!-- fim");
    Linha("truncado em CDATA", "<R><![CDATA[ fim");
    Linha("truncado numa instrução", "<R><?fim");
    Linha("truncado no fecho", "<R><U/></R");
    Linha("truncado no DTD", "<!DOCTYPE R [<!ELEMENT R ANY>");
    Linha("dois elementos raiz", "<R/><R/>");
    Linha("texto antes", "x<R/>");
    Linha("texto depois", "<R/>x");
    Linha("declaração fora do lugar", " <?xml version='1.0'?><R/>");
    Linha("fecho trocado", "<R><U><V></U></V></R>");
    Linha("fecho em outra letra", "<R><U></u></R>");
    Linha("fecho a mais", "<R></U></R>");
    Linha("atributo repetido", "<R><U a='1' a='2'/></R>");
    Linha("atributo sem aspas", "<R><U a=1/></R>");
    Linha("atributo sem valor", "<R><U a/></R>");
    Linha("atributos colados", "<R><U a='1'b='2'/></R>");
    Linha("menor num atributo", "<R><U a='<'/></R>");
    Linha("menor num texto", "<R>1 < 2</R>");
    Linha("e comercial", "<R>A & B</R>");
    Linha("fim de CDATA num texto", "<R>]]></R>");
    Linha("traços num comentário", "<R><!-- a -- b --></R>");
    Linha("nome que começa com número", "<R><1/></R>");
    Linha("elemento sem nome", "<R>< /></R>");
    Linha("entidade desconhecida", "<R>&nbsp;</R>");
    Linha("referência a zero", "<R>&#0;</R>");
    Linha("referência fora do código", "<R>&#x110000;</R>");
    Linha("caractere de controle", QStringLiteral("<R>%1</R>").arg(QChar(7)));
    Linha("caractere zero", QStringLiteral("<R>%1</R>").arg(QChar(0)));
    Linha("DTD que não se cumpre", "<!DOCTYPE R [<!ELEMENT R EMPTY>]><R><U/></R>");
    Linha("DTD de outra raiz", "<!DOCTYPE S [<!ELEMENT S ANY>]><R/>");
    Linha("entidade de fora",
          "<!DOCTYPE R [<!ELEMENT R ANY><!ENTITY e SYSTEM 'file:///etc/hostname'>]><R>&e;</R>");
    Linha("DTD de fora", "<!DOCTYPE R SYSTEM 'http://localhost/r.dtd'><R/>");
    Linha("entidade de si mesma", "<!DOCTYPE R [<!ELEMENT R ANY><!ENTITY e '&e;'>]><R>&e;</R>");
    Linha("fundo demais", QStringLiteral("<R>").repeated(300) + QStringLiteral("</R>").repeated(300));
}

void TesteFalhasDaAtualizacao::DocumentoMalformado()
{
    QFETCH(QString, XML);
    TTreeViewXML Vista;
    Vista.Nos().AddChild(nullptr, QStringLiteral("A"));
    const TDiario Diario(Vista);
    try {
        Vista.Atualizar(XML);
        QFAIL("devia falhar");
    } catch (const Exception &E) {
        QCOMPARE(E.Message, Invalido);
        QVERIFY(!E.Detalhe.isEmpty());
    }
    QCOMPARE(TPreparaAtualizacao::Instancias(), 0);
    QCOMPARE(Diario.Linhas, QStringList({"Abertura 0/4"}));
    QCOMPARE(QDir(FPasta->path()).entryList(QDir::Files), QStringList());
    AProximaFunciona(Vista);
}

// The encoding that a file declares is not the one that its bytes have.
void TesteFalhasDaAtualizacao::ArquivoQueMente_data()
{
    QTest::addColumn<QByteArray>("Bytes");
    QTest::newRow("diz UTF-8, é Latin-1")
        << QByteArray("<?xml version='1.0' encoding='UTF-8'?><R a='\xE7'/>");
    QTest::newRow("UTF-8 cortado") << QByteArray("<?xml version='1.0' encoding='UTF-8'?><R>\xC3</R>");
    QTest::newRow("diz UTF-16, não é") << QByteArray("<?xml version='1.0' encoding='UTF-16'?><R/>");
    QTest::newRow("marca de UTF-16, bytes de UTF-8") << QByteArray("\xFF\xFE<R/>");
    QTest::newRow("codificação que não existe") << QByteArray("<?xml version='1.0' encoding='nenhuma'?><R/>");
    QTest::newRow("bytes zero") << QByteArray("<R>\0</R>", 8);
}

void TesteFalhasDaAtualizacao::ArquivoQueMente()
{
    QFETCH(QByteArray, Bytes);
    const QString Arquivo = FPasta->filePath(QStringLiteral("mente.xml"));
    EscreverBytes(Arquivo, Bytes);
    TTreeViewXML Vista;
    Vista.Nos().AddChild(nullptr, QStringLiteral("A"));
    try {
        Vista.Ler(Arquivo, true);
        QFAIL("devia falhar");
    } catch (const Exception &E) {
        QCOMPARE(E.Message, QStringLiteral("Arquivo em formato inválido!"));
        QVERIFY(!E.Detalhe.isEmpty());
    }
    QCOMPARE(Texto(Vista.Nos()), QStringLiteral("A"));
    AProximaFunciona(Vista);
}

void TesteFalhasDaAtualizacao::RaizErradaNaoMudaNada()
{
    TTreeViewXML Vista;
    Vista.Atualizar(Doc(U("A", "1")));
    QVERIFY(EsperarAtualizacoes());
    const TDiario Diario(Vista);
    Vista.ElementoRaiz = QStringLiteral("Outra");
    int Ganchos = 0;
    Vista.ConfigurarOperacao = [&](TPreparaAtualizacao &, TAtualizacao &) { ++Ganchos; };
    const QDateTime Antes = Vista.DataHora();
    Vista.Atualizar(QStringLiteral("<R DataHora='ontem'>%1%2</R>").arg(Fora("A", "1"), U("B", "2")));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Diario.Linhas, QStringList({"Abertura 0/4", "Abertura 4/4", "Preparação 0/0", "Atualização 0/0",
                                         "Terminado 0/0"}));
    QVERIFY(Diario.Falhas.empty());
    QCOMPARE(Ganchos, 0);
    QCOMPARE(Vista.DataHora(), Antes);
    QCOMPARE(Texto(Vista.Nos()), QStringLiteral("A"));
}

void TesteFalhasDaAtualizacao::GanchoQueLanca_data()
{
    QTest::addColumn<QString>("Oque");
    QTest::addColumn<QString>("Mensagem");
    QTest::addColumn<QString>("Detalhe");
    QTest::newRow("exceção do sistema") << "nossa"
                                        << "Falhou!"
                                        << "De propósito.";
    QTest::newRow("exceção padrão") << "padrao"
                                    << "falhou"
                                    << "";
    QTest::newRow("memória") << "memoria"
                             << "Memória insuficiente!"
                             << "";
    QTest::newRow("o que não é exceção") << "numero"
                                         << "Erro desconhecido"
                                         << "";
}

void TesteFalhasDaAtualizacao::GanchoQueLanca()
{
    QFETCH(QString, Oque);
    QFETCH(QString, Mensagem);
    QFETCH(QString, Detalhe);
    for (const bool Continuar : {true, false}) {
        TVistaQueResponde Vista;
        const TDiario Diario(Vista);
        Vista.Resposta = Continuar;
        Vista.ConfigurarOperacao = [&](TPreparaAtualizacao &, TAtualizacao &A) {
            if (A.NoXML.Attribute(u"Nome") == QStringLiteral("B"))
                TNoQueLanca::Lancar(Oque);
        };
        Vista.Atualizar(Doc(U("A", "1") + U("B", "2", U("F", "5")) + U("C", "3")));
        QVERIFY(EsperarAtualizacoes());
        QCOMPARE(Vista.Perguntas.size(), std::size_t(1));
        QCOMPARE(Vista.Perguntas[0].Mensagem, Mensagem);
        QCOMPARE(Vista.Perguntas[0].Detalhe, Detalhe);
        QCOMPARE(Texto(Vista.Nos()), Continuar ? QStringLiteral("A C") : QString());
        QCOMPARE(Diario.Linhas.last(), Continuar ? QStringLiteral("Terminado 0/0")
                                                 : QStringLiteral("XML em formato inválido! 0/0"));
        QCOMPARE(Diario.ArquivoDeErro.isEmpty(), Continuar);
        Vista.ConfigurarOperacao = nullptr;
        AProximaFunciona(Vista);
    }
}

void TesteFalhasDaAtualizacao::ClasseQueLanca_data()
{
    QTest::addColumn<QString>("Onde");
    QTest::addColumn<QString>("Oque");
    QTest::addColumn<QString>("Mensagem");
    for (const char *Onde : {"casar", "carregar"}) {
        const auto Linha = [Onde](const char *Oque, const char *Mensagem) {
            QTest::addRow("%s, %s", Onde, Oque)
                << QString::fromUtf8(Onde) << QString::fromUtf8(Oque) << QString::fromUtf8(Mensagem);
        };
        Linha("nossa", "Falhou!");
        Linha("padrao", "falhou");
        Linha("memoria", "Memória insuficiente!");
        Linha("numero", "Erro desconhecido");
    }
}

// While its element is matched the operator is asked; while it is carried out the update ends there.
void TesteFalhasDaAtualizacao::ClasseQueLanca()
{
    QFETCH(QString, Onde);
    QFETCH(QString, Oque);
    QFETCH(QString, Mensagem);
    TVistaQueResponde Vista;
    const TDiario Diario(Vista);
    Vista.Atualizar(
        Doc(U("A", "1") + QStringLiteral("<L Nome='B' Onde='%1' Oque='%2'/>").arg(Onde, Oque) + U("C", "3")));
    QVERIFY(EsperarAtualizacoes());
    const bool NaPreparacao = Onde == u"casar";
    QCOMPARE(Vista.Perguntas.size(), std::size_t(NaPreparacao ? 1 : 0));
    QCOMPARE(Diario.Falhas.size(), std::size_t(1));
    QCOMPARE(Diario.Falhas[0].Mensagem, Mensagem);
    QCOMPARE(Diario.Falhas[0].Elemento, QStringLiteral("L"));
    QCOMPARE(Diario.Falhas[0].Caminho, QStringLiteral("R/L"));
    QCOMPARE(Diario.Linhas.last(),
             NaPreparacao ? QStringLiteral("Terminado 0/0") : QStringLiteral("XML em formato inválido! 0/0"));
    QVERIFY(Texto(Vista.Nos()).startsWith(u'A')); // what was done stays
    QCOMPARE(Vista.ObterNo(QStringLiteral("C")) != nullptr, NaPreparacao);
    if (!NaPreparacao)
        QVERIFY(BytesDe(Diario.ArquivoDeErro)
                    .startsWith(
                        QString(QStringLiteral("<!--Erro gerado:%1 -->\r\n<R>").arg(Mensagem)).toLatin1()));
    AProximaFunciona(Vista);
}

void TesteFalhasDaAtualizacao::ClasseAbstrata()
{
    const TTagsRegistradas Tags{{"X", TRefNoXML::De<TNoAbstrato>()}};
    TVistaQueResponde Vista;
    const TDiario Diario(Vista);
    Vista.Atualizar(Doc(U("A", "1") + QStringLiteral("<X Nome='B'/>")));
    QVERIFY(EsperarAtualizacoes());
    QVERIFY(!Diario.Falhas.empty());
    QVERIFY2(Diario.Falhas.back().Mensagem.contains(QStringLiteral("TNoAbstrato")),
             qPrintable(Diario.Falhas.back().Mensagem));
    AProximaFunciona(Vista);
}

void TesteFalhasDaAtualizacao::ManipuladorQueLancaNaAbertura()
{
    TTreeViewXML Vista;
    for (const char *Oque : {"nossa", "padrao", "memoria", "numero"}) {
        Vista.OnProgresso = [Oque](TTreeViewXML &, TPreparaAtualizacao &) {
            TNoQueLanca::Lancar(QString::fromLatin1(Oque));
        };
        try {
            Vista.Atualizar(Doc(U("A", "1")));
            QFAIL("devia falhar");
        } catch (const Exception &E) {
            QCOMPARE(E.Message, Invalido);
        }
        QCOMPARE(TPreparaAtualizacao::Instancias(), 0);
    }
    AProximaFunciona(Vista);
}

// Counted in events, not in time: during each element's 50 ms the window must have served some.
void TesteFalhasDaAtualizacao::ClasseDemoradaEAJanelaResponde()
{
    const TTagsRegistradas Tags{{"D", TRefNoXML::De<TNoDemorado>()}};
    TTreeViewXML Vista;
    Vista.resize(200, 200);
    Vista.show();
    TNoDemorado::Servidos = TNoDemorado::Elementos = TNoDemorado::SemResposta = 0;
    QTimer Eventos;
    connect(&Eventos, &QTimer::timeout, [&Vista] {
        Vista.Nos().Count(); // takes the tree's lock, as painting does
        ++TNoDemorado::Servidos;
    });
    Eventos.start(0);
    QString Muitos;
    for (int I = 0; I < 20; ++I)
        Muitos += QStringLiteral("<D Nome='%1'/>").arg(I);
    Vista.Atualizar(Doc(Muitos));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(TNoDemorado::Elementos.load(), 20);
    QCOMPARE(TNoDemorado::SemResposta.load(), 0);
    QVERIFY(TNoDemorado::Servidos > 20 * 5);
    QCOMPARE(Vista.Nos().Count(), 20);
}

void TesteFalhasDaAtualizacao::OLugarDaFalhaNaPreparacao()
{
    TVistaQueResponde Vista;
    Vista.Atualizar(
        QStringLiteral("<R><!-- <U> -->\r\n  <U Nome='A' Cor='1'><Identificadores/> <U Nome='Ω' Cor='verde'/>"
                       "</U>\n<U Cor='azul'/></R>"));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Vista.Perguntas.size(), std::size_t(2));
    QCOMPARE(Vista.Perguntas[0].Linha, 2);
    QCOMPARE(Vista.Perguntas[0].Coluna, 42);
    QCOMPARE(Vista.Perguntas[0].Elemento, QStringLiteral("U"));
    QCOMPARE(Vista.Perguntas[0].Caminho, QStringLiteral("R/U/U"));
    QCOMPARE(Vista.Perguntas[1].Linha, 3);
    QCOMPARE(Vista.Perguntas[1].Coluna, 1);
    QCOMPARE(Vista.Perguntas[1].Caminho, QStringLiteral("R/U"));
}

void TesteFalhasDaAtualizacao::OLugarDaFalhaNaRealizacao()
{
    TTreeViewXML Vista;
    const TDiario Diario(Vista);
    Vista.Atualizar(
        QStringLiteral("<R><U Nome='A'/><G/>\n <U Nome='B'><L Nome='C' Onde='carregar' Oque='nossa'/>"
                       "</U><U Nome='D'/></R>"));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Diario.Falhas.size(), std::size_t(1));
    QCOMPARE(Diario.Falhas[0].Mensagem, QStringLiteral("Falhou!"));
    QCOMPARE(Diario.Falhas[0].Detalhe, QStringLiteral("De propósito."));
    QCOMPARE(Diario.Falhas[0].Linha, 2);
    QCOMPARE(Diario.Falhas[0].Coluna, 14);
    QCOMPARE(Diario.Falhas[0].Elemento, QStringLiteral("L"));
    QCOMPARE(Diario.Falhas[0].Caminho, QStringLiteral("R/U/L"));
}

void TesteFalhasDaAtualizacao::OLugarDaDataErrada()
{
    TTreeViewXML Vista;
    const TDiario Diario(Vista);
    Vista.Atualizar(QStringLiteral("<?xml version='1.0'?>\n<!-- R --> ") + QueFalha);
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Diario.Falhas.size(), std::size_t(1));
    QCOMPARE(Diario.Falhas[0].Linha, 2);
    QCOMPARE(Diario.Falhas[0].Coluna, 12);
    QCOMPARE(Diario.Falhas[0].Caminho, QStringLiteral("R"));
    QVERIFY(Diario.Falhas[0].Detalhe.contains(QStringLiteral("ontem")));
}

// A "yes" closes its element's matter: what fails later, elsewhere, is not told as that element's.
void TesteFalhasDaAtualizacao::DepoisDeUmSimAFalhaSeguinteTemOSeuLugar()
{
    TVistaQueResponde Vista;
    const TDiario Diario(Vista);
    const auto DoDiario = Vista.OnProgresso;
    Vista.OnProgresso = [&](TTreeViewXML &V, TPreparaAtualizacao &A) {
        DoDiario(V, A);
        if (A.Etapa() == u"Atualização" && A.Posicao() == 0 && A.Total() > 0)
            throw Exception(QStringLiteral("manipulador"));
    };
    Vista.Atualizar(Doc(QStringLiteral("\n<U Nome='A' Cor='verde'/>") + U("B", "2")));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Diario.Falhas.size(), std::size_t(2));
    QCOMPARE(Diario.Falhas[0].Linha, 2);
    QCOMPARE(Diario.Falhas[1].Mensagem, QStringLiteral("manipulador"));
    QCOMPARE(Diario.Falhas[1].Linha, 0);
    QVERIFY(Diario.Falhas[1].Elemento.isEmpty());
}

void TesteFalhasDaAtualizacao::PublicacaoQueFalhaERefeita_data()
{
    QTest::addColumn<bool>("NoComeco");
    QTest::addColumn<int>("Vez");
    for (const int Vez : {1, 2, 3}) {
        QTest::addRow("no começo, vez %d", Vez) << true << Vez;
        QTest::addRow("nas expansões, vez %d", Vez) << false << Vez;
    }
}

// A publication that breaks off must not be the view's last, and what it had taken must not be lost.
void TesteFalhasDaAtualizacao::PublicacaoQueFalhaERefeita()
{
    QFETCH(bool, NoComeco);
    QFETCH(int, Vez);
    TTreeViewXML Vista;
    const QAbstractItemModelTester Testador(&Vista.Modelo(),
                                            QAbstractItemModelTester::FailureReportingMode::QtTest);
    Vista.resize(200, 200);
    Vista.show();
    Vista.Atualizar(Doc(U("A", "1", U("B", "2")) + U("C", "3")));
    QVERIFY(EsperarAtualizacoes());
    TModeloDeNos &Modelo = Vista.Modelo();
    const auto AntesDaVista = Modelo.AntesDePublicar;
    const auto ExpandirDaVista = Modelo.AoExpandir;
    int Faltam = Vez;
    const auto Lancar = [&Faltam] {
        if (--Faltam == 0)
            throw std::bad_alloc();
    };
    if (NoComeco)
        Modelo.AntesDePublicar = [&](bool Grande) {
            AntesDaVista(Grande);
            Lancar();
        };
    else
        Modelo.AoExpandir = [&](std::span<TTreeNode *const> Nos) {
            Lancar();
            ExpandirDaVista(Nos);
        };
    const TDiario Diario(Vista);
    Vista.Atualizar(Doc(U("A", "1", U("N", "7", U("M", "8")) + Fora("B", "2")) + U("Z", "4", U("Y", "9"))));
    QVERIFY(EsperarAtualizacoes());
    QVERIFY(Diario.Linhas.last().endsWith(QStringLiteral(" 0/0"))); // told in any case
    try {
        while (Faltam > 0) // the update took fewer publications
            Vista.Nos()
                .AddChild(Vista.Nos().AddChild(nullptr, QStringLiteral("X")), QStringLiteral("W"))
                ->Parent()
                ->Expand();
    } catch (const std::bad_alloc &) {
        QCOMPARE(Faltam, 0);
    }
    Modelo.AntesDePublicar = AntesDaVista;
    Modelo.AoExpandir = ExpandirDaVista;
    AProximaFunciona(Vista);
    for (const TTreeNode *No = Vista.Nos().GetFirstNode(); No != nullptr; No = No->GetNext())
        QCOMPARE(Vista.isExpanded(Modelo.IndiceDe(No)), No->Expanded() && No->HasChildren());
    Vista.Items().Clear();
    QCOMPARE(Mostrado(Modelo), QString());
}

void TesteFalhasDaAtualizacao::MemoriaQueAcaba_data()
{
    QTest::addColumn<QString>("Quando");
    QTest::addColumn<QString>("Esperado");
    QTest::newRow("na leitura") << "leitura"
                                << "recusa: XML em formato inválido!\nfim: \n";
    QTest::newRow("na preparação") << "preparo"
                                   << "fim: XML em formato inválido!\nparcial: não\n";
    QTest::newRow("na realização") << "realizacao"
                                   << "fim: XML em formato inválido!\nmensagem: Memória insuficiente!\n";
}

void TesteFalhasDaAtualizacao::MemoriaQueAcaba()
{
    QFETCH(QString, Quando);
    QFETCH(QString, Esperado);
#ifdef SIBREL_SEM_LIMITE_DE_MEMORIA
    QSKIP("sob um sanitizador não há limite de memória que sirva");
#else
    QProcess Processo;
    Processo.start(QStringLiteral(SIBREL_MEMORIA_DA_ATUALIZACAO), {Quando, FPasta->path()});
    QVERIFY(Processo.waitForFinished(300000));
    const QString Saida = QString::fromUtf8(Processo.readAllStandardOutput());
    QVERIFY2(Processo.exitStatus() == QProcess::NormalExit && Processo.exitCode() == 0, qPrintable(Saida));
    for (const QString &Linha : Esperado.split(u'\n', Qt::SkipEmptyParts))
        QVERIFY2(Saida.contains(Linha + u'\n'), qPrintable(Saida.left(1000)));
    // The document of an update that had begun is on disk or kept, and the next update works.
    QVERIFY2(Quando == u"leitura" || Saida.contains(QStringLiteral("documento: gravado\n")) ||
                 Saida.contains(QStringLiteral("documento: guardado\n")),
             qPrintable(Saida.left(1000)));
    QVERIFY2(Saida.contains(QStringLiteral("depois: Terminado\nárvore: A\nmostrado: A\n")),
             qPrintable(Saida.left(1000)));
#endif
}

void TesteFalhasDaAtualizacao::CadaAlocacaoQueFalha_data()
{
    QTest::addColumn<QString>("Seguidas");
    for (const char *Seguidas : {"1", "2", "12"})
        QTest::newRow(Seguidas) << QString::fromLatin1(Seguidas);
}

void TesteFalhasDaAtualizacao::CadaAlocacaoQueFalha()
{
    QFETCH(QString, Seguidas);
#ifdef SIBREL_SEM_LIMITE_DE_MEMORIA
    QSKIP("um sanitizador responde ele mesmo pela memória");
#else
    QProcess Processo;
    Processo.start(QStringLiteral(SIBREL_ALOCACAO_DA_ATUALIZACAO), {FPasta->path(), Seguidas});
    QVERIFY(Processo.waitForFinished(300000));
    const QString Saida = QString::fromUtf8(Processo.readAllStandardOutput());
    QVERIFY2(Processo.exitStatus() == QProcess::NormalExit && Processo.exitCode() == 0, qPrintable(Saida));
#endif
}

QTEST_MAIN(TesteFalhasDaAtualizacao)
#include "TesteFalhasDaAtualizacao.moc"
