// SPDX-License-Identifier: LGPL-2.1-or-later
#include "registro/designer/FolhaDePropriedades.h"

#include <QDesignerFormEditorInterface>
#include <QDesignerPropertySheetExtension>
#include <QExtensionFactory>
#include <QExtensionManager>
#include <QVariant>

#include <algorithm>

namespace Sibrel
{

namespace
{

// The editor's own sheet, but that some properties always count as changed.
class TFolhaDePropriedades : public QObject, public QDesignerPropertySheetExtension
{
    Q_OBJECT
    Q_INTERFACES(QDesignerPropertySheetExtension)

public:
    TFolhaDePropriedades(QDesignerPropertySheetExtension &DoEditor, std::span<const QLatin1String> Guardadas,
                         QObject *Dono)
        : QObject(Dono)
        , FDoEditor(DoEditor)
        , FGuardadas(Guardadas)
    {
    }

    bool isChanged(int Indice) const override
    {
        const QString Nome = propertyName(Indice);
        return FDoEditor.isChanged(Indice) ||
               std::find(FGuardadas.begin(), FGuardadas.end(), Nome) != FGuardadas.end();
    }

    int count() const override { return FDoEditor.count(); }
    int indexOf(const QString &Nome) const override { return FDoEditor.indexOf(Nome); }
    QString propertyName(int Indice) const override { return FDoEditor.propertyName(Indice); }
    QString propertyGroup(int Indice) const override { return FDoEditor.propertyGroup(Indice); }
    void setPropertyGroup(int Indice, const QString &Grupo) override
    {
        FDoEditor.setPropertyGroup(Indice, Grupo);
    }
    bool hasReset(int Indice) const override { return FDoEditor.hasReset(Indice); }
    bool reset(int Indice) override { return FDoEditor.reset(Indice); }
    bool isVisible(int Indice) const override { return FDoEditor.isVisible(Indice); }
    void setVisible(int Indice, bool Valor) override { FDoEditor.setVisible(Indice, Valor); }
    bool isAttribute(int Indice) const override { return FDoEditor.isAttribute(Indice); }
    void setAttribute(int Indice, bool Valor) override { FDoEditor.setAttribute(Indice, Valor); }
    QVariant property(int Indice) const override { return FDoEditor.property(Indice); }
    void setProperty(int Indice, const QVariant &Valor) override { FDoEditor.setProperty(Indice, Valor); }
    void setChanged(int Indice, bool Valor) override { FDoEditor.setChanged(Indice, Valor); }
    bool isEnabled(int Indice) const override { return FDoEditor.isEnabled(Indice); }

private:
    QDesignerPropertySheetExtension &FDoEditor;
    std::span<const QLatin1String> FGuardadas;
};

class TFabricaDeFolhas : public QExtensionFactory
{
    Q_OBJECT

public:
    TFabricaDeFolhas(QExtensionManager &Gerente, QString Classe, std::span<const QLatin1String> Guardadas)
        : QExtensionFactory(&Gerente)
        , FGerente(Gerente)
        , FClasse(std::move(Classe))
        , FGuardadas(Guardadas)
    {
    }

protected:
    QObject *createExtension(QObject *Objeto, const QString &Iid, QObject *Dono) const override
    {
        if (FPerguntando || Iid != QLatin1String(Q_TYPEID(QDesignerPropertySheetExtension)) ||
            QLatin1String(Objeto->metaObject()->className()) != FClasse)
            return nullptr;
        // The manager asks its factories in turn, this one too: staying silent lets the editor's own answer.
        FPerguntando = true;
        auto *DoEditor = qt_extension<QDesignerPropertySheetExtension *>(&FGerente, Objeto);
        FPerguntando = false;
        return DoEditor != nullptr ? new TFolhaDePropriedades(*DoEditor, FGuardadas, Dono) : nullptr;
    }

private:
    QExtensionManager &FGerente;
    QString FClasse;
    std::span<const QLatin1String> FGuardadas;
    mutable bool FPerguntando = false;
};

} // namespace

void RegistrarFolhaDePropriedades(QDesignerFormEditorInterface &Editor, const QString &Classe,
                                  std::span<const QLatin1String> SempreGuardadas)
{
    QExtensionManager *Gerente = Editor.extensionManager();
    Gerente->registerExtensions(new TFabricaDeFolhas(*Gerente, Classe, SempreGuardadas),
                                Q_TYPEID(QDesignerPropertySheetExtension));
}

} // namespace Sibrel

#include "FolhaDePropriedades.moc"
