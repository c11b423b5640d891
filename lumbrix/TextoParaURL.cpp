// SPDX-License-Identifier: LGPL-2.1-or-later
#include "lumbrix/TextoParaURL.h"

namespace Sibrel
{

namespace
{

QLatin1String ReferenciaDe(char16_t C) noexcept
{
    switch (C) {
    case u'&':
        return QLatin1String("&amp;");
    case u'<':
        return QLatin1String("&lt;");
    case u'>':
        return QLatin1String("&gt;");
    case u'"':
        return QLatin1String("&quot;");
    case u'\'':
        return QLatin1String("&apos;");
    case u'\t':
        return QLatin1String("&#9;");
    case u'\n':
        return QLatin1String("&#10;");
    case u'\r':
        return QLatin1String("&#13;");
    default:
        return {};
    }
}

} // namespace

QString TextoParaURL(QStringView Texto)
{
    QString Resultado;
    Resultado.reserve(Texto.size());
    for (qsizetype I = 0; I < Texto.size(); ++I) {
        const QChar C = Texto[I];
        const QLatin1String Referencia = ReferenciaDe(C.unicode());
        if (!Referencia.isEmpty()) {
            Resultado += Referencia;
        } else if (C.isHighSurrogate() && I + 1 < Texto.size() && Texto[I + 1].isLowSurrogate()) {
            Resultado += C;
            Resultado += Texto[++I];
        } else if (C >= u' ' && !C.isSurrogate() && C.unicode() < 0xFFFE) {
            Resultado += C;
        }
    }
    return Resultado;
}

} // namespace Sibrel
