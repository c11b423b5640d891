// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QImage>
#include <QString>

namespace Sibrel::Testes
{

/// Compares a picture with the golden one testes/controle/<Nome>.png, pixel by pixel and in size.
/// Empty text when they are the same; otherwise what differs and where the difference picture was written.
/// With SIBREL_REGRAVAR_CONTROLE set in the environment the golden picture is written anew, and looked at
/// before it is committed. Use: QCOMPARE(CompararComControle(Imagem, "fonte-32"), QString()).
QString CompararComControle(const QImage &Imagem, const QString &Nome);

} // namespace Sibrel::Testes
