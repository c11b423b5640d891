// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Exportacao.h"

#include <QGlyphRun>
#include <QList>
#include <QString>

#include <cstdint>

class QFont;
class QFontMetricsF;

namespace Sibrel
{

class TFont;

/// A line of text with its width measured and its glyphs found (a value), for texts that are drawn more than
/// once: finding the glyphs costs ten times what drawing them does. Made and used on the GUI thread; good for
/// as long as the fonts of the application stay the same (`GeracaoDasFontes`).
class SIBREL_EXPORT TLinhaDeTexto
{
public:
    TLinhaDeTexto() = default; ///< an empty text
    TLinhaDeTexto(const TFont &Fonte, const QString &Texto);

    const QString &Texto() const noexcept { return FTexto; }
    /// Advance width and height (ascent plus descent), in whole logical pixels.
    int Largura() const noexcept { return FLargura; }
    int Altura() const noexcept { return FAltura; }

private:
    friend class TCanvas;

    QString FTexto;     // as it was given
    QString FDesenhado; // by the font's charset
    std::uint64_t FSeloDaFonte = 0;
    double FAvanco = 0;
    int FLargura = 0;
    int FAltura = 0;
    QList<QGlyphRun> FGlifos; // none where only the painter knows how (underlined text)
};

} // namespace Sibrel
