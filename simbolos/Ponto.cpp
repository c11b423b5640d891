// SPDX-License-Identifier: LGPL-2.1-or-later
#include "simbolos/Ponto.h"

#include "lumbrix/Geometria.h"
#include "plataforma/Conversao.h"
#include "simbolos/GeometriaDeElementos.h"
#include "simbolos/XMLDeElementos.h"

namespace Sibrel
{

namespace
{

TRect EmTorno(const TPoint &P) noexcept
{
    return {Saturado(std::int64_t{P.X} - RAIO), Saturado(std::int64_t{P.Y} - RAIO),
            Saturado(std::int64_t{P.X} + RAIO), Saturado(std::int64_t{P.Y} + RAIO)};
}

} // namespace

TPonto::TPonto() = default;
TPonto::~TPonto() = default;

TRect TPonto::Area() const
{
    return EmTorno(FPosicao);
}

void TPonto::AplicarEstado(TCanvas &Canvas) const
{
    Canvas.Pen.Color = FCor;
    Canvas.Brush = {FCor, TBrushStyle::bsSolid};
}

void TPonto::Desenhar(TCanvas &Canvas, const TRect &Rect)
{
    AplicarEstado(Canvas);
    Canvas.Ellipse(EmTorno(Centro(Rect)));
}

bool TPonto::DescreverPintura(const TRect &Rect, TPinturaDoElemento &Pintura) const
{
    Pintura.Alcance = EmTorno(Centro(Rect));
    Pintura.HerdaCaneta = true;
    Pintura.CorDoSistema = FCor.DoSistema();
    return true;
}

QString TPonto::ObterXML() const
{
    return TEscritaDeElemento(u"Ponto")
        .Atributo(u"X", FPosicao.X)
        .Atributo(u"Y", FPosicao.Y)
        .Atributo(u"Cor", FCor)
        .Fechar();
}

void TPonto::AtribuirXML(const TCursorXML &No)
{
    SeHouver(No, u"Cor", [this](QStringView T) { AtribuirCor(CorDoTexto(T)); });
    SeHouver(No, u"X", [this](QStringView T) { AtribuirX(StrToInt(T)); });
    SeHouver(No, u"Y", [this](QStringView T) { AtribuirY(StrToInt(T)); });
}

} // namespace Sibrel
