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

inline void Acrescentar(TPinturaDoElemento &Todos, TEncaixe Encaixe, double Desvio) noexcept
{
    Todos.Encaixe = std::max(Todos.Encaixe, Encaixe);
    Todos.Desvio = std::max(Todos.Desvio, Desvio);
}

/// Notes how the rounding of `Valor` plus a whole number depends on that number: not at all; on its being
/// even or odd, where `Valor` lies exactly between two integers; also on its size, where `Valor` lies next to
/// that and the sum may have no digits left for the difference.
inline void Observar(TPinturaDoElemento &Pintura, double Valor) noexcept
{
    constexpr double Perto = 1.0 / (1 << 20); // a sum below 2^31 keeps 21 bits behind the point
    const double DoMeio = std::abs(std::abs(Valor - std::trunc(Valor)) - 0.5);
    if (DoMeio > Perto)
        return;
    Acrescentar(Pintura, DoMeio <= Perto ? TEncaixe::Par : TEncaixe::Fixo, DoMeio); // fixed: not a number
}

} // namespace Sibrel
