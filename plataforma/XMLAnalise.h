// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/XMLDocument.h"

namespace Sibrel
{

/// The document in `Utf8`; names of entities that it refers to start at the folder `Base` (empty: none is its
/// own). Raises EDOMParseError or std::bad_alloc.
TXMLDocument::TReferencia AnalisarXML(const QByteArray &Utf8, const QString &Base);

/// The same for a text of no folder. A long one is turned into UTF-8 as the parser gets to it.
TXMLDocument::TReferencia AnalisarTextoXML(QStringView Texto);

} // namespace Sibrel
