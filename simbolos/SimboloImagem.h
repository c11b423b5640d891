// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Bitmap.h"
#include "plataforma/Color.h"
#include "plataforma/GraphicControl.h"
#include "plataforma/Modulo.h"

#include <QColor>
#include <QPixmap>

namespace Sibrel
{

/// A light control that shows one symbol as a silhouette.
///
/// The dark pixels of the mask are painted in one colour, through its light ones the parent shows. The mask
/// stands at the top-left corner at its own size, in the middle at its own size (`Centralizar`), or is
/// stretched over the whole control (`Esticar`, which picks pixels and does not keep the proportions); the
/// last two are never both true. One mask pixel is one logical pixel.
///
/// The control knows no symbol table: whoever wants a symbol shown hands over its picture. Its size hint is
/// the mask's size; a screen reader is told of a picture with the accessible name that the host sets. GUI
/// thread only; the mask must not be used elsewhere while the control is painted.
class SIBREL_EXPORT TSimboloImagem : public TGraphicControl
{
    Q_OBJECT
    Q_PROPERTY(QPixmap Mascara READ FiguraDaMascara WRITE AtribuirFiguraDaMascara)
    Q_PROPERTY(QColor Cor READ ObterCor WRITE AtribuirCor)
    Q_PROPERTY(bool Centralizar READ Centralizar WRITE AtribuirCentralizar)
    Q_PROPERTY(bool Esticar READ Esticar WRITE AtribuirEsticar)

public:
    /// Side of the size hint while there is no mask, in logical pixels.
    static constexpr int LadoSemMascara = 32;

    /// No mask, pure blue, at the top-left corner.
    explicit TSimboloImagem(QWidget *Dono = nullptr);
    ~TSimboloImagem() override;

    /// The mask itself, always of one bit a pixel: what is drawn on it or loaded into it is shown at the next
    /// paint, for which the control does not ask.
    TBitmap &ObterMascara() noexcept { return FMascara; }
    const TBitmap &ObterMascara() const noexcept { return FMascara; }
    /// Copies a picture of any kind and reduces it to one bit a pixel (TBitmap::Monochrome); null empties the
    /// mask. Asks for a repaint in any case. What the copy raises reaches the caller.
    void AtribuirMascara(const TGraphic *Valor);

    TColor Cor() const noexcept { return FCor; }
    /// Asks for a repaint when the colour is another one; so do the next two.
    void AtribuirCor(TColor Valor);

    bool Centralizar() const noexcept { return FCentralizar; }
    /// True also ends `Esticar`.
    void AtribuirCentralizar(bool Valor);
    bool Esticar() const noexcept { return FEsticar; }
    /// True also ends `Centralizar`.
    void AtribuirEsticar(bool Valor);

    /// The mask's size.
    QSize sizeHint() const override;
    /// The mask's size, nothing when it is stretched.
    QSize minimumSizeHint() const override;
    /// Where the mask is shown, in the control's logical pixels; it may reach beyond the control.
    TRect AreaDaMascara() const noexcept;

    QPixmap FiguraDaMascara() const;
    void AtribuirFiguraDaMascara(const QPixmap &Figura);
    QColor ObterCor() const { return FCor.ParaQColor(); }

protected:
    void Paint() override;
    /// The mask's colour layer as the last paint left it.
    TBitmap &BufferDeCor() noexcept { return FBufferDeCor; }

private:
    void Desenhar();
    void PrepararBufferDeCor();
    void Mostrar(TCopyMode Modo, const TBitmap &Figura);

    TBitmap FMascara;
    TBitmap FBufferDeCor;
    TColor FCor = clBlue;
    bool FCentralizar = false;
    bool FEsticar = false;
};

/// The module of the control; its start and stop do nothing.
SIBREL_EXPORT TModulo &ModuloSimboloImagem() noexcept;

} // namespace Sibrel
