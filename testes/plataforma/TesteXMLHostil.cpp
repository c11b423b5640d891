// SPDX-License-Identifier: LGPL-2.1-or-later
// Documents that ask for too much, name files, or are cut: each is refused, soon and without taking memory.
#include "ComumXML.h"
#include "comum/Dados.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Sibrel;
using namespace Sibrel::Testes;
using namespace Qt::StringLiterals;

namespace
{

// Far above what a refusal takes, far below what obeying the document would take.
constexpr qint64 MilissegundosBastantes = 20'000;
constexpr qint64 MegabytesBastantes = 700;

// The most memory that the process ever had, in MB.
qint64 PicoDeMemoria()
{
    QFile Estado(u"/proc/self/status"_s);
    if (!Estado.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &Linha : Estado.readAll().split('\n'))
        if (Linha.startsWith("VmHWM:"))
            return Linha.mid(6, Linha.size() - 9).trimmed().toLongLong() / 1024;
    return 0;
}

QByteArray Repetido(const QByteArray &Texto, int Vezes)
{
    return Texto.repeated(Vezes);
}

} // namespace

class TesteXMLHostil : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { TXMLDocument::AtribuirPastaDeEntidades({}); }

    void Recusados_data();
    void Recusados();
    void NoLimiteAindaServe_data();
    void NoLimiteAindaServe();
    void CadaCorteDeUmDocumentoERecusado_data();
    void CadaCorteDeUmDocumentoERecusado();
    void MuitosNosNaoCustamMaisPorNo();

    void EntidadesEAtributosSupridos();
    void EntidadeComElementosServeVariasVezes();
    void InvalidoPelaDTDERecusado_data();
    void InvalidoPelaDTDERecusado();

    void SemPastaNadaDeForaSeAbre_data();
    void SemPastaNadaDeForaSeAbre();
    void DentroDaPastaSeAbre();
    void ForaDaPastaNaoSeAbre_data();
    void ForaDaPastaNaoSeAbre();
    void EntidadeExternaNaoCitadaNaoSeAbre();
    void ArquivosCitadosTambemTemLimite();
    void ArquivoCitadoEmLatin1();
};

void TesteXMLHostil::Recusados_data()
{
    QTest::addColumn<QByteArray>("Bytes");
    const QByteArray Inicio = "<!DOCTYPE a [<!ELEMENT a ANY><!ELEMENT b ANY>";

    QByteArray Risos = Inicio + "<!ENTITY r0 'kkk'>";
    QByteArray Parametros = "<!DOCTYPE a [<!ELEMENT a ANY><!ENTITY % p0 '<!-- kkk -->'>";
    for (int N = 1; N <= 30; ++N) {
        const QByteArray Anterior = QByteArray::number(N - 1);
        Risos += "<!ENTITY r" + QByteArray::number(N) + " '" + Repetido("&r" + Anterior + ";", 10) + "'>";
        Parametros +=
            "<!ENTITY % p" + QByteArray::number(N) + " '" + Repetido("&#37;p" + Anterior + ";", 10) + "'>";
    }
    QTest::newRow("entidades que crescem dez vezes") << QByteArray(Risos + "]><a>&r30;</a>");
    QTest::newRow("o mesmo em um atributo") << QByteArray(Risos + "<!ATTLIST a b CDATA ''>]><a b='&r30;'/>");
    QTest::newRow("o mesmo em um valor suprido") << QByteArray(Risos + "<!ATTLIST a b CDATA '&r30;'>]><a/>");
    QTest::newRow("parametros que crescem dez vezes") << QByteArray(Parametros + "%p30;]><a/>");
    QTest::newRow("uma entidade longa muitas vezes") << QByteArray(
        Inicio + "<!ENTITY e '" + QByteArray(100'000, 'x') + "'>]><a>" + Repetido("&e;", 50'000) + "</a>");
    QTest::newRow("uma entidade longa em muitos atributos")
        << QByteArray(Inicio + "<!ATTLIST b c CDATA ''><!ENTITY e '" + QByteArray(100'000, 'x') + "'>]><a>" +
                      Repetido("<b c='&e;'/>", 20'000) + "</a>");
    QTest::newRow("um parametro longo muitas vezes")
        << QByteArray("<!DOCTYPE a [<!ELEMENT a ANY><!ENTITY % p '<!--" + QByteArray(100'000, 'x') +
                      "-->'>\n" + Repetido("%p;\n", 50'000) + "]><a/>");
    QTest::newRow("um atributo suprido longo em muitos elementos")
        << QByteArray(Inicio + "<!ATTLIST b c CDATA '" + QByteArray(100'000, 'x') + "'>]><a>" +
                      Repetido("<b/>", 50'000) + "</a>");
    QTest::newRow("o mesmo dentro de uma entidade")
        << QByteArray(Inicio + "<!ATTLIST b c CDATA '" + QByteArray(100'000, 'x') +
                      "'><!ENTITY e '<b/>'>]><a>" + Repetido("&e;", 50'000) + "</a>");
    QTest::newRow("uma entidade de muitos elementos") << QByteArray(
        Inicio + "<!ENTITY e '" + Repetido("<b/>", 10'000) + "'>]><a>" + Repetido("&e;", 5'000) + "</a>");
    QTest::newRow("entidade que cita a si mesma") << QByteArray(Inicio + "<!ENTITY e 'x&e;'>]><a>&e;</a>");
    QTest::newRow("duas entidades em volta")
        << QByteArray(Inicio + "<!ENTITY e '&f;'><!ENTITY f '&e;'>]><a b='&e;'>&f;</a>");
    QTest::newRow("elementos fundos") << QByteArray(Repetido("<a>", 100'000) + Repetido("</a>", 100'000));
    QTest::newRow("elementos fundos sem fim") << Repetido("<a>", 1'000'000);
    QTest::newRow("elementos fundos com DTD") << QByteArray(
        "<!DOCTYPE a [<!ELEMENT a ANY>]>" + Repetido("<a>", 100'000) + Repetido("</a>", 100'000));
    QTest::newRow("elementos fundos por entidades") << [] {
        QByteArray Texto = "<!DOCTYPE a [<!ELEMENT a ANY><!ENTITY e0 ''>";
        for (int N = 1; N < 10; ++N)
            Texto += "<!ENTITY e" + QByteArray::number(N) + " '" + Repetido("<a>", 100) + "&e" +
                     QByteArray::number(N - 1) + ";" + Repetido("</a>", 100) + "'>";
        return QByteArray(Texto + "]><a>&e9;</a>");
    }();
    QTest::newRow("um elemento alem do limite") << QByteArray(Repetido("<a>", 257) + Repetido("</a>", 257));
    QTest::newRow("atributo de 100 MB") << QByteArray("<a b='" + QByteArray(100'000'000, 'x') + "'/>");
    QTest::newRow("atributo alem do limite") << QByteArray("<a b='" + QByteArray(10'000'001, 'x') + "'/>");
    QTest::newRow("texto alem do limite") << QByteArray("<a>" + QByteArray(10'000'001, 'x') + "</a>");
    QTest::newRow("comentario de 20 MB") << QByteArray("<a><!--" + QByteArray(20'000'000, 'x') + "--></a>");
    QTest::newRow("cdata de 20 MB") << QByteArray("<a><![CDATA[" + QByteArray(20'000'000, 'x') + "]]></a>");
    QTest::newRow("instrucao de 20 MB") << QByteArray("<a><?p " + QByteArray(20'000'000, 'x') + "?></a>");
    QTest::newRow("nome de 20 MB") << QByteArray("<" + QByteArray(20'000'000, 'x') + "/>");

    QByteArray Atributos;
    for (int N = 0; N < 500'000; ++N)
        Atributos += " a" + QByteArray::number(N) + "=''";
    QTest::newRow("atributos demais") << QByteArray("<a" + Atributos + "/>");
    QTest::newRow("atributos demais depois de um comentario")
        << QByteArray("<r><!-- ' --><a" + Atributos + "/></r>");
    QTest::newRow("atributos demais em uma entidade") << QByteArray(
        "<!DOCTYPE a [<!ELEMENT a ANY><!ENTITY q '<!--'><!ENTITY e \"<a" + Atributos + "/>\">]><a>&e;</a>");
    QTest::newRow("atributos demais depois de um comentario que nao e")
        << QByteArray("<!DOCTYPE a [<!ELEMENT a ANY><!ENTITY q '<!--'>]><a" + Atributos + "/>");
    QTest::newRow("atributos demais, cifrados")
        << QByteArray("<!DOCTYPE a [<!ELEMENT a ANY><!ENTITY e \"&#60;a" +
                      QByteArray(Atributos).replace("=", "&#61;") + "/>\">]><a>&e;</a>");
    QTest::newRow("atributos supridos demais") << [] {
        QByteArray Texto = "<!DOCTYPE a [<!ELEMENT a ANY><!ATTLIST a";
        for (int N = 0; N < 200'000; ++N)
            Texto += " a" + QByteArray::number(N) + " CDATA ''";
        return QByteArray(Texto + ">]><a><a/><a/></a>");
    }();
    QTest::newRow("espacos de nomes demais") << [] {
        QByteArray Texto;
        int Numero = 0;
        for (int Fundo = 0; Fundo < 250; ++Fundo) {
            Texto += "<a";
            for (int N = 0; N < 900; ++N)
                Texto += " xmlns:p" + QByteArray::number(++Numero) + "='u'";
            Texto += ">";
        }
        return QByteArray(Texto + Repetido("<p1:b/>", 2'000'000) + Repetido("</a>", 250));
    }();
    QByteArray Opcoes = "x";
    QByteArray Valores = "x";
    for (int N = 0; N < 100'000; ++N) {
        Opcoes += N < 3'000 ? ",x" + QByteArray::number(N) + "?" : QByteArray();
        Valores += "|x" + QByteArray::number(N);
    }
    QTest::newRow("modelo de conteudo longo")
        << QByteArray("<!DOCTYPE a [<!ELEMENT b EMPTY><!ELEMENT a (" + Opcoes + ")>]><a><b/></a>");
    QTest::newRow("alternativas demais")
        << QByteArray("<!DOCTYPE a [<!ELEMENT a ANY><!ATTLIST a b (" + Valores + ") #IMPLIED>]><a/>");
    QTest::newRow("alternativas demais atras de um comentario")
        << QByteArray("<!DOCTYPE a [<!ENTITY % p '<!-- -->" + Valores + "'><!ELEMENT a ANY>]><a/>");
    QTest::newRow("modelo de conteudo fundo") << QByteArray(
        "<!DOCTYPE a [<!ELEMENT a " + QByteArray(100'000, '(') + "b" + QByteArray(100'000, ')') + ">]><a/>");
}

void TesteXMLHostil::Recusados()
{
    QFETCH(QByteArray, Bytes);
    const qint64 Antes = PicoDeMemoria();
    QElapsedTimer Relogio;
    Relogio.start();
    const auto E = RecusaDe(Bytes);
    QVERIFY(E);
    QCOMPARE(E->Message, u"XML em formato inválido!"_s);
    QVERIFY(!E->Detalhe.isEmpty());
    QVERIFY2(Relogio.elapsed() < MilissegundosBastantes, QByteArray::number(Relogio.elapsed()));
    QVERIFY2(PicoDeMemoria() - Antes < MegabytesBastantes, QByteArray::number(PicoDeMemoria() - Antes));
}

void TesteXMLHostil::NoLimiteAindaServe_data()
{
    QTest::addColumn<QByteArray>("Bytes");
    QTest::newRow("256 elementos fundos") << QByteArray(Repetido("<a>", 256) + Repetido("</a>", 256));
    QTest::newRow("256 elementos fundos com DTD")
        << QByteArray("<!DOCTYPE a [<!ELEMENT a ANY>]>" + Repetido("<a>", 256) + Repetido("</a>", 256));
    QTest::newRow("atributo de 9,9 MB") << QByteArray("<a b='" + QByteArray(9'900'000, 'x') + "'/>");
    QTest::newRow("texto de 10 MB") << QByteArray("<a>" + QByteArray(10'000'000, 'x') + "</a>");
    QByteArray Atributos;
    for (int N = 0; N < 1000; ++N)
        Atributos += " a" + QByteArray::number(N) + "=''";
    QTest::newRow("1000 atributos") << QByteArray("<a" + Atributos + "/>");
    QTest::newRow("barras em um comentario com DTD")
        << QByteArray("<!DOCTYPE a [<!ELEMENT a ANY>]><a><!-- " + QByteArray(5'000, '|') + " --></a>");
    QTest::newRow("o que parece atributos em uma cdata")
        << QByteArray("<a><![CDATA[<a" + Repetido(" b=''", 5'000) + "/>]]></a>");
    QTest::newRow("o que parece atributos em um comentario")
        << QByteArray("<a><!-- <a" + Repetido(" b=''", 5'000) + "/> --></a>");
    QTest::newRow("iguais em um texto") << QByteArray("<a>" + Repetido(" b=''", 5'000) + "</a>");
    QTest::newRow("iguais em um atributo") << QByteArray("<a c=\"" + Repetido(" b=''", 5'000) + "\"/>");
    QTest::newRow("9 MB por entidades")
        << QByteArray("<!DOCTYPE a [<!ELEMENT a ANY><!ENTITY e '" + QByteArray(100'000, 'x') + "'>]><a>" +
                      Repetido("&e;", 9) + "</a>");
}

void TesteXMLHostil::NoLimiteAindaServe()
{
    QFETCH(QByteArray, Bytes);
    const auto E = RecusaDe(Bytes);
    QVERIFY2(!E, E ? qPrintable(E->Detalhe) : "");
}

void TesteXMLHostil::CadaCorteDeUmDocumentoERecusado_data()
{
    QTest::addColumn<QByteArray>("Bytes");
    QTest::newRow("simples") << QByteArray(
        "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<!-- c --><FiguraVet>\n"
        "<Ponto X=\"1.5\" Y='2' n\xE3o=\"&lt;&#231;\"/><?p q?><![CDATA[ ]] ]]>"
        "<b xmlns='u' p:c='' xmlns:p='v'>t &amp; u</b></FiguraVet>");
    QTest::newRow("com DTD") << QByteArray(
        "<?xml version='1.0'?><!DOCTYPE a [<!ELEMENT a (#PCDATA|b)*><!ELEMENT b EMPTY>"
        "<!ATTLIST b c (x|y) 'x' d CDATA #IMPLIED><!ENTITY e 'f<b c=\"y\"/>'>"
        "<!ENTITY % p '<!-- q -->'>%p;<!NOTATION n SYSTEM 'z'>]>"
        "<a>&e;<b d='&lt;'/>&e;</a>");
    QTest::newRow("utf-16") << QByteArray("\xFF\xFE<\0a\0 \0b\0=\0'\0\xE7\0'\0>\0x\0<\0/\0a\0>\0", 30);
}

void TesteXMLHostil::CadaCorteDeUmDocumentoERecusado()
{
    QFETCH(QByteArray, Bytes);
    QVERIFY(!RecusaDe(Bytes));
    for (qsizetype Corte = 0; Corte < Bytes.size(); ++Corte)
        QVERIFY2(RecusaDe(QByteArrayView(Bytes).first(Corte)), QByteArray::number(Corte));
}

void TesteXMLHostil::MuitosNosNaoCustamMaisPorNo()
{
    const auto Tempo = [](int Nos) {
        const QByteArray Bytes = "<a>" + Repetido("<b c='1'>x</b>\n", Nos) + "</a>";
        qint64 Melhor = std::numeric_limits<qint64>::max();
        for (int Vez = 0; Vez < 3; ++Vez) {
            QElapsedTimer Relogio;
            Relogio.start();
            TXMLDocument::DeBytes(Bytes);
            Melhor = std::min(Melhor, Relogio.nsecsElapsed());
        }
        return static_cast<double>(Melhor);
    };
    const double Razao = Tempo(400'000) / Tempo(40'000);
    QVERIFY2(Razao < 30, QByteArray::number(Razao)); // 10 when it is linear, 100 when it is not
}

void TesteXMLHostil::EntidadesEAtributosSupridos()
{
    QCOMPARE(
        Retrato("<!DOCTYPE a [<!ELEMENT a (#PCDATA|b)*><!ELEMENT b EMPTY><!ATTLIST b x CDATA 's' y CDATA "
                "#IMPLIED>"
                "<!ENTITY e 'um &#38;#38; &lt;dois&gt;'><!ENTITY f '[&e;]'>]><a>&f;<b "
                "y='&f;'/><![CDATA[&e;]]></a>"),
        u"a([[um & <dois>]]b y=\"[um & <dois>]\" x=\"s\"()C[&e;])"_s);
}

void TesteXMLHostil::EntidadeComElementosServeVariasVezes()
{
    QCOMPARE(
        Retrato("<!DOCTYPE a [<!ELEMENT a ANY><!ENTITY e 'x<a n=\"1\">&f;<!--c--></a>'><!ENTITY f '<a/>y'>"
                "<!ATTLIST a n CDATA #IMPLIED>]><a>&e;&e; &f;</a>"),
        u"a([x]a n=\"1\"(a()[y]![c])[x]a n=\"1\"(a()[y]![c])[ ]a()[y])"_s);
}

void TesteXMLHostil::InvalidoPelaDTDERecusado_data()
{
    QTest::addColumn<QByteArray>("Bytes");
    QTest::newRow("raiz de outro nome") << QByteArray("<!DOCTYPE b [<!ELEMENT a ANY>]><a/>");
    QTest::newRow("elemento sem declaracao") << QByteArray("<!DOCTYPE a [<!ELEMENT a ANY>]><a><b/></a>");
    QTest::newRow("DTD vazia") << QByteArray("<!DOCTYPE a><a/>");
    QTest::newRow("conteudo onde nao ha") << QByteArray("<!DOCTYPE a [<!ELEMENT a EMPTY>]><a>x</a>");
    QTest::newRow("falta um filho") << QByteArray(
        "<!DOCTYPE a [<!ELEMENT a (b,b)><!ELEMENT b EMPTY>]><a><b/></a>");
    QTest::newRow("falta um atributo")
        << QByteArray("<!DOCTYPE a [<!ELEMENT a EMPTY><!ATTLIST a b CDATA #REQUIRED>]><a/>");
    QTest::newRow("atributo sem declaracao") << QByteArray("<!DOCTYPE a [<!ELEMENT a EMPTY>]><a b='1'/>");
    QTest::newRow("valor fora da lista")
        << QByteArray("<!DOCTYPE a [<!ELEMENT a EMPTY><!ATTLIST a b (x|y) 'x'>]><a b='z'/>");
    QTest::newRow("identificacao repetida")
        << QByteArray("<!DOCTYPE a [<!ELEMENT a ANY><!ATTLIST a b ID #IMPLIED>]><a b='z'><a b='z'/></a>");
    QTest::newRow("referencia a ninguem")
        << QByteArray("<!DOCTYPE a [<!ELEMENT a ANY><!ATTLIST a b IDREF #IMPLIED>]><a b='z'/>");
    QTest::newRow("entidade sem declaracao") << QByteArray("<!DOCTYPE a [<!ELEMENT a ANY>]><a>&e;</a>");
    QTest::newRow("DTD mal formada") << QByteArray("<!DOCTYPE a [<!ELEMENT a>]><a/>");
}

void TesteXMLHostil::InvalidoPelaDTDERecusado()
{
    QFETCH(QByteArray, Bytes);
    const auto E = RecusaDe(Bytes);
    QVERIFY(E);
    QCOMPARE(E->Message, u"XML em formato inválido!"_s);
    QVERIFY(!E->Detalhe.isEmpty());
}

void TesteXMLHostil::SemPastaNadaDeForaSeAbre_data()
{
    QTest::addColumn<QByteArray>("Bytes");
    QTest::newRow("entidade") << QByteArray(
        "<!DOCTYPE a [<!ELEMENT a ANY><!ENTITY e SYSTEM '%1'>]><a>&e;</a>");
    QTest::newRow("parametro") << QByteArray(
        "<!DOCTYPE a [<!ELEMENT a ANY><!ENTITY % p SYSTEM '%1'>%p;]><a/>");
    QTest::newRow("DTD") << QByteArray("<!DOCTYPE a SYSTEM '%1'><a/>");
    QTest::newRow("DTD publica") << QByteArray("<!DOCTYPE a PUBLIC '-//X//Y//PT' '%1'><a/>");
}

void TesteXMLHostil::SemPastaNadaDeForaSeAbre()
{
    QFETCH(QByteArray, Bytes);
    const QTemporaryDir Pasta;
    const QString Arquivo = Pasta.filePath(u"x"_s);
    // Harmless as entity, parameter and DTD: were it opened, the document would be read.
    EscreverBytes(Arquivo, "<?xml version='1.0' encoding='UTF-8'?>");
    if (!Bytes.contains("ELEMENT"))
        EscreverBytes(Arquivo, "<!ELEMENT a EMPTY>");
    for (const QByteArray &Nome : {Arquivo.toUtf8(), "file://" + Arquivo.toUtf8()}) {
        const QByteArray Documento = QByteArray(Bytes).replace("%1", Nome);
        const auto E = RecusaDe(Documento);
        QVERIFY(E);
        QVERIFY2(E->Detalhe.contains(u"não pode ser lido"_s), qPrintable(E->Detalhe));
        TXMLDocument::AtribuirPastaDeEntidades(Pasta.path());
        const auto Permitido = RecusaDe(Documento);
        QVERIFY2(!Permitido, Permitido ? qPrintable(Permitido->Detalhe) : "");
        TXMLDocument::AtribuirPastaDeEntidades({});
    }
}

void TesteXMLHostil::DentroDaPastaSeAbre()
{
    const QTemporaryDir Pasta;
    QVERIFY(QDir(Pasta.path()).mkpath(u"partes/mais"_s));
    EscreverBytes(Pasta.filePath(u"a.dtd"_s),
                  "<?xml encoding='ISO-8859-1'?><!ELEMENT a ANY><!ATTLIST a n CDATA 's\xE3o'>"
                  "<!ENTITY % resto SYSTEM 'partes/resto.ent'>%resto;"
                  "<![INCLUDE[<!ENTITY incluida 'i'>]]><![IGNORE[<!ENTITY e2 'nunca'>]]>");
    EscreverBytes(Pasta.filePath(u"partes/resto.ent"_s), "<!ENTITY e SYSTEM 'mais/e.xml'>");
    EscreverBytes(Pasta.filePath(u"partes/mais/e.xml"_s),
                  "<?xml version='1.0' encoding='UTF-8'?>\xC3\xA7<a/>&incluida;");
    EscreverBytes(Pasta.filePath(u"partes/doc.xml"_s), "<!DOCTYPE a SYSTEM '../a.dtd'><a>&e;|&e;</a>");
    TXMLDocument::AtribuirPastaDeEntidades(Pasta.path() + u"/."_s);
    const QString Esperado = u"a n=\"são\"([ç]a n=\"são\"()[i|ç]a n=\"são\"()[i])"_s;
    QCOMPARE(Retrato("<!DOCTYPE a SYSTEM 'a.dtd'><a>&e;|&e;</a>"), Esperado);
    QCOMPARE(Retrato(TXMLDocument::DeArquivo(Pasta.filePath(u"partes/doc.xml"_s))->Raiz()), Esperado);
    QVERIFY(RecusaDe("<!DOCTYPE a SYSTEM 'nenhum.dtd'><a/>"));
    QVERIFY(RecusaDe("<!DOCTYPE a SYSTEM 'partes'><a/>"));
    // A file may not stand inside an attribute, allowed or not.
    QVERIFY(RecusaDe("<!DOCTYPE a SYSTEM 'a.dtd'><a n='&e;'/>"));
}

void TesteXMLHostil::ForaDaPastaNaoSeAbre_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::newRow("acima") << u"../fora.ent"_s;
    QTest::newRow("acima, por dentro") << u"sub/../../fora.ent"_s;
    QTest::newRow("acima, cifrado") << u"%2E%2E/fora.ent"_s;
    QTest::newRow("acima, com barra invertida") << u"..\\fora.ent"_s;
    QTest::newRow("absoluto") << u"%1/fora.ent"_s;
    QTest::newRow("endereco") << u"file://%1/fora.ent"_s;
    QTest::newRow("endereco com maquina") << u"file://localhost%1/fora.ent"_s;
    QTest::newRow("ligacao") << u"ligacao.ent"_s;
    QTest::newRow("por ligacao de pasta") << u"pasta/fora.ent"_s;
    QTest::newRow("pasta de nome parecido") << u"../dentro2/x.ent"_s;
    QTest::newRow("rede") << u"http://127.0.0.1:9/x.ent"_s;
    QTest::newRow("rede segura") << u"https://127.0.0.1:9/x.ent"_s;
    QTest::newRow("ftp") << u"ftp://127.0.0.1:9/x.ent"_s;
    QTest::newRow("dispositivo") << u"/dev/zero"_s;
    QTest::newRow("terminal de entrada") << u"-"_s;
    QTest::newRow("vazio") << u""_s;
}

void TesteXMLHostil::ForaDaPastaNaoSeAbre()
{
    QFETCH(QString, Nome);
    const QTemporaryDir Pasta;
    QDir(Pasta.path()).mkpath(u"dentro/sub"_s);
    QDir(Pasta.path()).mkpath(u"dentro2"_s);
    EscreverBytes(Pasta.filePath(u"fora.ent"_s), "segredo");
    EscreverBytes(Pasta.filePath(u"dentro2/x.ent"_s), "segredo");
    QVERIFY(QFile::link(Pasta.filePath(u"fora.ent"_s), Pasta.filePath(u"dentro/ligacao.ent"_s)));
    QVERIFY(QFile::link(Pasta.path(), Pasta.filePath(u"dentro/pasta"_s)));
    TXMLDocument::AtribuirPastaDeEntidades(Pasta.filePath(u"dentro"_s));
    const QByteArray Sistema = Nome.replace(u"%1"_s, Pasta.path()).toUtf8();
    for (const QByteArray &Texto :
         {"<!DOCTYPE a [<!ELEMENT a ANY><!ENTITY e SYSTEM '" + Sistema + "'>]><a>&e;</a>",
          "<!DOCTYPE a [<!ELEMENT a ANY><!ENTITY % e SYSTEM '" + Sistema + "'>%e;]><a/>",
          "<!DOCTYPE a SYSTEM '" + Sistema + "' [<!ELEMENT a ANY>]><a/>"}) {
        const auto E = RecusaDe(Texto);
        QVERIFY2(E, Texto);
        // A backslash is refused before anybody looks for a file.
        const bool Recusada =
            E->Detalhe.contains(u"não pode ser lido"_s) || E->Detalhe.contains(u"Invalid URI"_s);
        QVERIFY2(Recusada, qPrintable(E->Detalhe));
        QVERIFY(!E->Detalhe.contains(u"segredo"_s));
    }
}

void TesteXMLHostil::EntidadeExternaNaoCitadaNaoSeAbre()
{
    QCOMPARE(Retrato("<!DOCTYPE a [<!ELEMENT a ANY><!ENTITY e SYSTEM '/etc/hostname'>"
                     "<!NOTATION n SYSTEM 'x'><!ENTITY u SYSTEM 'y.bmp' NDATA n>]><a>b</a>"),
             u"a([b])"_s);
}

void TesteXMLHostil::ArquivosCitadosTambemTemLimite()
{
    const QTemporaryDir Pasta;
    EscreverBytes(Pasta.filePath(u"grande"_s), QByteArray(11'000'000, 'x'));
    EscreverBytes(Pasta.filePath(u"medio"_s), QByteArray(1'000'000, 'x'));
    TXMLDocument::AtribuirPastaDeEntidades(Pasta.path());
    const QByteArray Inicio =
        "<!DOCTYPE a [<!ELEMENT a ANY><!ENTITY g SYSTEM 'grande'><!ENTITY m SYSTEM 'medio'>]>";
    const auto E = RecusaDe(Inicio + "<a>&g;</a>");
    QVERIFY(E);
    QVERIFY2(E->Detalhe.contains(u"grande demais"_s), qPrintable(E->Detalhe));
    QVERIFY(!RecusaDe(Inicio + "<a>&m;<a/>&m;</a>"));
    QVERIFY(RecusaDe(Inicio + "<a>" + Repetido("&m;<a/>", 20) + "</a>"));
}

void TesteXMLHostil::ArquivoCitadoEmLatin1()
{
    const QTemporaryDir Pasta;
    EscreverBytes(Pasta.filePath(u"e"_s), "<?xml version='1.0' encoding='ISO-8859-1'?>\x80\xE7");
    TXMLDocument::AtribuirPastaDeEntidades(Pasta.path());
    QCOMPARE(Retrato("<!DOCTYPE a [<!ELEMENT a ANY><!ENTITY e SYSTEM 'e'>]><a>&e;</a>"), u"a([€ç])"_s);
}

QTEST_GUILESS_MAIN(TesteXMLHostil)
#include "TesteXMLHostil.moc"
