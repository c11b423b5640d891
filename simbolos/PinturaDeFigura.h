// SPDX-License-Identifier: LGPL-2.1-or-later
// What a vector symbol knows of its figure so that it can be drawn again from memory. Not for hosts.
#pragma once

#include "simbolos/CacheDePinturas.h"
#include "simbolos/ElementoGrafico.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace Sibrel
{

class TListaElementosGraficos;

/// What drawing a figure sets of a canvas's state; what it does not set stays as it was.
struct TEstadoDeixado {
    std::optional<TColor> CorDaCaneta;
    std::optional<TPenStyle> EstiloDaCaneta;
    std::optional<TColor> CorDoPincel;
    std::optional<TBrushStyle> EstiloDoPincel;
    std::optional<TFont> Fonte;
    std::optional<unsigned> Alinhamento;

    void Aplicar(TCanvas &Canvas) const;
};

/// The fitting of a figure into a rectangle: scale and both centres.
class TEnquadramento
{
public:
    /// `Area` is at least 1 wide and high. Three pixels of each side of `Rect` stay free.
    TEnquadramento(const TRect &Area, const TRect &Rect) noexcept;

    TPoint CentroDaFigura() const noexcept { return FCentro; }
    double RelativoX(std::int32_t X) const noexcept { return (static_cast<double>(X) - FCentro.X) * FEscala; }
    double RelativoY(std::int32_t Y) const noexcept { return (static_cast<double>(Y) - FCentro.Y) * FEscala; }
    /// The device rectangle of an element with the box `Area`.
    TRect NoDispositivo(const TRect &Area) const noexcept;

private:
    TPoint FCentro;
    TPoint FCentroDoAlvo;
    double FEscala;
};

/// Follows the changes of a figure and says on what its picture depends. What it computes is kept for the
/// figure as it is and the size last asked for.
class TPinturaDeFigura
{
public:
    /// A number that changes whenever the list or an element of it does.
    std::uint64_t Selo(const TListaElementosGraficos &Elementos);
    /// True when the figure with this stamp is the one that DesenhadaAssim was last told of. A figure that
    /// changes from drawing to drawing is not worth a picture.
    bool JaDesenhadaAssim(std::uint64_t SeloAtual) const noexcept { return SeloAtual == FSeloDesenhado; }
    void DesenhadaAssim(std::uint64_t SeloAtual) noexcept { FSeloDesenhado = SeloAtual; }

    /// As ISimbolo::PedirPintura, for the figure with the present stamp `SeloAtual`. `Centro` is set as a
    /// drawing would set it.
    bool Pedir(const TListaElementosGraficos &Elementos, std::uint64_t SeloAtual, TCanvas &Canvas,
               const TRect &Rect, double Densidade, TPinturaPedida &Pedida, TPoint &Centro);

private:
    // What a drawing into a rectangle of one size depends on, wherever it stands unless its Encaixe is Fixo.
    struct TResumo {
        std::uint64_t Selo = 0;
        std::uint64_t Fontes = 0;
        TRect Rect;
        bool Lembravel = false;
        bool Desenha = false; // false: the figure is too small to be drawn at all
        TPoint Centro;
        TRect Alcance;     // relative to the rectangle's corner
        TRect Linhas;      // the part of it that must not be cut by a clip
        TRect Coordenadas; // what all computed coordinates lie in, relative likewise
        TPinturaDoElemento Todos;
        TEstadoDeixado Estado;
    };
    const TResumo &Resumo(const TListaElementosGraficos &Elementos, std::uint64_t SeloAtual,
                          const TRect &Rect);
    static void Resumir(TResumo &Resumo, const TListaElementosGraficos &Elementos, const TRect &Rect);
    static TEncaixe NoLugar(const TResumo &Resumo, const TRect &Rect) noexcept;
    static std::optional<TChaveDePintura> Chave(const TResumo &Resumo, TCanvas &Canvas, const TRect &Rect,
                                                double Densidade);

    std::vector<std::uint64_t> FSelos; // of the elements, as last seen
    std::uint64_t FSelo = 0;
    std::uint64_t FSeloDesenhado = 0;
    TResumo FResumo;
};

} // namespace Sibrel
