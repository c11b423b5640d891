// SPDX-License-Identifier: LGPL-2.1-or-later
// Random documents: what is read must be what another reader reads in the same bytes.
#include "ComumXML.h"

#include <QTest>
#include <QXmlStreamReader>

#include <random>

using namespace Sibrel;
using namespace Sibrel::Testes;
using namespace Qt::StringLiterals;

namespace
{

class TSorteio
{
public:
    explicit TSorteio(unsigned Semente)
        : FMotor(Semente)
    {
    }
    int Ate(int Fim) { return static_cast<int>(FMotor() % static_cast<unsigned>(Fim)); }
    template <class... T>
    QString Um(const T &...Textos)
    {
        const QStringList Lista{QString(Textos)...};
        return Lista[Ate(static_cast<int>(Lista.size()))];
    }
    QString Nome()
    {
        return Um(u"a"_s, u"No"_s, u"Informações"_s, u"p:q"_s, u"x-1.y"_s, u"Símbolo"_s, u"_z"_s);
    }
    QString Pedacos(int Quantos)
    {
        QString Texto;
        for (int I = Ate(Quantos); I > 0; --I)
            Texto += Um(u" "_s, u"\n"_s, u"\r\n"_s, u"\r"_s, u"\t"_s, u"abc"_s, u"ç€Ω"_s, u"\U0001F600"_s,
                        u"&amp;"_s, u"&lt;"_s, u"&gt;"_s, u"&#10;"_s, u"&#13;"_s, u"&#xE7;"_s, u"&#x1F600;"_s,
                        u"="_s, u"&quot;"_s, u"&apos;"_s, u"longo "_s.repeated(100), u"/"_s);
        return Texto;
    }
    QString Elemento(int Fundo);

private:
    QString Atributos();
    QString Filho(int Fundo);

    std::mt19937 FMotor;
};

QString TSorteio::Atributos()
{
    QString Texto;
    QStringList Usados;
    for (int I = Ate(5); I > 0; --I) {
        const QString N =
            Um(u"xmlns"_s, u"xmlns:p"_s, u"xmlns:r"_s, u"xmlnsx"_s, Nome(), Nome(), Nome(), Nome());
        if (Usados.contains(N))
            continue;
        Usados.append(N);
        const QString Aspa = Um(u"'"_s, u"\""_s);
        // The same two addresses everywhere would make names clash that are different as written.
        const QString Valor =
            N.startsWith(u"xmlns"_s) ? u"urn:%1:%2"_s.arg(Usados.size()).arg(Ate(1'000'000)) : Pedacos(6);
        Texto += Um(u" "_s, u"\n"_s, u"\t "_s) + N + Um(u"="_s, u" = "_s) + Aspa + Valor + Aspa;
    }
    return Texto;
}

QString TSorteio::Filho(int Fundo)
{
    switch (Ate(8)) {
    case 0:
        return u"<!--"_s + Um(u""_s, u" c "_s, u"<x>&"_s, u"\r\nç"_s) + u"-->"_s;
    case 1:
        return u"<![CDATA["_s + Um(u""_s, u"<x a='1'>&y;"_s, u"]] >"_s, u"\r\n€"_s) + u"]]>"_s;
    case 2:
        return u"<?alvo"_s + Um(u""_s, u" d"_s, u"  <x> &"_s) + u"?>"_s;
    case 3:
    case 4:
        return Pedacos(8);
    default:
        return Fundo > 0 ? Elemento(Fundo - 1) : QString();
    }
}

QString TSorteio::Elemento(int Fundo)
{
    const QString N = Nome();
    const QString Inicio = u'<' + N + Atributos();
    if (Ate(5) == 0)
        return Inicio + Um(u"/>"_s, u" />"_s, u"\n/>"_s);
    QString Filhos;
    for (int I = Ate(7); I > 0; --I)
        Filhos += Filho(Fundo);
    return Inicio + u'>' + Filhos + u"</"_s + N + Um(u">"_s, u"\n>"_s);
}

// The same picture as Retrato, from the other reader's tokens; its neighbouring texts are joined.
class TLeitorDeControle
{
public:
    QString Ler(const QString &Texto);

private:
    void Tratar();
    void Encerrar()
    {
        if (!FTexto.isEmpty())
            FResultado += Entre(u'[', FTexto, u']');
        FTexto.clear();
    }

    QXmlStreamReader FLeitor;
    QString FResultado;
    QString FTexto;
    int FFundo = 0;
};

QString TLeitorDeControle::Ler(const QString &Texto)
{
    FLeitor.addData(Texto);
    FLeitor.setNamespaceProcessing(false);
    while (!FLeitor.atEnd()) {
        FLeitor.readNext();
        Tratar();
    }
    return FLeitor.hasError() ? u"erro: "_s + FLeitor.errorString() : FResultado;
}

void TLeitorDeControle::Tratar()
{
    switch (FLeitor.tokenType()) {
    case QXmlStreamReader::Characters:
        if (FLeitor.isCDATA()) {
            Encerrar();
            FResultado += u'C' + Entre(u'[', FLeitor.text().toString(), u']');
        } else if (FFundo > 0) {
            FTexto += FLeitor.text();
        }
        break;
    case QXmlStreamReader::Comment:
        Encerrar();
        FResultado += u'!' + Entre(u'[', FLeitor.text().toString(), u']');
        break;
    case QXmlStreamReader::ProcessingInstruction:
        Encerrar();
        FResultado += u'?' + Entre(u'[',
                                   FLeitor.processingInstructionTarget().toString() + u' ' +
                                       FLeitor.processingInstructionData().toString(),
                                   u']');
        break;
    case QXmlStreamReader::StartElement:
        Encerrar();
        ++FFundo;
        FResultado += FLeitor.qualifiedName();
        for (const QXmlStreamAttribute &A : FLeitor.attributes())
            FResultado +=
                u' ' + A.qualifiedName().toString() + u'=' + Entre(u'"', A.value().toString(), u'"');
        FResultado += u'(';
        break;
    case QXmlStreamReader::EndElement:
        Encerrar();
        --FFundo;
        FResultado += u')';
        break;
    default:
        break;
    }
}

} // namespace

class TesteXMLAleatorio : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void OMesmoQueOutroLeitor();
    void UmByteTrocadoNuncaDerruba();
    void OTextoEOMesmoQueOsSeusBytes();
};

void TesteXMLAleatorio::OMesmoQueOutroLeitor()
{
    int ComFilhos = 0;
    for (unsigned Semente = 0; Semente < 3'000; ++Semente) {
        const QString Texto = TSorteio(Semente).Elemento(5);
        const QString Esperado = TLeitorDeControle().Ler(Texto);
        QVERIFY2(!Esperado.startsWith(u"erro"_s), qPrintable(Esperado + Texto));
        const auto Documento = TXMLDocument::DeTexto(Texto);
        if (Retrato(Documento->Raiz()) != Esperado)
            qWarning().noquote() << "semente" << Semente << Texto;
        QCOMPARE(Retrato(Documento->Raiz()), Esperado);
        ComFilhos += Documento->Nos() > 10 ? 1 : 0;
    }
    QVERIFY(ComFilhos > 500); // the documents are worth comparing
}

void TesteXMLAleatorio::UmByteTrocadoNuncaDerruba()
{
    std::mt19937 Motor(7);
    int Lidos = 0;
    for (unsigned Semente = 0; Semente < 2'000; ++Semente) {
        QByteArray Bytes = TSorteio(Semente).Elemento(3).toUtf8();
        if (Semente % 4 == 0)
            Bytes.prepend("<!DOCTYPE a [<!ELEMENT a ANY><!ATTLIST a x CDATA 'y'><!ENTITY e '<a/>'>]>");
        for (int I = 0; I < 3; ++I)
            Bytes[static_cast<qsizetype>(Motor() % static_cast<unsigned>(Bytes.size()))] =
                static_cast<char>(Motor());
        try {
            QVERIFY(!Retrato(TXMLDocument::DeBytes(Bytes)->Raiz()).isEmpty());
            ++Lidos;
        } catch (const EDOMParseError &E) {
            QVERIFY(!E.Detalhe.isEmpty());
        }
    }
    QVERIFY(Lidos > 0 && Lidos < 2'000);
}

// Long enough to be read in several pieces, well-formed or with a few characters more.
void TesteXMLAleatorio::OTextoEOMesmoQueOsSeusBytes()
{
    int Lidos = 0;
    for (unsigned Semente = 0; Semente < 500; ++Semente) {
        TSorteio Sorteio(Semente);
        QString Texto;
        while (Texto.size() < 70'000)
            Texto += Sorteio.Elemento(4);
        Texto = u"<r>"_s + Texto + u"</r>"_s;
        for (int I = Semente % 3 == 0 ? 0 : Sorteio.Ate(5); I > 0; --I) {
            const qsizetype Onde = Sorteio.Ate(static_cast<int>(Texto.size()));
            if (!Texto[Onde].isLowSurrogate())
                Texto.insert(Onde, Sorteio.Um(u"]]>"_s, u"]"_s, u">"_s, u"\r"_s, u"\n"_s, u"-"_s, u"\""_s,
                                              u" "_s, u"\U0001F600"_s, u"&#32;"_s, u"<!--"_s, u"\uFFFF"_s));
        }
        const QString Esperado = ResultadoDosBytes(Texto);
        if (ResultadoDoTexto(Texto) != Esperado)
            qWarning().noquote() << "semente" << Semente << Texto;
        QCOMPARE(ResultadoDoTexto(Texto), Esperado);
        Lidos += Esperado.startsWith(u"recusado"_s) ? 0 : 1;
    }
    QVERIFY(Lidos > 200 && Lidos < 450);
}

QTEST_GUILESS_MAIN(TesteXMLAleatorio)
#include "TesteXMLAleatorio.moc"
