// SPDX-License-Identifier: LGPL-2.1-or-later
// Lists of pairs as elements: <List><Item Name="..." Value="..."/>...</List>.
#pragma once

#include "plataforma/Exportacao.h"
#include "plataforma/Strings.h"
#include "plataforma/XMLDocument.h"

#include <QString>
#include <QStringView>

namespace Sibrel
{

class TFusaoDeLinhas;

/// The names that a list is written with.
struct TTagsDeLista {
    QStringView ListaTag;
    QStringView ItemTag;
    QStringView AtributoNome;
    QStringView AtributoValor;
};

/// The names of a node's two lists.
SIBREL_EXPORT TTagsDeLista TagsDeIdentificacao() noexcept;
SIBREL_EXPORT TTagsDeLista TagsDeInformacao() noexcept;

/// Reads the list that is a direct child of `No` into `Lista`, which is emptied first when `Limpar`, even
/// when there is no such child. A name that the list has gets the new value (an empty one removes its line);
/// another is appended, with an empty value too. Texts are taken as they stand.
SIBREL_EXPORT void AtribuirListaXML(const TCursorXML &No, const TTagsDeLista &Tags, TStrings &Lista,
                                    bool Limpar);
/// The same into a merge that the caller has begun.
void FundirListaXML(const TCursorXML &No, const TTagsDeLista &Tags, TFusaoDeLinhas &Fusao);
/// The same of a list that has been found; nothing of a nil one.
void FundirItensXML(const TCursorXML &Lista, const TTagsDeLista &Tags, TFusaoDeLinhas &Fusao);

/// Writes a list as its element, an item a line, lines ended by CR LF but for the last. Each item carries the
/// value of the first line of its name. No XML declaration.
SIBREL_EXPORT QString ObterXMLStrings(const TTagsDeLista &Tags, const TStrings &Lista);

/// The identification list of an element, replacing what is in `Lista`.
SIBREL_EXPORT void ObterIdentificacao(const TCursorXML &No, TStrings &Lista);

} // namespace Sibrel
