// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "simbolos/ElementoTracado.h"

#include <span>

namespace Sibrel
{

/// A sector of a ring around a centre: disc, ring, pie slice or slice of a ring, drawn as an outline of 50
/// points.
///
/// Equal angles make a full disc or, with an inner radius above 0, a ring. Different ones make a slice; with
/// an inner radius of 0 it reaches the centre in one point when Fechado, else in 25. The element's own X, Y
/// is added to its device position unscaled: figures have their sectors at (0, 0) for that reason.
class SIBREL_EXPORT TSetor : public ComClasse<TSetor, TElementoTracado>
{
public:
    static constexpr const char *NomeDaClasse = "TSetor";
    /// Points of a drawn outline.
    static constexpr int PontosDoContorno = 50;

    TSetor();
    ~TSetor() override;

    /// The centre, figure units.
    std::int32_t X() const noexcept { return FPosicao.X; }
    void AtribuirX(std::int32_t X) { Mudar(FPosicao.X, X); }
    std::int32_t Y() const noexcept { return FPosicao.Y; }
    void AtribuirY(std::int32_t Y) { Mudar(FPosicao.Y, Y); }
    /// Outer and inner radius, figure units; -1 in a new sector.
    double RaioMaior() const noexcept { return FRaioMaior; }
    void AtribuirRaioMaior(double Raio) { Mudar(FRaioMaior, Raio); }
    double RaioMenor() const noexcept { return FRaioMenor; }
    void AtribuirRaioMenor(double Raio) { Mudar(FRaioMenor, Raio); }
    /// Start and end angle, radians, 0 to the right, counter-clockwise; -1 in a new sector.
    double AngI() const noexcept { return FAngI; }
    void AtribuirAngI(double Angulo) { Mudar(FAngI, Angulo); }
    double AngF() const noexcept { return FAngF; }
    void AtribuirAngF(double Angulo) { Mudar(FAngF, Angulo); }
    /// The box of the whole outer circle; inner radius and angles play no part.
    TRect Area() const override;
    QString ObterXML() const override;
    void Desenhar(TCanvas &Canvas, const TRect &Rect) override;
    void AtribuirXML(const TCursorXML &No) override;
    bool DescreverPintura(const TRect &Rect, TPinturaDoElemento &Pintura) const override;

    /// The point at an angle and a radius (device pixels) around `Centro`, displaced by the element's X, Y.
    TPoint ObterPonto(double Angulo, double Raio, const TPoint &Centro) const noexcept;
    /// Fills all of `Pontos` with the closed outline for the device rectangle `Rect`: the inner arc from AngI
    /// to AngF, then the outer one back.
    void ObterPontos(std::span<TPoint> Pontos, const TRect &Rect) const noexcept;

private:
    class TContorno;

    TPoint FPosicao;
    double FRaioMaior = -1.0;
    double FRaioMenor = -1.0;
    double FAngI = -1.0;
    double FAngF = -1.0;
};

/// A sector under another name: it measures, draws and is written as one, and no figure file makes one.
class SIBREL_EXPORT TElipse : public ComClasse<TElipse, TSetor>
{
public:
    static constexpr const char *NomeDaClasse = "TElipse";

    TElipse();
    ~TElipse() override;
};

} // namespace Sibrel
