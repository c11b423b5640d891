// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/GraphicControl.h"

#include "plataforma/Component.h"

#include <QPainter>

#include "plataforma/Exception.h"

namespace Sibrel
{

TGraphicControl::TGraphicControl(QWidget *Dono)
    : QWidget(Dono)
{
    setAttribute(Qt::WA_OpaquePaintEvent, false); // the parent paints the background under the control
    setAutoFillBackground(false);
}

TGraphicControl::~TGraphicControl() = default;

TCanvas &TGraphicControl::Canvas() const
{
    if (FCanvas == nullptr)
        throw EInvalidOperation(QStringLiteral("O controle só pode ser desenhado enquanto é pintado!"));
    return *FCanvas;
}

TCopyMode TGraphicControl::CopyModeDoCanvas() const noexcept
{
    return FCanvas != nullptr ? FCanvas->CopyMode : FEstado.CopyMode;
}

template <class De, class Para>
void TGraphicControl::CopiarEstado(const De &Origem, Para &Destino)
{
    Destino.Pen = Origem.Pen;
    Destino.Brush = Origem.Brush;
    Destino.Font = Origem.Font;
    Destino.CopyMode = Origem.CopyMode;
    Destino.TextAlign = Origem.TextAlign;
}

void TGraphicControl::paintEvent(QPaintEvent *)
{
    if (TComponent::EmProjeto())
        Contornar();
    TCanvas DestaPintura(static_cast<QPaintDevice &>(*this));
    CopiarEstado(FEstado, DestaPintura);
    FCanvas = &DestaPintura;
    // Whatever Paint raises, the canvas of this paint must not outlive it.
    struct TFim {
        TGraphicControl &Controle;
        ~TFim()
        {
            CopiarEstado(*Controle.FCanvas, Controle.FEstado);
            Controle.FCanvas = nullptr;
        }
    } const Fim{*this};
    Paint();
}

// In a form editor: what shows its parent all over could not be found on the form.
void TGraphicControl::Contornar()
{
    QPainter Pintor(this);
    Pintor.setPen(QPen(palette().color(QPalette::Mid).darker(), 1, Qt::DashLine));
    Pintor.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace Sibrel
