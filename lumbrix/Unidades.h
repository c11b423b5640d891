// SPDX-License-Identifier: LGPL-2.1-or-later
// Distances and angles as texts.
#pragma once

#include "plataforma/Exportacao.h"

#include <QString>
#include <QStringView>

namespace Sibrel
{

/// A distance in figure units. For files (`ParaMostrar` false): the shortest decimal form that reads back to
/// the same number, with a point and without a unit. For showing: two decimals and the process-wide decimal
/// separator.
SIBREL_EXPORT QString DistanciaToStr(double Distancia, bool ParaMostrar);

/// The distance that a text gives. Blanks around it, a plus sign and a comma for the point are accepted: old
/// figures were written under both separators. EConvertError for what is no number or too large for one.
SIBREL_EXPORT double StrToDistancia(QStringView Texto);

/// An angle held in radians. For files (`ParaMostrar` false): radians, like a distance. For showing: degrees
/// with two decimals, the process-wide decimal separator and the degree sign.
SIBREL_EXPORT QString AnguloToStr(double Radianos, bool ParaMostrar);

/// The radians that a text of a file gives; errors as StrToDistancia.
SIBREL_EXPORT double StrToAngulo(QStringView Texto);

} // namespace Sibrel
