// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QPoint>
#include <QRect>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace Sibrel
{

/// A point in logical pixels or in the units of a figure.
struct TPoint {
    std::int32_t X = 0;
    std::int32_t Y = 0;

    constexpr TPoint() noexcept = default;
    constexpr TPoint(std::int32_t OX, std::int32_t OY) noexcept
        : X(OX)
        , Y(OY)
    {
    }
    constexpr TPoint(const QPoint &P) noexcept
        : X(P.x())
        , Y(P.y())
    {
    }
    constexpr QPoint ParaQPoint() const noexcept { return {X, Y}; }
    friend constexpr bool operator==(const TPoint &, const TPoint &) noexcept = default;
};

/// A rectangle whose right and bottom edges are exclusive: its width is Right - Left.
///
/// QRect counts its last pixel as inside (`QRect::right()` is one less); the two are never mixed, only
/// converted. The differences are computed in 64 bits, so that no pair of sides overflows.
struct TRect {
    std::int32_t Left = 0;
    std::int32_t Top = 0;
    std::int32_t Right = 0;
    std::int32_t Bottom = 0;

    constexpr TRect() noexcept = default;
    constexpr TRect(std::int32_t Esquerda, std::int32_t Topo, std::int32_t Direita,
                    std::int32_t Base) noexcept
        : Left(Esquerda)
        , Top(Topo)
        , Right(Direita)
        , Bottom(Base)
    {
    }
    constexpr TRect(const QRect &R) noexcept
        : TRect(R.x(), R.y(), R.x() + R.width(), R.y() + R.height())
    {
    }

    constexpr std::int64_t Width() const noexcept { return std::int64_t{Right} - Left; }
    constexpr std::int64_t Height() const noexcept { return std::int64_t{Bottom} - Top; }
    /// True when there is no pixel inside.
    constexpr bool Vazio() const noexcept { return Right <= Left || Bottom <= Top; }
    /// The same pixels as a QRect. Sides beyond 2^30 are cut there: the width must fit an int.
    constexpr QRect ParaQRect() const noexcept
    {
        constexpr std::int32_t Limite = 1 << 30;
        const auto Cortado = [](std::int32_t V) { return std::clamp(V, -Limite, Limite - 1); };
        const std::int32_t X = Cortado(Left);
        const std::int32_t Y = Cortado(Top);
        return {X, Y, Cortado(Right) - X, Cortado(Bottom) - Y};
    }
    friend constexpr bool operator==(const TRect &, const TRect &) noexcept = default;
};

/// Nearest integer, halves to even, as every scaled coordinate and font size is rounded.
///
/// What does not fit an int32 goes to the nearest limit and a NaN to 0, so that no input is undefined.
inline std::int32_t Arredondar(double Valor) noexcept
{
    if (std::isnan(Valor))
        return 0;
    constexpr double Menor = std::numeric_limits<std::int32_t>::min();
    constexpr double Maior = std::numeric_limits<std::int32_t>::max();
    const double Inteiro = std::nearbyint(Valor); // the default rounding mode is "halves to even"
    if (Inteiro <= Menor)
        return std::numeric_limits<std::int32_t>::min();
    if (Inteiro >= Maior)
        return std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(Inteiro);
}

} // namespace Sibrel
