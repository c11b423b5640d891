// SPDX-License-Identifier: LGPL-2.1-or-later
#include "simbolos/SimboloComposto.h"

#include "lumbrix/Geometria.h"
#include "plataforma/Canvas.h"
#include "plataforma/Exception.h"
#include "simbolos/CacheDePinturas.h"

#include <QHashFunctions>

namespace Sibrel
{

TSimboloComposto::TSimboloComposto() = default;
TSimboloComposto::~TSimboloComposto() = default;

void TSimboloComposto::Assign(ISimbolo &Origem)
{
    auto *De = dynamic_cast<TSimboloComposto *>(&Origem);
    if (De == nullptr)
        throw EInvalidCast(QStringLiteral("O símbolo de origem não é um TSimboloComposto!"));
    if (De == this)
        return;
    Lista.Clear();
    Lista.Add(De->Lista);
}

bool TSimboloComposto::PedirPintura(TCanvas &Canvas, const TRect &Rect, double Densidade,
                                    TPinturaPedida &Pedida)
{
    if (Rect.Vazio())
        return false;
    const qsizetype Primeira = Pedida.Chaves.size();
    Pedida.Chaves.append({FSelo, 0, static_cast<std::int32_t>(Rect.Width()),
                          static_cast<std::int32_t>(Rect.Height()), static_cast<std::uint32_t>(Lista.Count()),
                          Canvas.Pen.Color.ParaRgb(),
                          Densidade}); // one picture a colour: hosts alternate them
    TRect Alcance = Rect;
    for (const auto &Parte : Lista) {
        if (!Parte)
            continue;
        if (!Parte->PedirPintura(Canvas, Rect, Densidade, Pedida))
            return false;
        Alcance = Uniao(Alcance, Pedida.Alcance);
    }
    Pedida.Alcance = Alcance;
    // A picture for each place that parts tell apart, so that several can be remembered.
    std::size_t Lugares = 0;
    for (qsizetype I = Primeira + 1; I < Pedida.Chaves.size(); ++I)
        Lugares = qHashMulti(Lugares, Pedida.Chaves[I].Variante);
    Pedida.Chaves[Primeira].Variante = Lugares;
    return true;
}

void TSimboloComposto::Desenhar(TCanvas &Canvas, const TRect &Rect)
{
    const std::optional<double> Densidade = Canvas.DensidadeDePixels();
    if (!Densidade || Lista.Vazia()) {
        DesenharPartes(Canvas, Rect);
        return;
    }
    const TPen Pen = Canvas.Pen;
    const TBrush Brush = Canvas.Brush;
    const TFont Font = Canvas.Font;
    const unsigned Alinhamento = Canvas.TextAlign;
    TPinturaPedida Pedida;
    // Asking the parts also brings the canvas into the state that they leave: a glyph above a figure takes
    // the figure's last pen.
    if (PedirPintura(Canvas, Rect, *Densidade, Pedida) &&
        DesenharLembrada(Canvas, Rect, Pedida, Pen, [&](TCanvas &C) { DesenharPartes(C, Rect); }))
        return;
    Canvas.Pen = Pen;
    Canvas.Brush = Brush;
    Canvas.Font = Font;
    Canvas.TextAlign = Alinhamento;
    DesenharPartes(Canvas, Rect);
}

void TSimboloComposto::DesenharPartes(TCanvas &Canvas, const TRect &Rect) const
{
    for (const auto &Parte : Lista)
        if (Parte)
            Parte->Desenhar(Canvas, Rect);
}

} // namespace Sibrel
