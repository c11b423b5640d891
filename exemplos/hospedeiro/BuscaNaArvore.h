// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "arvore/TreeNodesXML.h"

#include <QWidget>

class QCheckBox;
class QLineEdit;

namespace Sibrel
{
class TTreeViewXML;
}

namespace Hospedeiro
{

/// Looks for nodes by their captions, forwards and backwards, going round at the ends. How captions are
/// compared is the library's: whole or by their beginning, with or without regard to letter case.
class TBuscaNaArvore : public QWidget
{
    Q_OBJECT

public:
    explicit TBuscaNaArvore(Sibrel::TTreeViewXML &Arvore, QWidget *Dono = nullptr);

    /// Takes the keyboard.
    void Comecar();
    /// Selects the next match behind the selected node, or the one before it.
    void ProcurarOutro(bool ParaTras);

Q_SIGNALS:
    /// No caption matches.
    void NadaAchado(const QString &Texto);

private:
    Sibrel::TSearchFlags Opcoes() const;
    /// The first match, the selected node included.
    void ProcurarDaqui();
    Sibrel::TTreeNode *Proximo(Sibrel::TTreeNode *Inicio) const;
    Sibrel::TTreeNode *Anterior(const Sibrel::TTreeNode *Inicio) const;
    void Selecionar(Sibrel::TTreeNode *No);

    Sibrel::TTreeViewXML &FArvore;
    QLineEdit *FTexto;
    QCheckBox *FPeloComeco;
    QCheckBox *FSemMaiusculas;
};

} // namespace Hospedeiro
