// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/BotaoDeCor.h"

#include <QColorDialog>
#include <QPainter>
#include <QPixmap>

namespace Hospedeiro
{

TBotaoDeCor::TBotaoDeCor(QWidget *Dono)
    : QToolButton(Dono)
{
    setText(tr("&Cor"));
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setFocusPolicy(Qt::StrongFocus);
    AtribuirDescricao(tr("Cor dos glifos"));
    connect(this, &QToolButton::clicked, this, [this] {
        if (const QColor Escolhida = QColorDialog::getColor(FCor, this, FDescricao); Escolhida.isValid())
            AtribuirCor(Escolhida);
    });
}

void TBotaoDeCor::AtribuirDescricao(const QString &Descricao)
{
    FDescricao = Descricao;
    setToolTip(Descricao);
    Mostrar();
}

void TBotaoDeCor::AtribuirCor(const QColor &Cor)
{
    if (Cor == FCor)
        return;
    FCor = Cor;
    Mostrar();
    Q_EMIT CorMudou(FCor);
}

void TBotaoDeCor::Mostrar()
{
    QPixmap Amostra(iconSize());
    Amostra.fill(FCor);
    QPainter Pintor(&Amostra);
    Pintor.setPen(Qt::gray); // a frame, for colours like that of the button
    Pintor.drawRect(Amostra.rect().adjusted(0, 0, -1, -1));
    Pintor.end();
    setIcon(Amostra);
    setAccessibleName(tr("%1: %2").arg(FDescricao, FCor.name()));
}

} // namespace Hospedeiro
