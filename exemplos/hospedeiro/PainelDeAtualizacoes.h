// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QWidget>

class QLabel;
class QProgressBar;
class QTableView;
class QToolButton;

namespace Sibrel
{
class TPreparaAtualizacao;
class TTreeViewXML;
} // namespace Sibrel

namespace Hospedeiro
{

class TRegistroDeAtualizacoes;

/// How far the present update is, with a button to end it, over the list of all updates so far.
class TPainelDeAtualizacoes : public QWidget
{
    Q_OBJECT

public:
    TPainelDeAtualizacoes(Sibrel::TTreeViewXML &Arvore, TRegistroDeAtualizacoes &Registro,
                          QWidget *Dono = nullptr);

Q_SIGNALS:
    /// The operator wants the update to end.
    void CancelarPedido();

private:
    QWidget *MontarAndamento();
    void MontarLista(TRegistroDeAtualizacoes &Registro);
    void CopiarLinhas();
    void MostrarProgresso(const Sibrel::TPreparaAtualizacao &Atualizacao);
    void Descansar();

    QLabel *FEtapa;
    QProgressBar *FBarra;
    QToolButton *FCancelar;
    QTableView *FLista;
};

} // namespace Hospedeiro
