// SPDX-License-Identifier: LGPL-2.1-or-later
#include "lumbrix/Geometria.h"

#include <algorithm>

namespace Sibrel
{

TRect Uniao(const TRect &R1, const TRect &R2) noexcept
{
    return {std::min(R1.Left, R2.Left), std::min(R1.Top, R2.Top), std::max(R1.Right, R2.Right),
            std::max(R1.Bottom, R2.Bottom)};
}

TPoint Centro(const TRect &R) noexcept
{
    const auto Meio = [](std::int64_t A, std::int64_t B) { return static_cast<std::int32_t>((A + B) / 2); };
    return {Meio(R.Left, R.Right), Meio(R.Top, R.Bottom)};
}

} // namespace Sibrel
