// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QImage>

namespace Sibrel
{

/// The picture, 32 bits premultiplied, with every pixel of exactly the opaque colour `Cor` see-through.
QImage SemACor(const QImage &Imagem, QRgb Cor);

} // namespace Sibrel
