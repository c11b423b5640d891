// SPDX-License-Identifier: LGPL-2.1-or-later
// What there is to say about the elements of a vector figure in words.
#pragma once

#include "hospedeiro/Campo.h"

#include <vector>

namespace Sibrel
{
class IElementoGrafico;
class TSimboloVetorial;
} // namespace Sibrel

namespace Hospedeiro
{

/// The element's name in figure files; empty for a class that this host does not know.
QString TipoDoElemento(const Sibrel::IElementoGrafico &Elemento);

/// The element's fields under the names of their attributes. Colours as #rrggbb or, when they are the
/// system's, by number; angles in radians, lengths in the units of the figure.
std::vector<TCampo> CamposDoElemento(const Sibrel::IElementoGrafico &Elemento);

/// The list of a figure, one line an element, each ended by a line feed; the format is that of the help.
QString ListaDaFigura(const Sibrel::TSimboloVetorial &Figura);

} // namespace Hospedeiro
