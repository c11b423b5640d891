// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QLatin1String>
#include <QString>

#include <span>

class QDesignerFormEditorInterface;

namespace Sibrel
{

/// Makes the form editor write the named properties of every component of the class into the form file, also
/// when they hold the value of a new component: the editor itself writes only what its sheet calls changed.
void RegistrarFolhaDePropriedades(QDesignerFormEditorInterface &Editor, const QString &Classe,
                                  std::span<const QLatin1String> SempreGuardadas);

} // namespace Sibrel
