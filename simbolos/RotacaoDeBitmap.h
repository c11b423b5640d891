// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Color.h"
#include "plataforma/Rect.h"

class QImage;

namespace Sibrel
{

class TCanvas;

/// Paints `Origem`, turned clockwise by `Angulo` radians around its centre, into `Rect`, whose centre it
/// takes: one source pixel a canvas pixel, the nearest one; pixels of the colour `Transparente` leave the
/// canvas as it is.
void DesenharRotacionada(TCanvas &Canvas, const TRect &Rect, const QImage &Origem, TColor Transparente,
                         double Angulo);

} // namespace Sibrel
