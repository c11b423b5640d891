// SPDX-License-Identifier: LGPL-2.1-or-later
// What stands between a text and the parser: the bytes come out in pieces as they are in the whole, and a tag
// with too many attributes is found before the parser has it.
#include "plataforma/XMLAtributos.h"
#include "plataforma/XMLDocument.h"
#include "plataforma/XMLPedacos.h"

#include <QTest>

#include <array>
#include <string>

using namespace Sibrel;
using namespace Qt::StringLiterals;

namespace
{

std::string Atributos(int Quantos, const std::string &Valor = "''")
{
    std::string Texto;
    for (int N = 0; N < Quantos; ++N)
        Texto += " a" + std::to_string(N) + "=" + Valor;
    return Texto;
}

// Seen a piece at a time; what a piece leaves open comes again with the next one.
bool DemaisEmPedacos(std::string_view Texto, std::size_t Primeiro, std::size_t Outros)
{
    TVigiaDeAtributos Vigia;
    std::size_t Inicio = 0;
    for (std::size_t Fim = Primeiro; Inicio < Texto.size(); Fim += Outros) {
        const bool Ultimo = Fim >= Texto.size();
        const std::string_view Pedaco = Texto.substr(Inicio, Ultimo ? Texto.npos : Fim - Inicio);
        const std::size_t Vistos = Vigia.Ver(Pedaco, Ultimo);
        if (Pedaco.size() - Vistos > (Ultimo ? 0 : TVigiaDeAtributos::Indecisos))
            qFatal("%zu bytes ficaram", Pedaco.size() - Vistos);
        Inicio += Vistos;
    }
    return Vigia.Demais();
}

struct TLido {
    QByteArray Bytes;
    bool Inteiro = false;
};

TLido LidoEmPedacos(QStringView Texto, int Bytes)
{
    TPedacosXML Pedacos(Texto);
    TLido Lido;
    QByteArray Pedaco(Bytes, Qt::Uninitialized);
    int Quantos = 0;
    while ((Quantos = Pedacos.Ler(Pedaco.data(), Bytes)) > 0)
        Lido.Bytes += Pedaco.first(Quantos);
    Lido.Inteiro = Quantos == 0 && Pedacos.Terminou();
    return Lido;
}

} // namespace

class TesteXMLAtributos : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void DemaisPorMaisQueSeCorte_data();
    void DemaisPorMaisQueSeCorte();
    void OsPedacosFazemOTodo();
    void NenhumPedacoCortaOFimDeUmaCDATA();
    void OQueNaoPodeSerAcabaOsPedacos();
};

void TesteXMLAtributos::DemaisPorMaisQueSeCorte_data()
{
    QTest::addColumn<std::string>("Texto");
    QTest::addColumn<bool>("Demais");
    const auto Linha = [](const char *Nome, const std::string &Texto, bool Demais) {
        QTest::newRow(Nome) << Texto << Demais;
    };
    const std::string Cheia = "<a" + Atributos(1'000) + "/>";
    const std::string Demais = "<a" + Atributos(1'001) + "/>";
    Linha("no limite", Cheia, false);
    Linha("um alem do limite", Demais, true);
    Linha("no limite duas vezes", Cheia + Cheia, false);
    Linha("sem fim", "<a" + Atributos(1'001), true);
    Linha("iguais em valores", "<a" + Atributos(1'000, "'= = \" ='") + "/>", false);
    Linha("maiores em valores", "<a" + Atributos(1'001, "\"'>\"") + "/>", true);
    Linha("iguais em um texto", "<a>" + Atributos(3'000) + "</a>", false);
    Linha("iguais atras de uma etiqueta longa", "<a" + Atributos(900) + ">" + Atributos(900) + "</a>", false);
    Linha("em um comentario", "<!-- " + Demais + " -->", false);
    Linha("em uma cdata", "<![CDATA[" + Demais + "]]>", false);
    Linha("em uma instrucao", "<?p " + Demais + "?>", false);
    Linha("depois de um comentario", "<!-- <a b=' -->" + Demais, true);
    Linha("depois de um comentario que so parece acabado", "<!--> ' -->" + Demais, true);
    Linha("depois de uma cdata", "<![CDATA[ <!-- ]]]>" + Demais, true);
    Linha("depois de uma instrucao", "<?p <![CDATA[ ?>" + Demais, true);
    Linha("depois de uma aspa aberta", "<a b='" + std::string(6'000, 'x') + Demais, true);
    Linha("depois de uma etiqueta longa", "<a b='" + std::string(6'000, 'x') + "'/>" + Demais, true);
    Linha("iguais depois de uma etiqueta sem fim",
          "<a b" + std::string(6'000, 'x') + "<!-- -->" + Atributos(3'000), false);
    Linha("o que parece um comentario em uma DTD", "<!DOCTYPE a [<!ENTITY q '<!--'>]>" + Demais, true);
}

void TesteXMLAtributos::DemaisPorMaisQueSeCorte()
{
    QFETCH(std::string, Texto);
    QFETCH(bool, Demais);
    QCOMPARE(AtributosDemais(Texto), Demais);
    for (std::size_t Primeiro = 1; Primeiro < 60; ++Primeiro) {
        QCOMPARE(DemaisEmPedacos(Texto, Primeiro, Texto.size()), Demais);
        QCOMPARE(DemaisEmPedacos(Texto, Texto.size() - Primeiro, Texto.size()), Demais);
        QCOMPARE(DemaisEmPedacos(Texto, Primeiro, Primeiro), Demais);
        QCOMPARE(DemaisEmPedacos(Texto, Primeiro, 4'096), Demais);
    }
}

void TesteXMLAtributos::OsPedacosFazemOTodo()
{
    QString Texto;
    for (int N = 0; N < 3'000; ++N)
        Texto += u"<é a='%1'>€]]\U0001F600\U0001F601</é>"_s.arg(N);
    for (int Brancos = 0; Brancos < 40; ++Brancos) {
        Texto.prepend(u' ');
        for (const int Bytes : {4, 4'000, 1'000'000}) {
            const TLido Lido = LidoEmPedacos(u'\uFEFF' + Texto, Bytes);
            QVERIFY(Lido.Inteiro);
            QVERIFY(Lido.Bytes == Texto.toUtf8());
        }
    }
    QVERIFY(LidoEmPedacos(u"", 4'000).Inteiro);
}

void TesteXMLAtributos::NenhumPedacoCortaOFimDeUmaCDATA()
{
    for (int Brancos = 0; Brancos < 12; ++Brancos) {
        const QString Texto = QString(Brancos, u' ') + u"<r>]]>]]]]>x]]></r>"_s;
        TPedacosXML Pedacos(Texto);
        std::array<char, 5> Pedaco{};
        QByteArray Inteiro;
        int Fins = 0;
        while (const int Quantos = Pedacos.Ler(Pedaco.data(), static_cast<int>(Pedaco.size()))) {
            const QByteArrayView Este(Pedaco.data(), Quantos);
            Fins += static_cast<int>(Este.contains("]]>"));
            Inteiro += Este;
        }
        QCOMPARE(Inteiro, Texto.toUtf8());
        QCOMPARE(Fins, 3);
    }
}

void TesteXMLAtributos::OQueNaoPodeSerAcabaOsPedacos()
{
    const QString Demais = u"<a"_s + QString::fromStdString(Atributos(1'001)) + u'>';
    for (const int Brancos : {0, 4'090, 4'095, 4'096, 50'000})
        for (const QString &Mau :
             {QString(QChar(0)), QString(QChar(0xD83D)), QString(QChar(0xDE00)), Demais}) {
            const TLido Lido = LidoEmPedacos(QString(Brancos, u' ') + Mau + u"<b/>"_s, 4'000);
            QVERIFY(!Lido.Inteiro);
            QVERIFY(Lido.Bytes.size() < Brancos + Mau.size()); // it is not handed over
        }
    // A text of that size is refused for it, and not looked at.
    const QString Brancos(20'000, u' ');
    const TLido Lido = LidoEmPedacos(QStringView(Brancos.constData(), TLimitesXML::Entrada + 1), 4'000);
    QVERIFY(!Lido.Inteiro);
    QVERIFY(Lido.Bytes.isEmpty());
}

QTEST_GUILESS_MAIN(TesteXMLAtributos)
#include "TesteXMLAtributos.moc"
