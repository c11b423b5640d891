// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Canvas.h"
#include "plataforma/Exportacao.h"
#include "plataforma/ModeloDeNos.h"
#include "plataforma/Rect.h"

#include <QPersistentModelIndex>
#include <QPointer>
#include <QTreeView>

#include <memory>

class QMenu;

namespace Sibrel
{

/// What of a control is about to be drawn by its owner.
enum class TAlvoDoDesenho : std::uint8_t { Controle, Item, SubItem };
enum class TEstagioDoDesenho : std::uint8_t { PrePintura, PosPintura };

/// The state of an item that is being drawn.
struct TEstadoDoItem {
    bool Selecionado = false; ///< the selected node or another of a multiple selection
    bool Focado = false;      ///< the control has the focus
};

/// A tree view over a tree of nodes: a QTreeView of one column with the operations of the nodes' world.
///
/// Keyboard, wheel, selection and accessibility are QTreeView's own. All rows have the same height, without
/// which large trees would be measured row by row. What the view shows keeps its place when other nodes come
/// and go above it. GUI thread only, but for Items().
class SIBREL_EXPORT TTreeView : public QTreeView
{
    Q_OBJECT

public:
    explicit TTreeView(std::shared_ptr<TTreeNodes> Nos, QWidget *Dono = nullptr);
    ~TTreeView() override;

    /// The nodes; owned by the view, and kept by updates that are on the way.
    TTreeNodes &Items() const noexcept { return *FNos; }
    const std::shared_ptr<TTreeNodes> &ItemsGuardados() const noexcept { return FNos; }
    TModeloDeNos &Modelo() const noexcept { return *FModelo; }

    /// The selected node, null for none; selecting brings it into view. Null selects nothing.
    TTreeNode *Selected() const;
    void AtribuirSelected(TTreeNode *No);
    /// The node of the row at a point of the viewport; null where there is none.
    TTreeNode *GetNodeAt(int X, int Y) const;
    /// A node's row in the viewport, over its whole width; empty when it is not shown.
    TRect DisplayRect(const TTreeNode *No) const;

    /// Height of all rows in logical pixels; 0, as at the start, follows the font.
    int ItemHeight() const;
    void AtribuirItemHeight(int Pixels);

    /// Shown by a right click; not owned, forgotten when it dies.
    QMenu *PopupMenu() const;
    void AtribuirPopupMenu(QMenu *Menu);

    /// Makes the window's resources anew, as happens by itself when the view is first shown or polished.
    void RecriarJanela();

    /// Milliseconds that the last full layout took, 0 for less than one: what publishing costs.
    int CustoDoLayout() const noexcept { return FCustoDoLayout; }

    void doItemsLayout() override;

protected:
    /// The control gets its window.
    virtual void CreateWnd();
    /// Another node was selected; null for none.
    virtual void Change(TTreeNode *No);
    virtual void DoContextPopup(const QPoint &Onde);
    /// Does the derived class draw this itself?
    virtual bool IsCustomDrawn(TAlvoDoDesenho Alvo, TEstagioDoDesenho Estagio);
    /// Draws a node's row on Canvas(), whose brush and font colour are those of its state. False: that was
    /// all, the control draws nothing more.
    virtual bool CustomDrawItem(TTreeNode &No, const TEstadoDoItem &Estado, TEstagioDoDesenho Estagio,
                                bool &PaintImages);
    /// Called while a row is drawn: where its content ends, in logical pixels from the tree's left edge. The
    /// widest row seen sets the horizontal range.
    void NotarLargura(int Fim) noexcept;
    /// Answers of a node for the model's roles.
    virtual QVariant DadoDoNo(const TTreeNode &No, int Papel) const;
    /// The canvas of the row being drawn. Only inside CustomDrawItem.
    TCanvas &Canvas() const noexcept { return *FCanvas; }

    bool event(QEvent *Evento) override;
    void paintEvent(QPaintEvent *Evento) override;
    void drawRow(QPainter *Pintor, const QStyleOptionViewItem &Opcao,
                 const QModelIndex &Indice) const override;
    void currentChanged(const QModelIndex &Novo, const QModelIndex &Anterior) override;
    void contextMenuEvent(QContextMenuEvent *Evento) override;
    void updateGeometries() override;

private:
    bool DesenharLinha(const QStyleOptionViewItem &Opcao, const QModelIndex &Indice);
    void MostrarExpansoes(std::span<TTreeNode *const> Nos);
    void VoltarAoTopo();
    void AjustarLargura();

    std::shared_ptr<TTreeNodes> FNos;
    TModeloDeNos *FModelo;
    TCanvas *FCanvas = nullptr;
    QPointer<QMenu> FPopupMenu;
    QPersistentModelIndex FTopo; // the row at the viewport's top edge
    int FDeslocamentoDoTopo = 0;
    int FItemHeight = 0;
    int FLarguraDoConteudo = 0;
    int FCustoDoLayout = 0;
    bool FExpandindo = false;
};

} // namespace Sibrel
