// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/Color.h"

#include <QGuiApplication>
#include <QPalette>

#include <array>
#include <cstddef>

namespace Sibrel
{

namespace
{

// Index of a system colour -> the palette role that plays its part on a desktop of today.
constexpr std::array<QPalette::ColorRole, 25> Papeis = {
    QPalette::Button,          // 0 scroll bar
    QPalette::Base,            // 1 desktop
    QPalette::Highlight,       // 2 active caption
    QPalette::Window,          // 3 inactive caption
    QPalette::Button,          // 4 menu
    QPalette::Base,            // 5 window
    QPalette::Dark,            // 6 window frame
    QPalette::ButtonText,      // 7 menu text
    QPalette::Text,            // 8 window text
    QPalette::HighlightedText, // 9 caption text
    QPalette::Button,          // 10 active border
    QPalette::Button,          // 11 inactive border
    QPalette::Dark,            // 12 application work space
    QPalette::Highlight,       // 13 highlight
    QPalette::HighlightedText, // 14 highlight text
    QPalette::Button,          // 15 button face
    QPalette::Dark,            // 16 button shadow
    QPalette::Mid,             // 17 gray text
    QPalette::ButtonText,      // 18 button text
    QPalette::WindowText,      // 19 inactive caption text
    QPalette::Light,           // 20 button highlight
    QPalette::Shadow,          // 21 dark shadow
    QPalette::Midlight,        // 22 light
    QPalette::ToolTipText,     // 23 info text
    QPalette::ToolTipBase,     // 24 info background
};

} // namespace

TColor::TColor(const QColor &Cor) noexcept
    : FValor(Cor.red() | (Cor.green() << 8) | (Cor.blue() << 16))
{
}

QColor TColor::ParaQColor() const
{
    return QColor::fromRgb(ParaRgb());
}

QRgb TColor::ParaRgb() const
{
    if (!DoSistema())
        return qRgb(FValor & 0xFF, (FValor >> 8) & 0xFF, (FValor >> 16) & 0xFF);
    const auto Indice = static_cast<std::size_t>(FValor & 0xFF);
    if (qGuiApp == nullptr || Indice >= Papeis.size())
        return qRgb(0, 0, 0);
    return QGuiApplication::palette().color(Papeis[Indice]).rgb() | 0xFF000000U;
}

} // namespace Sibrel
