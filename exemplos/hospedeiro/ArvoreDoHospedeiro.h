// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "arvore/TreeViewXMLBD.h"

#include <functional>

namespace Hospedeiro
{

/// The tree view of this host: knows the tags of its documents, draws with the application's font, and lets
/// its owner answer what to do about an element that fails.
///
/// Polished from the start, so that table and information frame can be assigned at once.
class TArvoreDoHospedeiro : public Sibrel::TTreeViewXMLBD
{
    Q_OBJECT

public:
    explicit TArvoreDoHospedeiro(QWidget *Dono = nullptr);

    /// Asked when an element fails: go on with the next one? Without it the update ends there.
    std::function<bool(const Sibrel::TFalhaDeAtualizacao &)> AoPerguntar;

    /// Shown where a tree would be, while there is none.
    QString Convite;

    /// Selects the target of the selected link, if there is one.
    void SeguirLink();
    /// Captions of the nodes from the top level down to the selected one; empty when none is selected.
    QString CaminhoDoSelecionado(const QString &Separador) const;
    /// The tree whose context menu this is; null for another menu.
    static TArvoreDoHospedeiro *DoMenu(const QMenu &Menu);

protected:
    bool DesejaContinuar(const Sibrel::TFalhaDeAtualizacao &Falha) override;
    void changeEvent(QEvent *Evento) override;
    void keyPressEvent(QKeyEvent *Evento) override;
    void paintEvent(QPaintEvent *Evento) override;

private:
    void SeguirFonte();
};

} // namespace Hospedeiro
