// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/XMLDocument.h"

namespace Sibrel
{

/// A document with a DOCTYPE: checked by its DTD, entities replaced, default attributes added. Names of files
/// start at the folder `Base`. Raises EDOMParseError or std::bad_alloc.
TXMLDocument::TReferencia AnalisarXMLComDTD(const QByteArray &Utf8, const QString &Base);

} // namespace Sibrel
