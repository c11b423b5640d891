// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QMenu>

namespace Hospedeiro
{

class TArvoreDoHospedeiro;

/// The tree's context menu: what can be done with any node. Classes of nodes add theirs below.
class TMenuDaArvore : public QMenu
{
    Q_OBJECT

public:
    /// Becomes the tree's menu, and its child.
    explicit TMenuDaArvore(TArvoreDoHospedeiro &Arvore);

    /// Deletes the selected nodes and all below them; asks first when there is more than one.
    void ExcluirSelecionados();

Q_SIGNALS:
    void Excluidos(int Quantos);

private:
    void Abrir(bool Sim);
    bool Confirmar(int Quantos);

    TArvoreDoHospedeiro &FArvore;
};

} // namespace Hospedeiro
