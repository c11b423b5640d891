// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/Transparencia.h"

#include <algorithm>

namespace Sibrel
{

QImage SemACor(const QImage &Imagem, QRgb Cor)
{
    QImage Resultado = Imagem.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    for (int Y = 0; Y < Resultado.height(); ++Y) {
        auto *Linha = reinterpret_cast<QRgb *>(Resultado.scanLine(Y));
        std::replace(Linha, Linha + Resultado.width(), Cor, QRgb{0});
    }
    return Resultado;
}

} // namespace Sibrel
