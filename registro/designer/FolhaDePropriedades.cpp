// SPDX-License-Identifier: LGPL-2.1-or-later
#include "registro/designer/FolhaDePropriedades.h"

#include "plataforma/Component.h"
#include "registro/Componentes.h"

#include <QDesignerFormEditorInterface>
#include <QDesignerPropertyEditorInterface>
#include <QDesignerPropertySheetExtension>
#include <QExtensionFactory>
#include <QExtensionManager>
#include <QMetaProperty>
#include <QVariant>

#include <algorithm>
#include <vector>

namespace Sibrel
{

namespace
{

constexpr QLatin1String EspacoDeNomes("Sibrel::");

// The editor's own sheet, and what the package knows better.
class TFolhaDePropriedades : public QObject, public QDesignerPropertySheetExtension
{
    Q_OBJECT
    Q_INTERFACES(QDesignerPropertySheetExtension)

public:
    TFolhaDePropriedades(QDesignerPropertySheetExtension &DoEditor, QDesignerFormEditorInterface &Editor,
                         QObject &Objeto, const TComponenteDoPacote &Componente, QObject *Dono)
        : QObject(Dono)
        , FDoEditor(DoEditor)
        , FEditor(Editor)
        , FObjeto(Objeto)
        , FComponente(Componente)
    {
    }

    bool isChanged(int Indice) const override
    {
        const QString Nome = propertyName(Indice);
        return FDoEditor.isChanged(Indice) ||
               std::any_of(
                   FComponente.Propriedades.begin(), FComponente.Propriedades.end(),
                   [&Nome](const TPropriedadePublicada &P) { return P.SempreGuardada && P.Nome == Nome; });
    }

    QString propertyGroup(int Indice) const override
    {
        const QString Grupo = FDoEditor.propertyGroup(Indice);
        return Grupo.startsWith(EspacoDeNomes) ? Grupo.sliced(EspacoDeNomes.size()) : Grupo;
    }

    bool isVisible(int Indice) const override { return FDoEditor.isVisible(Indice) && Interessa(Indice); }

    void setProperty(int Indice, const QVariant &Valor) override
    {
        const std::vector<QVariant> Antes = Valores();
        FDoEditor.setProperty(Indice, Valor);
        MostrarOQueMudou(Antes);
    }

    int count() const override { return FDoEditor.count(); }
    int indexOf(const QString &Nome) const override { return FDoEditor.indexOf(Nome); }
    QString propertyName(int Indice) const override { return FDoEditor.propertyName(Indice); }
    void setPropertyGroup(int Indice, const QString &Grupo) override
    {
        FDoEditor.setPropertyGroup(Indice, Grupo);
    }
    bool hasReset(int Indice) const override { return FDoEditor.hasReset(Indice); }
    bool reset(int Indice) override { return FDoEditor.reset(Indice); }
    void setVisible(int Indice, bool Valor) override { FDoEditor.setVisible(Indice, Valor); }
    bool isAttribute(int Indice) const override { return FDoEditor.isAttribute(Indice); }
    void setAttribute(int Indice, bool Valor) override { FDoEditor.setAttribute(Indice, Valor); }
    QVariant property(int Indice) const override { return FDoEditor.property(Indice); }
    void setChanged(int Indice, bool Valor) override { FDoEditor.setChanged(Indice, Valor); }
    bool isEnabled(int Indice) const override { return FDoEditor.isEnabled(Indice); }

private:
    // Fonts, cursors and the like are of no use to what the running form does not show.
    bool Interessa(int Indice) const
    {
        if (FComponente.Visual)
            return true;
        const QString Nome = propertyName(Indice);
        const int NaClasse = FObjeto.metaObject()->indexOfProperty(Nome.toLatin1().constData());
        return NaClasse < 0 || NaClasse >= TComponent::staticMetaObject.propertyOffset() ||
               Nome == QLatin1String("objectName") || Nome == QLatin1String("geometry");
    }

    std::vector<QVariant> Valores() const
    {
        std::vector<QVariant> Lista;
        for (const TPropriedadePublicada &P : FComponente.Propriedades)
            Lista.push_back(FObjeto.property(P.Nome.data()));
        return Lista;
    }

    void MostrarOQueMudou(const std::vector<QVariant> &Antes)
    {
        QDesignerPropertyEditorInterface *Mostrador = FEditor.propertyEditor();
        if (Mostrador == nullptr || Mostrador->object() != &FObjeto)
            return;
        const std::vector<QVariant> Agora = Valores();
        for (std::size_t I = 0; I < Agora.size(); ++I) {
            const QString Nome = FComponente.Propriedades[I].Nome;
            const int Indice = indexOf(Nome);
            // Pictures are shown by their file, which no other property changes.
            if (Agora[I].typeId() == QMetaType::Bool && Agora[I] != Antes[I] && Indice >= 0)
                Mostrador->setPropertyValue(Nome, property(Indice), isChanged(Indice));
        }
    }

    QDesignerPropertySheetExtension &FDoEditor;
    QDesignerFormEditorInterface &FEditor;
    QObject &FObjeto;
    const TComponenteDoPacote &FComponente;
};

class TFabricaDeFolhas : public QExtensionFactory
{
    Q_OBJECT

public:
    TFabricaDeFolhas(QDesignerFormEditorInterface &Editor, QString Classe,
                     const TComponenteDoPacote &Componente)
        : QExtensionFactory(Editor.extensionManager())
        , FEditor(Editor)
        , FClasse(std::move(Classe))
        , FComponente(Componente)
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
        auto *DoEditor = qt_extension<QDesignerPropertySheetExtension *>(FEditor.extensionManager(), Objeto);
        FPerguntando = false;
        return DoEditor != nullptr ? new TFolhaDePropriedades(*DoEditor, FEditor, *Objeto, FComponente, Dono)
                                   : nullptr;
    }

private:
    QDesignerFormEditorInterface &FEditor;
    QString FClasse;
    const TComponenteDoPacote &FComponente;
    mutable bool FPerguntando = false;
};

} // namespace

void RegistrarFolhaDePropriedades(QDesignerFormEditorInterface &Editor, const QString &Classe,
                                  const TComponenteDoPacote &Componente)
{
    Editor.extensionManager()->registerExtensions(new TFabricaDeFolhas(Editor, Classe, Componente),
                                                  Q_TYPEID(QDesignerPropertySheetExtension));
}

} // namespace Sibrel

#include "FolhaDePropriedades.moc"
