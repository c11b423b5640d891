// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Exportacao.h"

#include <QString>

#include <cstdint>

namespace Sibrel
{

/// A number that changes when the fonts of the application do (installed, loaded, removed): what depends on
/// fonts keeps it with its results and forgets them when it differs. GUI thread only.
SIBREL_EXPORT std::uint64_t GeracaoDasFontes();

/// True when a font family of that name is there, whatever its letter case; answers are remembered. Without a
/// QGuiApplication nothing can be said, and it is true. GUI thread only.
SIBREL_EXPORT bool FonteInstalada(const QString &Nome);

} // namespace Sibrel
