// SPDX-License-Identifier: LGPL-2.1-or-later
// Where the example host's documents come from: a watched folder and an exercise.
#include "hospedeiro/Exercicio.h"
#include "hospedeiro/VigiaDePasta.h"

#include "comum/Dados.h"
#include "plataforma/Exception.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Sibrel::Testes;
using namespace Hospedeiro;

class TesteAlimentacao : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { FPasta = std::make_unique<QTemporaryDir>(); }
    void OsNovosVemNaOrdemDosNomes();
    void OsQueJaEstavamNaoContam();
    void UmSubstituidoVemOutraVez();
    void UmPorEscreverSeguraOsDeTras();
    void SoDocumentosInteiros();
    void SemPastaHaErro();
    void QuemOuvePodeParar();
    void OExercicioSegueOsNomes();
    void OExercicioEspera();
    void OExercicioParado();
    void APastaDoExercicio();

private:
    QString Gravar(const QString &Nome, const QByteArray &Bytes = "<R/>")
    {
        EscreverBytes(FPasta->filePath(Nome), Bytes);
        return FPasta->filePath(Nome);
    }
    template <class Fonte>
    void Ouvir(Fonte &F)
    {
        FOuvidos.clear();
        connect(&F, &Fonte::Documento, this,
                [this](const QString &Arquivo) { FOuvidos += QFileInfo(Arquivo).fileName(); });
    }

    std::unique_ptr<QTemporaryDir> FPasta;
    QStringList FOuvidos;
};

namespace
{

constexpr int Bastante = TVigiaDePasta::Sossego + 1300; // also where a folder gives no notice

} // namespace

void TesteAlimentacao::OsNovosVemNaOrdemDosNomes()
{
    TVigiaDePasta Vigia;
    Ouvir(Vigia);
    Vigia.Comecar(FPasta->path());
    for (const char *Nome : {"c.xml", "a.xml", "b.xml", "010.xml"})
        Gravar(QLatin1String(Nome));
    QTRY_COMPARE_WITH_TIMEOUT(FOuvidos,
                              QStringList({QStringLiteral("010.xml"), QStringLiteral("a.xml"),
                                           QStringLiteral("b.xml"), QStringLiteral("c.xml")}),
                              10000);
    QTest::qWait(Bastante);
    QCOMPARE(FOuvidos.size(), 4); // each once
}

void TesteAlimentacao::OsQueJaEstavamNaoContam()
{
    Gravar(QStringLiteral("a.xml"));
    TVigiaDePasta Vigia;
    Ouvir(Vigia);
    Vigia.Comecar(FPasta->path());
    Gravar(QStringLiteral("b.xml"));
    QTRY_COMPARE_WITH_TIMEOUT(FOuvidos, QStringList(QStringLiteral("b.xml")), 10000);
    Vigia.Parar();
    Gravar(QStringLiteral("c.xml"));
    QTest::qWait(Bastante);
    QCOMPARE(FOuvidos.size(), 1);
}

void TesteAlimentacao::UmSubstituidoVemOutraVez()
{
    Gravar(QStringLiteral("a.xml"));
    TVigiaDePasta Vigia;
    Ouvir(Vigia);
    Vigia.Comecar(FPasta->path());
    Gravar(QStringLiteral("a.xml"), "<R>outro</R>");
    QTRY_COMPARE_WITH_TIMEOUT(FOuvidos, QStringList(QStringLiteral("a.xml")), 10000);
}

void TesteAlimentacao::UmPorEscreverSeguraOsDeTras()
{
    TVigiaDePasta Vigia;
    Ouvir(Vigia);
    Vigia.Comecar(FPasta->path());
    QFile Lento(FPasta->filePath(QStringLiteral("a.xml")));
    QVERIFY(Lento.open(QIODevice::WriteOnly));
    Gravar(QStringLiteral("b.xml"));
    for (int Pedaco = 0; Pedaco < 12; ++Pedaco) { // three times as long as it takes to count as written
        Lento.write("<!-- mais -->");
        Lento.flush();
        QTest::qWait(TVigiaDePasta::Sossego / 4);
        QCOMPARE(FOuvidos, QStringList());
    }
    Lento.close();
    QTRY_COMPARE_WITH_TIMEOUT(FOuvidos, QStringList({QStringLiteral("a.xml"), QStringLiteral("b.xml")}),
                              10000);
}

void TesteAlimentacao::SoDocumentosInteiros()
{
    TVigiaDePasta Vigia;
    Ouvir(Vigia);
    Vigia.Comecar(FPasta->path());
    Gravar(QStringLiteral("a.xml"), QByteArray()); // nothing was written yet
    Gravar(QStringLiteral("b.xml.parte"));
    QVERIFY(QDir(FPasta->path()).mkdir(QStringLiteral("c.xml")));
    QTest::qWait(Bastante);
    QCOMPARE(FOuvidos, QStringList());
    Gravar(QStringLiteral("a.xml"));
    QVERIFY(QFile::rename(FPasta->filePath(QStringLiteral("b.xml.parte")),
                          FPasta->filePath(QStringLiteral("b.xml"))));
    QTRY_COMPARE_WITH_TIMEOUT(FOuvidos, QStringList({QStringLiteral("a.xml"), QStringLiteral("b.xml")}),
                              10000);
}

void TesteAlimentacao::SemPastaHaErro()
{
    TVigiaDePasta Vigia;
    Ouvir(Vigia);
    Vigia.Comecar(FPasta->path());
    const QString Nenhuma = FPasta->filePath(QStringLiteral("nenhuma"));
    try {
        Vigia.Comecar(Nenhuma);
        QFAIL("aceitou");
    } catch (const Sibrel::EInOutError &E) {
        QCOMPARE(E.Message, QStringLiteral("A pasta <%1> não existe ou não pode ser lida!").arg(Nenhuma));
    }
    QCOMPARE(Vigia.Pasta(), FPasta->path()); // the former watch goes on
    Gravar(QStringLiteral("a.xml"));
    QTRY_COMPARE_WITH_TIMEOUT(FOuvidos.size(), 1, 10000);
    // A folder that goes, and comes back with a file, is no end of the watch.
    QVERIFY(QDir(FPasta->path()).removeRecursively());
    QTest::qWait(Bastante);
    QVERIFY(QDir().mkpath(FPasta->path()));
    Gravar(QStringLiteral("z.xml"));
    QTRY_COMPARE_WITH_TIMEOUT(FOuvidos, QStringList({QStringLiteral("a.xml"), QStringLiteral("z.xml")}),
                              10000);
}

void TesteAlimentacao::QuemOuvePodeParar()
{
    TVigiaDePasta Vigia;
    Ouvir(Vigia);
    connect(&Vigia, &TVigiaDePasta::Documento, &Vigia, &TVigiaDePasta::Parar);
    Vigia.Comecar(FPasta->path());
    Gravar(QStringLiteral("a.xml"));
    Gravar(QStringLiteral("b.xml"));
    QTRY_COMPARE_WITH_TIMEOUT(FOuvidos, QStringList(QStringLiteral("a.xml")), 10000);
    QVERIFY(!Vigia.Vigiando());
    QTest::qWait(Bastante);
    QCOMPARE(FOuvidos.size(), 1);
}

void TesteAlimentacao::OExercicioSegueOsNomes()
{
    for (const char *Nome : {"2.xml", "1.xml", "3.xml", "leia.txt"})
        Gravar(QLatin1String(Nome));
    TExercicio Exercicio;
    QSignalSpy Parou(&Exercicio, &TExercicio::Parou);
    Ouvir(Exercicio);
    Exercicio.AtribuirPasso(1);
    Exercicio.Comecar(FPasta->path());
    QCOMPARE(FOuvidos, QStringList(QStringLiteral("1.xml"))); // at once
    QVERIFY(Parou.wait());
    QCOMPARE(FOuvidos,
             QStringList({QStringLiteral("1.xml"), QStringLiteral("2.xml"), QStringLiteral("3.xml")}));
    QVERIFY(!Exercicio.Andando());
    QTest::qWait(30);
    QCOMPARE(FOuvidos.size(), 3);
}

void TesteAlimentacao::OExercicioEspera()
{
    Gravar(QStringLiteral("1.xml"));
    Gravar(QStringLiteral("2.xml"));
    TExercicio Exercicio;
    bool Pode = false;
    Exercicio.PodeSeguir = [&Pode] { return Pode; };
    Ouvir(Exercicio);
    Exercicio.AtribuirPasso(1);
    Exercicio.Comecar(FPasta->path());
    QTest::qWait(50);
    QCOMPARE(FOuvidos, QStringList());
    Pode = true;
    QTRY_COMPARE(FOuvidos.size(), 2);
}

void TesteAlimentacao::OExercicioParado()
{
    Gravar(QStringLiteral("1.xml"));
    Gravar(QStringLiteral("2.xml"));
    TExercicio Exercicio;
    QSignalSpy Parou(&Exercicio, &TExercicio::Parou);
    Ouvir(Exercicio);
    Exercicio.AtribuirPasso(20);
    Exercicio.Comecar(FPasta->path());
    Exercicio.Parar();
    QCOMPARE(Parou.size(), 1);
    QTest::qWait(80);
    QCOMPARE(FOuvidos, QStringList(QStringLiteral("1.xml")));
    Exercicio.Comecar(FPasta->path()); // from the beginning
    QTRY_COMPARE(FOuvidos,
                 QStringList({QStringLiteral("1.xml"), QStringLiteral("1.xml"), QStringLiteral("2.xml")}));
    const QString Vazia = FPasta->filePath(QStringLiteral("vazia"));
    QVERIFY_THROWS_EXCEPTION(Sibrel::EInOutError, Exercicio.Comecar(Vazia));
}

void TesteAlimentacao::APastaDoExercicio()
{
    QCOMPARE(TExercicio::PastaPara(DadoDeExemplo(QStringLiteral("arvore/ordem_de_batalha.xml"))),
             DadoDeExemplo(QStringLiteral("arvore/exercicio")));
    QCOMPARE(TExercicio::PastaPara(FPasta->filePath(QStringLiteral("a.xml"))), QString());
}

QTEST_GUILESS_MAIN(TesteAlimentacao)
#include "TesteAlimentacao.moc"
