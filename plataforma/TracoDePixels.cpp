// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/TracoDePixels.h"

#include <cstdlib>
#include <utility>

namespace Sibrel
{

namespace
{

constexpr std::int64_t Um = 1 << 16;
constexpr std::int64_t Reto = Um / 4; // lines that climb less than this a pixel count as along their axis

struct TPadrao {
    std::uint32_t Bits;
    int Periodo;
};

// Dashes of four pixels, dots of one, gaps of two.
constexpr TPadrao PadraoDe(TPenStyle Estilo) noexcept
{
    switch (Estilo) {
    case TPenStyle::psDash:
        return {0b00'1111, 6};
    case TPenStyle::psDot:
        return {0b00'1, 3};
    case TPenStyle::psDashDot:
        return {0b00'1'00'1111, 9};
    case TPenStyle::psDashDotDot:
        return {0b00'1'00'1'00'1111, 12};
    default:
        return {1, 1};
    }
}

} // namespace

/// A straight part, taken along its longer axis ("M", towards growing values) with the other one ("N", 16.16)
/// following.
struct TTracoDePixels::TLance {
    bool Vertical;
    bool AoContrario; ///< M falls in the direction of the line
    TSentido Sentido;
    int De;
    int Ate; ///< exclusive
    std::int64_t N;
    std::int64_t Passo;
    TPoint Primeiro; ///< pixel, in the direction of the line
    TPoint Ultimo;

    static std::optional<TLance> Entre(const TPoint &A, const TPoint &B) noexcept
    {
        TLance L{};
        L.Vertical = std::abs(B.X - A.X) < std::abs(B.Y - A.Y);
        TPoint Menor = L.Vertical ? TPoint(A.Y, A.X) : A;
        TPoint Maior = L.Vertical ? TPoint(B.Y, B.X) : B;
        if (Menor.X == Maior.X)
            return std::nullopt; // a point
        L.AoContrario = Menor.X > Maior.X;
        if (L.AoContrario)
            std::swap(Menor, Maior);
        L.Sentido = L.Vertical ? (L.AoContrario ? TSentido::Cima : TSentido::Baixo)
                               : (L.AoContrario ? TSentido::Esquerda : TSentido::Direita);
        L.De = Menor.X;
        L.Ate = Maior.X;
        L.N = Menor.Y * Um;
        L.Passo = (std::int64_t{Maior.Y} - Menor.Y) * Um / (std::int64_t{Maior.X} - Menor.X);
        return L;
    }

    /// A line that climbs starts half a step up: its pixels are those nearest to their middle.
    void Centrar() noexcept { N += Passo > 0 ? Passo >> 1 : 0; }

    /// Back over the line before: the pixel where both turn belongs to this one.
    void Virar() noexcept
    {
        if (AoContrario) {
            ++Ate;
            Centrar();
            return;
        }
        // From half a pixel before.
        N += ((Passo > 0 ? 64 : 32) * Passo >> 6) - (Passo >> 1);
    }

    TPoint Pixel(int M, std::int64_t EmN) const noexcept
    {
        const auto Outro = static_cast<std::int32_t>(EmN >> 16);
        return Vertical ? TPoint(Outro, M) : TPoint(M, Outro);
    }
    TPoint PixelDoFim() const noexcept { return Pixel(Ate - 1, N + (Ate - De - 1) * Passo); }

    void AcharPontas() noexcept
    {
        Primeiro = Pixel(De, N);
        Ultimo = PixelDoFim();
        if (AoContrario)
            std::swap(Primeiro, Ultimo);
    }

    bool QuaseReto() const noexcept { return std::abs(Passo) < Reto; }

    // One pixel less or more where the line begins.
    void TirarDoInicio() noexcept
    {
        if (AoContrario) {
            --Ate;
            return;
        }
        ++De;
        N += Passo;
    }
    void PorNoInicio() noexcept
    {
        if (AoContrario) {
            ++Ate;
            return;
        }
        --De;
        N -= Passo;
    }
};

TTracoDePixels::TTracoDePixels(std::uint32_t *Pixels, std::ptrdiff_t PorLinha, std::uint32_t Cor,
                               TPenStyle Estilo) noexcept
    : FPixels(Pixels)
    , FPorLinha(PorLinha)
    , FCor(Cor)
    , FPadrao(PadraoDe(Estilo).Bits)
    , FPeriodo(PadraoDe(Estilo).Periodo)
{
}

// A closed line begins where its last part will end.
void TTracoDePixels::ComoSeTracada(const TPoint &De, const TPoint &Ate) noexcept
{
    std::optional<TLance> Lance = TLance::Entre(De, Ate);
    if (!Lance)
        return;
    Lance->Centrar();
    Lance->AcharPontas();
    FUltimo = Lance->Ultimo;
    FSentido = Lance->Sentido;
    FQuaseReto = Lance->QuaseReto();
}

void TTracoDePixels::Emendar(TLance &Lance) const noexcept
{
    if (!FUltimo)
        return;
    if (Lance.Primeiro == *FUltimo) {
        Lance.TirarDoInicio();
        return;
    }
    if (FSentido == Lance.Sentido)
        return;
    const int X = std::abs(FUltimo->X - Lance.Primeiro.X);
    const int Y = std::abs(FUltimo->Y - Lance.Primeiro.Y);
    const bool Canto = FQuaseReto && Lance.QuaseReto() && X != 0 && Y != 0;
    if (Canto || X > 1 || Y > 1)
        Lance.PorNoInicio();
}

void TTracoDePixels::Linha(const TPoint &De, const TPoint &Ate) noexcept
{
    std::optional<TLance> Lance = TLance::Entre(De, Ate);
    if (!Lance)
        return;
    const auto Oposto = [](TSentido A, TSentido B) {
        const auto Par = [&](TSentido P, TSentido Q) { return (A == P && B == Q) || (A == Q && B == P); };
        return Par(TSentido::Baixo, TSentido::Cima) || Par(TSentido::Direita, TSentido::Esquerda);
    };
    if (Oposto(FSentido, Lance->Sentido))
        Lance->Virar();
    else
        Lance->Centrar();
    Lance->AcharPontas();
    Emendar(*Lance);
    FSentido = Lance->Sentido;
    FQuaseReto = Lance->QuaseReto();
    FUltimo = Lance->Ultimo;
    Pintar(*Lance);
}

void TTracoDePixels::Pintar(const TLance &Lance) noexcept
{
    const std::ptrdiff_t EmM = Lance.Vertical ? FPorLinha : 1;
    const std::ptrdiff_t EmN = Lance.Vertical ? 1 : FPorLinha;
    std::uint32_t *Linha = FPixels + Lance.De * EmM;
    const int Quantos = Lance.Ate - Lance.De;
    std::int64_t N = Lance.N;
    int I = 0;
    do { // a part shortened to nothing still has its pixel
        const int NoLance = Lance.AoContrario ? Quantos - 1 - I : I;
        if (FPeriodo == 1 || Ligado(FNoPadrao + NoLance + FPeriodo))
            Linha[(N >> 16) * EmN] = FCor;
        Linha += EmM;
        N += Lance.Passo;
    } while (++I < Quantos);
    FNoPadrao = (FNoPadrao + Quantos) % FPeriodo;
}

void TTracoDePixels::Tracar(std::span<const TPoint> Pontos, bool Fechado) noexcept
{
    if (Pontos.size() < 2)
        return;
    const TPoint &Inicio = Pontos.front();
    const bool Repete = Inicio == Pontos.back();
    if (Fechado || Repete)
        ComoSeTracada(Repete && Pontos.size() > 2 ? Pontos[Pontos.size() - 2] : Pontos.back(), Inicio);
    for (std::size_t I = 1; I < Pontos.size(); ++I)
        Linha(Pontos[I - 1], Pontos[I]);
    if (Fechado)
        Linha(Pontos.back(), Inicio);
}

} // namespace Sibrel
