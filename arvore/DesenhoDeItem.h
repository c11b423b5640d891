// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Rect.h"

namespace Sibrel
{

class TCanvas;
class TTreeNodeXML;
class TTreeViewXML;

/// Draws one row of an XML tree: lines, expand box, symbol, caption, link line. Of the moment.
class TDesenhoDeItem
{
public:
    TDesenhoDeItem(TTreeViewXML &Vista, const TTreeNodeXML &No, TCanvas &Canvas, const TRect &Linha);
    void Desenhar();
    /// Where the content ended, from the row's left edge.
    int Fim() const noexcept { return FX - FLinha.Left; }

private:
    void Traco(int X1, int Y1, int X2, int Y2);
    void LinhasDaArvore();
    void CaixaDeExpansao();
    void Simbolo();
    void Legenda();

    TTreeViewXML &FVista;
    const TTreeNodeXML &FNo;
    TCanvas &FCanvas;
    TRect FLinha;
    int FAltura;
    int FNivel;
    int FX = 0; // where the next part begins
};

} // namespace Sibrel
