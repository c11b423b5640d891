// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

namespace Sibrel
{

/// Lets assistive technology see every TSimboloImagem as a picture. Once is enough; more do nothing.
void RegistrarAcessibilidadeDeSimboloImagem();

} // namespace Sibrel
