// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Color.h"

#include <QLocale>
#include <QString>

namespace Hospedeiro
{

/// One field of a symbol or of an element of a figure, in words.
struct TCampo {
    QString Nome;
    QString Valor;
};

/// The shortest decimal text that reads back as the same number; point as separator.
inline QString Decimal(double Valor)
{
    return QString::number(Valor, 'g', QLocale::FloatingPointShortest);
}

/// What `Texto` is in a column of a list: without tabs, which separate the columns, and line ends.
inline QString EmUmaColuna(QString Texto)
{
    return Texto.replace(u'\t', u' ').replace(u'\r', u' ').replace(u'\n', u' ');
}

/// A colour as #rrggbb, one of the system's by its number.
inline QString TextoDaCor(Sibrel::TColor Cor)
{
    return Cor.DoSistema() ? QStringLiteral("sistema %1").arg(Cor.Valor() & 0xFF) : Cor.ParaQColor().name();
}

/// A text as a tooltip that shows it as it is: names in angle brackets would be taken for markup.
inline QString Dica(const QString &Texto)
{
    return QStringLiteral("<p style=\"white-space:pre-wrap\">%1</p>").arg(Texto.toHtmlEscaped());
}

} // namespace Hospedeiro
