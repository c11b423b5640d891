// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Exception.h"

namespace Sibrel
{

/// The one error of a document that cannot be read; a place of 0 is unknown and left out of `Detalhe`.
EDOMParseError ErroDeXML(const QString &Motivo, int Linha = 0, int Coluna = 0);

} // namespace Sibrel
