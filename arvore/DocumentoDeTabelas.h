// SPDX-License-Identifier: LGPL-2.1-or-later
// The document that tables make together: what the database tree loads, also for hosts that want it
// elsewhere.
#pragma once

#include "arvore/ParseTableXML.h"
#include "plataforma/Exportacao.h"
#include "plataforma/Strings.h"

#include <QString>

namespace Sibrel
{

/// First line of every assembled document, the XML declaration at the start of the module; may be changed.
/// GUI thread only.
extern SIBREL_EXPORT QString &CABECALHO_XML;
/// Last line of every assembled document; empty at the start of the module.
extern SIBREL_EXPORT QString &RODAPE_XML;

/// Gives both lines their first values; LimparLinhasDoDocumento empties them. For the module's start and
/// stop.
void IniciarLinhasDoDocumento();
void LimparLinhasDoDocumento();

/// Appends to `Lista` (empty, as a rule) the whole document: header, root element around the lines of every
/// table object in list order, footer. Every "&" between the two ends of the root is written as "&amp;", also
/// one that already begins an entity. What a table object raises reaches the caller.
SIBREL_EXPORT void MontarDocumentoDeTabelas(const TParseTableXMLList &Parses, const QString &ElementoRaiz,
                                            TStrings &Lista);

} // namespace Sibrel
