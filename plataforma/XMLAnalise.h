// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/XMLDocument.h"

namespace Sibrel
{

/// The document in `Utf8`; names of entities that it refers to start at the folder `Base` (empty: none is its
/// own). Raises EDOMParseError or std::bad_alloc.
TXMLDocument::TReferencia AnalisarXML(const QByteArray &Utf8, const QString &Base);

/// Is there a start tag with more attributes than TLimitesXML::Atributos? Found before the parser sees the
/// text, because the parser's time grows with their square. Never false for such a tag; may be true without
/// one where declarations of a DTD stand in the text.
bool AtributosDemais(std::string_view Utf8) noexcept;

} // namespace Sibrel
