// SPDX-License-Identifier: LGPL-2.1-or-later
// Fixed texts of the documents that are written.
#pragma once

#include <QStringView>

namespace Sibrel
{

/// The line break, CR LF.
inline constexpr QStringView PULALINHA = u"\r\n";
/// The declaration of every document.
inline constexpr QStringView CABECALHOXML = u"<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>";

} // namespace Sibrel
