// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Canvas.h"
#include "plataforma/Color.h"
#include "simbolos/ElementoGrafico.h"

namespace Sibrel
{

class TEscritaDeElemento;

/// What sectors and polygons have in common: an outline and what fills it.
class SIBREL_EXPORT TElementoTracado : public IElementoGrafico
{
public:
    ~TElementoTracado() override;

    /// False in a new element. An open polygon is a line and is not filled; a sector is always filled, and a
    /// closed slice without an inner radius begins in its centre.
    bool Fechado() const noexcept { return FFechado; }
    void AtribuirFechado(bool Fechado) { Mudar(FFechado, Fechado); }
    /// Black in a new element.
    TColor CorLinha() const noexcept { return FCorLinha; }
    void AtribuirCorLinha(TColor Cor) { Mudar(FCorLinha, Cor); }
    /// White in a new sector, black in a new polygon.
    TColor CorFundo() const noexcept { return FCorFundo; }
    void AtribuirCorFundo(TColor Cor) { Mudar(FCorFundo, Cor); }
    /// Dotted in a new element.
    TPenStyle EstiloLinha() const noexcept { return FEstiloLinha; }
    void AtribuirEstiloLinha(TPenStyle Estilo) { Mudar(FEstiloLinha, Estilo); }
    /// Solid in a new element.
    TBrushStyle EstiloFundo() const noexcept { return FEstiloFundo; }
    void AtribuirEstiloFundo(TBrushStyle Estilo) { Mudar(FEstiloFundo, Estilo); }

    void AplicarEstado(TCanvas &Canvas) const override;

protected:
    explicit TElementoTracado(TColor CorFundo);

    /// The attributes of colours and styles, behind those that the element has before them.
    TEscritaDeElemento &EscreverTraco(TEscritaDeElemento &Escrita) const;
    void LerTraco(const TCursorXML &No);
    void LerFechado(const TCursorXML &No);
    /// A pattern counts where it is drawn (`Preenche`).
    void DescreverTraco(bool Preenche, TPinturaDoElemento &Pintura) const;

private:
    bool FFechado = false;
    TColor FCorLinha = clBlack;
    TColor FCorFundo;
    TPenStyle FEstiloLinha = TPenStyle::psDot;
    TBrushStyle FEstiloFundo = TBrushStyle::bsSolid;
};

} // namespace Sibrel
