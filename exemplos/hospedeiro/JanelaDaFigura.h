// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QDialog>

class QTreeWidget;

namespace Sibrel
{
class TSimboloVetorial;
}

namespace Hospedeiro
{

/// A vector figure beside the list of its elements with their fields.
class TJanelaDaFigura : public QDialog
{
    Q_OBJECT

public:
    /// `Figura` outlives the window.
    explicit TJanelaDaFigura(Sibrel::TSimboloVetorial &Figura, QWidget *Dono = nullptr);

private:
    QTreeWidget *MontarLista(const Sibrel::TSimboloVetorial &Figura);
};

} // namespace Hospedeiro
