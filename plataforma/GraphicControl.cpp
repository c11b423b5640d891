// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/GraphicControl.h"

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

} // namespace Sibrel
