// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Exportacao.h"
#include "plataforma/Modulo.h"

namespace Sibrel
{

/// The module that sets the first and last lines of assembled documents at its start and empties them at its
/// stop.
SIBREL_EXPORT TModulo &ModuloTreeViewXMLBD() noexcept;

} // namespace Sibrel
