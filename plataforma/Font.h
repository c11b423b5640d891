// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Color.h"
#include "plataforma/Exportacao.h"

#include <QFont>
#include <QString>

#include <cstdint>

namespace Sibrel
{
/// Styles of a font, any of which may be on.
enum class TFontStyle : std::uint8_t { fsBold = 1, fsItalic = 2, fsUnderline = 4, fsStrikeOut = 8 };

/// A font as symbols and figures hold it: a value.
///
/// Height (pixels) and Size (points) are two views of one number: Size = -round(Height * 72 / 96), halves
/// away from zero, at 96 pixels an inch always; screens of high density come in by the device pixel ratio. A
/// negative Height is the height of the em (the usual case, a positive Size); a positive one is that of the
/// cell, ascent plus descent (a negative Size).
///
/// Every value of the attributes has a stamp (`Selo`): two fonts with the same stamp are equal, so that
/// caches compare one number. Not synchronised.
class SIBREL_EXPORT TFont
{
public:
    /// Charset number of symbol fonts, whose glyphs are reached by code, not by character.
    static constexpr std::uint8_t CharsetSimbolo = 2;
    static constexpr std::uint8_t CharsetPadrao = 1;

    /// "MS Sans Serif", charset 1, 8 points, window-text colour, no style, not rotated.
    TFont();

    const QString &Name() const noexcept { return FName; }
    void AtribuirName(const QString &Nome);
    std::uint8_t Charset() const noexcept { return FCharset; }
    void AtribuirCharset(std::uint8_t Charset);
    /// Pixels; see the class for the sign.
    int Height() const noexcept { return FHeight; }
    void AtribuirHeight(int Pixels);
    /// Points.
    int Size() const noexcept { return SizeDeHeight(FHeight); }
    void AtribuirSize(int Pontos);
    TColor Color() const noexcept { return FColor; }
    void AtribuirColor(TColor Cor);
    bool Tem(TFontStyle Estilo) const noexcept { return (FStyle & static_cast<std::uint8_t>(Estilo)) != 0; }
    void AtribuirStyle(TFontStyle Estilo, bool Ligado);
    /// Tenths of a degree, counter-clockwise.
    int Orientation() const noexcept { return FOrientation; }
    void AtribuirOrientation(int Decimos);

    static int SizeDeHeight(int Pixels) noexcept;
    static int HeightDeSize(int Pontos) noexcept;

    /// The same font for a QPainter, without its colour and rotation. Text is never smoothed by sub-pixels
    /// and never hinted, so that widths grow evenly with the size. Needs a QGuiApplication.
    QFont ParaQFont() const;

    /// The text of the one glyph with the code `Codigo` in this font: by its charset; for a symbol font the
    /// glyph at U+F000 + code or, when the font has none there, the plain code. Needs a QGuiApplication.
    QString TextoDoCodigo(std::uint8_t Codigo) const;

    /// The text to draw for `Texto`: characters below 256 become the codes of a symbol font, else it is
    /// unchanged.
    QString TextoParaDesenhar(const QString &Texto) const;

    std::uint64_t Selo() const noexcept { return FSelo; }

    friend SIBREL_EXPORT bool operator==(const TFont &A, const TFont &B) noexcept;

private:
    template <class Campo, class Valor>
    void Mudar(Campo &Onde, const Valor &Novo);

    QString FName;
    std::uint64_t FSelo;
    int FHeight;
    TColor FColor;
    int FOrientation = 0;
    std::uint8_t FCharset = CharsetPadrao;
    std::uint8_t FStyle = 0;
};

/// A number that no earlier call has given, for stamps of contents. Safe from any thread.
SIBREL_EXPORT std::uint64_t NovoSelo() noexcept;

} // namespace Sibrel
