// SPDX-License-Identifier: LGPL-2.1-or-later
#include "simbolos/Setor.h"

#include "lumbrix/Geometria.h"
#include "lumbrix/Unidades.h"
#include "plataforma/Conversao.h"
#include "simbolos/GeometriaDeElementos.h"
#include "simbolos/XMLDeElementos.h"

#include <array>
#include <cmath>
#include <numbers>

namespace Sibrel
{

namespace
{

constexpr double Volta = 2 * std::numbers::pi;
constexpr long double QuartoDeVolta = std::numbers::pi_v<long double> / 2;

// X + Raio * sin or cos of (Angulo + a quarter turn), rounded. The quarter turn is exact to more digits than
// a double has, so that the fast form, the other function of the angle alone, is as good; only where its own
// error could turn the rounding is the long form computed.
double Coordenada(double Deslocamento, double Valor, bool EmX, double Angulo, double Raio) noexcept
{
    constexpr double Duvida = 1.0 / (1 << 20);
    const double Soma = Deslocamento + Valor;
    const double Inteiro = std::nearbyint(Soma);
    if (std::abs(std::abs(Soma - Inteiro) - 0.5) > Duvida && std::abs(Soma) < 1e9) [[likely]]
        return Inteiro;
    const long double B = static_cast<long double>(Angulo) + QuartoDeVolta;
    const long double Longo = static_cast<long double>(Raio) * (EmX ? std::sin(B) : std::cos(B));
    return static_cast<double>(std::nearbyint(static_cast<long double>(Deslocamento) + Longo));
}

} // namespace

TSetor::TSetor() = default;
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

    TPoint Em(double Angulo, double Raio) noexcept
    {
        const TPoint &P = FSetor.FPosicao;
        const double Y = FCentro.Y + Coordenada(P.Y, -Raio * std::sin(Angulo), false, Angulo, Raio);
        const double X = FCentro.X + Coordenada(P.X, Raio * std::cos(Angulo), true, Angulo, Raio);
        FFinito = FFinito && std::isfinite(X) && std::isfinite(Y);
        return {Arredondar(X), Arredondar(Y)};
    }

private:
    void Por(const TPoint &P) noexcept { FPontos[static_cast<std::size_t>(FProximo++)] = P; }

    void TracarVolta() noexcept
    {
        double Angulo = FSetor.FAngI;
        if (FSetor.FRaioMenor > 0) {
            const int Metade = FQuantos / 2;
            const double Passo = Volta / (Metade - 1);
            for (int K = 0; K < Metade; ++K, Angulo += Passo)
                Por(Em(Angulo, FMenor));
        }
        const double Passo = Volta / (FQuantos - FProximo - 1);
        for (Angulo = FSetor.FAngF; FProximo < FQuantos; Angulo -= Passo)
            Por(Em(Angulo, FMaior));
    }

    void TracarFatia() noexcept
    {
        const double Abertura = FSetor.FAngF - FSetor.FAngI;
        if (FSetor.FRaioMenor == 0 && FSetor.FFechado) {
            if (FQuantos > 0)
                Por(FCentro);
        } else {
            const int Metade = FQuantos / 2;
            const double Passo = Abertura / (Metade - 1);
            for (int K = 0; K < Metade; ++K)
                Por(Em(FSetor.FAngI + K * Passo, FMenor));
        }
        const int Usados = FProximo;
        const double Passo = Abertura / (FQuantos - Usados - 1);
        while (FProximo < FQuantos)
            Por(Em(FSetor.FAngF - (FProximo - Usados) * Passo, FMaior));
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
    return TContorno(*this, {}, {Centro.X, Centro.Y, Centro.X, Centro.Y}).Em(Angulo, Raio);
}

void TSetor::ObterPontos(std::span<TPoint> Pontos, const TRect &Rect) const noexcept
{
    TContorno(*this, Pontos, Rect).Tracar();
}

void TSetor::AplicarEstado(TCanvas &Canvas) const
{
    Canvas.Pen.Color = FCorLinha;
    Canvas.Pen.Style = FEstiloLinha;
    Canvas.Brush = {FCorFundo, FEstiloFundo};
}

void TSetor::Desenhar(TCanvas &Canvas, const TRect &Rect)
{
    AplicarEstado(Canvas);
    std::array<TPoint, PontosDoContorno> Pontos;
    if (TContorno(*this, Pontos, Rect).Tracar())
        Canvas.Polygon(Pontos);
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
    Pintura.Hachurada = FEstiloFundo > TBrushStyle::bsClear;
    Pintura.CorDoSistema = FCorLinha.DoSistema() || FCorFundo.DoSistema();
    return true;
}

QString TSetor::ObterXML() const
{
    return TEscritaDeElemento(u"Setor")
        .Atributo(u"X", FPosicao.X)
        .Atributo(u"Y", FPosicao.Y)
        .Atributo(u"Fechado", FFechado)
        .Atributo(u"RaioMaior", DistanciaToStr(FRaioMaior, false))
        .Atributo(u"RaioMenor", DistanciaToStr(FRaioMenor, false))
        .Atributo(u"AngI", AnguloToStr(FAngI, false))
        .Atributo(u"fAngF", AnguloToStr(FAngF, false)) // not the name that is read: figures on disk have it
        .Atributo(u"CorLinha", FCorLinha)
        .Atributo(u"CorFundo", FCorFundo)
        .Atributo(u"EstiloLinha", static_cast<int>(FEstiloLinha))
        .Atributo(u"EstiloFundo", static_cast<int>(FEstiloFundo))
        .Fechar();
}

void TSetor::AtribuirXML(const TCursorXML &No)
{
    SeHouver(No, u"X", [this](const QString &T) { AtribuirX(StrToInt(T)); });
    SeHouver(No, u"Y", [this](const QString &T) { AtribuirY(StrToInt(T)); });
    SeHouver(No, u"Fechado", [this](const QString &T) { AtribuirFechado(SinalDoTexto(T)); });
    SeHouver(No, u"RaioMaior", [this](const QString &T) { AtribuirRaioMaior(StrToDistancia(T)); });
    SeHouver(No, u"RaioMenor", [this](const QString &T) { AtribuirRaioMenor(StrToDistancia(T)); });
    SeHouver(No, u"AngI", [this](const QString &T) { AtribuirAngI(StrToAngulo(T)); });
    SeHouver(No, u"AngF", [this](const QString &T) { AtribuirAngF(StrToAngulo(T)); });
    SeHouver(No, u"CorLinha", [this](const QString &T) { AtribuirCorLinha(CorDoTexto(T)); });
    SeHouver(No, u"CorFundo", [this](const QString &T) { AtribuirCorFundo(CorDoTexto(T)); });
    SeHouver(No, u"EstiloLinha",
             [this](const QString &T) { AtribuirEstiloLinha(EstiloDoTexto<TPenStyle>(T)); });
    SeHouver(No, u"EstiloFundo",
             [this](const QString &T) { AtribuirEstiloFundo(EstiloDoTexto<TBrushStyle>(T)); });
}

} // namespace Sibrel
