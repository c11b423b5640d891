// SPDX-License-Identifier: LGPL-2.1-or-later
// What the elements and the figure share of geometry. Not for hosts.
#pragma once

#include "plataforma/Rect.h"
#include "simbolos/ElementoGrafico.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Sibrel
{

/// Coordinates beyond int32 go to its limit.
constexpr std::int32_t Saturado(std::int64_t Valor) noexcept
{
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(Valor, std::numeric_limits<std::int32_t>::min(),
                                                              std::numeric_limits<std::int32_t>::max()));
}

/// The smaller of the two factors that take `Origem`'s sides to `Destino`'s; by IEEE arithmetic where a side
/// of `Origem` is zero.
inline double ObterEscala(const TRect &Origem, const TRect &Destino) noexcept
{
    const double SX = static_cast<double>(Destino.Width()) / static_cast<double>(Origem.Width());
    const double SY = static_cast<double>(Destino.Height()) / static_cast<double>(Origem.Height());
    return SX >= SY ? SY : SX;
}

/// How the rounding of `Valor` plus a whole number depends on that number: not at all, on its being even or
/// odd where `Valor` lies exactly between two integers, or, where it lies next to that, on the whole of it,
/// since the sum is itself rounded.
inline TEncaixe EncaixeDe(double Valor) noexcept
{
    constexpr double Perto = 1.0 / (1 << 20); // a sum below 2^31 keeps 21 bits behind the point
    const double DoMeio = std::abs(std::abs(Valor - std::trunc(Valor)) - 0.5);
    if (DoMeio == 0)
        return TEncaixe::Par;
    return DoMeio > Perto ? TEncaixe::Livre : TEncaixe::Fixo; // a NaN stays fixed
}

inline void Acrescentar(TEncaixe &Encaixe, TEncaixe Outro) noexcept
{
    Encaixe = std::max(Encaixe, Outro);
}

} // namespace Sibrel
