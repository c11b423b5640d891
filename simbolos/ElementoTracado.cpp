// SPDX-License-Identifier: LGPL-2.1-or-later
#include "simbolos/ElementoTracado.h"

#include "simbolos/XMLDeElementos.h"

namespace Sibrel
{

TElementoTracado::TElementoTracado(TColor CorFundo)
    : FCorFundo(CorFundo)
{
}

TElementoTracado::~TElementoTracado() = default;

void TElementoTracado::AplicarEstado(TCanvas &Canvas) const
{
    Canvas.Pen.Color = FCorLinha;
    Canvas.Pen.Style = FEstiloLinha;
    Canvas.Brush = {FCorFundo, FEstiloFundo};
}

TEscritaDeElemento &TElementoTracado::EscreverTraco(TEscritaDeElemento &Escrita) const
{
    return Escrita.Atributo(u"CorLinha", FCorLinha)
        .Atributo(u"CorFundo", FCorFundo)
        .Atributo(u"EstiloLinha", static_cast<int>(FEstiloLinha))
        .Atributo(u"EstiloFundo", static_cast<int>(FEstiloFundo));
}

void TElementoTracado::LerFechado(const TCursorXML &No)
{
    SeHouver(No, u"Fechado", [this](QStringView T) { AtribuirFechado(SinalDoTexto(T)); });
}

void TElementoTracado::LerTraco(const TCursorXML &No)
{
    SeHouver(No, u"CorLinha", [this](QStringView T) { AtribuirCorLinha(CorDoTexto(T)); });
    SeHouver(No, u"CorFundo", [this](QStringView T) { AtribuirCorFundo(CorDoTexto(T)); });
    SeHouver(No, u"EstiloLinha", [this](QStringView T) { AtribuirEstiloLinha(EstiloDoTexto<TPenStyle>(T)); });
    SeHouver(No, u"EstiloFundo",
             [this](QStringView T) { AtribuirEstiloFundo(EstiloDoTexto<TBrushStyle>(T)); });
}

void TElementoTracado::DescreverTraco(bool Preenche, TPinturaDoElemento &Pintura) const
{
    Pintura.Hachurada = Preenche && FEstiloFundo > TBrushStyle::bsClear;
    Pintura.CorDoSistema = FCorLinha.DoSistema() || (Preenche && FCorFundo.DoSistema());
}

} // namespace Sibrel
