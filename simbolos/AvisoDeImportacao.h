// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>

#include <cstdint>

namespace Sibrel
{

/// What a warning is about.
enum class TTipoDeAviso : std::uint8_t {
    FonteNaoInstalada, ///< the glyph is drawn with another font
    FiguraAusente,     ///< the picture file is not there; the symbol draws nothing
    FiguraIlegivel,    ///< the picture file is there but cannot be read; the import stops
    TipoDesconhecido   ///< a part of a composite was skipped
};

/// Something in a library that was read as described but that an operator may want to know.
struct TAvisoDeImportacao {
    int Linha = 0; ///< in the library file, from 1
    TTipoDeAviso Tipo = TTipoDeAviso::FonteNaoInstalada;
    QString Texto; ///< in Portuguese, for showing
};

} // namespace Sibrel
