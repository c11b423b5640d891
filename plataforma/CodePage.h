// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Exportacao.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

#include <cstdint>
#include <optional>

namespace Sibrel
{

/// The text of bytes in code page 1252. Every byte has a character (0x81, 0x8D, 0x8F, 0x90 and 0x9D the code
/// point of the same value), so that no byte of an old file is lost on the way in and out.
SIBREL_EXPORT QString De1252(QByteArrayView Bytes);

/// The same text as UTF-8, without a QString in between: for documents of many megabytes.
SIBREL_EXPORT QByteArray Utf8De1252(QByteArrayView Bytes);

/// The bytes of a text in code page 1252; nothing when a character has no byte there.
SIBREL_EXPORT std::optional<QByteArray> Para1252(QStringView Texto);

/// Like Para1252, but a character without a byte raises EConvertError, whose `Detalhe` names the character.
SIBREL_EXPORT QByteArray Exigir1252(QStringView Texto);

/// Position of the first character that code page 1252 lacks, -1 when there is none.
SIBREL_EXPORT qsizetype PrimeiroFora1252(QStringView Texto) noexcept;

/// The character that `Codigo` stands for in a text font of charset number `Charset` (0 and 1 are code page
/// 1252, 161 Greek, 204 Russian, ...). Charset 2, symbol, is not a code page: see CaracterDeSimbolo. A
/// charset number that is unknown counts as 1252. Charsets of two bytes a character have their single bytes
/// here.
SIBREL_EXPORT char16_t CaracterDoCharset(std::uint8_t Charset, std::uint8_t Codigo) noexcept;

/// The code point at which a symbol font keeps the glyph of a code.
constexpr char16_t CaracterDeSimbolo(std::uint8_t Codigo) noexcept
{
    return static_cast<char16_t>(0xF000U + Codigo);
}

} // namespace Sibrel
