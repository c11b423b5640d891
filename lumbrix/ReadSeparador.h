// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Exportacao.h"

#include <QString>
#include <QStringView>

namespace Sibrel
{

class TArquivoDeLeitura;

/// Reads the next token of the current line, delimited by the characters of `Separadores`.
///
/// Separators before the token are skipped. A token that begins with a double or single quote is returned
/// with its quotes and may hold separators; a doubled quote inside does not end it, and an unclosed one ends
/// with the line. The position is left right behind the token, on the same line. At the end of the line the
/// token is empty.
SIBREL_EXPORT QString ReadSeparador(TArquivoDeLeitura &Arquivo, QStringView Separadores);

} // namespace Sibrel
