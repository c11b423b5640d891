// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

namespace Sibrel
{

/// What the form editor and the run-time form loader find in the plugin: one entry a component of the
/// package.
class TColecaoDeComponentes : public QObject, public QDesignerCustomWidgetCollectionInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QDesignerCustomWidgetCollectionInterface_iid)
    Q_INTERFACES(QDesignerCustomWidgetCollectionInterface)

public:
    explicit TColecaoDeComponentes(QObject *Dono = nullptr);
    QList<QDesignerCustomWidgetInterface *> customWidgets() const override { return FComponentes; }

private:
    QList<QDesignerCustomWidgetInterface *> FComponentes; // children of this object
};

} // namespace Sibrel
