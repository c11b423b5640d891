// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Font.h"

#include <cstdint>

namespace Sibrel
{

/// Turns the font to `Angulo` tenths of a degree counter-clockwise from the horizontal, whatever its rotation
/// was.
inline void RotacionarFonte(TFont &Fonte, std::uint16_t Angulo)
{
    Fonte.AtribuirOrientation(Angulo);
}

} // namespace Sibrel
