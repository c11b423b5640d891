// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QFrame>
#include <QSize>

class QImage;
class QPainter;
class QRect;

namespace Hospedeiro
{

/// What stands behind a symbol, so that it can be seen through which pixels it shows.
enum class TPadrao { Xadrez, Listras, Terreno };

void PintarPadrao(QPainter &Pintor, const QRect &Area, TPadrao Padrao);
QImage PadraoEmImagem(QSize Tamanho, TPadrao Padrao);

/// A frame painted with a pattern: the parent of see-through controls.
class TFundoPadronado : public QFrame
{
    Q_OBJECT

public:
    explicit TFundoPadronado(QWidget *Dono = nullptr);

    TPadrao Padrao() const noexcept { return FPadrao; }
    void AtribuirPadrao(TPadrao Padrao);

protected:
    void paintEvent(QPaintEvent *Evento) override;

private:
    TPadrao FPadrao = TPadrao::Xadrez;
};

} // namespace Hospedeiro
