// SPDX-License-Identifier: LGPL-2.1-or-later
#include "simbolos/RotacaoDeBitmap.h"

#include "plataforma/Canvas.h"

#include <QImage>

#include <algorithm>
#include <cmath>
#include <optional>

namespace Sibrel
{

namespace
{

constexpr QRgb SemAlfa = 0x00FFFFFFU;

// The source pixel that lands on a destination pixel, given its offset from the destination's centre.
std::optional<QPoint> PixelDeOrigem(const QImage &Origem, std::int32_t DX, std::int32_t DY, double Angulo)
{
    const double D = std::sqrt(static_cast<double>(DX * DX + DY * DY));
    const double A = std::atan2(static_cast<double>(DY), static_cast<double>(DX));
    const QPoint P(
        Arredondar(Origem.width() / 2 + D * std::cos(A - Angulo)),   // NOLINT(bugprone-integer-division)
        Arredondar(Origem.height() / 2 + D * std::sin(A - Angulo))); // NOLINT(bugprone-integer-division)
    return Origem.valid(P) ? std::optional(P) : std::nullopt;
}

// The part of one side, of `Tamanho` pixels, that a turned picture of that radius can reach.
std::pair<std::int32_t, std::int32_t> Alcancado(std::int64_t Tamanho, int Raio)
{
    const std::int64_t Centro = Tamanho / 2;
    return {static_cast<std::int32_t>(std::max<std::int64_t>(0, Centro - Raio)),
            static_cast<std::int32_t>(std::min<std::int64_t>(Tamanho, Centro + Raio + 1))};
}

} // namespace

void DesenharRotacionada(TCanvas &Canvas, const TRect &Rect, const QImage &Origem, TColor Transparente,
                         double Angulo)
{
    if (Rect.Vazio() || Origem.isNull() || !std::isfinite(Angulo))
        return;
    // No pixel further from the centre than the picture's own corners can show it: a large rectangle costs no
    // more.
    const int Raio = static_cast<int>(std::ceil(std::hypot(Origem.width(), Origem.height()) / 2)) + 2;
    const auto [X0, X1] = Alcancado(Rect.Width(), Raio);
    const auto [Y0, Y1] = Alcancado(Rect.Height(), Raio);
    const auto CX = static_cast<std::int32_t>(Rect.Width() / 2);
    const auto CY = static_cast<std::int32_t>(Rect.Height() / 2);
    const QRgb Vazada = Transparente.ParaRgb() & SemAlfa;

    QImage Pronta(X1 - X0, Y1 - Y0, QImage::Format_ARGB32_Premultiplied);
    Pronta.fill(Qt::transparent);
    for (std::int32_t Y = Y0; Y < Y1; ++Y) {
        auto *Linha = reinterpret_cast<QRgb *>(Pronta.scanLine(Y - Y0));
        for (std::int32_t X = X0; X < X1; ++X) {
            const std::optional<QPoint> De = PixelDeOrigem(Origem, X - CX, Y - CY, Angulo);
            if (!De)
                continue;
            const QRgb Pixel = Origem.pixel(*De) & SemAlfa;
            if (Pixel != Vazada)
                Linha[X - X0] = Pixel | ~SemAlfa;
        }
    }
    Canvas.DesenharPreparada(Rect.Left + X0, Rect.Top + Y0, Pronta);
}

} // namespace Sibrel
