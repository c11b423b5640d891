// SPDX-License-Identifier: LGPL-2.1-or-later
#include "simbolos/SimboloFonte.h"

#include "plataforma/Canvas.h"
#include "plataforma/Exception.h"
#include "simbolos/AjusteDeGlifo.h"
#include "simbolos/CacheDePinturas.h"

#include <algorithm>
#include <bit>
#include <limits>

namespace Sibrel
{

namespace
{

// A coordinate moved, kept within what a coordinate can be: rectangles stand at the very limits too.
int Deslocada(std::int64_t Coordenada, int Quanto) noexcept
{
    using TLimites = std::numeric_limits<std::int32_t>;
    return static_cast<int>(std::clamp<std::int64_t>(Coordenada + Quanto, TLimites::min(), TLimites::max()));
}

} // namespace

TSimboloFonte::TSimboloFonte() = default;
TSimboloFonte::~TSimboloFonte() = default;

void TSimboloFonte::Assign(ISimbolo &Origem)
{
    auto *De = dynamic_cast<TSimboloFonte *>(&Origem);
    if (De == nullptr)
        throw EInvalidCast(QStringLiteral("O símbolo de origem não é um TSimboloFonte!"));
    Caracter = De->Caracter;
    Fonte = De->Fonte;
    Proporcao = De->Proporcao;
}

bool TSimboloFonte::PedirPintura(TCanvas &Canvas, const TRect &Rect, double Densidade, TPinturaPedida &Pedida)
{
    Pedida.Chaves.append({Fonte.Selo(), std::bit_cast<std::uint64_t>(Proporcao),
                          static_cast<std::int32_t>(Rect.Width()), static_cast<std::int32_t>(Rect.Height()),
                          Caracter, Canvas.Pen.Color.ParaRgb(), Densidade});
    Pedida.Alcance = Rect;
    return true;
}

void TSimboloFonte::Desenhar(TCanvas &Canvas, const TRect &Rect)
{
    if (Rect.Vazio())
        return;
    if (const std::optional<double> Densidade = Canvas.DensidadeDePixels()) {
        TPinturaPedida Pedida;
        PedirPintura(Canvas, Rect, *Densidade, Pedida);
        if (DesenharLembrada(Canvas, Rect, Pedida, Canvas.Pen, [&](TCanvas &C) { DesenharDireto(C, Rect); }))
            return;
    }
    DesenharDireto(Canvas, Rect);
}

void TSimboloFonte::DesenharDireto(TCanvas &Canvas, const TRect &Rect) const
{
    // Rectangles beyond what coordinates of a surface reach are fitted as the largest that they do reach.
    constexpr std::int64_t MaiorLado = 1 << 24;
    const int Largura = static_cast<int>(std::min(Rect.Width(), MaiorLado));
    const int Altura = static_cast<int>(std::min(Rect.Height(), MaiorLado));
    const int QueCabe = TamanhoQueCabe(Fonte, Caracter, Largura, Altura);
    const int Tamanho = std::clamp(Arredondar(QueCabe * Proporcao), -MaiorTamanho, MaiorTamanho);
    if (Tamanho == 0)
        return;

    const TFont FonteAntes = Canvas.Font;
    const TBrush BrushAntes = Canvas.Brush;
    const unsigned AlinhamentoAntes = Canvas.TextAlign;
    Canvas.Font = Fonte;
    Canvas.Font.AtribuirColor(Canvas.Pen.Color);
    Canvas.Font.AtribuirSize(Tamanho);
    Canvas.Brush.Style = TBrushStyle::bsClear;
    Canvas.TextAlign = TA_TOP | TA_LEFT;
    const QString Glifo = QString(Fonte.TextoDoCodigo(Caracter));
    const int X = Deslocada(Rect.Left, (Largura - Canvas.TextWidth(Glifo)) / 2);
    const int Y = Deslocada(Rect.Top, (Altura - Canvas.TextHeight(Glifo)) / 2);
    Canvas.TextRect(Rect, X, Y, Glifo);
    Canvas.Font = FonteAntes;
    Canvas.Brush = BrushAntes;
    Canvas.TextAlign = AlinhamentoAntes;
}

} // namespace Sibrel
