// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Exportacao.h"

namespace Sibrel
{

/// The cursor over all windows of the application. One state, not a stack: whoever sets it replaces what
/// anyone set before. GUI thread only.
enum class TCursorDeTela { Padrao, Ampulheta };

SIBREL_EXPORT void AtribuirCursorDeTela(TCursorDeTela Cursor);

} // namespace Sibrel
