// SPDX-License-Identifier: LGPL-2.1-or-later
// The package module: the table that starts the modules when the library is loaded and stops them at its
// unload.
#pragma once

#include "plataforma/Exportacao.h"
#include "plataforma/Modulo.h"

#include <span>

namespace Sibrel
{

/// The package's own modules in the order in which they start; they stop in the reverse order.
SIBREL_EXPORT std::span<TModulo *const> ModulosDoPacote() noexcept;

} // namespace Sibrel

/// How many of the package's modules are started now; with a plain name, for who loads the library by hand.
extern "C" SIBREL_EXPORT int SibrelModulosIniciados();
/// Calls `Aviso` with the name of each module that has stopped while the library is unloaded, in the order in
/// which they stop; null ends it. For who loads the library by hand.
extern "C" SIBREL_EXPORT void SibrelAvisarParadas(void (*Aviso)(const char *Modulo));
