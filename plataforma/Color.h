// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Exportacao.h"

#include <QColor>

#include <cstdint>

namespace Sibrel
{

/// A colour as files and symbols hold it: 0x00BBGGRR, low byte red; a negative value names a system colour.
///
/// A system colour (high bit set, low byte the index of the colour, as `clHighlight`) is resolved through the
/// application's palette each time it is asked for, so that it follows the desktop's theme.
class SIBREL_EXPORT TColor
{
public:
    constexpr TColor() noexcept = default;
    constexpr TColor(std::int32_t Valor) noexcept
        : FValor(Valor)
    {
    }
    /// The colour without its alpha, which a TColor cannot hold.
    TColor(const QColor &Cor) noexcept;

    constexpr std::int32_t Valor() const noexcept { return FValor; }
    constexpr bool DoSistema() const noexcept { return FValor < 0; }
    /// Opaque colour; system colours come from the palette, black when there is no application yet.
    QColor ParaQColor() const;
    /// The same, as 0xAARRGGBB with full alpha.
    QRgb ParaRgb() const;

    friend constexpr bool operator==(TColor, TColor) noexcept = default;

private:
    std::int32_t FValor = 0;
};
/// Plain colours: low byte red.
inline constexpr TColor clBlack{0x000000};
inline constexpr TColor clWhite{0xFFFFFF};
inline constexpr TColor clGray{0x808080};
inline constexpr TColor clRed{0x0000FF};
inline constexpr TColor clLime{0x00FF00};
inline constexpr TColor clBlue{0xFF0000};
inline constexpr TColor clFuchsia{0xFF00FF};
/// System colours: the index in the low byte is the one that files written by other systems carry.
inline constexpr TColor clWindow{static_cast<std::int32_t>(0x80000005U)};
inline constexpr TColor clWindowText{static_cast<std::int32_t>(0x80000008U)};
inline constexpr TColor clHighlight{static_cast<std::int32_t>(0x8000000DU)};
inline constexpr TColor clHighlightText{static_cast<std::int32_t>(0x8000000EU)};
inline constexpr TColor clBtnFace{static_cast<std::int32_t>(0x8000000FU)};

} // namespace Sibrel
