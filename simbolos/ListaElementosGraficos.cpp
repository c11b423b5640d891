// SPDX-License-Identifier: LGPL-2.1-or-later
#include "simbolos/ListaElementosGraficos.h"

#include "lumbrix/Geometria.h"

#include <optional>

namespace Sibrel
{

TListaElementosGraficos::TListaElementosGraficos() = default;
TListaElementosGraficos::~TListaElementosGraficos() = default;

TRect TListaElementosGraficos::ObterArea() const
{
    std::optional<TRect> Area;
    for (const auto &Elemento : *this)
        if (Elemento)
            Area = Area ? Uniao(*Area, Elemento->Area()) : Elemento->Area();
    return Area.value_or(TRect());
}

void TListaElementosGraficos::DoChange()
{
    if (AoAlterar)
        AoAlterar(*this);
}

} // namespace Sibrel
