// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Canvas.h"
#include "plataforma/Exportacao.h"

#include <QWidget>

namespace Sibrel
{

/// A light control: no window of its own, it paints on its parent's surface, over what stands there.
///
/// Paint draws on Canvas(), in the control's own logical pixels. The canvas's state (pen, brush, font, copy
/// mode, text alignment) is the control's: it is found at the next paint as the last one left it. In a form
/// editor a dashed outline shows where the control is. GUI thread only.
class SIBREL_EXPORT TGraphicControl : public QWidget
{
    Q_OBJECT

public:
    explicit TGraphicControl(QWidget *Dono = nullptr);
    ~TGraphicControl() override;

protected:
    /// Draws the control.
    virtual void Paint() = 0;
    /// The surface, while Paint runs. EInvalidOperation at any other time.
    TCanvas &Canvas() const;
    /// The copy mode in which the canvas is now.
    TCopyMode CopyModeDoCanvas() const noexcept;

    void paintEvent(QPaintEvent *Evento) override;

private:
    void Contornar();

    struct TEstado {
        TPen Pen;
        TBrush Brush;
        TFont Font;
        TCopyMode CopyMode = TCopyMode::cmSrcCopy;
        unsigned TextAlign = TA_TOP | TA_LEFT;
    };
    template <class De, class Para>
    static void CopiarEstado(const De &Origem, Para &Destino);

    TEstado FEstado;
    TCanvas *FCanvas = nullptr; // while Paint runs
};

} // namespace Sibrel
