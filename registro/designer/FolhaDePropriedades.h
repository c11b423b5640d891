// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>

class QDesignerFormEditorInterface;

namespace Sibrel
{

struct TComponenteDoPacote;

/// What the form editor shows and stores of every component of the class: some properties are always written
/// into the form file (the editor itself writes only what its sheet calls changed), a component without a
/// picture shows only what is its own, and setting one property shows what that made of the others.
/// `Componente` outlives the editor.
void RegistrarFolhaDePropriedades(QDesignerFormEditorInterface &Editor, const QString &Classe,
                                  const TComponenteDoPacote &Componente);

} // namespace Sibrel
