// SPDX-License-Identifier: LGPL-2.1-or-later
// Numbers as texts, in the notation of files, which follows no locale.
#pragma once

#include "plataforma/Exportacao.h"

#include <QString>
#include <QStringView>

#include <cstdint>

namespace Sibrel
{

/// The integer that a text gives: blanks before it and a sign are allowed, "$" before the digits makes them
/// hexadecimal. Hexadecimal numbers use all 32 bits, so that "$FFFFFFFF" is -1. EConvertError, which quotes
/// the text, for anything else, blanks behind it included.
SIBREL_EXPORT std::int32_t StrToInt(QStringView Texto);

/// The real number that a text gives. Blanks around it, a plus sign and a comma for the point are allowed.
/// EConvertError for what is no number or beyond the range of one.
SIBREL_EXPORT double StrToReal(QStringView Texto);

/// The shortest text with a point that StrToReal reads back to the same number; infinities and NaN included.
SIBREL_EXPORT QString MenorFormaDecimal(double Valor);

/// `Valor` in upper-case hexadecimal, at least `Digitos` digits; a negative one as its 32 bits.
SIBREL_EXPORT QString IntToHex(std::int32_t Valor, int Digitos);

} // namespace Sibrel
