// SPDX-License-Identifier: LGPL-2.1-or-later
#include "lumbrix/ReadSeparador.h"
#include "plataforma/ArquivoTexto.h"

#include <QTest>

using namespace Sibrel;

class TesteReadSeparador : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Tokens_data();
    void Tokens();
    void APosicaoFicaLogoAtrasDoToken();
    void NaoPassaDoFimDaLinha();
};

void TesteReadSeparador::Tokens_data()
{
    QTest::addColumn<QByteArray>("Linha");
    QTest::addColumn<QString>("Token");
    QTest::addColumn<QString>("Resto");
    const auto Caso = [](const char *Nome, const char *Linha, const QString &Token, const QString &Resto) {
        QTest::newRow(Nome) << QByteArray(Linha) << Token << Resto;
    };
    Caso("palavra", "um dois", "um", " dois");
    Caso("separadores antes sao saltados", " \t=um", "um", "");
    Caso("cada separador termina", "a=b", "a", "=b");
    Caso("tabulacao termina", "a\tb", "a", "\tb");
    Caso("aspas com separadores dentro", "\"a b=c\" 1", "\"a b=c\"", " 1");
    Caso("aspas simples", "'a b' 1", "'a b'", " 1");
    Caso("aspas dobradas nao terminam", "\"a\"\"b\" 1", "\"a\"\"b\"", " 1");
    Caso("aspas simples dobradas nao terminam", "'a''b' 1", "'a''b'", " 1");
    Caso("a outra aspa nao conta dentro", "\"a'b\" 1", "\"a'b\"", " 1");
    Caso("aspas abertas vao ate o fim da linha", "\"a b", "\"a b", "");
    Caso("so uma aspa", "\"", "\"", "");
    Caso("aspas vazias", "\"\" 1", "\"\"", " 1");
    Caso("termina na aspa mesmo sem separador", "\"a\"b", "\"a\"", "b");
    Caso("aspa no meio nao abre", "a\"b c", "a\"b", " c");
    Caso("linha vazia", "", "", "");
    Caso("so separadores", "  ", "", "");
    Caso("acentos", "\xE7\xE3o x", "ção", " x");
}

void TesteReadSeparador::Tokens()
{
    QFETCH(QByteArray, Linha);
    TArquivoDeLeitura Arquivo(Linha + "\r\nproxima", QStringLiteral("teste"));
    QTEST(ReadSeparador(Arquivo, u"\t ="), "Token");
    QTEST(Arquivo.LerRestoDaLinha(), "Resto");
}

void TesteReadSeparador::APosicaoFicaLogoAtrasDoToken()
{
    TArquivoDeLeitura Arquivo("\"Hospital\"              42 x", QStringLiteral("teste"));
    ReadSeparador(Arquivo, u"\t =");
    QCOMPARE(Arquivo.LerInteiro(), 42);
    QCOMPARE(Arquivo.LerRestoDaLinha(), QStringLiteral(" x"));
}

void TesteReadSeparador::NaoPassaDoFimDaLinha()
{
    TArquivoDeLeitura Arquivo("  \nfim", QStringLiteral("teste"));
    QCOMPARE(ReadSeparador(Arquivo, u" "), QString());
    QCOMPARE(Arquivo.Linha(), 1);
    Arquivo.ProximaLinha();
    QCOMPARE(ReadSeparador(Arquivo, u" "), QStringLiteral("fim"));
}

QTEST_APPLESS_MAIN(TesteReadSeparador)
#include "TesteReadSeparador.moc"
