// SPDX-License-Identifier: LGPL-2.1-or-later
// How a mask comes to stand on its background in one colour, transfer by transfer.
#pragma once

#include <QImage>
#include <QString>

#include <vector>

class QColor;

namespace Sibrel
{
class TBitmap;
}

namespace Hospedeiro
{

struct TPassoDaMascara {
    QString Modo;      ///< name of the transfer
    QString Descricao; ///< what it does, for a tooltip
    QImage Imagem;
};

/// The mask alone, then what each of the four transfers of a TSimboloImagem makes of it: the inverted mask,
/// its colour layer, the hole in `Fundo` and the hole filled. All are of the mask's size; `Fundo` counts from
/// its top-left corner and is at least as large. Empty for an empty mask.
std::vector<TPassoDaMascara> PassosDaMascara(const Sibrel::TBitmap &Mascara, const QColor &Cor,
                                             const QImage &Fundo);

} // namespace Hospedeiro
