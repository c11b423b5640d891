// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/FolhaDeSimbolos.h"

#include "hospedeiro/ModeloDeSimbolos.h"

#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>

namespace Hospedeiro
{

TDelegadoDeSimbolo::TDelegadoDeSimbolo(QObject *Dono)
    : QStyledItemDelegate(Dono)
    , FCelula(TamanhoInicial, QFont())
{
}

void TDelegadoDeSimbolo::paint(QPainter *Pintor, const QStyleOptionViewItem &Opcao,
                               const QModelIndex &Indice) const
{
    const auto *Modelo = qobject_cast<const TModeloDeSimbolos *>(Indice.model());
    if (Modelo == nullptr || Modelo->Tabela() == nullptr)
        return;
    Pintor->save();
    Pintor->setClipRect(Opcao.rect);
    if (Opcao.state.testFlag(QStyle::State_Selected)) {
        // A frame and a tint: the symbol keeps its own colours.
        QColor Tom = Opcao.palette.color(QPalette::Highlight);
        Pintor->setPen(Tom);
        constexpr int Transparencia = 48;
        Tom.setAlpha(Transparencia);
        Pintor->setBrush(Tom);
        Pintor->drawRect(Opcao.rect.adjusted(1, 1, -2, -2));
        Pintor->setBrush(Qt::NoBrush);
    }
    FCelula.Pintar(*Pintor, Opcao.rect, *Modelo->Tabela(), Indice.row(), FCor,
                   Opcao.palette.color(QPalette::Text));
    Pintor->restore();
}

QSize TDelegadoDeSimbolo::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const
{
    return FCelula.Lado();
}

TFolhaDeSimbolos::TFolhaDeSimbolos(QWidget *Dono)
    : QListView(Dono)
    , FDelegado(new TDelegadoDeSimbolo(this))
{
    setItemDelegate(FDelegado);
    setViewMode(IconMode);
    setMovement(Static);
    setResizeMode(Adjust);
    setUniformItemSizes(true);
    setSelectionMode(SingleSelection);
    setVerticalScrollMode(ScrollPerPixel);
    setAccessibleName(tr("Folha de símbolos"));
    // Symbols are made for paper: black glyphs would vanish on a dark desktop.
    QPalette Papel = palette();
    Papel.setColor(QPalette::Base, Qt::white);
    Papel.setColor(QPalette::Text, Qt::black);
    setPalette(Papel);
    RefazerCelulas();
}

void TFolhaDeSimbolos::AtribuirTamanho(int Pixels)
{
    Pixels = std::clamp(Pixels, MenorTamanho, MaiorTamanho);
    if (Pixels == FTamanho)
        return;
    FTamanho = Pixels;
    const QModelIndex Atual = currentIndex();
    const bool AtualAVista = Atual.isValid() && viewport()->rect().intersects(visualRect(Atual));
    const QPersistentModelIndex Ancora =
        AtualAVista ? Atual
                    : indexAt(gridSize().isEmpty() ? QPoint()
                                                   : QPoint(gridSize().width() / 2, gridSize().height() / 2));
    RefazerCelulas();
    if (Ancora.isValid())
        scrollTo(Ancora, AtualAVista ? EnsureVisible : PositionAtTop);
}

void TFolhaDeSimbolos::AtribuirCor(const QColor &Cor)
{
    FCor = Cor;
    FDelegado->AtribuirCor(Cor);
    viewport()->update();
}

void TFolhaDeSimbolos::IrPara(int Linha)
{
    const QModelIndex Indice = model() != nullptr ? model()->index(Linha, 0) : QModelIndex();
    if (!Indice.isValid())
        return;
    setCurrentIndex(Indice);
    scrollTo(Indice);
}

void TFolhaDeSimbolos::RefazerCelulas()
{
    FDelegado->AtribuirCelula(TCelulaDaFolha(FTamanho, font()));
    setGridSize(FDelegado->Celula().Lado());
    verticalScrollBar()->setSingleStep(gridSize().height() / 2);
    scheduleDelayedItemsLayout();
}

void TFolhaDeSimbolos::wheelEvent(QWheelEvent *Evento)
{
    if (!Evento->modifiers().testFlag(Qt::ControlModifier)) {
        QListView::wheelEvent(Evento);
        return;
    }
    if (Evento->angleDelta().y() != 0)
        Q_EMIT PassoDeTamanho(Evento->angleDelta().y() > 0 ? 1 : -1);
    Evento->accept();
}

void TFolhaDeSimbolos::changeEvent(QEvent *Evento)
{
    QListView::changeEvent(Evento);
    if (Evento->type() == QEvent::FontChange)
        RefazerCelulas();
}

void TFolhaDeSimbolos::paintEvent(QPaintEvent *Evento)
{
    QListView::paintEvent(Evento);
    if (model() != nullptr && model()->rowCount() > 0)
        return;
    QPainter Pintor(viewport());
    Pintor.setPen(Qt::darkGray);
    Pintor.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap,
                    tr("Nenhum símbolo.\n\nAbra uma biblioteca com Ctrl+O ou arraste o arquivo para cá."));
}

} // namespace Hospedeiro
