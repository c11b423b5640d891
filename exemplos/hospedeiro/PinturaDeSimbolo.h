// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

class QColor;
class QPainter;
class QRect;

namespace Sibrel
{
class ISimbolo;
class TListaSimbolo;
} // namespace Sibrel

namespace Hospedeiro
{

/// Turns the texts of vector figures, parts of composites too, to their orientation. A text turns by itself
/// only behind its first drawing: without this a symbol would look another way when it is drawn again.
void PrepararSimbolo(Sibrel::ISimbolo &Simbolo);
void PrepararSimbolos(const Sibrel::TListaSimbolo &Simbolos);

/// Draws a symbol into `Area` of the painter, glyphs in `Cor`.
///
/// The texts of vector figures are neither moved nor scaled with the rectangle, they stand at their own
/// position on the canvas. So the canvas is moved until the middle of the figure lies on that of the area:
/// texts are then where they belong among the shapes. They may reach beyond the area.
void PintarSimbolo(QPainter &Pintor, const QRect &Area, Sibrel::ISimbolo &Simbolo, const QColor &Cor);

} // namespace Hospedeiro
