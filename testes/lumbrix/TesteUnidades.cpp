// SPDX-License-Identifier: LGPL-2.1-or-later
#include "lumbrix/Geometria.h"
#include "lumbrix/RotacionarFonte.h"
#include "lumbrix/Unidades.h"
#include "plataforma/Exception.h"
#include "plataforma/SeparadorDecimal.h"

#include <QTest>

#include <limits>
#include <numbers>

using namespace Sibrel;

class TesteUnidades : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void AUniaoContemOsDois();
    void AUniaoNaoPerdeUmaLinhaReta();
    void OCentroTruncaParaZero();
    void OCentroNaoTransborda();
    void DistanciasVoltam_data();
    void DistanciasVoltam();
    void ParaMostrarSegueOSeparador();
    void AFonteFicaComARotacaoPedida();
};

void TesteUnidades::AUniaoContemOsDois()
{
    QVERIFY(Uniao({0, 0, 4, 4}, {-3, 2, 2, 9}) == TRect(-3, 0, 4, 9));
    QVERIFY(Uniao({1, 1, 2, 2}, {10, 20, 30, 40}) == TRect(1, 1, 30, 40));
}

void TesteUnidades::AUniaoNaoPerdeUmaLinhaReta()
{
    QVERIFY(Uniao({0, 0, 4, 4}, {9, 0, 9, 4}) == TRect(0, 0, 9, 4));
    QVERIFY(Uniao({9, 9, 9, 9}, {0, 0, 4, 4}) == TRect(0, 0, 9, 9));
}

void TesteUnidades::OCentroTruncaParaZero()
{
    QVERIFY(Centro({0, 0, 43, 43}) == TPoint(21, 21));
    QVERIFY(Centro({-3, -4, 0, 1}) == TPoint(-1, -1));
    QVERIFY(Centro({8, 18, 12, 22}) == TPoint(10, 20));
}

void TesteUnidades::OCentroNaoTransborda()
{
    constexpr std::int32_t Maior = std::numeric_limits<std::int32_t>::max();
    QVERIFY(Centro({Maior, Maior, Maior, Maior}) == TPoint(Maior, Maior));
}

void TesteUnidades::DistanciasVoltam_data()
{
    QTest::addColumn<double>("Valor");
    QTest::addColumn<QString>("Texto");
    QTest::newRow("inteira") << 50.0 << "50";
    QTest::newRow("decimal") << 30.5 << "30.5";
    QTest::newRow("negativa") << -1.0 << "-1";
    QTest::newRow("um terço") << 1.0 / 3 << "0.3333333333333333";
    QTest::newRow("pi") << std::numbers::pi << "3.141592653589793";
}

void TesteUnidades::DistanciasVoltam()
{
    QFETCH(double, Valor);
    QFETCH(QString, Texto);
    // The process-wide separator must not leak into files.
    const QChar Antes = SeparadorDecimal();
    AtribuirSeparadorDecimal(u',');
    const QString Distancia = DistanciaToStr(Valor, false);
    const QString Angulo = AnguloToStr(Valor, false);
    AtribuirSeparadorDecimal(Antes);
    QCOMPARE(Distancia, Texto);
    QCOMPARE(Angulo, Texto);
    QVERIFY(StrToDistancia(Distancia) == Valor);
    QVERIFY(StrToAngulo(Angulo) == Valor);
    QVERIFY_THROWS_EXCEPTION(EConvertError, StrToAngulo(u"norte"));
    QVERIFY_THROWS_EXCEPTION(EConvertError, StrToDistancia(u"longe"));
}

void TesteUnidades::ParaMostrarSegueOSeparador()
{
    const QChar Antes = SeparadorDecimal();
    AtribuirSeparadorDecimal(u',');
    QCOMPARE(DistanciaToStr(30.5, true), QStringLiteral("30,50"));
    QCOMPARE(AnguloToStr(std::numbers::pi / 2, true), QStringLiteral("90,00°"));
    AtribuirSeparadorDecimal(Antes);
}

void TesteUnidades::AFonteFicaComARotacaoPedida()
{
    TFont Fonte;
    Fonte.AtribuirOrientation(100);
    RotacionarFonte(Fonte, 900);
    QCOMPARE(Fonte.Orientation(), 900);
    RotacionarFonte(Fonte, 0);
    QCOMPARE(Fonte.Orientation(), 0);
}

QTEST_APPLESS_MAIN(TesteUnidades)
#include "TesteUnidades.moc"
