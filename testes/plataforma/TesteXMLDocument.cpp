// SPDX-License-Identifier: LGPL-2.1-or-later
#include "ComumXML.h"
#include "comum/Dados.h"

#include <QStringEncoder>
#include <QTemporaryDir>
#include <QTest>

#include <thread>

using namespace Sibrel;
using namespace Sibrel::Testes;
using namespace Qt::StringLiterals;

class TesteXMLDocument : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void OsFilhosVemNaOrdemComBrancosEComentarios();
    void OsAtributosVemNaOrdemDoDocumento();
    void DeclaracoesDeEspacoDeNomesFicamNoSeuLugar_data();
    void DeclaracoesDeEspacoDeNomesFicamNoSeuLugar();
    void NomesSaoComparadosExatamente();
    void AtributoVazioEAtributoAusente();
    void IndiceDeAtributoForaDosLimites();
    void PartesDeTextoSaoUmNo();
    void CDATAFicaSeparada();
    void OTextoDeUmElementoEOQueEstaAbaixo();
    void ReferenciasDeCaracter();
    void FimDeLinhaEAtributoNormalizados();
    void TextosCurtosRepetidosNaoSeMisturam();
    void ForaDaRaizNadaFica();
    void OsParentescos();
    void LongeDoPai();
    void OMesmoNomeTemOMesmoNumero();
    void OProcuradoEOPrimeiroElementoDoNome();
    void NuloRespondeVazio();
    void OHandleGuardaODocumento();
    void OCursorViraHandle();
    void ALinhaEAquelaEmQueONoComeca();
    void LinhasAlemDe65535();
    void DeTextoIgnoraADeclaracao();
    void MeioCaracterERecusado();
    void AMarcaDentroDoDocumentoETexto();
    void Codificacoes_data();
    void Codificacoes();
    void OsBytesDe80A9FDeLatin1();
    void DeclaracaoQueMente_data();
    void DeclaracaoQueMente();
    void MalFormados_data();
    void MalFormados();
    void OErroDizOLugar();
    void DeArquivo();
    void ArquivoQueNaoExiste();
    void VariasThreadsAoMesmoTempo();
};

void TesteXMLDocument::OsFilhosVemNaOrdemComBrancosEComentarios()
{
    QCOMPARE(Retrato("<a>\n <b/><!-- c --> d<?p q?><![CDATA[<e>]]>\n</a>"),
             u"a([\n ]b()![ c ][ d]?[p q]C[<e>][\n])"_s);
    const auto D = TXMLDocument::DeBytes("<a>\n <b/><!-- c --> d<?p q?><![CDATA[<e>]]>\n</a>");
    QCOMPARE(D->Raiz().ChildCount(), 7);
    QCOMPARE(D->Nos(), 8U);
}

void TesteXMLDocument::OsAtributosVemNaOrdemDoDocumento()
{
    const auto D = TXMLDocument::DeBytes("<a z='1' b=\"2\"\n m = '3' a=''/>");
    QCOMPARE(Retrato(D->Raiz()), u"a z=\"1\" b=\"2\" m=\"3\" a=\"\"()"_s);
    QCOMPARE(D->Raiz().AttributeName(0), u"z"_s);
    QCOMPARE(D->Raiz().AttributeUtf8(1), QByteArrayView("2"));
}

void TesteXMLDocument::DeclaracoesDeEspacoDeNomesFicamNoSeuLugar_data()
{
    QTest::addColumn<QByteArray>("Bytes");
    QTest::addColumn<QString>("Esperado");
    QTest::newRow("depois do primeiro")
        << QByteArray("<a b='1' xmlns='u' c='2'/>") << u"a b=\"1\" xmlns=\"u\" c=\"2\"()"_s;
    QTest::newRow("com prefixo") << QByteArray("<p:a x='=\"' p:b='1'\n xmlns:p = 'u\"='\tc='2' xmlns:q='v'/>")
                                 << u"p:a x=\"=\"\" p:b=\"1\" xmlns:p=\"u\"=\" c=\"2\" xmlns:q=\"v\"()"_s;
    QTest::newRow("vazia") << QByteArray("<a xmlns='u'><b c='1' xmlns=''/></a>")
                           << u"a xmlns=\"u\"(b c=\"1\" xmlns=\"\"())"_s;
    QTest::newRow("so parece uma") << QByteArray("<a xmlnsx='1' xmlns='u' x='2'/>")
                                   << u"a xmlnsx=\"1\" xmlns=\"u\" x=\"2\"()"_s;
    QTest::newRow("valor com maior") << QByteArray("<a b='>' xmlns='u' c='>'>d</a>")
                                     << u"a b=\">\" xmlns=\"u\" c=\">\"([d])"_s;
    QTest::newRow("prefixo sem declaracao") << QByteArray("<p:a q:b='1'/>") << u"p:a q:b=\"1\"()"_s;
    QTest::newRow("dois-pontos em outros lugares")
        << QByteArray("<:a b:='1' :c='2'><d:e:f/></:a>") << u":a b:=\"1\" :c=\"2\"(d:e:f())"_s;
    QTest::newRow("dois prefixos do mesmo endereco")
        << QByteArray("<a p:b='1' q:b='2' xmlns:p='u' xmlns:q='u'/>")
        << u"a p:b=\"1\" q:b=\"2\" xmlns:p=\"u\" xmlns:q=\"u\"()"_s;
    QTest::newRow("atributos do xml") << QByteArray("<a xml:space='preserve' xmlns='u' xml:lang='pt'/>")
                                      << u"a xml:space=\"preserve\" xmlns=\"u\" xml:lang=\"pt\"()"_s;
}

void TesteXMLDocument::DeclaracoesDeEspacoDeNomesFicamNoSeuLugar()
{
    QFETCH(QByteArray, Bytes);
    QFETCH(QString, Esperado);
    QCOMPARE(Retrato(Bytes), Esperado);
}

void TesteXMLDocument::NomesSaoComparadosExatamente()
{
    const auto D = TXMLDocument::DeTexto(u"<Informações Rótulo='x'/>");
    QVERIFY(D->Raiz().NomeE(u"Informações"));
    QVERIFY(!D->Raiz().NomeE(u"informações"));
    QVERIFY(!D->Raiz().NomeE(u"Informaçõe"));
    QVERIFY(D->Raiz().HasAttribute(u"Rótulo"));
    QVERIFY(!D->Raiz().HasAttribute(u"rótulo"));
    QVERIFY(!D->Raiz().HasAttribute(u"Rotulo"));
    QVERIFY(!D->Raiz().HasAttribute(u""));
}

void TesteXMLDocument::AtributoVazioEAtributoAusente()
{
    const auto D = TXMLDocument::DeBytes("<a b=''/>");
    QCOMPARE(D->Raiz().Attribute(u"b"), std::optional(QString(u""_s)));
    QVERIFY(!D->Raiz().Attribute(u"c"));
    QVERIFY(D->Raiz().AttributeUtf8(u"b"));
    QVERIFY(!D->Raiz().AttributeUtf8(u"c"));
}

void TesteXMLDocument::IndiceDeAtributoForaDosLimites()
{
    const auto D = TXMLDocument::DeBytes("<a b='1'>t</a>");
    QVERIFY_THROWS_EXCEPTION(EListError, D->Raiz().AttributeText(1));
    QVERIFY_THROWS_EXCEPTION(EListError, D->Raiz().AttributeName(-1));
    QVERIFY_THROWS_EXCEPTION(EListError, D->Raiz().FirstChild().AttributeUtf8(0));
    QVERIFY_THROWS_EXCEPTION(EListError, TCursorXML().AttributeUtf8(0));
}

void TesteXMLDocument::PartesDeTextoSaoUmNo()
{
    // The parser delivers long texts and references in parts.
    const QByteArray Longo(100'000, 'x');
    const auto D = TXMLDocument::DeBytes("<a>" + Longo + "&amp;&#65;ç\n" + Longo + "</a>");
    QCOMPARE(D->Raiz().ChildCount(), 1);
    QCOMPARE(D->Raiz().Text().size(), 200'005); // two bytes of code page 1252 in the source's "ç"
    QVERIFY(D->Raiz().Text().contains(u"x&AÃ§\nx"_s));
}

void TesteXMLDocument::CDATAFicaSeparada()
{
    const auto D = TXMLDocument::DeBytes("<a>b<![CDATA[c & <d>]]>e<![CDATA[]]></a>");
    QCOMPARE(Retrato(D->Raiz()), u"a([b]C[c & <d>][e]C[])"_s);
    QCOMPARE(D->Raiz().FirstChild().NextSibling().NodeName(), u"#cdata-section"_s);
}

void TesteXMLDocument::OTextoDeUmElementoEOQueEstaAbaixo()
{
    const auto D = TXMLDocument::DeBytes("<r>0<a>1<b>2<!--x--><![CDATA[3]]></b>4</a>5<c>6</c></r>");
    const TCursorXML A = D->Raiz().FindNode(u"a");
    QCOMPARE(A.Text(), u"1234"_s);
    QCOMPARE(A.FindNode(u"b").Text(), u"23"_s);
    QCOMPARE(D->Raiz().FindNode(u"c").Text(), u"6"_s);
    QCOMPARE(D->Raiz().Text(), u"0123456"_s);
    QVERIFY(A.TextUtf8().isEmpty());
    QCOMPARE(A.FirstChild().TextUtf8(), QByteArrayView("1"));
}

void TesteXMLDocument::ReferenciasDeCaracter()
{
    QCOMPARE(
        Retrato(
            "<a "
            "b='&lt;&amp;&gt;&quot;&apos;&#xE7;&#9;&#10;&#13;'>&lt;&amp;&gt;&quot;&apos;&#231;&#x20AC;</a>"),
        u"a b=\"<&>\"'ç\t\n\r\"([<&>\"'ç€])"_s);
}

void TesteXMLDocument::FimDeLinhaEAtributoNormalizados()
{
    QCOMPARE(Retrato("<a b='1\r\n2\n3\t4'>\r\nx\ry\n</a>"), u"a b=\"1 2 3 4\"([\nx\ny\n])"_s);
}

void TesteXMLDocument::TextosCurtosRepetidosNaoSeMisturam()
{
    // Short texts that repeat are stored once.
    QByteArray Bytes = "<a>";
    QString Esperado = u"a("_s;
    for (int I = 0; I < 300; ++I) {
        const QByteArray Texto = I % 3 == 0   ? QByteArray("\n  ")
                                 : I % 3 == 1 ? QByteArray("\n\t ")
                                              : QByteArray(I % 70, 'x');
        Bytes += Texto + "<b v='" + QByteArray::number(I) + "'/>";
        Esperado += (Texto.isEmpty() ? QString() : Entre(u'[', QString::fromLatin1(Texto), u']')) +
                    u"b v=\"%1\"()"_s.arg(I);
    }
    QCOMPARE(Retrato(Bytes + "</a>"), Esperado + u')');
}

void TesteXMLDocument::ForaDaRaizNadaFica()
{
    const auto D =
        TXMLDocument::DeBytes("<?xml version='1.0'?>\n<!--antes--><?p?>\n<a/>\n<!--depois--><?q?>\n");
    QCOMPARE(D->Nos(), 1U);
    QVERIFY(!D->Raiz().NextSibling());
    QVERIFY(!D->Raiz().Parent());
}

void TesteXMLDocument::OsParentescos()
{
    const auto D = TXMLDocument::DeBytes("<a><b><c/>x</b><d/></a>");
    const TCursorXML B = D->Raiz().FirstChild();
    const TCursorXML C = B.FirstChild();
    QVERIFY(B.NomeE(u"b"));
    QCOMPARE(C.Parent(), B);
    QCOMPARE(C.NextSibling().Parent(), B);
    QVERIFY(!C.NextSibling().NextSibling());
    QVERIFY(!C.FirstChild());
    QVERIFY(B.NextSibling().NomeE(u"d"));
    QCOMPARE(B.NextSibling().Parent(), D->Raiz());
    QVERIFY(C.Ordem() > B.Ordem());
}

// Numbers of one byte to five: children far from their parent, on far lines, with long texts and many names.
void TesteXMLDocument::LongeDoPai()
{
    constexpr int Filhos = 40'000;
    const QString Longo(300, u'x');
    QString Texto = u"<r>\n"_s;
    for (int I = 0; I < Filhos; ++I)
        Texto += u"<n%1 a='%2'><f/></n%1>\n"_s.arg(I % 200).arg(I % 1000 == 0 ? Longo : QString::number(I));
    const auto D = TXMLDocument::DeTexto(Texto + u"</r>"_s);
    int I = 0;
    for (const TCursorXML No : D->Raiz().Filhos()) {
        if (!No.Elemento())
            continue;
        QCOMPARE(No.Parent(), D->Raiz());
        QCOMPARE(No.FirstChild().Parent(), No);
        QCOMPARE(No.Linha(), I + 2);
        QVERIFY(No.NomeE(u"n%1"_s.arg(I % 200)));
        QCOMPARE(No.Attribute(u"a"), std::optional(I % 1000 == 0 ? Longo : QString::number(I)));
        ++I;
    }
    QCOMPARE(I, Filhos);
    QCOMPARE(D->Nos(), 2U + 3U * Filhos);
}

void TesteXMLDocument::OMesmoNomeTemOMesmoNumero()
{
    const auto D = TXMLDocument::DeBytes("<a><b/>x<a b=''/>y</a>");
    const TCursorXML B = D->Raiz().FirstChild();
    const TCursorXML X = B.NextSibling();
    const TCursorXML A = X.NextSibling();
    QCOMPARE(A.NumeroDoNome(), D->Raiz().NumeroDoNome());
    QVERIFY(A.NumeroDoNome() != B.NumeroDoNome());
    QCOMPARE(X.NumeroDoNome(), A.NextSibling().NumeroDoNome());
    for (const TCursorXML &No : {D->Raiz(), B, X})
        QVERIFY(No.NumeroDoNome() < D->Nomes());
}

void TesteXMLDocument::OProcuradoEOPrimeiroElementoDoNome()
{
    const auto D = TXMLDocument::DeBytes("<a><?b?>b<B/><b n='1'/><b n='2'/></a>");
    QCOMPARE(D->Raiz().FindNode(u"b").Attribute(u"n"), std::optional(u"1"_s));
    QVERIFY(!D->Raiz().FindNode(u"c"));
    QVERIFY(!D->Raiz().FindNode(u"#text"));
}

void TesteXMLDocument::NuloRespondeVazio()
{
    for (const TCursorXML &No : {TCursorXML(), TCursorXML(IXMLNode())}) {
        QVERIFY(No.Nulo() && !No && !No.Elemento());
        QVERIFY(No.NodeName().isEmpty() && No.Text().isEmpty() && No.TextUtf8().isEmpty());
        QCOMPARE(No.ChildCount() + No.AttributeCount() + No.Linha(), 0);
        QVERIFY(!No.FirstChild() && !No.NextSibling() && !No.Parent() && !No.FindNode(u"a"));
        QVERIFY(!No.HasAttribute(u"a") && !No.Attribute(u"a") && !No.NomeE(u"") && !No.Guardar());
        for (const TCursorXML Filho : No.Filhos())
            QVERIFY2(false, qPrintable(Filho.NodeName()));
    }
}

void TesteXMLDocument::OHandleGuardaODocumento()
{
    std::weak_ptr<const TXMLDocument> Vigia;
    {
        IXMLNode No;
        {
            const auto D = TXMLDocument::DeBytes("<a><b c='1'/></a>");
            Vigia = D;
            No = D->DocumentElement().FirstChild();
        }
        QCOMPARE(No.Attribute(u"c"), std::optional(u"1"_s));
        QVERIFY(No.Parent().NomeE(u"a"));
        QVERIFY(!No.NextSibling().Dono()); // the nil node keeps nothing
        QVERIFY(!Vigia.expired());
    }
    QVERIFY(Vigia.expired());
}

void TesteXMLDocument::OCursorViraHandle()
{
    IXMLNode No;
    {
        const auto D = TXMLDocument::DeBytes("<a><b/>t</a>");
        for (const TCursorXML Filho : D->Raiz().Filhos())
            No = Filho.Guardar();
    }
    QCOMPARE(No.Text(), u"t"_s);
    int Quantos = 0;
    for (const IXMLNode &Irmao : No.Parent().Filhos())
        Quantos += Irmao.Dono() == No.Dono();
    QCOMPARE(Quantos, 2);
}

void TesteXMLDocument::ALinhaEAquelaEmQueONoComeca()
{
    for (const QByteArray &Prologo :
         {QByteArray(),
          QByteArray("<!DOCTYPE a [<!ELEMENT a ANY><!ELEMENT b EMPTY><!ATTLIST a x CDATA #IMPLIED>\n]>")}) {
        const QByteArray Texto = "<?xml version='1.0'?>\n" + Prologo +
                                 "<!--\n-->\n\n<a\n x=''>\n<b\n\n/><!--\n\n-->t\r\n"
                                 "<![CDATA[\n]]><?p\n?><b/>\n</a>";
        const auto D = TXMLDocument::DeBytes(Texto);
        const int Mais = static_cast<int>(Prologo.count('\n'));
        QList<int> Linhas{D->Raiz().Linha()};
        for (const TCursorXML Filho : D->Raiz().Filhos())
            Linhas.append(Filho.Linha());
        QList<int> Esperadas{5, 6, 7, 9, 11, 12, 13, 14, 14};
        for (int &L : Esperadas)
            L += Mais;
        QCOMPARE(Linhas, Esperadas);
    }
}

void TesteXMLDocument::LinhasAlemDe65535()
{
    const auto D = TXMLDocument::DeBytes("<a>" + QByteArray(200'000, '\n') + "<b/></a>");
    QCOMPARE(D->Raiz().FindNode(u"b").Linha(), 200'001);
}

void TesteXMLDocument::DeTextoIgnoraADeclaracao()
{
    const QString Texto = u"\uFEFF<?xml version=\"1.0\" encoding=\"%1\"?><a b='ç€Ω\U0001F600'/>"_s;
    for (const QString &Nome : {u"ISO-8859-1"_s, u"UTF-16"_s, u"UTF-8"_s, u"nenhuma-tal"_s}) {
        QCOMPARE(TXMLDocument::DeTexto(Texto.arg(Nome))->Raiz().Attribute(u"b"),
                 std::optional(u"ç€Ω\U0001F600"_s));
        QCOMPARE(TXMLDocument::DeUtf8(Texto.arg(Nome).toUtf8())->Raiz().Attribute(u"b"),
                 std::optional(u"ç€Ω\U0001F600"_s));
    }
}

void TesteXMLDocument::MeioCaracterERecusado()
{
    const QString Metade(QChar(0xD800));
    QVERIFY_THROWS_EXCEPTION(EDOMParseError, TXMLDocument::DeTexto(u"<a>"_s + Metade + u"</a>"_s));
    QVERIFY_THROWS_EXCEPTION(EDOMParseError, TXMLDocument::DeTexto(u"<a/>"_s + Metade));
}

void TesteXMLDocument::AMarcaDentroDoDocumentoETexto()
{
    const QString Texto = u"\uFEFF<\uFEFFa \uFEFFb='\uFEFF1'>\uFEFF2</\uFEFFa>"_s;
    QCOMPARE(Retrato(TXMLDocument::DeTexto(Texto)->Raiz()), u"\uFEFFa \uFEFFb=\"\uFEFF1\"([\uFEFF2])"_s);
}

void TesteXMLDocument::Codificacoes_data()
{
    QTest::addColumn<QByteArray>("Bytes");
    QTest::addColumn<QString>("Esperado");
    const QString ComEuro = u"<?xml version='1.0' encoding='%1'?><a>ç€</a>"_s;
    const auto Em = [](QStringConverter::Encoding C, const QString &Texto, bool Marca) {
        QStringEncoder Codificador(C, Marca ? QStringConverter::Flag::WriteBom
                                            : QStringConverter::Flag::Default);
        return QByteArray(Codificador(Texto));
    };
    QTest::newRow("sem declaracao e 1252") << QByteArray("<a>\xE7\x80</a>") << u"ç€"_s;
    QTest::newRow("declaracao sem codificacao")
        << QByteArray("<?xml version='1.0'?><a>\xE7\x80</a>") << u"ç€"_s;
    QTest::newRow("utf-8 declarada") << ComEuro.arg(u"utf-8"_s).toUtf8() << u"ç€"_s;
    QTest::newRow("marca utf-8") << Em(QStringConverter::Utf8, u"<a>ç€</a>"_s, true) << u"ç€"_s;
    QTest::newRow("marca vence a declaracao")
        << Em(QStringConverter::Utf8, ComEuro.arg(u"ISO-8859-1"_s), true) << u"ç€"_s;
    QTest::newRow("utf-16le com marca")
        << Em(QStringConverter::Utf16LE, ComEuro.arg(u"UTF-16"_s), true) << u"ç€"_s;
    QTest::newRow("utf-16be com marca")
        << Em(QStringConverter::Utf16BE, ComEuro.arg(u"UTF-16"_s), true) << u"ç€"_s;
    QTest::newRow("utf-16le sem marca")
        << Em(QStringConverter::Utf16LE, ComEuro.arg(u"UTF-16"_s), false) << u"ç€"_s;
    QTest::newRow("utf-16be sem marca")
        << Em(QStringConverter::Utf16BE, ComEuro.arg(u"UTF-16"_s), false) << u"ç€"_s;
    QTest::newRow("utf-32le com marca") << Em(QStringConverter::Utf32LE, u"<a>ç€</a>"_s, true) << u"ç€"_s;
    QTest::newRow("windows-1252") << QByteArray(
                                         "<?xml version='1.0' encoding=\"Windows-1252\"?><a>\xE7\x80</a>")
                                  << u"ç€"_s;
    QTest::newRow("aspas e brancos")
        << QByteArray("<?xml version='1.0'  encoding =\n'iso-8859-1' standalone='yes' ?><a>\xE7\x80</a>")
        << u"ç€"_s;
    QTest::newRow("iso-8859-15") << QByteArray("<?xml version='1.0' encoding='ISO-8859-15'?><a>\xE7\xA4</a>")
                                 << u"ç€"_s;
    QTest::newRow("iso-8859-7") << QByteArray("<?xml version='1.0' encoding='ISO-8859-7'?><a>\xD9</a>")
                                << u"Ω"_s;
    QTest::newRow("koi8-r, longa") << QByteArray("<?xml version='1.0' encoding='KOI8-R'?><a>" +
                                                 QByteArray(100'000, '\xC1') + "</a>")
                                   << QString(100'000, u'а');
    QTest::newRow("nao e declaracao") << QByteArray("<a>\xE7<?xmlx encoding='UTF-8'?></a>") << u"ç"_s;
}

void TesteXMLDocument::Codificacoes()
{
    QFETCH(QByteArray, Bytes);
    QFETCH(QString, Esperado);
    QCOMPARE(TXMLDocument::DeBytes(Bytes)->Raiz().Text(), Esperado);
}

void TesteXMLDocument::OsBytesDe80A9FDeLatin1()
{
    QByteArray Bytes = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a b='";
    QByteArray Altos;
    for (int B = 0x80; B <= 0xFF; ++B)
        Altos += static_cast<char>(B);
    const auto D = TXMLDocument::DeBytes(Bytes + Altos + "'/>");
    const QString Texto = *D->Raiz().Attribute(u"b");
    QCOMPARE(Texto.size(), 128);
    QCOMPARE(Texto[0], u'€');
    QCOMPARE(Texto[1].unicode(), 0x81);
    QCOMPARE(Texto[0x13], u'“');
    QCOMPARE(Texto[0x1D].unicode(), 0x9D);
    QCOMPARE(Texto[0x7F], u'ÿ');
}

void TesteXMLDocument::DeclaracaoQueMente_data()
{
    QTest::addColumn<QByteArray>("Bytes");
    QTest::newRow("latin-1 diz utf-8")
        << QByteArray("<?xml version='1.0' encoding='UTF-8'?><a>\xE7\xE3o</a>");
    QTest::newRow("bytes simples dizem utf-16") << QByteArray("<?xml version='1.0' encoding='UTF-16'?><a/>");
    QTest::newRow("bytes simples dizem ucs-4") << QByteArray("<?xml version='1.0' encoding='ucs-4'?><a/>");
    QTest::newRow("codificacao que nao existe")
        << QByteArray("<?xml version='1.0' encoding='nenhuma-tal'?><a/>");
    QTest::newRow("utf-8 cortado") << QByteArray("\xEF\xBB\xBF<a>\xC3</a>");
    QTest::newRow("utf-8 longo demais") << QByteArray("\xEF\xBB\xBF<a>\xC0\xAF</a>");
    QTest::newRow("utf-16 impar") << QByteArray("\xFF\xFE<\0a\0/\0>\0x", 11);
    QTest::newRow("shift-jis que nao e")
        << QByteArray("<?xml version='1.0' encoding='SHIFT_JIS'?><a>\x81</a>");
}

void TesteXMLDocument::DeclaracaoQueMente()
{
    QFETCH(QByteArray, Bytes);
    const auto E = RecusaDe(Bytes);
    QVERIFY(E);
    QCOMPARE(E->Message, u"XML em formato inválido!"_s);
    QVERIFY(!E->Detalhe.isEmpty());
}

void TesteXMLDocument::MalFormados_data()
{
    QTest::addColumn<QByteArray>("Bytes");
    QTest::newRow("nada") << QByteArray();
    QTest::newRow("so brancos") << QByteArray(" \r\n ");
    QTest::newRow("so texto") << QByteArray("texto");
    QTest::newRow("so a declaracao") << QByteArray("<?xml version='1.0'?>");
    QTest::newRow("so comentario") << QByteArray("<!-- c -->");
    QTest::newRow("so a marca") << QByteArray("\xEF\xBB\xBF");
    QTest::newRow("so a marca larga") << QByteArray("\xFF\xFE");
    QTest::newRow("duas raizes") << QByteArray("<a/><b/>");
    QTest::newRow("texto depois") << QByteArray("<a/>x");
    QTest::newRow("texto antes") << QByteArray("x<a/>");
    QTest::newRow("nao fecha") << QByteArray("<a><b></b>");
    QTest::newRow("fecha outro") << QByteArray("<a></b>");
    QTest::newRow("caixa diferente") << QByteArray("<a></A>");
    QTest::newRow("atributo repetido") << QByteArray("<a b='1' b='2'/>");
    QTest::newRow("atributo sem aspas") << QByteArray("<a b=1/>");
    QTest::newRow("atributo sem valor") << QByteArray("<a b/>");
    QTest::newRow("atributos colados") << QByteArray("<a b='1'c='2'/>");
    QTest::newRow("menor em atributo") << QByteArray("<a b='<'/>");
    QTest::newRow("e comercial solto") << QByteArray("<a>b & c</a>");
    QTest::newRow("entidade sem declaracao") << QByteArray("<a>&nbsp;</a>");
    QTest::newRow("entidade sem declaracao em atributo") << QByteArray("<a b='&nbsp;'/>");
    QTest::newRow("fim de cdata em texto") << QByteArray("<a>]]></a>");
    QTest::newRow("dois hifens em comentario") << QByteArray("<a><!-- -- --></a>");
    QTest::newRow("caracter zero") << QByteArray("<a>\0</a>", 8);
    QTest::newRow("caracter zero depois") << QByteArray("<a/>\0<b>", 8);
    QTest::newRow("caracter zero no fim") << QByteArray("<a/>\0", 5);
    QTest::newRow("caracter de controle") << QByteArray("<a>\x01</a>");
    QTest::newRow("referencia a controle") << QByteArray("<a>&#1;</a>");
    QTest::newRow("referencia a meio caracter") << QByteArray("<a>&#xD800;</a>");
    QTest::newRow("nome que comeca com numero") << QByteArray("<1a/>");
    QTest::newRow("declaracao fora do lugar") << QByteArray("<a><?xml version='1.0'?></a>");
    QTest::newRow("branco antes da declaracao") << QByteArray(" <?xml version='1.0'?><a/>");
    QTest::newRow("prefixo desfeito") << QByteArray("<a xmlns:p=''/>");
}

void TesteXMLDocument::MalFormados()
{
    QFETCH(QByteArray, Bytes);
    const auto E = RecusaDe(Bytes);
    QVERIFY(E);
    QCOMPARE(E->Message, u"XML em formato inválido!"_s);
    QVERIFY(!E->Detalhe.isEmpty());
}

void TesteXMLDocument::OErroDizOLugar()
{
    const auto E = RecusaDe("<a>\n  <b>\n  </c>\n</a>");
    QVERIFY(E);
    QCOMPARE(E->Linha, 3);
    QVERIFY(E->Coluna >= 3 && E->Coluna <= 8);
    QCOMPARE(E->Detalhe,
             u"Linha 3, coluna %1: Opening and ending tag mismatch: b line 2 and c"_s.arg(E->Coluna));
    // The first failure counts, not what follows from it.
    QCOMPARE(RecusaDe("<a>\n&x;\n</b>")->Linha, 2);
}

void TesteXMLDocument::DeArquivo()
{
    const QTemporaryDir Pasta;
    EscreverBytes(Pasta.filePath(u"Doc.xml"_s), "<a>\xE7</a>");
    QCOMPARE(TXMLDocument::DeArquivo(Pasta.filePath(u"Doc.xml"_s))->Raiz().Text(), u"ç"_s);
    QCOMPARE(TXMLDocument::DeArquivo(Pasta.path() + u"\\doc.XML"_s)->Raiz().Text(), u"ç"_s);
}

void TesteXMLDocument::ArquivoQueNaoExiste()
{
    QVERIFY_THROWS_EXCEPTION(EFOpenError, TXMLDocument::DeArquivo(u"nenhum-tal.xml"_s));
}

void TesteXMLDocument::VariasThreadsAoMesmoTempo()
{
    const auto Comum = TXMLDocument::DeBytes("<a><b c='1'>x</b></a>");
    const QString Esperado = Retrato(Comum->Raiz());
    std::atomic<int> Certos = 0;
    {
        std::vector<std::jthread> Threads;
        for (int T = 0; T < 8; ++T)
            Threads.emplace_back([&] {
                for (int I = 0; I < 100; ++I) {
                    const QByteArray Bytes =
                        I % 2 == 0 ? "<a><b c='1'>x</b></a>"
                                   : "<!DOCTYPE a [<!ELEMENT a ANY><!ELEMENT b ANY><!ATTLIST b c "
                                     "CDATA '1'><!ENTITY x 'x'>]><a><b>&x;</b></a>";
                    const bool Iguais =
                        Retrato(Bytes) == Esperado && Retrato(Comum->DocumentElement()) == Esperado;
                    Certos += Iguais && RecusaDe("<a><b></a>") ? 1 : 0;
                }
            });
    }
    QCOMPARE(Certos.load(), 800);
}

QTEST_GUILESS_MAIN(TesteXMLDocument)
#include "TesteXMLDocument.moc"
