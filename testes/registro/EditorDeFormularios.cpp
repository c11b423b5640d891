// SPDX-License-Identifier: LGPL-2.1-or-later
#include "registro/EditorDeFormularios.h"

#include "plataforma/Component.h"

#include <QCoreApplication>
#include <QDesignerComponents>
#include <QDesignerFormEditorInterface>
#include <QDesignerFormWindowInterface>
#include <QDesignerFormWindowManagerInterface>
#include <QDesignerIntegration>
#include <QDesignerPropertyEditorInterface>
#include <QDesignerPropertySheetExtension>
#include <QDir>
#include <QExtensionManager>
#include <QUiLoader>

namespace Sibrel::Testes
{

namespace
{

const QString PastaDosPlugins = QStringLiteral(SIBREL_PASTA_DE_PLUGINS);

QDesignerFormEditorInterface *NovoEditor()
{
    QCoreApplication::addLibraryPath(PastaDosPlugins);
    QDesignerFormEditorInterface *Editor = QDesignerComponents::createFormEditor(qApp);
    QDesignerComponents::initializePlugins(Editor);
    Editor->setPropertyEditor(QDesignerComponents::createPropertyEditor(Editor, nullptr));
    new QDesignerIntegration(Editor, Editor); // the editor looks there for what it may offer
    return Editor;
}

} // namespace

QString ArquivoDoPlugin()
{
    const QDir Pasta(PastaDosPlugins + QStringLiteral("/designer"));
    const QStringList Nomes = Pasta.entryList({QStringLiteral("*sibrel_designer*")});
    return Nomes.isEmpty() ? QString() : Pasta.filePath(Nomes.first());
}

void UsarPlugin(QUiLoader &Carregador)
{
    Carregador.clearPluginPaths();
    Carregador.addPluginPath(PastaDosPlugins + QStringLiteral("/designer"));
}

TEditorDeFormularios::TEditorDeFormularios()
{
    Editor();
    TComponent::AtribuirEmProjeto(true);
}

TEditorDeFormularios::~TEditorDeFormularios()
{
    QDesignerFormWindowManagerInterface *Gerente = Editor().formWindowManager();
    while (Gerente->formWindowCount() > 0)
        delete Gerente->formWindow(0);
    TComponent::AtribuirEmProjeto(false);
}

QDesignerFormEditorInterface &TEditorDeFormularios::Editor() const noexcept
{
    static QDesignerFormEditorInterface *Unico = NovoEditor(); // the application destroys it
    return *Unico;
}

QDesignerFormWindowInterface *TEditorDeFormularios::Abrir(const QString &Texto, const QString &Arquivo) const
{
    QDesignerFormWindowInterface *Janela = Editor().formWindowManager()->createFormWindow();
    if (!Arquivo.isEmpty())
        Janela->setFileName(Arquivo);
    if (Janela->setContents(Texto))
        return Janela;
    qWarning("O formulário não foi aberto.");
    return nullptr;
}

QDesignerPropertySheetExtension *TEditorDeFormularios::Folha(QObject *Objeto) const
{
    return qt_extension<QDesignerPropertySheetExtension *>(Editor().extensionManager(), Objeto);
}

} // namespace Sibrel::Testes
