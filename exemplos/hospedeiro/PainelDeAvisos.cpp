// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/PainelDeAvisos.h"

#include "hospedeiro/Campo.h"

#include <QFileInfo>
#include <QHeaderView>
#include <QTreeWidget>

namespace Hospedeiro
{

TPainelDeAvisos::TPainelDeAvisos(QWidget *Dono)
    : QDockWidget(tr("Avisos"), Dono)
    , FLista(new QTreeWidget(this))
{
    setObjectName(QStringLiteral("Avisos"));
    FLista->setHeaderLabels({tr("Linha"), tr("Aviso")});
    FLista->setAccessibleName(tr("Avisos da importação"));
    FLista->setRootIsDecorated(false);
    FLista->setUniformRowHeights(true);
    FLista->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    setWidget(FLista);
}

void TPainelDeAvisos::Mostrar(const std::vector<TAviso> &Avisos, const QString &Arquivo)
{
    QList<QTreeWidgetItem *> Itens;
    for (const TAviso &Aviso : Avisos) {
        auto *Item =
            new QTreeWidgetItem({Aviso.Linha > 0 ? QString::number(Aviso.Linha) : QString(), Aviso.Texto});
        Item->setTextAlignment(0, Qt::AlignRight | Qt::AlignVCenter);
        Item->setToolTip(1, Dica(Aviso.Texto));
        Itens.append(Item);
    }
    FLista->clear();
    FLista->addTopLevelItems(Itens);
    setWindowTitle(Itens.isEmpty() ? tr("Avisos") : tr("Avisos de %1").arg(QFileInfo(Arquivo).fileName()));
    setVisible(!Itens.isEmpty());
}

} // namespace Hospedeiro
