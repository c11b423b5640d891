// SPDX-License-Identifier: LGPL-2.1-or-later
#include "arvore/DesenhoDeItem.h"

#include "arvore/EstiloDeArvore.h"
#include "arvore/TreeViewXML.h"
#include "plataforma/Canvas.h"

namespace Sibrel
{

TDesenhoDeItem::TDesenhoDeItem(TTreeViewXML &Vista, const TTreeNodeXML &No, TCanvas &Canvas,
                               const TRect &Linha)
    : FVista(Vista)
    , FNo(No)
    , FCanvas(Canvas)
    , FLinha(Linha)
    , FAltura(Linha.Bottom - Linha.Top)
    , FNivel(No.Level())
{
}

void TDesenhoDeItem::Desenhar()
{
    FCanvas.FillRect(FLinha);
    LinhasDaArvore();
    CaixaDeExpansao();
    Simbolo();
    Legenda();
}

void TDesenhoDeItem::Traco(int X1, int Y1, int X2, int Y2)
{
    FCanvas.MoveTo(X1, Y1);
    FCanvas.LineTo(X2, Y2);
}

void TDesenhoDeItem::LinhasDaArvore()
{
    const TRect &R = FLinha;
    FCanvas.Pen = TPen{clGray, TPenStyle::psDot, 1};
    const int Meio = (R.Top + R.Bottom) / 2;
    int X = R.Left + TEstiloDeArvore::MargemDaCaixa + FAltura / 2;
    for (int Nivel = 1; Nivel < FNivel; ++Nivel) {
        Traco(X, R.Top, X, R.Bottom);
        X += FVista.indentation();
    }
    const bool Ultimo = FNo.Parent() != nullptr && FNo.GetNextSibling() == nullptr;
    Traco(X, R.Top, X, Ultimo ? Meio : R.Bottom);
    Traco(X, Meio, R.Right, Meio);
}

void TDesenhoDeItem::CaixaDeExpansao()
{
    const TRect Caixa =
        TEstiloDeArvore::Caixa(FLinha.Left + FNivel * FVista.indentation(), FLinha.Top, FAltura);
    constexpr int Folga = 2;
    FX = Caixa.Right + Folga;
    if (!FNo.HasChildren())
        return;
    FCanvas.Pen.Style = TPenStyle::psSolid;
    FCanvas.Rectangle(Caixa);
    const int CentroX = (Caixa.Left + Caixa.Right) / 2;
    const int CentroY = (Caixa.Top + Caixa.Bottom) / 2;
    Traco(Caixa.Left + Folga, CentroY, Caixa.Right - Folga, CentroY);
    if (!FNo.Expanded())
        Traco(CentroX, Caixa.Top + Folga, CentroX, Caixa.Bottom - Folga);
}

void TDesenhoDeItem::Simbolo()
{
    FCanvas.Pen = TPen{TColor(FNo.Cor()), TPenStyle::psSolid, 1};
    const TTabelaDeSimbolos *Tabela = FVista.TabelaDeSimbolos();
    const int Indice = FNo.ImageIndex();
    if (Tabela == nullptr || Indice < 0 || Indice >= Tabela->Simbolos().Count())
        return;
    // A figure leaves its last filling and text alignment on the canvas; the caption is the row's.
    const TBrush Fundo = FCanvas.Brush;
    const unsigned Alinhamento = FCanvas.TextAlign;
    Tabela->Desenhar(Indice, FCanvas, {FX, FLinha.Top, FX + FAltura, FLinha.Bottom});
    FCanvas.Brush = Fundo;
    FCanvas.TextAlign = Alinhamento;
    FX += FAltura;
}

void TDesenhoDeItem::Legenda()
{
    const TRect Area{FX, FLinha.Top, FLinha.Right, FLinha.Bottom};
    const QString Texto = FNo.Text();
    FCanvas.Font = FVista.Fonte();
    FCanvas.Font.AtribuirColor(TColor(FNo.Cor()));
    FCanvas.FillRect(Area); // the caption's place is opaque: the row's line ends where it begins
    FCanvas.TextRect(Area, FX, FLinha.Top, Texto);
    const int Fim = FX + FCanvas.TextWidth(Texto);
    if (FNo.Link()) {
        constexpr int SobreABase = 3;
        FCanvas.Pen = TPen{TColor(FNo.Cor()), TPenStyle::psDot, 1};
        Traco(FX, FLinha.Bottom - SobreABase, Fim, FLinha.Bottom - SobreABase);
    }
    FX = Fim;
}

} // namespace Sibrel
