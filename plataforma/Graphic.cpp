// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/Graphic.h"

#include "plataforma/Font.h"

namespace Sibrel
{

TGraphic::TGraphic() noexcept
    : FSelo(NovoSelo())
{
}

TGraphic::~TGraphic() = default;

void TGraphic::AtribuirTransparent(bool Valor)
{
    if (FTransparent == Valor)
        return;
    FTransparent = Valor;
    Mudou();
}

void TGraphic::Mudou() noexcept
{
    FSelo = NovoSelo();
}

} // namespace Sibrel
