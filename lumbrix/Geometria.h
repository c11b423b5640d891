// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Exportacao.h"
#include "plataforma/Rect.h"

namespace Sibrel
{

/// The smallest rectangle that holds both. Sides are compared one by one: an empty or inverted rectangle
/// counts like any other, so that the box of a straight line is not lost.
SIBREL_EXPORT TRect Uniao(const TRect &R1, const TRect &R2) noexcept;

/// The middle of both pairs of sides, halves truncated toward zero. Sums are taken in 64 bits.
SIBREL_EXPORT TPoint Centro(const TRect &R) noexcept;

} // namespace Sibrel
