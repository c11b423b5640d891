// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Canvas.h"
#include "plataforma/Color.h"
#include "simbolos/ElementoGrafico.h"
#include "simbolos/ListaPosicoes.h"

#include <memory>

namespace Sibrel
{

/// A closed, filled polygon or an open line of many points.
class SIBREL_EXPORT TPoligono : public ComClasse<TPoligono, IElementoGrafico>
{
public:
    static constexpr const char *NomeDaClasse = "TPoligono";

    TPoligono();
    ~TPoligono() override;

    /// True draws a polygon, false (a new one) an open line.
    bool Fechado() const noexcept { return FFechado; }
    void AtribuirFechado(bool Fechado) { Mudar(FFechado, Fechado); }
    /// Black, black, dotted and solid in a new polygon.
    TColor CorLinha() const noexcept { return FCorLinha; }
    void AtribuirCorLinha(TColor Cor) { Mudar(FCorLinha, Cor); }
    TColor CorFundo() const noexcept { return FCorFundo; }
    void AtribuirCorFundo(TColor Cor) { Mudar(FCorFundo, Cor); }
    TPenStyle EstiloLinha() const noexcept { return FEstiloLinha; }
    void AtribuirEstiloLinha(TPenStyle Estilo) { Mudar(FEstiloLinha, Estilo); }
    TBrushStyle EstiloFundo() const noexcept { return FEstiloFundo; }
    void AtribuirEstiloFundo(TBrushStyle Estilo) { Mudar(FEstiloFundo, Estilo); }

    /// The vertices, figure units; the polygon's own, to be changed in place.
    TListaPosicoes &ObterListaPosicao() noexcept { return *FVertices; }
    const TListaPosicoes &ObterListaPosicao() const noexcept { return *FVertices; }
    /// Takes a list of vertices (none counts as an empty one) and hands the former one to the caller.
    [[nodiscard]] std::unique_ptr<TListaPosicoes> AtribuirListaPosicao(std::unique_ptr<TListaPosicoes> Lista);

    /// The box of the vertices; (0, 0, 0, 0) without any.
    TRect Area() const override;
    QString ObterXML() const override;
    void Desenhar(TCanvas &Canvas, const TRect &Rect) override;
    /// Replaces the vertices by the children that have both an X and a Y, whatever their name.
    void AtribuirXML(const TCursorXML &No) override;
    std::uint64_t Selo() const override;
    bool DescreverPintura(const TRect &Rect, TPinturaDoElemento &Pintura) const override;
    void AplicarEstado(TCanvas &Canvas) const override;

private:
    std::unique_ptr<TListaPosicoes> FVertices;
    mutable std::uint64_t FSeloDosVertices = 0; // as last seen
    bool FFechado = false;
    TColor FCorLinha = clBlack;
    TColor FCorFundo = clBlack;
    TPenStyle FEstiloLinha = TPenStyle::psDot;
    TBrushStyle FEstiloFundo = TBrushStyle::bsSolid;
};

} // namespace Sibrel
