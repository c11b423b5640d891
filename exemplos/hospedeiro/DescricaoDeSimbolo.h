// SPDX-License-Identifier: LGPL-2.1-or-later
// What there is to say about a symbol in words.
#pragma once

#include "hospedeiro/Campo.h"

#include <QStringList>

#include <vector>

namespace Sibrel
{
class ISimbolo;
class TListaSimbolo;
class TTabelaDeSimbolos;
} // namespace Sibrel

namespace Hospedeiro
{

/// The name under which the symbol's kind is registered, as libraries write it.
QString TipoDoSimbolo(const Sibrel::ISimbolo &Simbolo);

/// The kind's own fields in the order of a library record; none for a kind that this host does not know.
std::vector<TCampo> CamposDoSimbolo(const Sibrel::ISimbolo &Simbolo);

/// The parts of a composite; null for the other kinds.
const Sibrel::TListaSimbolo *PartesDoSimbolo(const Sibrel::ISimbolo &Simbolo);

/// The files that the symbols and their parts read, each name once, in order.
QStringList ArquivosDosSimbolos(const Sibrel::TListaSimbolo &Simbolos);
/// The fonts of their glyphs, in the same way.
QStringList FontesDosSimbolos(const Sibrel::TListaSimbolo &Simbolos);

/// The list of a table, one line a symbol or part, each ended by a line feed; the format is that of the help.
QString ListaDaTabela(const Sibrel::TTabelaDeSimbolos &Tabela);

/// A few lines for a tooltip: index, kind, label and fields, those of the parts too.
QString DicaDoSimbolo(const Sibrel::TTabelaDeSimbolos &Tabela, int Indice);

} // namespace Hospedeiro
