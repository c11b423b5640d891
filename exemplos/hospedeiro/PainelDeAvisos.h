// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "hospedeiro/Biblioteca.h"

#include <QDockWidget>

class QTreeWidget;

namespace Hospedeiro
{

/// What the import of a library found worth telling, with line numbers. Hidden while there is nothing.
class TPainelDeAvisos : public QDockWidget
{
    Q_OBJECT

public:
    explicit TPainelDeAvisos(QWidget *Dono = nullptr);

    /// Replaces the warnings; `Arquivo` is the library that they are about.
    void Mostrar(const std::vector<TAviso> &Avisos, const QString &Arquivo);

private:
    QTreeWidget *FLista;
};

} // namespace Hospedeiro
