// SPDX-License-Identifier: LGPL-2.1-or-later
#include "simbolos/Simbolo.h"

namespace Sibrel
{

ISimbolo::~ISimbolo() = default;

bool ISimbolo::PedirPintura(TCanvas &, const TRect &, double, TPinturaPedida &)
{
    return false;
}

std::unique_ptr<ISimbolo> Copia(ISimbolo &Simbolo)
{
    std::unique_ptr<ISimbolo> Nova = Simbolo.ObterClasse().Criar();
    Nova->Assign(Simbolo);
    return Nova;
}

} // namespace Sibrel
