// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Exportacao.h"

#include <QString>
#include <QStringView>

namespace Sibrel
{

/// A text as it is written between the quotation marks of an XML attribute: & < > " ' and tab, carriage
/// return and line feed as references, so that the text read back is the same one. Characters that XML
/// cannot hold at all (the other control characters, lone surrogates) are left out.
SIBREL_EXPORT QString TextoParaURL(QStringView Texto);

} // namespace Sibrel
