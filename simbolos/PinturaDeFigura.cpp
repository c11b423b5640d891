// SPDX-License-Identifier: LGPL-2.1-or-later
#include "simbolos/PinturaDeFigura.h"

#include "lumbrix/Geometria.h"
#include "plataforma/Bitmap.h"
#include "plataforma/Canvas.h"
#include "plataforma/FontesInstaladas.h"
#include "simbolos/GeometriaDeElementos.h"
#include "simbolos/ListaElementosGraficos.h"

#include <QGuiApplication>
#include <QPaintEngine>
#include <QPainter>
#include <QPalette>

#include <cmath>

namespace Sibrel
{

namespace
{

constexpr int Margem = 3;
// Smaller rectangles turn the figure around; and their pictures save nothing.
constexpr std::int64_t MenorRetangulo = 8;
// Texts may stand far from the rectangle: beyond this area the picture costs more than the drawing.
constexpr double MaiorAlcance = 256.0 * 256.0;
constexpr double VezesORetangulo = 4;
constexpr std::int32_t PeriodoDaHachura = 8; // logical pixels of a brush pattern
constexpr int MaiorCaneta = 0xFFF;

// Lines that a clip cuts begin elsewhere and take other pixels than the same lines drawn whole.
bool CabeInteiro(const QPainter &Pintor, const TRect &Alcance)
{
    const QRect Area = Alcance.ParaQRect();
    if (Pintor.hasClipping() && !Pintor.clipBoundingRect().contains(Area))
        return false;
    const QRect NoDispositivo = Pintor.deviceTransform().mapRect(Area);
    const QRegion DoSistema = Pintor.paintEngine()->systemClip(); // a widget's: the part being repainted
    if (!DoSistema.isEmpty())
        return DoSistema.boundingRect().contains(NoDispositivo);
    return QRect(0, 0, Pintor.device()->width(), Pintor.device()->height()).contains(NoDispositivo);
}

// A painter that does more than put pixels on a grid draws a picture otherwise than the lines in it.
bool PintorSimples(const QPainter &Pintor, double Densidade, bool Hachurada)
{
    const QTransform &T = Pintor.worldTransform();
    const auto Inteiro = [Densidade](double V) { return V * Densidade == std::floor(V * Densidade); };
    return Densidade == std::floor(Densidade) && Inteiro(T.dx()) && Inteiro(T.dy()) &&
           !Pintor.testRenderHint(QPainter::Antialiasing) && // smoothed edges that overlap blend otherwise
           Pintor.compositionMode() == QPainter::CompositionMode_SourceOver && Pintor.opacity() >= 1.0 &&
           (!Hachurada || Pintor.brushOrigin().isNull());
}

TRect Deslocado(const TRect &R, std::int64_t X, std::int64_t Y) noexcept
{
    return {Saturado(R.Left + X), Saturado(R.Top + Y), Saturado(R.Right + X), Saturado(R.Bottom + Y)};
}

// Widened so that the picture begins where a pattern does.
TRect NaHachura(const TRect &R) noexcept
{
    const auto Antes = [](std::int32_t V) {
        const std::int32_t Resto = V % PeriodoDaHachura;
        return Saturado(std::int64_t{V} - (Resto < 0 ? Resto + PeriodoDaHachura : Resto));
    };
    return {Antes(R.Left), Antes(R.Top), R.Right, R.Bottom};
}

void Juntar(TPinturaDoElemento &Todos, const TPinturaDoElemento &Um) noexcept
{
    Todos.Alcance = Uniao(Todos.Alcance, Um.Alcance);
    Acrescentar(Todos, Um.Encaixe, Um.Desvio);
    Todos.Hachurada |= Um.Hachurada;
    Todos.CorDoSistema |= Um.CorDoSistema;
    Todos.HerdaCaneta |= Um.HerdaCaneta;
}

template <class T>
std::optional<T> SeIguais(const T &A, const T &B)
{
    return A == B ? std::optional(A) : std::nullopt;
}

// Two canvases that have nothing in common are led through all elements: what is then the same was set.
TEstadoDeixado EstadoDeixadoPor(const TListaElementosGraficos &Elementos)
{
    TBitmap Um;
    TBitmap Outro;
    TCanvas &A = Um.Canvas();
    TCanvas &B = Outro.Canvas();
    A.Pen = {clBlack, TPenStyle::psSolid, 1};
    B.Pen = {clWhite, TPenStyle::psClear, 1};
    A.Brush = {clBlack, TBrushStyle::bsSolid};
    B.Brush = {clWhite, TBrushStyle::bsCross};
    B.Font.AtribuirHeight(A.Font.Height() - 1);
    A.TextAlign = TA_LEFT;
    B.TextAlign = TA_RIGHT;
    for (const auto &Elemento : Elementos) {
        if (!Elemento)
            continue;
        Elemento->AplicarEstado(A);
        Elemento->AplicarEstado(B);
    }
    return {SeIguais(A.Pen.Color, B.Pen.Color),
            SeIguais(A.Pen.Style, B.Pen.Style),
            SeIguais(A.Brush.Color, B.Brush.Color),
            SeIguais(A.Brush.Style, B.Brush.Style),
            SeIguais(A.Font, B.Font),
            SeIguais(A.TextAlign, B.TextAlign)};
}

} // namespace

void TEstadoDeixado::Aplicar(TCanvas &Canvas) const
{
    if (CorDaCaneta)
        Canvas.Pen.Color = *CorDaCaneta;
    if (EstiloDaCaneta)
        Canvas.Pen.Style = *EstiloDaCaneta;
    if (CorDoPincel)
        Canvas.Brush.Color = *CorDoPincel;
    if (EstiloDoPincel)
        Canvas.Brush.Style = *EstiloDoPincel;
    if (Fonte && Canvas.Font.Selo() != Fonte->Selo())
        Canvas.Font = *Fonte;
    if (Alinhamento)
        Canvas.TextAlign = *Alinhamento;
}

TEnquadramento::TEnquadramento(const TRect &Area, const TRect &Rect) noexcept
    : FCentro(Centro(Area))
    , FCentroDoAlvo(Centro(Rect))
{
    const double SX = static_cast<double>(Rect.Width() - Margem) / static_cast<double>(Area.Width());
    const double SY = static_cast<double>(Rect.Height() - Margem) / static_cast<double>(Area.Height());
    FEscala = SX >= SY ? SY : SX;
}

TRect TEnquadramento::NoDispositivo(const TRect &Area) const noexcept
{
    return {Arredondar(RelativoX(Area.Left) + FCentroDoAlvo.X),
            Arredondar(RelativoY(Area.Top) + FCentroDoAlvo.Y),
            Arredondar(RelativoX(Area.Right) + FCentroDoAlvo.X),
            Arredondar(RelativoY(Area.Bottom) + FCentroDoAlvo.Y)};
}

std::uint64_t TPinturaDeFigura::Selo(const TListaElementosGraficos &Elementos)
{
    bool Mudou = FSelo == 0 || FSelos.size() != static_cast<std::size_t>(Elementos.Count());
    FSelos.resize(static_cast<std::size_t>(Elementos.Count()));
    auto Visto = FSelos.begin();
    for (const auto &Elemento : Elementos) {
        const std::uint64_t Agora = Elemento ? Elemento->Selo() : 0;
        Mudou = Mudou || Agora != *Visto;
        *Visto++ = Agora;
    }
    if (Mudou)
        FSelo = NovoSelo();
    return FSelo;
}

const TPinturaDeFigura::TResumo &TPinturaDeFigura::Resumo(const TListaElementosGraficos &Elementos,
                                                          std::uint64_t SeloAtual, const TRect &Rect)
{
    const std::uint64_t Fontes = GeracaoDasFontes();
    const bool MesmoLugar = FResumo.Rect == Rect || FResumo.Todos.Encaixe != TEncaixe::Fixo;
    if (FResumo.Selo != SeloAtual || FResumo.Fontes != Fontes || FResumo.Rect.Width() != Rect.Width() ||
        FResumo.Rect.Height() != Rect.Height() || !MesmoLugar) {
        FResumo = {};
        FResumo.Selo = SeloAtual;
        FResumo.Fontes = Fontes;
        FResumo.Rect = Rect;
        Resumir(FResumo, Elementos, Rect);
    }
    return FResumo;
}

void TPinturaDeFigura::Resumir(TResumo &Resumo, const TListaElementosGraficos &Elementos, const TRect &Rect)
{
    const TRect Area = Elementos.ObterArea();
    Resumo.Desenha = Area.Width() >= 1 && Area.Height() >= 1;
    Resumo.Lembravel = true;
    if (!Resumo.Desenha)
        return;
    const TEnquadramento Enquadramento(Area, Rect);
    Resumo.Centro = Enquadramento.CentroDaFigura();
    TRect Lados = Rect;
    std::optional<TRect> Linhas;
    Resumo.Todos.Alcance = Rect;
    for (const auto &Elemento : Elementos) {
        if (!Elemento)
            continue;
        const TRect A = Elemento->Area();
        const TRect R = Enquadramento.NoDispositivo(A);
        TPinturaDoElemento Um;
        for (const double Lado : {Enquadramento.RelativoX(A.Left), Enquadramento.RelativoX(A.Right),
                                  Enquadramento.RelativoY(A.Top), Enquadramento.RelativoY(A.Bottom)})
            Observar(Um, Lado);
        if (!Elemento->DescreverPintura(R, Um)) {
            Resumo.Lembravel = false;
            return;
        }
        Juntar(Resumo.Todos, Um);
        if (Um.CorteMuda)
            Linhas = Linhas ? Uniao(*Linhas, Um.Alcance) : Um.Alcance;
        Lados = Uniao(Uniao(Lados, R), {R.Right, R.Bottom, R.Left, R.Top}); // also of boxes turned around
    }
    Resumo.Alcance = Deslocado(Resumo.Todos.Alcance, -std::int64_t{Rect.Left}, -std::int64_t{Rect.Top});
    Resumo.Estado = EstadoDeixadoPor(Elementos);
    if (Linhas)
        Resumo.Linhas = Deslocado(*Linhas, -std::int64_t{Rect.Left}, -std::int64_t{Rect.Top});
    Resumo.Coordenadas =
        Deslocado(Uniao(Resumo.Todos.Alcance, Lados), -std::int64_t{Rect.Left}, -std::int64_t{Rect.Top});
    // In floating point: the sides may be as long as coordinates reach.
    const auto Tamanho = [](const TRect &R) {
        return static_cast<double>(R.Width()) * static_cast<double>(R.Height());
    };
    if (Tamanho(Resumo.Alcance) > std::max(MaiorAlcance, VezesORetangulo * Tamanho(Rect)))
        Resumo.Lembravel = false;
}

TEncaixe TPinturaDeFigura::NoLugar(const TResumo &Resumo, const TRect &Rect) noexcept
{
    // Halving truncates toward zero: what lies left of or above the origin is rounded the other way.
    constexpr std::int64_t Folga = 2;
    const TRect C = Deslocado(Resumo.Coordenadas, Rect.Left, Rect.Top);
    if (C.Left < Folga || C.Top < Folga)
        return TEncaixe::Fixo;
    // From here on sums have no digits left for the deviation: what is nearly half-way is half-way.
    const double SemDesvio = Resumo.Todos.Desvio * 0x1p54;
    return std::min(C.Left, C.Top) >= SemDesvio ? Resumo.Todos.Encaixe : TEncaixe::Fixo;
}

std::optional<TChaveDePintura> TPinturaDeFigura::Chave(const TResumo &Resumo, TCanvas &Canvas,
                                                       const TRect &Rect, double Densidade)
{
    const int Caneta = Canvas.Pen.Width;
    if (Caneta < 0 || Caneta > MaiorCaneta)
        return std::nullopt;
    const TEncaixe Encaixe = NoLugar(Resumo, Rect);
    const auto Posicao = [&Rect](std::int32_t Modulo) {
        return static_cast<std::uint64_t>(std::int64_t{Rect.Left % Modulo} * Modulo + Rect.Top % Modulo);
    };
    TChaveDePintura Chave;
    Chave.Conteudo = Resumo.Selo;
    if (Encaixe == TEncaixe::Fixo)
        Chave.Variante = (std::uint64_t{static_cast<std::uint32_t>(Rect.Left)} << 32) |
                         static_cast<std::uint32_t>(Rect.Top);
    else if (Resumo.Todos.Hachurada)
        Chave.Variante = Posicao(PeriodoDaHachura); // tells even from odd too
    else if (Encaixe != TEncaixe::Livre)
        Chave.Variante = Posicao(2);
    Chave.Largura = static_cast<std::int32_t>(Rect.Width());
    Chave.Altura = static_cast<std::int32_t>(Rect.Height());
    const auto Estilo = static_cast<std::uint32_t>(Canvas.Pen.Style);
    Chave.Codigo = (Resumo.Todos.HerdaCaneta ? Estilo : 0U) |
                   (static_cast<std::uint32_t>(static_cast<int>(Canvas.Pintor().renderHints()) & 0xFF) << 8) |
                   (static_cast<std::uint32_t>(Encaixe) << 16) | (static_cast<std::uint32_t>(Caneta) << 20);
    Chave.Densidade = Densidade;
    return Chave;
}

bool TPinturaDeFigura::Pedir(const TListaElementosGraficos &Elementos, std::uint64_t SeloAtual,
                             TCanvas &Canvas, const TRect &Rect, double Densidade, TPinturaPedida &Pedida,
                             TPoint &CentroDaFigura)
{
    if (Rect.Width() < MenorRetangulo || Rect.Height() < MenorRetangulo)
        return false;
    const TResumo &R = Resumo(Elementos, SeloAtual, Rect);
    if (!R.Lembravel || !PintorSimples(Canvas.Pintor(), Densidade, R.Todos.Hachurada))
        return false;
    const std::optional<TChaveDePintura> DaFigura = Chave(R, Canvas, Rect, Densidade);
    if (!DaFigura)
        return false;
    Pedida.Chaves.append(*DaFigura);
    Pedida.Alcance = Rect;
    if (!R.Desenha)
        return true;
    if (R.Todos.CorDoSistema)
        Pedida.Chaves.append({static_cast<std::uint64_t>(QGuiApplication::palette().cacheKey())});
    // The corners of a wide line reach out by its width.
    const std::int64_t DaCaneta = Canvas.Pen.Width > 1 ? 2 * Canvas.Pen.Width : 0;
    // Ties may have been rounded the other way where the summary was made.
    const std::int64_t DoLugar = R.Rect == Rect ? 0 : 1;
    const auto NoRetangulo = [&Rect](const TRect &Relativo, std::int64_t Sobra) {
        const TRect A = Deslocado(Relativo, Rect.Left, Rect.Top);
        return TRect(Saturado(A.Left - Sobra), Saturado(A.Top - Sobra), Saturado(A.Right + Sobra),
                     Saturado(A.Bottom + Sobra));
    };
    if (!CabeInteiro(Canvas.Pintor(), NoRetangulo(R.Linhas, DaCaneta + DoLugar)))
        return false;
    Pedida.Alcance = NoRetangulo(R.Alcance, DaCaneta + 1);
    if (R.Todos.Hachurada)
        Pedida.Alcance = NaHachura(Pedida.Alcance);
    CentroDaFigura = R.Centro;
    R.Estado.Aplicar(Canvas);
    return true;
}

} // namespace Sibrel
