// SPDX-License-Identifier: LGPL-2.1-or-later
// How the view answers the operator and draws its rows.
#include "arvore/DesenhoDeItem.h"
#include "arvore/TextosXML.h"
#include "arvore/TreeViewXML.h"

#include <QMenu>
#include <QMouseEvent>

#include <algorithm>

namespace Sibrel
{

bool TTreeViewXML::IsCustomDrawn(TAlvoDoDesenho Alvo, TEstagioDoDesenho Estagio)
{
    return Estagio == TEstagioDoDesenho::PrePintura && Alvo != TAlvoDoDesenho::SubItem;
}

bool TTreeViewXML::CustomDrawItem(TTreeNode &No, const TEstadoDoItem &Estado, TEstagioDoDesenho,
                                  bool &PaintImages)
{
    PaintImages = true;
    const TTreeNodeXML *XML = ComoXML(&No);
    if (XML == nullptr)
        return false; // others stay as the background left them
    if (!Estado.Focado && &No == Selected()) {
        Canvas().Font.AtribuirColor(clHighlightText);
        Canvas().Brush.Color = clHighlight;
    }
    TDesenhoDeItem Desenho(*this, *XML, Canvas(), LinhaEmDesenho());
    Desenho.Desenhar();
    NotarLargura(Desenho.Fim());
    return false;
}

QVariant TTreeViewXML::DadoDoNo(const TTreeNode &No, int Papel) const
{
    if (Papel != Qt::AccessibleTextRole)
        return {};
    QStringList Partes{No.Text()};
    // Of other nodes no symbol is drawn, whatever their picture index says.
    if (const auto *XML = dynamic_cast<const TTreeNodeXML *>(&No)) {
        const QString Rotulo =
            FTabelaDeSimbolos ? FTabelaDeSimbolos->ObterRotulo(XML->ImageIndex()) : QString();
        if (!Rotulo.isEmpty())
            Partes.append(Rotulo);
        if (XML->Link())
            Partes.append(QStringLiteral("link"));
    }
    return Partes.join(QStringLiteral(", "));
}

void TTreeViewXML::Change(TTreeNode *No)
{
    TTreeView::Change(No);
    const TTreeNodeXML *XML = ComoXML(No);
    if (XML != nullptr && FFrameDeInformacoes)
        FFrameDeInformacoes->ProcessarXML(CABECALHOXML.toString() + PULALINHA.toString() +
                                          XML->ObterXMLInformacao());
}

void TTreeViewXML::mouseDoubleClickEvent(QMouseEvent *Evento)
{
    const QPoint Onde = Evento->position().toPoint();
    TTreeView::mouseDoubleClickEvent(Evento);
    // Far to the right of a row still means its beginning.
    constexpr int MaiorX = 50;
    TTreeNodeXML *No = ComoXML(GetNodeAt(std::min(Onde.x(), MaiorX), Onde.y()));
    if (No == nullptr || No != Selected() || !No->Link())
        return;
    if (TTreeNodeXML *Alvo = No->ObterNoLink())
        AtribuirSelected(Alvo);
}

void TTreeViewXML::mouseMoveEvent(QMouseEvent *Evento)
{
    TTreeView::mouseMoveEvent(Evento);
    const QPoint Onde = Evento->position().toPoint();
    const TTreeNodeXML *No = ComoXML(GetNodeAt(Onde.x(), Onde.y()));
    if (No != nullptr && No->Link()) {
        if (cursor().shape() == Qt::PointingHandCursor)
            return;
        FCursorGuardado = cursor();
        setCursor(Qt::PointingHandCursor);
    } else if (cursor() != FCursorGuardado) {
        setCursor(FCursorGuardado);
    }
}

void TTreeViewXML::LimparMenu(QMenu &Menu)
{
    if (FItensDoMenu < 0)
        FItensDoMenu = static_cast<int>(Menu.actions().size());
    while (Menu.actions().size() > FItensDoMenu) {
        QAction *Item = Menu.actions().constLast();
        Menu.removeAction(Item);
        if (Item->parent() == &Menu)
            Item->deleteLater(); // it may be the one whose slot got us here
    }
}

void TTreeViewXML::DoContextPopup(const QPoint &Onde)
{
    if (TTreeNode *No = GetNodeAt(Onde.x(), Onde.y())) {
        AtribuirSelected(No);
        QMenu *Menu = PopupMenu();
        if (Menu != nullptr && ConfigurarPopup) {
            LimparMenu(*Menu);
            if (TTreeNodeXML *XML = ComoXML(No))
                XML->ConfigurarPopup(*Menu);
        }
    }
    TTreeView::DoContextPopup(Onde);
}

} // namespace Sibrel
