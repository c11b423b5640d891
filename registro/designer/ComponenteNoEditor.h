// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "registro/Componentes.h"

#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

namespace Sibrel
{

/// One component as the form editor wants to know it; everything comes from the package's table.
class TComponenteNoEditor : public QObject, public QDesignerCustomWidgetInterface
{
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    /// `Componente` outlives this object: it is a line of the table.
    TComponenteNoEditor(const TComponenteDoPacote &Componente, QObject *Dono);

    QString name() const override;
    QString group() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    QString includeFile() const override;
    QIcon icon() const override;
    bool isContainer() const override;
    QWidget *createWidget(QWidget *Pai) override;
    bool isInitialized() const override;
    /// Called by the form editor, never by the run-time form loader: here design time begins.
    void initialize(QDesignerFormEditorInterface *Editor) override;
    QString domXml() const override;

private:
    QString Especificacoes() const;
    QString ValoresIniciais() const;

    const TComponenteDoPacote &FComponente;
    bool FIniciado = false;
};

} // namespace Sibrel
