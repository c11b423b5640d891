// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/CodePage.h"
#include "plataforma/Exception.h"

#include <QTest>

using namespace Sibrel;

class TesteCodePage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void CadaByteSobreviveIdaEVolta();
    void OsCincoSemCaracterTemOProprioValor();
    void OEuroEAsAspas();
    void OQueNaoTemByteERecusado();
    void OErroDizOnde();
    void CaracteresDosCharsets_data();
    void CaracteresDosCharsets();
};

void TesteCodePage::CadaByteSobreviveIdaEVolta()
{
    QByteArray Todos;
    for (int B = 0; B < 256; ++B)
        Todos += static_cast<char>(B);
    QCOMPARE(Para1252(De1252(Todos)), std::optional(Todos));
    QCOMPARE(Utf8De1252(Todos), De1252(Todos).toUtf8());
}

void TesteCodePage::OsCincoSemCaracterTemOProprioValor()
{
    for (const int B : {0x81, 0x8D, 0x8F, 0x90, 0x9D})
        QCOMPARE(De1252(QByteArray(1, static_cast<char>(B)))[0].unicode(), char16_t(B));
}

void TesteCodePage::OEuroEAsAspas()
{
    QCOMPARE(De1252("\x80\x93\x94\xE7"), QStringLiteral(u"€“”ç"));
    QCOMPARE(*Para1252(u"€“”ç"), QByteArray("\x80\x93\x94\xE7"));
}

void TesteCodePage::OQueNaoTemByteERecusado()
{
    QVERIFY(!Para1252(u"Ωmega"));
    QVERIFY(!Para1252(u"\u0080")); // the byte 0x80 is the euro's
    QCOMPARE(PrimeiroFora1252(u"abcΩ"), 3);
    QCOMPARE(PrimeiroFora1252(u"ação"), -1);
}

void TesteCodePage::OErroDizOnde()
{
    try {
        Exigir1252(u"abΩ");
        QFAIL("devia recusar");
    } catch (const EConvertError &E) {
        QVERIFY(E.Message.contains(QStringLiteral("abΩ")));
        QCOMPARE(E.Detalhe, QStringLiteral("Caracter U+03a9 na posição 3."));
    }
}

void TesteCodePage::CaracteresDosCharsets_data()
{
    QTest::addColumn<int>("Charset");
    QTest::addColumn<int>("Codigo");
    QTest::addColumn<QChar>("Caracter");
    QTest::newRow("ocidental") << 0 << 0xE7 << QChar(u'ç');
    QTest::newRow("padrao") << 1 << 0x80 << QChar(u'€');
    QTest::newRow("grego") << 161 << 0xD9 << QChar(u'Ω');
    QTest::newRow("turco") << 162 << 0xF0 << QChar(u'ğ');
    QTest::newRow("vietnamita") << 163 << 0xD0 << QChar(u'Đ');
    QTest::newRow("hebraico") << 177 << 0xE0 << QChar(u'א');
    QTest::newRow("arabe") << 178 << 0xC7 << QChar(u'ا');
    QTest::newRow("baltico") << 186 << 0xE0 << QChar(u'ą');
    QTest::newRow("russo") << 204 << 0xC6 << QChar(u'Ж');
    QTest::newRow("tailandes") << 222 << 0xA1 << QChar(u'ก');
    QTest::newRow("centro-europeu") << 238 << 0xA3 << QChar(u'Ł');
    QTest::newRow("oem") << 255 << 0x80 << QChar(u'Ç');
    QTest::newRow("ascii em qualquer um") << 204 << 0x41 << QChar(u'A');
    QTest::newRow("desconhecido conta como ocidental") << 99 << 0xE7 << QChar(u'ç');
}

void TesteCodePage::CaracteresDosCharsets()
{
    QFETCH(int, Charset);
    QFETCH(int, Codigo);
    QFETCH(QChar, Caracter);
    QCOMPARE(QChar(CaracterDoCharset(std::uint8_t(Charset), std::uint8_t(Codigo))), Caracter);
}

QTEST_MAIN(TesteCodePage)
#include "TesteCodePage.moc"
