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

// The part of one side, of `Tamanho` pixels, that a turned picture of that radius can reach. In 64 bits: a
// side may be longer than a coordinate reaches.
std::pair<std::int64_t, std::int64_t> Alcancado(std::int64_t Tamanho, int Raio)
{
    const std::int64_t Centro = Tamanho / 2;
    return {std::max<std::int64_t>(0, Centro - Raio), std::min<std::int64_t>(Tamanho, Centro + Raio + 1)};
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
    // Offsets of the reached part's corner from the centre, which are within the radius.
    const auto DX0 = static_cast<std::int32_t>(X0 - Rect.Width() / 2);
    const auto DY0 = static_cast<std::int32_t>(Y0 - Rect.Height() / 2);
    const QRgb Vazada = Transparente.ParaRgb() & SemAlfa;

    QImage Pronta(static_cast<int>(X1 - X0), static_cast<int>(Y1 - Y0), QImage::Format_ARGB32_Premultiplied);
    Pronta.fill(Qt::transparent);
    for (int Y = 0; Y < Pronta.height(); ++Y) {
        auto *Linha = reinterpret_cast<QRgb *>(Pronta.scanLine(Y));
        for (int X = 0; X < Pronta.width(); ++X) {
            const std::optional<QPoint> De = PixelDeOrigem(Origem, DX0 + X, DY0 + Y, Angulo);
            if (!De)
                continue;
            const QRgb Pixel = Origem.pixel(*De) & SemAlfa;
            if (Pixel != Vazada)
                Linha[X] = Pixel | ~SemAlfa;
        }
    }
    Canvas.DesenharPreparada(static_cast<int>(Rect.Left + X0), static_cast<int>(Rect.Top + Y0), Pronta);
}

} // namespace Sibrel
