// SPDX-License-Identifier: LGPL-2.1-or-later
// Documents that cannot be had: the error, what is left of the tree, and that the next document is none the
// worse.
#include "ComumArvore.h"
#include "comum/Dados.h"
#include "comum/Erros.h"
#include "plataforma/Exception.h"

#include <QApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

#ifdef Q_OS_LINUX
#include <sys/fsuid.h>
#include <sys/resource.h>
#include <unistd.h>
#endif

using namespace Sibrel;
using namespace Sibrel::Testes;

namespace
{

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || !defined(Q_OS_LINUX)
constexpr bool HaLimiteDeMemoria = false; // a sanitizer's own memory does not fit below any limit
#else
constexpr bool HaLimiteDeMemoria = true;
#endif

const char *const ComPoucaMemoria = "--com-pouca-memoria";

QByteArray Latin1(const QString &Texto)
{
    return "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>" + Texto.toLatin1();
}

// Nobody is there to be asked whether to go on.
class TVistaSemOperador : public TTreeViewXML
{
protected:
    bool DesejaContinuar(const TFalhaDeAtualizacao &) override { return false; }
};

// Takes the rights of an ordinary user on files from this thread, for as long as it lives: root reads all.
class TUsuarioComum
{
public:
#ifdef Q_OS_LINUX
    TUsuarioComum()
        : FAntes(::setfsuid(Ninguem))
    {
    }
    ~TUsuarioComum()
    {
        ::setfsuid(static_cast<uid_t>(FAntes));
    }

private:
    static constexpr uid_t Ninguem = 65534;
    int FAntes;
#else
    TUsuarioComum() {}
#endif
public:
    TUsuarioComum(const TUsuarioComum &) = delete;
    TUsuarioComum &operator=(const TUsuarioComum &) = delete;
};

} // namespace

class TesteFalhasDeDocumento : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void UmaPastaNoLugarDoArquivo();
    void ArquivoSemPermissao();
    void LeituraQueFalhaNoMeio();
    void ACodificacaoNaoEADeclarada_data();
    void ACodificacaoNaoEADeclarada();
    void AMarcaValeMaisDoQueADeclaracao();
    void ONaoDeclaradoEPagina1252();
    void DocumentoMaiorDoQueAMemoria_data();
    void DocumentoMaiorDoQueAMemoria();

private:
    QString Gravar(const QByteArray &Bytes);
    void ConferirOProximo();

    std::unique_ptr<TTagsRegistradas> FTags;
    std::unique_ptr<QTemporaryDir> FPasta;
    std::unique_ptr<TTreeViewXML> FVista;
};

void TesteFalhasDeDocumento::init()
{
    FTags = std::make_unique<TTagsRegistradas>(
        std::initializer_list<std::pair<const char *, TRefNoXML>>{{"U", TRefNoXML::De<TTreeNodeXML>()}});
    FPasta = std::make_unique<QTemporaryDir>();
    FVista = std::make_unique<TTreeViewXML>();
    FVista->ElementoRaiz = QStringLiteral("R");
    FVista->Ler(Gravar(Latin1(Doc(U("Força", "1")))), false);
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Texto(FVista->Nos()), QStringLiteral("Força"));
}

void TesteFalhasDeDocumento::cleanup()
{
    FVista.reset();
    FTags.reset();
}

QString TesteFalhasDeDocumento::Gravar(const QByteArray &Bytes)
{
    const QString Arquivo = FPasta->filePath(QStringLiteral("documento.xml"));
    EscreverBytes(Arquivo, Bytes);
    return Arquivo;
}

// Nothing waits, the window answers, a good document is loaded as ever.
void TesteFalhasDeDocumento::ConferirOProximo()
{
    QCOMPARE(TPreparaAtualizacao::Instancias(), 0);
    FVista->Ler(Gravar(Latin1(Doc(U("Próxima", "2", U("Ação", "3"))))), false);
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Texto(FVista->Nos()), QStringLiteral("Próxima(Ação)"));
    QCOMPARE(Mostrado(FVista->Modelo()), QStringLiteral("Próxima(Ação)"));
}

void TesteFalhasDeDocumento::UmaPastaNoLugarDoArquivo()
{
    const QString Pasta = FPasta->path();
    const auto Erro = ErroDe<EFOpenError>([&] { FVista->Ler(Pasta, true); });
    QCOMPARE(Erro.Message, QStringLiteral("Não foi possível abrir o arquivo <%1>!").arg(Pasta));
    QVERIFY(!Erro.Detalhe.isEmpty());
    QCOMPARE(Texto(FVista->Nos()), QStringLiteral("Força")); // it was to be added to
    ErroDe<EFOpenError>([&] { FVista->Ler(Pasta, false); });
    QCOMPARE(Texto(FVista->Nos()), QString()); // what was deleted stays deleted
    QCOMPARE(Mostrado(FVista->Modelo()), QString());
    ConferirOProximo();
}

void TesteFalhasDeDocumento::ArquivoSemPermissao()
{
    const QString Arquivo = Gravar(Latin1(Doc(U("X", "9"))));
    QVERIFY(QFile::setPermissions(Arquivo, {}));
    {
        const TUsuarioComum Usuario;
        const auto Erro = ErroDe<EFOpenError>([&] { FVista->Ler(Arquivo, true); });
        QCOMPARE(Erro.Message, QStringLiteral("Não foi possível abrir o arquivo <%1>!").arg(Arquivo));
        QVERIFY(!Erro.Detalhe.isEmpty());
        QCOMPARE(Texto(FVista->Nos()), QStringLiteral("Força"));
        ErroDe<EFOpenError>([&] { FVista->Ler(Arquivo, false); });
        QCOMPARE(Texto(FVista->Nos()), QString());
    }
    QVERIFY(QFile::setPermissions(Arquivo, QFile::ReadOwner | QFile::WriteOwner));
    ConferirOProximo();
}

// A file that opens and then gives no bytes.
void TesteFalhasDeDocumento::LeituraQueFalhaNoMeio()
{
    const QString Arquivo = QStringLiteral("/proc/self/mem");
    if (!QFile::exists(Arquivo))
        QSKIP("este sistema não tem um arquivo assim");
    const auto Erro = ErroDe<EFOpenError>([&] { FVista->Ler(Arquivo, true); });
    QCOMPARE(Erro.Message, QStringLiteral("Não foi possível abrir o arquivo <%1>!").arg(Arquivo));
    QVERIFY(!Erro.Detalhe.isEmpty());
    QCOMPARE(Texto(FVista->Nos()), QStringLiteral("Força"));
    ConferirOProximo();
}

void TesteFalhasDeDocumento::ACodificacaoNaoEADeclarada_data()
{
    QTest::addColumn<QByteArray>("Bytes");
    QTest::newRow("utf-8 com bytes de latin-1")
        << QByteArray("<?xml version='1.0' encoding='UTF-8'?><R><U Nome='a\xE7\xE3o'/></R>");
    QTest::newRow("utf-8 cortado") << QByteArray(
        "<?xml version='1.0' encoding='UTF-8'?><R><U Nome='\xC3'/></R>");
    QTest::newRow("marca de utf-8, bytes de latin-1") << QByteArray("\xEF\xBB\xBF<R><U Nome='\xE7'/></R>");
    QTest::newRow("utf-16 com um byte por caracter")
        << QByteArray("<?xml version='1.0' encoding='UTF-16'?><R><U Nome='a'/></R>");
    QTest::newRow("marca de utf-16 e um byte por caracter") << QByteArray("\xFF\xFE<R><U Nome='a'/></R>");
    QTest::newRow("codificacao que nao existe")
        << QByteArray("<?xml version='1.0' encoding='KLINGON'?><R><U Nome='a'/></R>");
    QTest::newRow("bytes zero") << QByteArray("<R><U Nome='a\0b'/></R>", 21);
}

void TesteFalhasDeDocumento::ACodificacaoNaoEADeclarada()
{
    QFETCH(QByteArray, Bytes);
    const QString Arquivo = Gravar(Bytes);
    const auto Erro = ErroDe<Exception>([&] { FVista->Ler(Arquivo, true); });
    QCOMPARE(Erro.Message, QStringLiteral("Arquivo em formato inválido!"));
    QVERIFY(!Erro.Detalhe.isEmpty());
    QCOMPARE(Texto(FVista->Nos()), QStringLiteral("Força"));
    ErroDe<Exception>([&] { FVista->Ler(Arquivo, false); });
    QCOMPARE(Texto(FVista->Nos()), QString());
    ConferirOProximo();
}

void TesteFalhasDeDocumento::AMarcaValeMaisDoQueADeclaracao()
{
    const QString XML = QStringLiteral("<?xml version='1.0' encoding='ISO-8859-1'?>") + Doc(U("Ação", "1"));
    FVista->Ler(Gravar("\xEF\xBB\xBF" + XML.toUtf8()), false);
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Texto(FVista->Nos()), QStringLiteral("Ação"));
}

void TesteFalhasDeDocumento::ONaoDeclaradoEPagina1252()
{
    FVista->Ler(Gravar("<R><U Cor='0' Nome='\x93"
                       "a\xE7\xE3o\x94'/></R>"),
                false);
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Texto(FVista->Nos()), QStringLiteral("“ação”"));
}

void TesteFalhasDeDocumento::DocumentoMaiorDoQueAMemoria_data()
{
    // Elements that are no nodes fill a document; nodes with hardly a text fill a tree.
    const QByteArray Estranho = "<a/>";
    const QByteArray No = "<U N='1'/>";
    QTest::addColumn<int>("Megabytes");
    QTest::addColumn<QByteArray>("Elemento");
    QTest::addColumn<QString>("Mensagem");
    QTest::newRow("nem o arquivo cabe")
        << 160 << Estranho << "Não foi possível abrir o arquivo <grande.xml>!";
    QTest::newRow("o texto nao cabe") << 24 << Estranho << "Arquivo em formato inválido!";
    QTest::newRow("o documento nao cabe") << 12 << Estranho << "Arquivo em formato inválido!";
    QTest::newRow("os nos nao cabem") << 5 << No << "XML em formato inválido!";
    QTest::newRow("as operacoes nao cabem") << 9 << No << "XML em formato inválido!";
}

// In a process of its own, whose memory ends where this one's would not.
void TesteFalhasDeDocumento::DocumentoMaiorDoQueAMemoria()
{
    if (!HaLimiteDeMemoria)
        QSKIP("o limite de memória não vale sob um sanitizador");
    QFETCH(int, Megabytes);
    QFETCH(QByteArray, Elemento);
    QFETCH(QString, Mensagem);
    EscreverBytes(FPasta->filePath(QStringLiteral("grande.xml")),
                  "<?xml version='1.0' encoding='ISO-8859-1'?><R>" +
                      Elemento.repeated((Megabytes << 20) / Elemento.size()) + "</R>");
    EscreverBytes(FPasta->filePath(QStringLiteral("pequeno.xml")), Latin1(Doc(U("B", "2"))));
    QProcess Filho;
    Filho.setWorkingDirectory(FPasta->path());
    Filho.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(ComPoucaMemoria)});
    QVERIFY(Filho.waitForFinished(120000));
    const QString Erros = QString::fromUtf8(Filho.readAllStandardError());
    QVERIFY2(Filho.exitStatus() == QProcess::NormalExit && Filho.exitCode() == 0, qPrintable(Erros));
    QCOMPARE(QString::fromUtf8(Filho.readAllStandardOutput()), Mensagem + QStringLiteral("\nA B\n"));
}

// What the process of little memory does: a small document, one that is too large, another small one.
static int CarregarComPoucaMemoria()
{
#ifdef Q_OS_LINUX
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TPreparaAtualizacao::AtribuirPastaDeErros(QStringLiteral("."));
    TVistaSemOperador Vista;
    Vista.AtribuirXML(TStringList(QStringList{Doc(U("A", "1"))}));
    if (!EsperarAtualizacoes())
        return EXIT_FAILURE;
    QFile Tamanhos(QStringLiteral("/proc/self/statm"));
    if (!Tamanhos.open(QIODevice::ReadOnly))
        return EXIT_FAILURE;
    constexpr rlim_t Folga = 40 << 20;
    const rlim_t Limite = Tamanhos.readAll().split(' ').constFirst().toULongLong() *
                              static_cast<rlim_t>(::sysconf(_SC_PAGESIZE)) +
                          Folga;
    const rlimit Memoria{Limite, Limite};
    if (::setrlimit(RLIMIT_AS, &Memoria) != 0)
        return EXIT_FAILURE;
    QString Etapa;
    Vista.OnProgresso = [&Etapa](TTreeViewXML &, TPreparaAtualizacao &A) { Etapa = A.Etapa(); };
    try {
        Vista.Ler(QStringLiteral("grande.xml"), true);
        if (!EsperarAtualizacoes())
            return EXIT_FAILURE;
        std::puts(Etapa.toUtf8().constData());
    } catch (const Exception &E) {
        std::puts(E.Message.toUtf8().constData());
    } catch (const std::exception &E) {
        std::puts(E.what());
    }
    Vista.Ler(QStringLiteral("pequeno.xml"), true);
    if (!EsperarAtualizacoes() || Etapa != u"Terminado")
        return EXIT_FAILURE;
    // What an update did before it failed stays done: the first and the last of all.
    const TTreeNode *Ultimo = Vista.Nos().GetFirstNode();
    while (Ultimo->GetNextSibling() != nullptr)
        Ultimo = Ultimo->GetNextSibling();
    std::puts((Vista.Nos().GetFirstNode()->Text() + u' ' + Ultimo->Text()).toUtf8().constData());
#endif
    return EXIT_SUCCESS;
}

int main(int argc, char *argv[])
{
    const QApplication Aplicacao(argc, argv);
    if (argc == 2 && qstrcmp(argv[1], ComPoucaMemoria) == 0)
        return CarregarComPoucaMemoria();
    TesteFalhasDeDocumento Teste;
    return QTest::qExec(&Teste, argc, argv);
}

#include "TesteFalhasDeDocumento.moc"
