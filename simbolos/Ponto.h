// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Color.h"
#include "simbolos/ElementoGrafico.h"

namespace Sibrel
{

/// Radius of a drawn dot in device pixels, and half the side of its Area in figure units.
inline constexpr int RAIO = 2;

/// A dot: a filled disc that has the same size on every scale.
class SIBREL_EXPORT TPonto : public ComClasse<TPonto, IElementoGrafico>
{
public:
    static constexpr const char *NomeDaClasse = "TPonto";

    TPonto();
    ~TPonto() override;

    std::int32_t X() const noexcept { return FPosicao.X; }
    void AtribuirX(std::int32_t X) { Mudar(FPosicao.X, X); }
    std::int32_t Y() const noexcept { return FPosicao.Y; }
    void AtribuirY(std::int32_t Y) { Mudar(FPosicao.Y, Y); }
    /// Black in a new dot.
    TColor Cor() const noexcept { return FCor; }
    void AtribuirCor(TColor Cor) { Mudar(FCor, Cor); }

    /// The position widened by RAIO to every side.
    TRect Area() const override;
    QString ObterXML() const override;
    /// Around the centre of `Rect`, in whatever pen style the canvas has.
    void Desenhar(TCanvas &Canvas, const TRect &Rect) override;
    void AtribuirXML(const TCursorXML &No) override;
    bool DescreverPintura(const TRect &Rect, TPinturaDoElemento &Pintura) const override;
    void AplicarEstado(TCanvas &Canvas) const override;

private:
    TPoint FPosicao;
    TColor FCor = clBlack;
};

} // namespace Sibrel
