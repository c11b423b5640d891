// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/ObjectList.h"

namespace Sibrel
{

void ErroDeIndice(std::ptrdiff_t Indice)
{
    throw EListError(QStringLiteral("Índice de lista fora dos limites (%1)").arg(Indice));
}

} // namespace Sibrel
