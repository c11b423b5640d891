// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Rect.h"

#include <algorithm>

namespace Sibrel
{

/// The smallest rectangle that holds both. Sides are compared one by one: an empty or inverted rectangle
/// counts like any other, so that the box of a straight line is not lost.
constexpr TRect Uniao(const TRect &R1, const TRect &R2) noexcept
{
    return {std::min(R1.Left, R2.Left), std::min(R1.Top, R2.Top), std::max(R1.Right, R2.Right),
            std::max(R1.Bottom, R2.Bottom)};
}

/// The middle of both pairs of sides, halves truncated toward zero. Sums are taken in 64 bits.
constexpr TPoint Centro(const TRect &R) noexcept
{
    const auto Meio = [](std::int64_t A, std::int64_t B) { return static_cast<std::int32_t>((A + B) / 2); };
    return {Meio(R.Left, R.Right), Meio(R.Top, R.Bottom)};
}

} // namespace Sibrel
