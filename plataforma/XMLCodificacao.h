// SPDX-License-Identifier: LGPL-2.1-or-later
// Documents become UTF-8 here, before the parser sees them: it reads the bytes 0x80 to 0x9F of ISO-8859-1 as
// control characters, and knows nothing of the five bytes that code page 1252 leaves open.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

namespace Sibrel
{

/// Each raises EDOMParseError for what is no text in its encoding or is larger than TLimitesXML::Entrada.
QByteArray Utf8DeTexto(QStringView Texto);
/// The bytes as they are, without byte order mark; the parser checks them.
QByteArray Utf8SemMarca(QByteArrayView Bytes);
/// By byte order mark, else by the declared encoding, else from code page 1252.
QByteArray Utf8DeBytes(QByteArrayView Bytes);

/// The text of UTF-8 inside a document. A zero-width no-break space at its start is part of it, which
/// QString::fromUtf8 takes for a byte order mark and drops.
QString TextoDeUtf8(QByteArrayView Bytes);

/// The encoding named by the XML or text declaration at the start of the bytes, empty when there is none.
QByteArrayView CodificacaoDeclarada(QByteArrayView Bytes) noexcept;

} // namespace Sibrel
