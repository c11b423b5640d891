// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "simbolos/ElementoTracado.h"
#include "simbolos/ListaPosicoes.h"

#include <memory>

namespace Sibrel
{

/// A closed, filled polygon or an open line of many points.
class SIBREL_EXPORT TPoligono : public ComClasse<TPoligono, TElementoTracado>
{
public:
    static constexpr const char *NomeDaClasse = "TPoligono";

    TPoligono();
    ~TPoligono() override;

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

private:
    std::unique_ptr<TListaPosicoes> FVertices;
    mutable std::uint64_t FSeloDosVertices = 0; // as last seen
};

} // namespace Sibrel
