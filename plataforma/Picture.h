// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Exportacao.h"
#include "plataforma/Graphic.h"

#include <QString>

#include <memory>

namespace Sibrel
{

/// Reads a picture file into a graphic of the class that fits its format: the formats that Qt reads on this
/// machine.
///
/// EInvalidGraphic when the format is unknown or the content damaged, with the reader's words in `Detalhe`.
/// The name is resolved like every file name (Arquivo.h).
SIBREL_EXPORT std::unique_ptr<TGraphic> LerGrafico(const QString &Arquivo);

} // namespace Sibrel
