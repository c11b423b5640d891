// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/Conversao.h"
#include "plataforma/Exception.h"

#include <QTest>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

using namespace Sibrel;

class TesteConversao : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Inteiros_data();
    void Inteiros();
    void OQueNaoEInteiroERecusado_data();
    void OQueNaoEInteiroERecusado();
    void OErroCitaOTexto();
    void Reais_data();
    void Reais();
    void OQueNaoERealERecusado_data();
    void OQueNaoERealERecusado();
    void AMenorFormaVoltaAoMesmoNumero();
    void AMenorFormaEAMenor();
    void Hexadecimais();
};

void TesteConversao::Inteiros_data()
{
    QTest::addColumn<QString>("Texto");
    QTest::addColumn<int>("Valor");
    QTest::newRow("zero") << "0" << 0;
    QTest::newRow("negativo") << "-17" << -17;
    QTest::newRow("mais") << "+17" << 17;
    QTest::newRow("brancos antes") << "   42" << 42;
    QTest::newRow("zeros") << "000007" << 7;
    QTest::newRow("hexadecimal") << "$fF" << 255;
    QTest::newRow("hexadecimal negado") << "-$10" << -16;
    QTest::newRow("hexadecimal de 32 bits") << "$80000008" << int(0x80000008U);
    QTest::newRow("todos os bits") << "$FFFFFFFF" << -1;
    QTest::newRow("o maior") << "2147483647" << std::numeric_limits<int>::max();
    QTest::newRow("o menor") << "-2147483648" << std::numeric_limits<int>::min();
}

void TesteConversao::Inteiros()
{
    QFETCH(QString, Texto);
    QFETCH(int, Valor);
    QCOMPARE(StrToInt(Texto), Valor);
}

void TesteConversao::OQueNaoEInteiroERecusado_data()
{
    QTest::addColumn<QString>("Texto");
    for (const char *T : {"",          " ",          "+",           "-",          "$",
                          "-$",        "abc",        "1 ",          "1.5",        "1,5",
                          "--1",       "+-1",        "$-1",         "$$1",        "0x10",
                          "\t1",       "2147483648", "-2147483649", "$100000000", "99999999999999999999",
                          "1\xC2\xA0", "\xD9\xA1"})
        QTest::newRow(T) << QString::fromUtf8(T);
}

void TesteConversao::OQueNaoEInteiroERecusado()
{
    QFETCH(QString, Texto);
    QVERIFY_THROWS_EXCEPTION(EConvertError, StrToInt(Texto));
}

void TesteConversao::OErroCitaOTexto()
{
    try {
        StrToInt(u"12x");
        QFAIL("devia recusar");
    } catch (const EConvertError &E) {
        QCOMPARE(E.Message, QStringLiteral("<12x> não é um número inteiro válido!"));
    }
    try {
        StrToReal(u"");
        QFAIL("devia recusar");
    } catch (const EConvertError &E) {
        QCOMPARE(E.Message, QStringLiteral("<> não é um número real válido!"));
    }
}

void TesteConversao::Reais_data()
{
    QTest::addColumn<QString>("Texto");
    QTest::addColumn<double>("Valor");
    QTest::newRow("inteiro") << "12" << 12.0;
    QTest::newRow("ponto") << "1.5" << 1.5;
    QTest::newRow("virgula") << "1,5" << 1.5;
    QTest::newRow("mais") << "+1.5" << 1.5;
    QTest::newRow("negativo") << "-0.25" << -0.25;
    QTest::newRow("expoente") << "1e3" << 1000.0;
    QTest::newRow("brancos em torno") << "  2.5\t" << 2.5;
    QTest::newRow("sem parte inteira") << ".5" << 0.5;
    QTest::newRow("infinito") << "inf" << std::numeric_limits<double>::infinity();
}

void TesteConversao::Reais()
{
    QFETCH(QString, Texto);
    QFETCH(double, Valor);
    QCOMPARE(StrToReal(Texto), Valor);
}

void TesteConversao::OQueNaoERealERecusado_data()
{
    QTest::addColumn<QString>("Texto");
    for (const char *T : {"", " ", "+", "-", "+-1", "--1", "1.2.3", "1,2,3", "1 2", "0x10", "abc", "1e999"})
        QTest::newRow(T) << QString::fromUtf8(T);
}

void TesteConversao::OQueNaoERealERecusado()
{
    QFETCH(QString, Texto);
    QVERIFY_THROWS_EXCEPTION(EConvertError, StrToReal(Texto));
}

void TesteConversao::AMenorFormaVoltaAoMesmoNumero()
{
    std::mt19937_64 Sorteio(20020715);
    for (int I = 0; I < 100'000; ++I) {
        const std::uint64_t Bits = Sorteio();
        double Valor = 0;
        std::memcpy(&Valor, &Bits, sizeof Valor);
        const double Lido = StrToReal(MenorFormaDecimal(Valor));
        if (std::isnan(Valor))
            QVERIFY(std::isnan(Lido));
        else
            QCOMPARE(std::memcmp(&Lido, &Valor, sizeof Valor), 0);
    }
}

void TesteConversao::AMenorFormaEAMenor()
{
    QCOMPARE(MenorFormaDecimal(50), QStringLiteral("50"));
    QCOMPARE(MenorFormaDecimal(-1), QStringLiteral("-1"));
    QCOMPARE(MenorFormaDecimal(0.1), QStringLiteral("0.1"));
    QCOMPARE(MenorFormaDecimal(30.5), QStringLiteral("30.5"));
    QCOMPARE(MenorFormaDecimal(6.283185307179586), QStringLiteral("6.283185307179586"));
}

void TesteConversao::Hexadecimais()
{
    QCOMPARE(IntToHex(0, 6), QStringLiteral("000000"));
    QCOMPARE(IntToHex(255, 6), QStringLiteral("0000FF"));
    QCOMPARE(IntToHex(0xABCDEF, 2), QStringLiteral("ABCDEF"));
    QCOMPARE(IntToHex(-1, 6), QStringLiteral("FFFFFFFF"));
}

QTEST_APPLESS_MAIN(TesteConversao)
#include "TesteConversao.moc"
