// SPDX-License-Identifier: LGPL-2.1-or-later
// A long text is read in pieces: wherever one ends, what is read, what is refused and what is said about it
// are the same as in the text's bytes, which are read as a whole.
#include "ComumXML.h"

#include <QTest>

using namespace Sibrel;
using namespace Sibrel::Testes;
using namespace Qt::StringLiterals;

namespace
{

// The parser asks for so many bytes at a time, and so many UTF-16 code units are turned into bytes at a time.
constexpr int BytesDeUmPedaco = 4000;
constexpr int UnidadesDeUmaVez = 4096;

// Only a long text is read in pieces; these blanks make it one.
QString Longo(const QString &Texto)
{
    return Texto + QString(66'000, u' ');
}

QString Repetido(const QString &Texto, int Vezes)
{
    return Texto.repeated(Vezes);
}

// So many attributes, each with its own name.
QString Atributos(int Quantos, const QString &Valor)
{
    QString Texto;
    for (int N = 0; N < Quantos; ++N)
        Texto += u" a%1='%2'"_s.arg(N).arg(Valor);
    return Texto;
}

} // namespace

class TesteXMLPedacos : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void UmPedacoPodeAcabarEmQualquerLugar_data();
    void UmPedacoPodeAcabarEmQualquerLugar();
    void OMesmoQueOsBytes_data();
    void OMesmoQueOsBytes();
    void ColchetesEFinsDeLinhaPorMuitosPedacos();
    void AOrdemEmUmaEtiquetaMaiorQueOsPedacos();
    void EtiquetasAlemDoQueOAnalisadorVe_data();
    void EtiquetasAlemDoQueOAnalisadorVe();
    void AtributosDemaisEmVariosPedacos_data();
    void AtributosDemaisEmVariosPedacos();
    void OCaracterZeroDizOByte();
    void MeioCaracter_data();
    void MeioCaracter();
    void AMarcaNoInicio();
};

// "%1" is where a filling puts the border of a piece on one character after another.
void TesteXMLPedacos::UmPedacoPodeAcabarEmQualquerLugar_data()
{
    QTest::addColumn<QString>("Texto");
    QTest::newRow("prologo")
        << u"<?xml version='1.0' encoding='UTF-16'?>%1<!-- ç€ --><?p \U0001F600 q?>\r\n<r/>"_s;
    QTest::newRow("texto")
        << u"<r>%1ç€\U0001F600x&amp;&#xE7;]\r\n]]\r&lt;&gt;<Símbolo/>\U0001F600\U0001F601</r>"_s;
    QTest::newRow("texto com fim de cdata") << u"<r>%1x]]>y</r>"_s;
    QTest::newRow("texto com fim de cdata depois de colchetes") << u"<r>%1]]]]]]>y</r>"_s;
    QTest::newRow("etiquetas")
        << u"<r>%1<aç p:b='€\U0001F600&quot;\r\n' xmlns:p=\"u\"\tc = '&#10;'>x</aç  ><b/>\n<c/></r>"_s;
    QTest::newRow("cdata") << u"<r>%1<![CDATA[<a b='ç]]€]>\r\n\U0001F600]]]]><![CDATA[]]></r>"_s;
    QTest::newRow("dentro da cdata") << u"<r><![CDATA[x%1]]]>ç]]></r>"_s;
    QTest::newRow("comentarios") << u"<r>%1<!-- ç€<a>-\r\n>\U0001F600 --><!----><b/></r>"_s;
    QTest::newRow("dentro do comentario") << u"<r><!-- %1-\U0001F600- > --></r>"_s;
    QTest::newRow("dois hifens") << u"<r><!-- %1 x--y --></r>"_s;
    QTest::newRow("instrucoes") << u"<r>%1<?alvo ç?€>\U0001F600?\?><?a?></r>"_s;
    QTest::newRow("dentro da instrucao") << u"<r><?p %1?\U0001F600>?></r>"_s;
    QTest::newRow("duas instrucoes") << u"<r><?p %1?><b/><?q x?></r>"_s;
    QTest::newRow("duas instrucoes no prologo") << u"<?p%1?><?q x?><r/>"_s;
    QTest::newRow("dentro da declaracao") << u"<?xml version='1.0'%1 encoding='x' standalone='yes' ?><r/>"_s;
    QTest::newRow("fim da declaracao") << u"<?xml version='1.0'%1?><r/>"_s;
    QTest::newRow("dentro do fim") << u"<r><a></a%1></r>"_s;
    QTest::newRow("fim da etiqueta") << u"<r><a b='c'%1/><a%1/></r>"_s;
    QTest::newRow("fim de linha em uma instrucao") << u"<r><?p %1x\r\ny\r\r\n?></r>"_s;
    QTest::newRow("interrogacoes") << u"<r><?p %1????x?\?><b/><?q ?></r>"_s;
    QTest::newRow("alvo") << u"<r><?a%1?><b/><?q x?></r>"_s;
    QTest::newRow("nome") << u"<r><a%1 p:b%1='c'/><a%1></a%1>&amp;</r>"_s;
    QTest::newRow("comeco do que esta na raiz") << u"<r a='%1'><![CDATA[b]]></r>"_s;
    QTest::newRow("comentario na raiz") << u"<r a='%1'><!-- b --></r>"_s;
    QTest::newRow("instrucao na raiz") << u"<r a='%1'><?p?></r>"_s;
    QTest::newRow("referencia na raiz") << u"<r a='%1&#10;'>&#xE7;\r\n</r>"_s;
    QTest::newRow("raiz sem nada") << u"<r a='%1'/>"_s;
    QTest::newRow("dentro da etiqueta") << u"<r%1 xmlns='u'\r\na = 'ç'  xmlns:p = \"v\" p:b='€'/>"_s;
    QTest::newRow("dentro do atributo") << u"<r a='1' xmlns='u' b='%1\r\n\t€\U0001F600&amp;'  c='>'/>"_s;
    QTest::newRow("depois da raiz") << u"<r/>%1<!-- ç -->\n<?p q?>"_s;
    QTest::newRow("outra raiz") << u"<r/>%1<s/>"_s;
    QTest::newRow("texto depois da raiz") << u"<r/>%1 x"_s;
    QTest::newRow("nao fecha") << u"<r>%1<a></a><b>"_s;
    QTest::newRow("fecha outro") << u"<r>%1\n<a ç='1'>\n</b></r>"_s;
    QTest::newRow("acaba no meio") << u"<r>%1<a ç='1"_s;
    QTest::newRow("entidade que nao ha") << u"<r>%1\r\n&ç;</r>"_s;
    QTest::newRow("caracter que nao pode ser") << u"<r>%1\U0001F600\uFFFE</r>"_s;
    QTest::newRow("doctype")
        << u"<!-- %1 --><!DOCTYPE r [<!ELEMENT r ANY><!ENTITY e 'ç€'>]><r>&e;\U0001F600</r>"_s;
    QTest::newRow("doctype errado") << u"%1<!DOCTYPE r [<!ELEMENT r EMPTY>]><r>\n&e;</r>"_s;
}

void TesteXMLPedacos::UmPedacoPodeAcabarEmQualquerLugar()
{
    QFETCH(QString, Texto);
    const auto Bytes = static_cast<int>(Texto.toUtf8().size());
    const auto Conferir = [&](QChar Enchimento, int Borda) {
        for (int Vezes = Borda - Bytes - 5; Vezes < Borda; ++Vezes) {
            const QString Este = Longo(QString(Texto).replace(u"%1"_s, QString(Vezes, Enchimento)));
            const QString Lido = ResultadoDoTexto(Este);
            const QString Esperado = ResultadoDosBytes(Este);
            QVERIFY2(Lido == Esperado,
                     qPrintable(Lido.simplified() + u" em vez de "_s + Esperado.simplified()));
        }
    };
    Conferir(u' ', BytesDeUmPedaco);
    Conferir(u' ', UnidadesDeUmaVez);
    Conferir(u'\n', BytesDeUmPedaco);
    Conferir(u'x', BytesDeUmPedaco);
}

void TesteXMLPedacos::OMesmoQueOsBytes_data()
{
    QTest::addColumn<QString>("Texto");
    const QString Muito = Repetido(u"ç€\U0001F600 "_s, 20'000);
    QTest::newRow("vazio") << QString();
    QTest::newRow("so a marca") << u"\uFEFF"_s;
    QTest::newRow("texto longo") << u"<r>"_s + Muito + u"</r>"_s;
    QTest::newRow("comentario longo") << u"<r><!--"_s + Muito + u"--></r>"_s;
    QTest::newRow("cdata longa") << u"<r><![CDATA["_s + Muito + u"]]></r>"_s;
    QTest::newRow("instrucao longa") << u"<r><?p "_s + Muito + u"?></r>"_s;
    QTest::newRow("atributo longo") << u"<r a='"_s + Muito + u"'/>"_s;
    QTest::newRow("nome longo") << u'<' + Repetido(u"çΩ"_s, 20'000) + u"/>"_s;
    QTest::newRow("nome longo demais") << u'<' + Repetido(u"çΩ"_s, 40'000) + u"/>"_s;
    QTest::newRow("erro longe") << u"<r>"_s + Repetido(u"<a b='ç'/>\r\n"_s, 5'000) + u"<c></d></r>"_s;
    QTest::newRow("linhas longe") << u"<r>"_s + Repetido(u"<a\n b='\r\nç'>\r</a>\r\n"_s, 5'000) + u"</r>"_s;
    QTest::newRow("texto alem do limite") << u"<r>\n"_s + QString(10'000'001, u'x') + u"</r>"_s;
    QTest::newRow("texto no limite") << u"<r>"_s + QString(10'000'000, u'x') + u"</r>"_s;
    QTest::newRow("comentario alem do limite") << u"<r><!--"_s + QString(10'000'001, u'x') + u"--></r>"_s;
    QTest::newRow("fundo demais") << Repetido(u"<a>\n"_s, 3'000) + Repetido(u"</a>"_s, 3'000);
    QTest::newRow("doctype longe") << u"<!--"_s + Muito +
                                          u"--><!DOCTYPE r [<!ELEMENT r ANY><!ENTITY e '<r/>'>]><r>&e;"_s +
                                          Muito + u"</r>"_s;
    QTest::newRow("brancos depois") << u"<r/>"_s + QString(20'000, u' ');
}

void TesteXMLPedacos::OMesmoQueOsBytes()
{
    QFETCH(QString, Texto);
    // Not compared by QCOMPARE, which would show 10 MB.
    for (const QString &Este : {Texto, Longo(Texto)}) {
        const QString Esperado = ResultadoDosBytes(Este);
        QVERIFY2(ResultadoDoTexto(Este) == Esperado, qPrintable(Esperado.left(200)));
    }
}

void TesteXMLPedacos::ColchetesEFinsDeLinhaPorMuitosPedacos()
{
    for (int Quantos = 66'000; Quantos < 66'010; ++Quantos)
        for (const QString &Fim : {u"x"_s, u">"_s, u"\r\n>"_s})
            for (const QChar Caracter : {u']', u'\r', u'-', u'?'}) {
                const QString Muitos = QString(Quantos, Caracter) + Fim;
                for (const QString &Texto :
                     {u"<r>%1</r>"_s, u"<r><![CDATA[%1]]></r>"_s, u"<r><?p %1?></r>"_s}) {
                    const QString Este = Texto.arg(Muitos);
                    QVERIFY(ResultadoDoTexto(Este) == ResultadoDosBytes(Este));
                }
            }
}

void TesteXMLPedacos::AOrdemEmUmaEtiquetaMaiorQueOsPedacos()
{
    // Attributes and declarations that alternate, with values from short to longer than a piece.
    QString Texto = u"<r>\n<a"_s;
    QString Esperado = u"a"_s;
    for (int N = 0; N < 200; ++N) {
        const QString Nome = N % 3 == 1 ? u"xmlns:p%1"_s.arg(N) : u"a%1"_s.arg(N);
        const QString Valor = QString(N % 20 == 0 ? 10'000 : N * 3, u'x') + u"ç€"_s;
        Texto += (N % 5 == 0 ? u"\n"_s : u" "_s) + Nome + u"='"_s + Valor + u'\'';
        Esperado += u' ' + Nome + u"=\""_s + Valor + u'"';
    }
    Texto += u"/>\n</r>"_s;
    QVERIFY(Texto.size() > 100'000);
    const auto D = TXMLDocument::DeTexto(Texto);
    const TCursorXML A = D->Raiz().FindNode(u"a");
    QVERIFY(Retrato(A) == Esperado + u"()"_s);
    QCOMPARE(A.Linha(), 2);
    QCOMPARE(A.NextSibling().Linha(), 42);
}

void TesteXMLPedacos::EtiquetasAlemDoQueOAnalisadorVe_data()
{
    QTest::addColumn<QList<int>>("Tamanhos");
    QTest::newRow("um de 9,9 MB") << QList<int>{9'900'000};
    QTest::newRow("dois de 6 MB") << QList<int>{6'000'000, 6'000'000};
    QTest::newRow("tres de 9,9 MB") << QList<int>{9'900'000, 9'900'000, 9'900'000};
}

void TesteXMLPedacos::EtiquetasAlemDoQueOAnalisadorVe()
{
    QFETCH(QList<int>, Tamanhos);
    QString Texto = u"<r"_s;
    for (qsizetype I = 0; I < Tamanhos.size(); ++I)
        Texto += u" a%1='"_s.arg(I) + QString(Tamanhos[I], u'x') + u'\'';
    const auto D = TXMLDocument::DeTexto(Texto + u"><b/></r>"_s);
    QCOMPARE(D->Raiz().AttributeCount(), static_cast<int>(Tamanhos.size()));
    for (qsizetype I = 0; I < Tamanhos.size(); ++I)
        QCOMPARE(D->Raiz().AttributeUtf8(static_cast<int>(I)).size(), Tamanhos[I]);
    QCOMPARE(D->Raiz().ChildCount(), 1);
}

void TesteXMLPedacos::AtributosDemaisEmVariosPedacos_data()
{
    QTest::addColumn<QString>("Antes");
    QTest::addColumn<QString>("Valor");
    QTest::newRow("curtos") << QString() << QString();
    QTest::newRow("longos") << QString() << QString(100, u'ç');
    QTest::newRow("com iguais e maiores") << QString() << u"= > \" b=\"\" >"_s;
    QTest::newRow("depois de uma etiqueta longa") << u"<b"_s + Atributos(999, u"x"_s) + u"/>"_s << QString();
    for (int Brancos = UnidadesDeUmaVez - 24; Brancos < UnidadesDeUmaVez; ++Brancos)
        QTest::addRow("depois de um comentario, %d brancos", Brancos)
            << QString(Brancos, u' ') + u"<!-- ' --><![CDATA[\"]]><?p '?>"_s << u"x"_s;
}

void TesteXMLPedacos::AtributosDemaisEmVariosPedacos()
{
    QFETCH(QString, Antes);
    QFETCH(QString, Valor);
    const QString Texto = Longo(u"<r>"_s + Antes + u"<a%1/></r>"_s);
    const auto Muitos = [&Valor](int Quantos) { return Atributos(Quantos, Valor); };
    QCOMPARE(TXMLDocument::DeTexto(QString(Texto).replace(u"%1"_s, Muitos(1'000)))
                 ->Raiz()
                 .FindNode(u"a")
                 .AttributeCount(),
             1'000);
    QCOMPARE(ResultadoDoTexto(QString(Texto).replace(u"%1"_s, Muitos(1'001))),
             u"recusado em 0:0: Um elemento tem mais de 1000 atributos."_s);
}

void TesteXMLPedacos::OCaracterZeroDizOByte()
{
    for (const int Brancos : {0, 10, BytesDeUmPedaco - 6, UnidadesDeUmaVez - 5, 30'000}) {
        const QString Depois = u"<r>ç</r>"_s + QString(Brancos, u' ') + QChar(0) + Longo(u"<s/>"_s);
        QCOMPARE(ResultadoDoTexto(Depois),
                 u"recusado em 0:0: O byte %1 do documento é zero."_s.arg(Brancos + 10));
    }
}

void TesteXMLPedacos::MeioCaracter_data()
{
    QTest::addColumn<QString>("Fim");
    QTest::addColumn<bool>("Recusado");
    const QString Alta(QChar(0xD83D));
    const QString Baixa(QChar(0xDE00));
    QTest::newRow("inteiro") << Alta + Baixa + u"</r>"_s << false;
    QTest::newRow("so a primeira metade") << Alta + u"</r>"_s << true;
    QTest::newRow("so a segunda metade") << Baixa + u"</r>"_s << true;
    QTest::newRow("duas primeiras") << Alta + Alta + Baixa + u"</r>"_s << true;
    QTest::newRow("trocadas") << Baixa + Alta + u"</r>"_s << true;
    QTest::newRow("a primeira metade atras da raiz") << u"</r>"_s + Alta + u' ' << true;
    QTest::newRow("a primeira metade no fim de tudo") << u"</r>"_s + Alta << true;
    QTest::newRow("a segunda metade atras da raiz") << u"</r>"_s + Baixa + u' ' << true;
}

void TesteXMLPedacos::MeioCaracter()
{
    QFETCH(QString, Fim);
    QFETCH(bool, Recusado);
    for (int Brancos = UnidadesDeUmaVez - 10; Brancos < UnidadesDeUmaVez + 2; ++Brancos) {
        const QString Lido = ResultadoDoTexto(Longo(u"<r>"_s + QString(Brancos, u' ') + Fim));
        if (Recusado)
            QCOMPARE(Lido, u"recusado em 0:0: O texto tem metade de um caracter."_s);
        else
            QVERIFY(Lido.contains(u" \U0001F600]"_s));
    }
}

void TesteXMLPedacos::AMarcaNoInicio()
{
    for (int Marcas = 0; Marcas < 5; ++Marcas) {
        const QString Texto = QString(Marcas, QChar::ByteOrderMark) + Longo(u"<r>\uFEFF</r>"_s);
        QCOMPARE(ResultadoDoTexto(Texto), ResultadoDosBytes(Texto));
    }
    QCOMPARE(TXMLDocument::DeTexto(Longo(u"\uFEFF<r>\uFEFF</r>"_s))->Raiz().Text(), u"\uFEFF"_s);
}

QTEST_GUILESS_MAIN(TesteXMLPedacos)
#include "TesteXMLPedacos.moc"
