// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QWidget>

class QLabel;

namespace Sibrel
{
class TTreeNodeXML;
class TVisualizadorInformacoesXML;
} // namespace Sibrel

namespace Hospedeiro
{

/// What is known of a node: caption, identification, and the library's information frame, which the tree
/// fills when a node is selected.
class TFichaDoNo : public QWidget
{
    Q_OBJECT

public:
    explicit TFichaDoNo(QWidget *Dono = nullptr);

    Sibrel::TVisualizadorInformacoesXML &Frame() noexcept { return *FFrame; }
    /// Another node was selected, and the tree has filled the frame for it; null for none.
    void Mostrar(const Sibrel::TTreeNodeXML *No);
    /// The node may have changed. What the operator has selected in the frame stays if it has not.
    void Renovar(const Sibrel::TTreeNodeXML *No);

private:
    static QString Informacoes(const Sibrel::TTreeNodeXML &No);

    QString FInformacoes;
    QLabel *FLegenda;
    QLabel *FIdentificacao;
    Sibrel::TVisualizadorInformacoesXML *FFrame;
};

} // namespace Hospedeiro
