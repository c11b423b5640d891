// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/ArvoreDoHospedeiro.h"

#include "hospedeiro/NoDeUnidade.h"

#include <QEvent>
#include <QFontInfo>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>

namespace Hospedeiro
{

namespace
{

// Captions stand at the top of their rows, so it is the letters that make rows, and symbols, higher.
constexpr int LetrasMaiores = 2;
constexpr int Folga = 1;

} // namespace

TArvoreDoHospedeiro::TArvoreDoHospedeiro(QWidget *Dono)
    : TTreeViewXMLBD(Dono)
{
    RegistrarClassesDeNos();
    setAccessibleName(tr("Árvore"));
    ensurePolished();
    SeguirFonte();
}

void TArvoreDoHospedeiro::SeguirLink()
{
    auto *No = dynamic_cast<Sibrel::TTreeNodeXML *>(Selected());
    if (No == nullptr || !No->Link())
        return;
    if (Sibrel::TTreeNodeXML *Alvo = No->ObterNoLink())
        AtribuirSelected(Alvo);
}

QString TArvoreDoHospedeiro::CaminhoDoSelecionado(const QString &Separador) const
{
    return Sibrel::ObterCaminho(Selected(), Separador);
}

TArvoreDoHospedeiro *TArvoreDoHospedeiro::DoMenu(const QMenu &Menu)
{
    auto *Arvore = qobject_cast<TArvoreDoHospedeiro *>(Menu.parent());
    return Arvore != nullptr && Arvore->PopupMenu() == &Menu ? Arvore : nullptr;
}

bool TArvoreDoHospedeiro::DesejaContinuar(const Sibrel::TFalhaDeAtualizacao &Falha)
{
    return AoPerguntar && AoPerguntar(Falha);
}

void TArvoreDoHospedeiro::changeEvent(QEvent *Evento)
{
    TTreeViewXMLBD::changeEvent(Evento);
    if (Evento->type() == QEvent::FontChange)
        SeguirFonte();
}

// What a double click does with the mouse.
void TArvoreDoHospedeiro::keyPressEvent(QKeyEvent *Evento)
{
    if (Evento->key() == Qt::Key_Return || Evento->key() == Qt::Key_Enter)
        SeguirLink();
    else
        TTreeViewXMLBD::keyPressEvent(Evento);
}

void TArvoreDoHospedeiro::paintEvent(QPaintEvent *Evento)
{
    TTreeViewXMLBD::paintEvent(Evento);
    if (Convite.isEmpty() || model()->rowCount() > 0)
        return;
    QPainter Pintor(viewport());
    Pintor.setPen(Qt::darkGray);
    Pintor.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, Convite);
}

void TArvoreDoHospedeiro::SeguirFonte()
{
    const QFontInfo Dela(font());
    Sibrel::TFont Nova;
    Nova.AtribuirName(Dela.family());
    Nova.AtribuirHeight(-(Dela.pixelSize() + LetrasMaiores));
    AtribuirFonte(Nova);
    AtribuirItemHeight(QFontMetrics(Nova.ParaQFont()).height() + Folga);
}

} // namespace Hospedeiro
