// SPDX-License-Identifier: LGPL-2.1-or-later
// Runs every piece of C++ that the guide shows.
#include "guia/Trecho.h"

#include "arvore/PrepararAtualizacao.h"
#include "comum/Dados.h"
#include "plataforma/Exception.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace Sibrel::Guia
{

namespace
{

std::unique_ptr<QTemporaryDir> Pasta;

} // namespace

std::vector<TTrecho> &Trechos()
{
    static std::vector<TTrecho> Todos;
    return Todos;
}

TInscricao::TInscricao(const char *Arquivo, const char *Nome, void (*Rodar)())
{
    Trechos().push_back({Arquivo, Nome, Rodar});
}

QString Dado(const QString &Nome)
{
    return QDir(QStringLiteral(SIBREL_PASTA_DO_GUIA)).filePath(Nome);
}

QString PastaDosPlugins()
{
    return QStringLiteral(SIBREL_PASTA_DE_PLUGINS);
}

QString PastaDoTrecho()
{
    return Pasta->path();
}

void EsperarAtualizacoes()
{
    QElapsedTimer Relogio;
    Relogio.start();
    while (TPreparaAtualizacao::Instancias() > 0 && Relogio.elapsed() < 60000)
        QTest::qWait(5);
    Exigir(TPreparaAtualizacao::Instancias() == 0, "as atualizações acabam", __LINE__);
}

} // namespace Sibrel::Guia

using namespace Sibrel::Guia;

class TesteGuia : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Sibrel::Testes::CarregarFontes(); }
    void UmTrecho_data();
    void UmTrecho();
};

void TesteGuia::UmTrecho_data()
{
    QTest::addColumn<int>("Indice");
    QVERIFY(!Trechos().empty());
    for (std::size_t I = 0; I < Trechos().size(); ++I) {
        const QByteArray Arquivo = QFileInfo(QString::fromUtf8(Trechos()[I].Arquivo)).baseName().toUtf8();
        QTest::newRow((Arquivo + '.' + Trechos()[I].Nome).constData()) << static_cast<int>(I);
    }
}

void TesteGuia::UmTrecho()
{
    QFETCH(int, Indice);
    Pasta = std::make_unique<QTemporaryDir>();
    QVERIFY(Pasta->isValid());
    const QString Antes = QDir::currentPath();
    try {
        Trechos()[static_cast<std::size_t>(Indice)].Rodar();
    } catch (const std::exception &Erro) {
        QDir::setCurrent(Antes);
        QFAIL(Erro.what());
    }
    QDir::setCurrent(Antes);
}

QTEST_MAIN(TesteGuia)
#include "TesteGuia.moc"
