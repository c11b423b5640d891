// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Exportacao.h"
#include "plataforma/XMLDocument.h"

#include <QString>

namespace Sibrel
{

/// Finds where in its text an element begins, for messages.
///
/// A document keeps the line of its nodes and not the column: columns are asked for only when something is
/// wrong, and are then found by reading the text again. Asking in document order reads it once altogether.
/// Not synchronised.
class SIBREL_EXPORT TLocalizadorXML
{
public:
    /// `Texto` is what the documents of all questions were read from: a place found in one is good in
    /// another.
    explicit TLocalizadorXML(QString Texto);

    /// The column in which the element's tag begins, from 1, in UTF-16 code units. 0 when it cannot be told:
    /// for a nil cursor, for what is no element, in a document with a DOCTYPE, whose entities may bring
    /// elements in.
    int Coluna(const TCursorXML &Elemento);

private:
    void Recomecar() noexcept;
    bool Avancar() noexcept;
    qsizetype ProximaEtiqueta(qsizetype De) const noexcept;

    QString FTexto;
    const TXMLDocument *FDocumento = nullptr;
    qsizetype FEtiqueta = -1; // the "<" of the element that was found last; past the end when there is none
    TCursorXML FElemento;     // that element; nil at the start and at the end
};

} // namespace Sibrel
