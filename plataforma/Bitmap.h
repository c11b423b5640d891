// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Color.h"
#include "plataforma/Graphic.h"

#include <memory>

class QPainter;

namespace Sibrel
{

class TCanvas;

/// A picture of pixels, in memory; also a surface to draw on. Not synchronised.
class SIBREL_EXPORT TBitmap : public ComClasse<TBitmap, TGraphic>
{
public:
    static constexpr const char *NomeDaClasse = "TBitmap";

    /// Empty, 32 bits a pixel.
    TBitmap();
    explicit TBitmap(const QImage &Imagem);
    ~TBitmap() override;

    int Width() const noexcept override;
    int Height() const noexcept override;
    /// Changes the size; what both sizes share is kept, new pixels are white. A negative size counts as 0.
    void AtribuirTamanho(int Largura, int Altura);

    /// One bit a pixel: black and white, a pixel is dark when its luminance is below 128 on
    /// white paper: what is see-through counts as light. Setting it reduces the picture at once; what is
    /// drawn later is reduced when it is next read.
    bool Monochrome() const noexcept { return FMonochrome; }
    void AtribuirMonochrome(bool Valor);

    /// The pixels, at one image pixel a bitmap pixel. The reference is good until the bitmap is next used.
    const QImage &Imagem() const;
    void AtribuirImagem(const QImage &Imagem);

    /// The colour of a pixel; outside the bitmap raises nothing and gives white.
    TColor Pixel(int X, int Y) const;

    void Assign(const TGraphic &Outra) override;
    QImage Preparada(QSize Tamanho) const override;

    /// The surface to draw on, owned by the bitmap; lives as long as it.
    TCanvas &Canvas();

private:
    friend class TCanvas;
    QPainter &Pintor();
    void SoltarPintor() const;
    void Reduzir() const;

    mutable QImage FImagem;
    mutable std::unique_ptr<QPainter> FPintor;
    std::unique_ptr<TCanvas> FCanvas;
    bool FMonochrome = false;
    mutable bool FPorReduzir = false;
};

} // namespace Sibrel
