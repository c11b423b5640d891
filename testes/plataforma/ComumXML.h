// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Exception.h"
#include "plataforma/XMLDocument.h"

#include <QString>

#include <optional>

namespace Sibrel::Testes
{

/// The error that reading the bytes raises; nothing when they are read.
inline std::optional<EDOMParseError> RecusaDe(QByteArrayView Bytes)
{
    try {
        TXMLDocument::DeBytes(Bytes);
        return std::nullopt;
    } catch (const EDOMParseError &E) {
        return E;
    }
}

inline QString Entre(QChar Abre, const QString &Texto, QChar Fecha)
{
    return Abre + Texto + Fecha;
}

/// A node and all below it in one line of text: kinds, names, attributes and texts, in order.
inline QString Retrato(TCursorXML No)
{
    switch (No.Tipo()) {
    case TTipoDeNoXML::Texto:
        return Entre(u'[', No.Text(), u']');
    case TTipoDeNoXML::CDATA:
        return u'C' + Entre(u'[', No.Text(), u']');
    case TTipoDeNoXML::Comentario:
        return u'!' + Entre(u'[', No.Text(), u']');
    case TTipoDeNoXML::Instrucao:
        return u'?' + Entre(u'[', No.NodeName() + u' ' + No.Text(), u']');
    case TTipoDeNoXML::Elemento:
        break;
    }
    QString Resultado = No.NodeName();
    for (int A = 0; A < No.AttributeCount(); ++A)
        Resultado += u' ' + No.AttributeName(A) + u'=' + Entre(u'"', No.AttributeText(A), u'"');
    QString Filhos;
    for (const TCursorXML Filho : No.Filhos())
        Filhos += Retrato(Filho);
    return Resultado + Entre(u'(', Filhos, u')');
}

inline QString Retrato(QByteArrayView Bytes)
{
    const auto Documento = TXMLDocument::DeBytes(Bytes);
    return Retrato(Documento->Raiz());
}

/// What comes of reading: the picture of the document and the line of each of its nodes, or what the refusal
/// says.
template <class Leitura>
QString Resultado(Leitura Ler)
{
    const auto Lido = [](TCursorXML Raiz) {
        QString Linhas;
        const auto Descer = [&Linhas](auto &&Eu, TCursorXML No) -> void {
            Linhas += QString::number(No.Linha()) + u' ';
            for (const TCursorXML Filho : No.Filhos())
                Eu(Eu, Filho);
        };
        Descer(Descer, Raiz);
        return Retrato(Raiz) + Linhas;
    };
    try {
        return Lido(Ler()->Raiz());
    } catch (const EDOMParseError &E) {
        return QStringLiteral("recusado em %1:%2: ").arg(E.Linha).arg(E.Coluna) + E.Detalhe;
    }
}

/// A long text is read in pieces; its bytes are there as a whole.
inline QString ResultadoDoTexto(const QString &Texto)
{
    return Resultado([&Texto] { return TXMLDocument::DeTexto(Texto); });
}

inline QString ResultadoDosBytes(const QString &Texto)
{
    return Resultado([&Texto] { return TXMLDocument::DeUtf8(Texto.toUtf8()); });
}

} // namespace Sibrel::Testes
