// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Font.h"
#include "simbolos/Simbolo.h"

#include <cstdint>

namespace Sibrel
{

/// A glyph of a font, fitted into the rectangle and centred.
///
/// Its colour is the pen colour of the canvas that it is drawn on: set `Canvas.Pen.Color` first. What was
/// found and drawn is remembered (TCacheDePinturas); every field may change at any time, the next drawing
/// sees it.
class SIBREL_EXPORT TSimboloFonte : public ComClasse<TSimboloFonte, ISimbolo>
{
public:
    static constexpr const char *NomeDaClasse = "TSimboloFonte";

    TSimboloFonte();
    ~TSimboloFonte() override;

    /// Code of the glyph in the font's charset.
    std::uint8_t Caracter = 0;
    /// Name, charset and style of the glyph; its size and colour play no part.
    TFont Fonte;
    /// The share of the fitted size at which the glyph is drawn: below 1 leaves a margin, above 1 overflows
    /// and is clipped to the rectangle. A share that rounds the size to 0 points draws nothing.
    double Proporcao = 1.0;

    void Desenhar(TCanvas &Canvas, const TRect &Rect) override;
    void Assign(ISimbolo &Origem) override;
    bool PedirPintura(TCanvas &Canvas, const TRect &Rect, double Densidade, TPinturaPedida &Pedida) override;

private:
    void DesenharDireto(TCanvas &Canvas, const TRect &Rect) const;
};

} // namespace Sibrel
