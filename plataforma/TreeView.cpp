// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/TreeView.h"

#include <QContextMenuEvent>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QMenu>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include <algorithm>
#include <mutex>

namespace Sibrel
{

namespace
{

// Only tells the common height: rows are drawn by the view.
class TMedidasDaLinha final : public QStyledItemDelegate
{
public:
    explicit TMedidasDaLinha(TTreeView *Vista)
        : QStyledItemDelegate(Vista)
        , FVista(Vista)
    {
    }
    QSize sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const override
    {
        return {0, FVista->ItemHeight()};
    }

private:
    TTreeView *FVista;
};

} // namespace

TTreeView::TTreeView(std::shared_ptr<TTreeNodes> Nos, QWidget *Dono)
    : QTreeView(Dono)
    , FNos(std::move(Nos))
    , FModelo(new TModeloDeNos(FNos, this))
{
    FModelo->AntesDePublicar = [this](bool Grande) {
        // With a layout due, the view does no work of its own for each row.
        if (Grande)
            scheduleDelayedItemsLayout();
    };
    FModelo->AoExpandir = [this](std::span<TTreeNode *const> Quais) { MostrarExpansoes(Quais); };
    FModelo->DadoDoNo = [this](const TTreeNode &No, int Papel) { return DadoDoNo(No, Papel); };
    setUniformRowHeights(true);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    setHeaderHidden(true);
    setItemDelegate(new TMedidasDaLinha(this));
    setModel(FModelo);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::Fixed);
    header()->setMinimumSectionSize(1);
    connect(this, &QTreeView::expanded, this, [this](const QModelIndex &I) {
        if (TTreeNode *No = FModelo->NoDe(I); No != nullptr && !FExpandindo)
            No->Expand();
    });
    connect(this, &QTreeView::collapsed, this, [this](const QModelIndex &I) {
        if (TTreeNode *No = FModelo->NoDe(I); No != nullptr && !FExpandindo)
            No->Collapse();
    });
    connect(FModelo, &QAbstractItemModel::modelReset, this, [this] {
        FLarguraDoConteudo = 0;
        AjustarLargura();
    });
}

TTreeView::~TTreeView()
{
    // The view's parts go before the model does, and hear nothing of its end.
    setModel(nullptr);
    delete FModelo;
}

TTreeNode *TTreeView::Selected() const
{
    return FModelo->NoDe(currentIndex());
}

void TTreeView::AtribuirSelected(TTreeNode *No)
{
    const QModelIndex Indice = FModelo->IndiceDe(No);
    if (!Indice.isValid()) {
        selectionModel()->clear();
        return;
    }
    setCurrentIndex(Indice);
    scrollTo(Indice);
}

TTreeNode *TTreeView::GetNodeAt(int X, int Y) const
{
    return FModelo->NoDe(indexAt({X, Y}));
}

TRect TTreeView::DisplayRect(const TTreeNode *No) const
{
    const QRect Linha = visualRect(FModelo->IndiceDe(No));
    if (!Linha.isValid())
        return {};
    const int Esquerda = header()->sectionViewportPosition(0);
    return {Esquerda, Linha.top(), viewport()->width(), Linha.top() + Linha.height()};
}

int TTreeView::ItemHeight() const
{
    constexpr int Menor = 16; // of a small picture
    constexpr int Folga = 2;
    return FItemHeight > 0 ? FItemHeight : std::max(Menor, fontMetrics().height() + Folga);
}

void TTreeView::AtribuirItemHeight(int Pixels)
{
    if (FItemHeight == Pixels)
        return;
    FItemHeight = Pixels;
    scheduleDelayedItemsLayout();
}

QMenu *TTreeView::PopupMenu() const
{
    return FPopupMenu;
}

void TTreeView::AtribuirPopupMenu(QMenu *Menu)
{
    FPopupMenu = Menu;
}

void TTreeView::RecriarJanela()
{
    CreateWnd();
}

void TTreeView::CreateWnd() {}
void TTreeView::Change(TTreeNode *) {}

void TTreeView::DoContextPopup(const QPoint &Onde)
{
    if (FPopupMenu)
        FPopupMenu->popup(viewport()->mapToGlobal(Onde));
}

bool TTreeView::IsCustomDrawn(TAlvoDoDesenho, TEstagioDoDesenho)
{
    return false;
}

bool TTreeView::CustomDrawItem(TTreeNode &, const TEstadoDoItem &, TEstagioDoDesenho, bool &)
{
    return true;
}

void TTreeView::NotarLargura(int Fim) noexcept
{
    FLarguraDoConteudo = std::max(FLarguraDoConteudo, Fim);
}

QVariant TTreeView::DadoDoNo(const TTreeNode &, int) const
{
    return {};
}

bool TTreeView::event(QEvent *Evento)
{
    const bool Resultado = QTreeView::event(Evento);
    if (Evento->type() == QEvent::Polish)
        CreateWnd();
    return Resultado;
}

void TTreeView::paintEvent(QPaintEvent *Evento)
{
    executeDelayedItemsLayout();
    QPainter Pintor(viewport());
    {
        TCanvas Tela(Pintor);
        // Once for all rows: taken row by row, each time a worker that fills the tree would be waited for.
        const std::lock_guard Guarda(FNos->Trava());
        FCanvas = &Tela;
        drawTree(&Pintor, Evento->region());
        FCanvas = nullptr;
    }
    FTopo = indexAt({0, 0});
    FDeslocamentoDoTopo = FTopo.isValid() ? visualRect(FTopo).top() : 0;
    if (FLarguraDoConteudo > header()->sectionSize(0))
        QMetaObject::invokeMethod(this, &TTreeView::AjustarLargura, Qt::QueuedConnection);
}

void TTreeView::drawRow(QPainter *Pintor, const QStyleOptionViewItem &Opcao, const QModelIndex &Indice) const
{
    // The canvas persists from row to row and the content's width is noted: painting changes both.
    if (const_cast<TTreeView *>(this)->DesenharLinha(Opcao, Indice))
        QTreeView::drawRow(Pintor, Opcao, Indice);
}

bool TTreeView::DesenharLinha(const QStyleOptionViewItem &Opcao, const QModelIndex &Indice)
{
    TTreeNode *No = FModelo->NoDe(Indice);
    if (No == nullptr || FCanvas == nullptr ||
        !IsCustomDrawn(TAlvoDoDesenho::Item, TEstagioDoDesenho::PrePintura))
        return true;
    const std::lock_guard Guarda(FNos->Trava());
    const TEstadoDoItem Estado{selectionModel()->isSelected(Indice), hasFocus()};
    const QPalette &Cores = Opcao.palette;
    const bool Realce = Estado.Selecionado && Estado.Focado;
    FCanvas->Brush.Style = TBrushStyle::bsSolid;
    FCanvas->Brush.Color = Realce               ? TColor(Cores.color(QPalette::Highlight))
                           : Estado.Selecionado ? TColor(Cores.color(QPalette::Button))
                                                : TColor(Cores.color(QPalette::Base));
    FCanvas->Font.AtribuirColor(Realce ? TColor(Cores.color(QPalette::HighlightedText))
                                       : TColor(Cores.color(QPalette::Text)));
    FLinhaEmDesenho = {header()->sectionViewportPosition(0), Opcao.rect.top(), viewport()->width(),
                       Opcao.rect.top() + Opcao.rect.height()};
    bool ComImagens = true;
    return CustomDrawItem(*No, Estado, TEstagioDoDesenho::PrePintura, ComImagens);
}

void TTreeView::currentChanged(const QModelIndex &Novo, const QModelIndex &Anterior)
{
    QTreeView::currentChanged(Novo, Anterior);
    Change(FModelo->NoDe(Novo));
}

void TTreeView::contextMenuEvent(QContextMenuEvent *Evento)
{
    // The keyboard's menu key has no place of its own: it means the selected node.
    QPoint Onde = Evento->pos();
    if (Evento->reason() == QContextMenuEvent::Keyboard && currentIndex().isValid())
        Onde = visualRect(currentIndex()).center();
    DoContextPopup(Onde);
    Evento->accept();
}

void TTreeView::updateGeometries()
{
    AjustarLargura();
    QTreeView::updateGeometries();
}

void TTreeView::AjustarLargura()
{
    const int Largura = std::max(viewport()->width(), FLarguraDoConteudo);
    if (header()->count() > 0 && header()->sectionSize(0) != Largura)
        header()->resizeSection(0, Largura);
}

void TTreeView::doItemsLayout()
{
    QElapsedTimer Relogio;
    Relogio.start();
    QTreeView::doItemsLayout();
    VoltarAoTopo();
    FCustoDoLayout = static_cast<int>(Relogio.elapsed());
}

// Rows that came or went above must not push away what the operator is looking at.
void TTreeView::VoltarAoTopo()
{
    if (!FTopo.isValid() || verticalScrollBar()->value() == 0)
        return;
    const QRect Linha = visualRect(FTopo);
    if (Linha.isValid() && Linha.top() != FDeslocamentoDoTopo)
        verticalScrollBar()->setValue(verticalScrollBar()->value() + Linha.top() - FDeslocamentoDoTopo);
}

void TTreeView::MostrarExpansoes(std::span<TTreeNode *const> Nos)
{
    const QScopedValueRollback Expandindo(FExpandindo, true);
    for (const TTreeNode *No : Nos) {
        const QModelIndex Indice = FModelo->IndiceDe(No);
        if (No->Expanded())
            expand(Indice);
        else
            collapse(Indice);
    }
}

} // namespace Sibrel
