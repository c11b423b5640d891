// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/PinturaDeSimbolo.h"

#include "hospedeiro/DescricaoDeSimbolo.h"

#include "lumbrix/Geometria.h"
#include "lumbrix/RotacionarFonte.h"
#include "plataforma/Canvas.h"
#include "simbolos/ListaSimbolo.h"
#include "simbolos/SimboloVetorial.h"
#include "simbolos/Texto.h"

#include <QColor>
#include <QPainter>

namespace Hospedeiro
{

using namespace Sibrel;

namespace
{

void GirarTextos(TSimboloVetorial &Figura)
{
    for (const auto &Elemento : Figura.ObterElementos())
        if (auto *Texto = dynamic_cast<TTexto *>(Elemento.get()))
            RotacionarFonte(Texto->Fonte(), Texto->Orientacao());
}

// The first vector figure in a symbol, null when there is none.
const TSimboloVetorial *FiguraDoSimbolo(const ISimbolo &Simbolo)
{
    if (const auto *Figura = dynamic_cast<const TSimboloVetorial *>(&Simbolo))
        return Figura;
    if (const TListaSimbolo *Partes = PartesDoSimbolo(Simbolo))
        for (const auto &Parte : *Partes)
            if (const TSimboloVetorial *Figura = FiguraDoSimbolo(*Parte))
                return Figura;
    return nullptr;
}

// The middle of the symbol's figure in its own units; (0, 0) without one, or when it is so far away that no
// canvas reaches it.
QPoint MeioDaFigura(const ISimbolo &Simbolo)
{
    constexpr int MaisLonge = 1 << 24;
    const TSimboloVetorial *Figura = FiguraDoSimbolo(Simbolo);
    if (Figura == nullptr)
        return {};
    const TRect Area = Figura->ObterElementos().ObterArea();
    const QRect Alcance(QPoint(-MaisLonge, -MaisLonge), QPoint(MaisLonge, MaisLonge));
    const QPoint Meio = Centro(Area).ParaQPoint();
    return Alcance.contains(Meio) ? Meio : QPoint();
}

} // namespace

void PrepararSimbolo(ISimbolo &Simbolo)
{
    if (auto *Figura = dynamic_cast<TSimboloVetorial *>(&Simbolo))
        GirarTextos(*Figura);
    else if (const TListaSimbolo *Partes = PartesDoSimbolo(Simbolo))
        PrepararSimbolos(*Partes);
}

void PrepararSimbolos(const TListaSimbolo &Simbolos)
{
    for (const auto &Simbolo : Simbolos)
        PrepararSimbolo(*Simbolo);
}

void PintarSimbolo(QPainter &Pintor, const QRect &Area, ISimbolo &Simbolo, const QColor &Cor)
{
    const QPoint MeioDaArea = Area.topLeft() + QPoint(Area.width() / 2, Area.height() / 2);
    const QPoint Origem = MeioDaArea - MeioDaFigura(Simbolo);
    Pintor.save();
    Pintor.translate(Origem);
    {
        TCanvas Canvas(Pintor); // puts the painter's state back when it ends
        Canvas.Pen.Color = TColor(Cor);
        Simbolo.Desenhar(Canvas, TRect(Area.translated(-Origem)));
    }
    Pintor.restore();
}

} // namespace Hospedeiro
