// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/Pagina.h"

namespace Hospedeiro
{

void TPagina::MontarMenus(QMenuBar &) {}

void TPagina::LocalizarOutro(bool) {}

} // namespace Hospedeiro
