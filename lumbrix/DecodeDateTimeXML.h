// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Exportacao.h"

#include <QDateTime>
#include <QStringView>

namespace Sibrel
{

/// The date and time that an ISO 8601 text gives: 2024-05-06T06:20:00, with or without seconds, a fraction
/// (point or comma, kept to the millisecond) and a zone (Z, +hh:mm, +hhmm, +hh); without a zone it is local
/// time. EConvertError, which quotes the text, for anything else.
SIBREL_EXPORT QDateTime DecodeDateTimeXML(QStringView Texto);

} // namespace Sibrel
