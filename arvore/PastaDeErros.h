// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>

namespace Sibrel
{

/// Where the files of failed updates go: see TPreparaAtualizacao::AtribuirPastaDeErros. Any thread.
QString PastaDeErros();

} // namespace Sibrel
