// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Modulo.h"
#include "simbolos/TabelaDeSimbolos.h"

#include <memory>

namespace Sibrel
{

class TClientDataSet;

/// A symbol table that can also be filled from a dataset, one glyph a row.
///
/// Columns, by name in any letter case: "CARACTER" (code of the glyph, of which the low 8 bits count),
/// "PROPORCAO" (share of the fitted size), "FONTE" (font name), "IDTIPOBJ" (the object type that the row
/// belongs to). Rows of one object type that follow each other are laid on top of each other, the first at
/// the bottom. NULL reads as 0 and as the empty text, as everywhere in a dataset.
///
/// The glyphs have the font's default charset and otherwise the font of a new TSimboloFonte. Labels are the
/// host's business: what is read from a dataset has none.
class SIBREL_EXPORT TTabelaDeSimbolosBD : public TTabelaDeSimbolos
{
    Q_OBJECT

public:
    explicit TTabelaDeSimbolosBD(QWidget *Dono = nullptr);
    ~TTabelaDeSimbolosBD() override;

    /// The glyph that the current row describes; the dataset stays where it is. EDatabaseError for a missing
    /// column, EConvertError (column and row in `Detalhe`) for a value that is no number.
    std::unique_ptr<ISimbolo> LerSimboloBD(const TClientDataSet &DataSet) const;

    /// Replaces the symbols by those of all rows; the labels stay as they are and no one is told.
    ///
    /// A run of rows with the same "IDTIPOBJ" (exact, letter case too) becomes one composite, any other row a
    /// glyph of its own; equal keys that do not follow each other stay apart. The dataset is left on its last
    /// row. Errors as of LerSimboloBD: the symbols of the rows before the error stay, the former ones are
    /// gone, and the dataset stands on the row that failed.
    void ImportarBD(TClientDataSet &DataSet);
};

/// The module of the table; its start and stop do nothing.
SIBREL_EXPORT TModulo &ModuloTabelaDeSimbolosBD() noexcept;

} // namespace Sibrel
