// SPDX-License-Identifier: LGPL-2.1-or-later
#include "guia/Trecho.h"

#include "comum/Dados.h"

#include <Sibrel/EDOMParseError>
#include <Sibrel/EFilerError>
#include <Sibrel/EInOutError>
#include <Sibrel/TLimitesXML>
#include <Sibrel/TTabelaDeSimbolos>
#include <Sibrel/TXMLDocument>

#include <QDir>

using namespace Sibrel;
using Sibrel::Guia::PastaDoTrecho;

TRECHO(Detalhe)
{
    const QString Arquivo = PastaDoTrecho() + QStringLiteral("/curta.txt");
    Testes::EscreverBytes(Arquivo, "    2\r\nFonte      \"A\"  65  0 1.00 Arial\r\n");
    QString NaTela;
    QString NoRegistro;
    TTabelaDeSimbolos Tabela;
    //! [detalhe]
    try {
        Tabela.Importar(Arquivo);
    } catch (const EFilerError &) {
        throw; // no such file, or it cannot be read
    } catch (const Exception &Erro) {
        NaTela = Erro.Message;                               // the fixed text, for an operator
        NoRegistro = Erro.Detalhe;                           // what else is known: file, line, cause
        qInfo("%s", static_cast<const char *>(Erro.what())); // both, in UTF-8
    }
    //! [detalhe]
    EXIGIR(!NaTela.isEmpty());
    EXIGIR(NoRegistro.contains(QStringLiteral("curta.txt")));
    EXIGIR(Tabela.Simbolos().Count() == 1); // what was read stays
}

TRECHO(Documento)
{
    int Linha = 0;
    //! [documento]
    try {
        TXMLDocument::DeTexto(QStringLiteral("<A>\n  <B>\n</A>"));
    } catch (const EDOMParseError &Erro) {
        Linha = Erro.Linha; // and Coluna, from 1; 0 when the place is not known
    }
    //! [documento]
    EXIGIR(Linha == 3);
}

TRECHO(Limites)
{
    //! [limites]
    QString Fundo;
    for (int I = 0; I <= TLimitesXML::Profundidade; ++I)
        Fundo = QStringLiteral("<A>") + Fundo + QStringLiteral("</A>");
    bool Recusado = false;
    try {
        TXMLDocument::DeTexto(Fundo); // one element deeper than a document may be
    } catch (const EDOMParseError &) {
        Recusado = true;
    }
    //! [limites]
    EXIGIR(Recusado);
    EXIGIR(TXMLDocument::DeTexto(Fundo.sliced(3).chopped(4)) != nullptr);
}

TRECHO(Entidades)
{
    const QString Pasta = PastaDoTrecho();
    Testes::EscreverBytes(Pasta + QStringLiteral("/nota.txt"), "Pronto");
    Testes::EscreverBytes(
        Pasta + QStringLiteral("/documento.xml"),
        "<!DOCTYPE R [<!ELEMENT R (#PCDATA)><!ENTITY nota SYSTEM \"nota.txt\">]><R>&nota;</R>");
    bool Recusado = false;
    try {
        TXMLDocument::DeArquivo(Pasta + QStringLiteral("/documento.xml"));
    } catch (const EDOMParseError &) {
        Recusado = true;
    }
    EXIGIR(Recusado);
    //! [entidades]
    TXMLDocument::AtribuirPastaDeEntidades(
        Pasta); // for the whole process; empty forbids all files, as at the start
    //! [entidades]
    EXIGIR(TXMLDocument::DeArquivo(Pasta + QStringLiteral("/documento.xml"))->Raiz().Text() == u"Pronto");
    TXMLDocument::AtribuirPastaDeEntidades({});
}

TRECHO(Ler)
{
    QStringList Nomes;
    //! [ler]
    const TXMLDocument::TReferencia Documento =
        TXMLDocument::DeTexto(QStringLiteral("<R><U Nome='A'/>texto<U Nome='B'/></R>"));
    for (const TCursorXML No : Documento->Raiz().Filhos()) // a cursor costs nothing; it needs the document
        if (No.NomeE(u"U"))
            Nomes += No.Attribute(u"Nome").value_or(QString());
    const IXMLNode Guardado = Documento->Raiz().FirstChild().Guardar(); // keeps the document alive by itself
    //! [ler]
    EXIGIR(Nomes.join(u' ') == u"A B");
    EXIGIR(Guardado.NodeName() == u"U");
}
