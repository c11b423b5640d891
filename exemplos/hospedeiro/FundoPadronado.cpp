// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/FundoPadronado.h"

#include <QImage>
#include <QPaintEvent>
#include <QPainter>

namespace Hospedeiro
{

namespace
{

constexpr int Passo = 12;

void PintarXadrez(QPainter &Pintor, const QRect &Area)
{
    Pintor.fillRect(Area, QColor(0xF4F0E0));
    for (int Y = 0; Y * Passo < Area.height(); ++Y)
        for (int X = Y % 2; X * Passo < Area.width(); X += 2)
            Pintor.fillRect(Area.left() + X * Passo, Area.top() + Y * Passo, Passo, Passo, QColor(0xC8D8C0));
}

void PintarListras(QPainter &Pintor, const QRect &Area)
{
    Pintor.fillRect(Area, QColor(0xFFF4C8));
    for (int X = 0; X < Area.width(); X += 2 * Passo)
        Pintor.fillRect(Area.left() + X, Area.top(), Passo, Area.height(), QColor(0xE0B890));
}

// Hills and a river, as on a map.
void PintarTerreno(QPainter &Pintor, const QRect &Area)
{
    Pintor.fillRect(Area, QColor(0xE8F0D8));
    Pintor.setRenderHint(QPainter::Antialiasing);
    Pintor.setBrush(Qt::NoBrush);
    Pintor.setPen(QColor(0xB08850));
    const QPoint Cume(Area.left() + Area.width() / 3, Area.top() + Area.height() / 3);
    for (int Raio = Passo; Raio < Area.width(); Raio += Passo)
        Pintor.drawEllipse(Cume, Raio * 4 / 3, Raio);
    constexpr int LarguraDoRio = 5;
    Pintor.setPen(QPen(QColor(0x78A8D8), LarguraDoRio));
    Pintor.drawLine(Area.bottomLeft(), Area.topRight());
}

} // namespace

void PintarPadrao(QPainter &Pintor, const QRect &Area, TPadrao Padrao)
{
    Pintor.save();
    Pintor.setClipRect(Area);
    switch (Padrao) {
    case TPadrao::Xadrez:
        PintarXadrez(Pintor, Area);
        break;
    case TPadrao::Listras:
        PintarListras(Pintor, Area);
        break;
    case TPadrao::Terreno:
        PintarTerreno(Pintor, Area);
        break;
    }
    Pintor.restore();
}

QImage PadraoEmImagem(QSize Tamanho, TPadrao Padrao)
{
    QImage Imagem(Tamanho, QImage::Format_RGB32);
    if (Imagem.isNull())
        return Imagem; // there is nothing to paint on
    QPainter Pintor(&Imagem);
    PintarPadrao(Pintor, Imagem.rect(), Padrao);
    return Imagem;
}

TFundoPadronado::TFundoPadronado(QWidget *Dono)
    : QFrame(Dono)
{
    setFrameStyle(QFrame::Panel | QFrame::Sunken);
}

void TFundoPadronado::AtribuirPadrao(TPadrao Padrao)
{
    FPadrao = Padrao;
    update();
}

void TFundoPadronado::paintEvent(QPaintEvent *Evento)
{
    {
        QPainter Pintor(this);
        PintarPadrao(Pintor, contentsRect(), FPadrao);
    }
    QFrame::paintEvent(Evento);
}

} // namespace Hospedeiro
