// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/LocalizadorXML.h"

#include <QTest>

#include <vector>

using namespace Sibrel;

namespace
{

struct TLugar {
    QString Nome;
    int Linha;
    int Coluna;
    bool operator==(const TLugar &) const = default;
};

// All elements, in document order.
void Descer(const TCursorXML &No, std::vector<TCursorXML> &Lista)
{
    if (No.Elemento())
        Lista.push_back(No);
    for (const TCursorXML &Filho : No.Filhos())
        Descer(Filho, Lista);
}

// Where each element's tag stands, written by whoever made the text.
class TEscritor
{
public:
    void Texto(const QString &T) { FTexto += T; }
    void Abrir(const QString &Nome, const QString &Resto = {})
    {
        const qsizetype Quebra = FTexto.lastIndexOf(u'\n');
        Lugares.push_back({Nome, int(FTexto.count(u'\n')) + 1, int(FTexto.size() - Quebra)});
        FTexto += u'<' + Nome + Resto;
    }
    const QString &Tudo() const { return FTexto; }
    std::vector<TLugar> Lugares;

private:
    QString FTexto;
};

} // namespace

class TesteLocalizadorXML : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void NumaLinhaSo();
    void OQueParecemEtiquetasENaoSao();
    void DepoisDaMarcaDeOrdem();
    void ComDoctypeNaoSeSabe();
    void OQueNaoEElemento();
    void ForaDeOrdem();
    void OutroDocumento();
    void DocumentosAoAcaso();
};

void TesteLocalizadorXML::NumaLinhaSo()
{
    const QString XML = QStringLiteral("<R><A/><B x='>'><C></C></B>é<A/></R>");
    const auto D = TXMLDocument::DeTexto(XML);
    std::vector<TCursorXML> Nos;
    Descer(D->Raiz(), Nos);
    TLocalizadorXML Localizador(XML);
    std::vector<int> Colunas;
    for (const TCursorXML &No : Nos)
        Colunas.push_back(Localizador.Coluna(No));
    QCOMPARE(Colunas, std::vector<int>({1, 4, 8, 17, 29}));
}

void TesteLocalizadorXML::OQueParecemEtiquetasENaoSao()
{
    const QString XML =
        QStringLiteral("<?xml version='1.0'?><!-- <A> --><?i <A> ?><R><!--<A>--><![CDATA[<A>]]>"
                       "<?i <A> ?></R>\n<!-- <A> -->");
    const auto D = TXMLDocument::DeTexto(XML);
    TLocalizadorXML Localizador(XML);
    QCOMPARE(Localizador.Coluna(D->Raiz()), int(XML.indexOf(QStringLiteral("<R>"))) + 1);
}

void TesteLocalizadorXML::DepoisDaMarcaDeOrdem()
{
    const QString XML = QChar(0xFEFF) + QStringLiteral("<R>\n<A/></R>");
    const auto D = TXMLDocument::DeTexto(XML);
    TLocalizadorXML Localizador(XML);
    QCOMPARE(Localizador.Coluna(D->Raiz()), 1);
    QCOMPARE(Localizador.Coluna(D->Raiz().FindNode(u"A")), 1);
}

// What an entity brings in stands nowhere in the text.
void TesteLocalizadorXML::ComDoctypeNaoSeSabe()
{
    const QString XML =
        QStringLiteral("<!DOCTYPE R [<!ELEMENT R ANY><!ELEMENT A EMPTY><!ENTITY a '<A/>'>]><R>&a;<A/></R>");
    const auto D = TXMLDocument::DeTexto(XML);
    TLocalizadorXML Localizador(XML);
    for (const TCursorXML &Filho : D->Raiz().TCursorXML::Filhos())
        QCOMPARE(Localizador.Coluna(Filho), 0);
    QCOMPARE(Localizador.Coluna(D->Raiz()), 0);
}

void TesteLocalizadorXML::OQueNaoEElemento()
{
    const QString XML = QStringLiteral("<R>texto</R>");
    const auto D = TXMLDocument::DeTexto(XML);
    TLocalizadorXML Localizador(XML);
    QCOMPARE(Localizador.Coluna(TCursorXML()), 0);
    QCOMPARE(Localizador.Coluna(D->Raiz().FirstChild()), 0);
    QCOMPARE(Localizador.Coluna(D->Raiz()), 1);
}

void TesteLocalizadorXML::ForaDeOrdem()
{
    const QString XML = QStringLiteral("<R><A/><B/><C/></R>");
    const auto D = TXMLDocument::DeTexto(XML);
    TLocalizadorXML Localizador(XML);
    QCOMPARE(Localizador.Coluna(D->Raiz().FindNode(u"C")), 12);
    QCOMPARE(Localizador.Coluna(D->Raiz().FindNode(u"A")), 4);
    QCOMPARE(Localizador.Coluna(D->Raiz().FindNode(u"A")), 4);
    QCOMPARE(Localizador.Coluna(D->Raiz().FindNode(u"B")), 8);
    QCOMPARE(Localizador.Coluna(D->Raiz()), 1);
}

void TesteLocalizadorXML::OutroDocumento()
{
    const QString XML = QStringLiteral("<R><A/></R>");
    const auto Um = TXMLDocument::DeTexto(XML);
    const auto Outro = TXMLDocument::DeTexto(XML);
    const auto Maior = TXMLDocument::DeTexto(QStringLiteral("<R><A/><B/></R>"));
    TLocalizadorXML Localizador(XML);
    QCOMPARE(Localizador.Coluna(Um->Raiz().FindNode(u"A")), 4);
    QCOMPARE(Localizador.Coluna(Outro->Raiz()), 1);
    QCOMPARE(Localizador.Coluna(Maior->Raiz().FindNode(u"B")), 0); // not of this text
    QCOMPARE(Localizador.Coluna(Um->Raiz().FindNode(u"A")), 4);
}

void TesteLocalizadorXML::DocumentosAoAcaso()
{
    unsigned Acaso = 7;
    const auto Ate = [&Acaso](unsigned Limite) {
        Acaso = Acaso * 1103515245U + 12345U;
        return int((Acaso >> 16) % Limite);
    };
    const QStringList Miolos = {"",           " ",      "\n",           "\r\n\t",
                                "é€",         "a > b",  "<!-- <x> -->", "<![CDATA[<x>]]>",
                                "<?p <x> ?>", "&lt;x>", "\U0001F6A9"};
    const QStringList Atributos = {"", " a='1'", "\n a='>' b=\"'\"", " xmlns:p='u'", " a = '\n'"};
    for (int Volta = 0; Volta < 300; ++Volta) {
        TEscritor E;
        QStringList Abertos;
        E.Texto(Ate(2) ? QStringLiteral("<?xml version='1.0'?>\n<!-- <R> -->") : QString());
        E.Abrir(QStringLiteral("R"), QStringLiteral(">"));
        for (int I = Ate(40); I > 0; --I) {
            E.Texto(Miolos[Ate(unsigned(Miolos.size()))]);
            const QString Nome = QStringLiteral("N%1").arg(Ate(5));
            if (!Abertos.isEmpty() && Ate(3) == 0) {
                E.Texto(QStringLiteral("</%1>").arg(Abertos.takeLast()));
                continue;
            }
            const bool Vazio = Ate(2) == 0;
            E.Abrir(Nome, Atributos[Ate(unsigned(Atributos.size()))] + (Vazio ? "/>" : ">"));
            if (!Vazio)
                Abertos.append(Nome);
        }
        while (!Abertos.isEmpty())
            E.Texto(QStringLiteral("</%1>").arg(Abertos.takeLast()));
        E.Texto(QStringLiteral("</R>"));
        const auto D = TXMLDocument::DeTexto(E.Tudo());
        std::vector<TCursorXML> Nos;
        Descer(D->Raiz(), Nos);
        TLocalizadorXML Localizador(E.Tudo());
        std::vector<TLugar> Achados;
        for (const TCursorXML &No : Nos)
            Achados.push_back({No.NodeName(), No.Linha(), Localizador.Coluna(No)});
        QVERIFY2(Achados == E.Lugares, qPrintable(E.Tudo()));
    }
}

QTEST_MAIN(TesteLocalizadorXML)
#include "TesteLocalizadorXML.moc"
