// SPDX-License-Identifier: LGPL-2.1-or-later
#include "simbolos/Setor.h"

#include "lumbrix/Geometria.h"
#include "lumbrix/Unidades.h"
#include "plataforma/Conversao.h"
#include "simbolos/GeometriaDeElementos.h"
#include "simbolos/XMLDeElementos.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace Sibrel
{

namespace
{

constexpr double Volta = 2 * std::numbers::pi;
constexpr long double QuartoDeVolta = std::numbers::pi_v<long double> / 2;

/// The direction of an angle that moves on by equal steps: its sine and cosine, turned by those of the step,
/// which costs a fraction of computing them anew and is off by less than 1e-13 in 50 steps.
class TDirecao
{
public:
    TDirecao(double Angulo, double Passo) noexcept
        : FCosseno(std::cos(Angulo))
        , FSeno(std::sin(Angulo))
        , FCossenoDoPasso(std::cos(Passo))
        , FSenoDoPasso(std::sin(Passo))
    {
    }
    double Cosseno() const noexcept { return FCosseno; }
    double Seno() const noexcept { return FSeno; }
    void Avancar() noexcept
    {
        const double Cosseno = FCosseno * FCossenoDoPasso - FSeno * FSenoDoPasso;
        FSeno = FSeno * FCossenoDoPasso + FCosseno * FSenoDoPasso;
        FCosseno = Cosseno;
    }

private:
    double FCosseno;
    double FSeno;
    double FCossenoDoPasso;
    double FSenoDoPasso;
};

// Deslocamento + Raio * sin or cos of (Angulo + a quarter turn), rounded. `Valor` is the product from the
// other function of the angle alone, nearly exact; only where its error could turn the rounding is the long
// form computed, whose quarter turn is exact to more digits than a double has.
double Coordenada(double Deslocamento, double Valor, bool EmX, double Angulo, double Raio) noexcept
{
    constexpr double Duvida = 1.0 / (1 << 20);
    constexpr double MaiorRapida = 1e6;
    const double Soma = Deslocamento + Valor;
    const double Inteiro = std::nearbyint(Soma);
    if (std::abs(std::abs(Soma - Inteiro) - 0.5) > Duvida && std::abs(Raio) < MaiorRapida) [[likely]]
        return Inteiro;
    const long double B = static_cast<long double>(Angulo) + QuartoDeVolta;
    const long double Longo = static_cast<long double>(Raio) * (EmX ? std::sin(B) : std::cos(B));
    return static_cast<double>(std::nearbyint(static_cast<long double>(Deslocamento) + Longo));
}

} // namespace

TSetor::TSetor()
    : ComClasse(clWhite)
{
}
TSetor::~TSetor() = default;

TElipse::TElipse() = default;
TElipse::~TElipse() = default;

TRect TSetor::Area() const
{
    return {Arredondar(FPosicao.X - FRaioMaior), Arredondar(FPosicao.Y - FRaioMaior),
            Arredondar(FPosicao.X + FRaioMaior), Arredondar(FPosicao.Y + FRaioMaior)};
}

/// Writes the points of an outline one behind the other and knows whether all of them were finite.
class TSetor::TContorno
{
public:
    TContorno(const TSetor &Setor, std::span<TPoint> Pontos, const TRect &Rect) noexcept
        : FSetor(Setor)
        , FPontos(Pontos)
        , FCentro(Centro(Rect))
        , FQuantos(static_cast<int>(Pontos.size()))
    {
        const double Escala = ObterEscala(Setor.Area(), Rect);
        FMenor = Escala * Setor.FRaioMenor;
        FMaior = Escala * Setor.FRaioMaior;
    }

    /// False when a point was not finite; the points are then as far as they go.
    bool Tracar() noexcept
    {
        if (FSetor.FAngI == FSetor.FAngF)
            TracarVolta();
        else
            TracarFatia();
        return FFinito;
    }

    TPoint Em(double Angulo, double Raio, const TDirecao &Direcao) noexcept
    {
        const TPoint &P = FSetor.FPosicao;
        const double Y = FCentro.Y + Coordenada(P.Y, -Raio * Direcao.Seno(), false, Angulo, Raio);
        const double X = FCentro.X + Coordenada(P.X, Raio * Direcao.Cosseno(), true, Angulo, Raio);
        FFinito = FFinito && std::isfinite(X) && std::isfinite(Y);
        return {Arredondar(X), Arredondar(Y)};
    }

private:
    void Por(const TPoint &P) noexcept { FPontos[static_cast<std::size_t>(FProximo++)] = P; }

    // Points up to the slot `Ate`, for the angles that `Angulo` gives for 0, 1, 2, ...
    template <class Angulos>
    void TracarArco(int Ate, double Raio, double Passo, Angulos &&Angulo) noexcept
    {
        TDirecao Direcao(Angulo(0), Passo);
        for (int K = 0; FProximo < Ate; ++K, Direcao.Avancar())
            Por(Em(Angulo(K), Raio, Direcao));
    }

    void TracarVolta() noexcept
    {
        // Here each angle is the one before plus the step, rounding included.
        double Angulo = FSetor.FAngI;
        const auto Seguinte = [&Angulo](double Passo) {
            return [&Angulo, Passo](int K) { return K == 0 ? Angulo : Angulo += Passo; };
        };
        if (FSetor.FRaioMenor > 0) {
            const int Metade = FQuantos / 2;
            const double Passo = Volta / (Metade - 1);
            TracarArco(Metade, FMenor, Passo, Seguinte(Passo));
        }
        const double Passo = -(Volta / (FQuantos - FProximo - 1));
        Angulo = FSetor.FAngF;
        TracarArco(FQuantos, FMaior, Passo, Seguinte(Passo));
    }

    void TracarFatia() noexcept
    {
        const double Abertura = FSetor.FAngF - FSetor.FAngI;
        if (FSetor.FRaioMenor == 0 && FSetor.Fechado()) {
            if (FQuantos > 0)
                Por(FCentro);
        } else {
            const int Metade = FQuantos / 2;
            const double Passo = Abertura / (Metade - 1);
            TracarArco(Metade, FMenor, Passo, [this, Passo](int K) { return FSetor.FAngI + K * Passo; });
        }
        const double Passo = Abertura / (FQuantos - FProximo - 1);
        TracarArco(FQuantos, FMaior, -Passo, [this, Passo](int K) { return FSetor.FAngF - K * Passo; });
    }

    const TSetor &FSetor;
    std::span<TPoint> FPontos;
    TPoint FCentro;
    double FMenor;
    double FMaior;
    int FQuantos;
    int FProximo = 0;
    bool FFinito = true;
};

TPoint TSetor::ObterPonto(double Angulo, double Raio, const TPoint &Centro) const noexcept
{
    return TContorno(*this, {}, {Centro.X, Centro.Y, Centro.X, Centro.Y})
        .Em(Angulo, Raio, TDirecao(Angulo, 0));
}

void TSetor::ObterPontos(std::span<TPoint> Pontos, const TRect &Rect) const noexcept
{
    TContorno(*this, Pontos, Rect).Tracar();
}

void TSetor::Desenhar(TCanvas &Canvas, const TRect &Rect)
{
    AplicarEstado(Canvas);
    std::array<TPoint, PontosDoContorno> Pontos;
    if (!TContorno(*this, Pontos, Rect).Tracar())
        return;
    // On small symbols many of the points coincide; a side without length draws nothing, but it counts in the
    // pattern of a broken line.
    const bool Tracejada = EstiloLinha() >= TPenStyle::psDash && EstiloLinha() <= TPenStyle::psDashDotDot;
    const auto Fim = Tracejada ? Pontos.end() : std::unique(Pontos.begin(), Pontos.end());
    Canvas.Polygon({Pontos.begin(), Fim});
}

bool TSetor::DescreverPintura(const TRect &Rect, TPinturaDoElemento &Pintura) const
{
    const double Escala = ObterEscala(Area(), Rect);
    const double Raio = std::abs(Escala) * std::max(std::abs(FRaioMaior), std::abs(FRaioMenor));
    const TPoint C = Centro(Rect);
    Pintura.Alcance = {Arredondar(C.X + std::nearbyint(FPosicao.X - Raio)),
                       Arredondar(C.Y + std::nearbyint(FPosicao.Y - Raio)),
                       Arredondar(C.X + std::nearbyint(FPosicao.X + Raio) + 1),
                       Arredondar(C.Y + std::nearbyint(FPosicao.Y + Raio) + 1)};
    DescreverTraco(true, Pintura);
    return true;
}

QString TSetor::ObterXML() const
{
    TEscritaDeElemento Escrita(u"Setor");
    Escrita.Atributo(u"X", FPosicao.X)
        .Atributo(u"Y", FPosicao.Y)
        .Atributo(u"Fechado", Fechado())
        .Atributo(u"RaioMaior", DistanciaToStr(FRaioMaior, false))
        .Atributo(u"RaioMenor", DistanciaToStr(FRaioMenor, false))
        .Atributo(u"AngI", AnguloToStr(FAngI, false))
        .Atributo(u"fAngF", AnguloToStr(FAngF, false)); // not the name that is read: figures on disk have it
    return EscreverTraco(Escrita).Fechar();
}

void TSetor::AtribuirXML(const TCursorXML &No)
{
    SeHouver(No, u"X", [this](QStringView T) { AtribuirX(StrToInt(T)); });
    SeHouver(No, u"Y", [this](QStringView T) { AtribuirY(StrToInt(T)); });
    LerFechado(No);
    SeHouver(No, u"RaioMaior", [this](QStringView T) { AtribuirRaioMaior(StrToDistancia(T)); });
    SeHouver(No, u"RaioMenor", [this](QStringView T) { AtribuirRaioMenor(StrToDistancia(T)); });
    SeHouver(No, u"AngI", [this](QStringView T) { AtribuirAngI(StrToAngulo(T)); });
    SeHouver(No, u"AngF", [this](QStringView T) { AtribuirAngF(StrToAngulo(T)); });
    LerTraco(No);
}

} // namespace Sibrel
