// SPDX-License-Identifier: LGPL-2.1-or-later
// The form editor without its windows, as tests use it.
#pragma once

#include <QString>

#include <memory>

class QDesignerFormEditorInterface;
class QDesignerFormWindowInterface;
class QDesignerPropertySheetExtension;
class QObject;
class QUiLoader;

namespace Sibrel::Testes
{

/// Makes the run-time form loader see this build's plugin and no other.
void UsarPlugin(QUiLoader &Carregador);
/// The plugin's file in this build; empty when there is none.
QString ArquivoDoPlugin();

/// The editor with this build's plugin. One a process: the plugin, like the editor, is made for one. While an
/// object of this class lives, design time is on.
class TEditorDeFormularios
{
public:
    TEditorDeFormularios();
    ~TEditorDeFormularios();
    TEditorDeFormularios(const TEditorDeFormularios &) = delete;
    TEditorDeFormularios &operator=(const TEditorDeFormularios &) = delete;

    QDesignerFormEditorInterface &Editor() const noexcept;
    /// A form in the editor; the editor's own. Null, with a warning, when the text is no form. `Arquivo` is
    /// where relative names in the form start.
    QDesignerFormWindowInterface *Abrir(const QString &Texto, const QString &Arquivo = {}) const;
    QDesignerPropertySheetExtension *Folha(QObject *Objeto) const;
};

} // namespace Sibrel::Testes
