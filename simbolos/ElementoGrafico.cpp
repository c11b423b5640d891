// SPDX-License-Identifier: LGPL-2.1-or-later
#include "simbolos/ElementoGrafico.h"

namespace Sibrel
{

constinit const std::array<QStringView, 2> BooleanStr{u"N", u"S"};

IElementoGrafico::IElementoGrafico()
    : FSelo(NovoSelo())
{
}

IElementoGrafico::~IElementoGrafico() = default;

void IElementoGrafico::Mudou() const noexcept
{
    FSelo = NovoSelo();
}

bool IElementoGrafico::DescreverPintura(const TRect &, TPinturaDoElemento &) const
{
    return false;
}

void IElementoGrafico::AplicarEstado(TCanvas &) const {}

} // namespace Sibrel
