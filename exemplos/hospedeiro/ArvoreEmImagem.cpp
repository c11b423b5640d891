// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/ArvoreEmImagem.h"

#include "hospedeiro/ArvoreDoHospedeiro.h"
#include "hospedeiro/FolhaEmImagem.h"

#include "plataforma/Exception.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QPixmap>

#include <algorithm>

namespace Hospedeiro
{

namespace
{

constexpr int Folga = 8; // at the right of the widest row

int AlturaDasLinhas(const TArvoreDoHospedeiro &Arvore)
{
    const QAbstractItemModel &Modelo = *Arvore.model();
    QModelIndex Ultima;
    for (int Quantas = Modelo.rowCount(); Quantas > 0; Quantas = Modelo.rowCount(Ultima)) {
        Ultima = Modelo.index(Quantas - 1, 0, Ultima);
        if (!Arvore.isExpanded(Ultima))
            break;
    }
    return Ultima.isValid() ? Arvore.visualRect(Ultima).bottom() + 1 : Arvore.ItemHeight();
}

} // namespace

QImage ArvoreEmImagem(TArvoreDoHospedeiro &Arvore)
{
    Arvore.setFrameShape(QFrame::NoFrame);
    Arvore.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Arvore.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Arvore.scrollToTop();
    const int Altura = AlturaDasLinhas(Arvore);
    ExigirLado({1, Altura}, QStringLiteral("A árvore fica grande demais!"));
    // The view learns how wide its rows are when it draws them.
    Arvore.resize(1, Altura);
    Arvore.grab();
    QCoreApplication::processEvents();
    const QSize Tamanho(Arvore.header()->sectionSize(0) + Folga, Altura);
    ExigirLado(Tamanho, QStringLiteral("A árvore fica grande demais!"));
    Arvore.resize(Tamanho);
    return Arvore.grab().toImage();
}

} // namespace Hospedeiro
