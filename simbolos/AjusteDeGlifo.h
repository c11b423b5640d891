// SPDX-License-Identifier: LGPL-2.1-or-later
// The largest size at which a glyph fits a rectangle, remembered.
#pragma once

#include "plataforma/Exportacao.h"
#include "plataforma/Font.h"

#include <cstdint>

namespace Sibrel
{

class TBitmap;

/// The largest size in points, found by one-point steps from the size equivalent to the height of the
/// rectangle, at which the glyph `Codigo` of `Fonte` is not wider than `Largura` and its line not higher than
/// `Altura`; at least 1. When the glyph has no width the height alone counts. The rectangle must not be
/// empty.
///
/// Remembered by everything that the result depends on, for the last `AjustesLembrados` glyphs and sizes; the
/// application's fonts changing forgets all. GUI thread only.
SIBREL_EXPORT int TamanhoQueCabe(const TFont &Fonte, std::uint8_t Codigo, int Largura, int Altura);

inline constexpr int AjustesLembrados = 8192;
/// No size is tried beyond this: a font whose glyph never grows must not be tried for ever.
inline constexpr int MaiorTamanho = 16383;

/// The surface on which every font symbol is measured; made by the start of the symbol table's module and
/// freed by its stop.
SIBREL_EXPORT TBitmap &BitmapDeMedida();
void CriarBitmapDeMedida();
void LiberarBitmapDeMedida() noexcept;

} // namespace Sibrel
