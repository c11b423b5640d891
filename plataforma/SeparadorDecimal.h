// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Exportacao.h"

#include <QChar>
#include <QString>

namespace Sibrel
{

/// The process-wide decimal separator of texts that follow the locale. First the system locale's; whoever
/// sets it sets it for the whole process. May be read and set from any thread.
SIBREL_EXPORT QChar SeparadorDecimal() noexcept;
SIBREL_EXPORT void AtribuirSeparadorDecimal(QChar Separador) noexcept;

/// `Valor` with `Casas` decimals and the process-wide separator, halves of the last place away from zero.
SIBREL_EXPORT QString FormatarDecimal(double Valor, int Casas);

} // namespace Sibrel
