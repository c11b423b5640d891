// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Font.h"
#include "plataforma/LinhaDeTexto.h"
#include "simbolos/ElementoGrafico.h"

#include <QString>

namespace Sibrel
{

/// Where a text stands beside its X; the ordinals are those of figure files.
enum class TAlinhamentoHorizontal : std::uint8_t {
    ahEsquerda, ///< the text starts at X
    ahDireita,  ///< it ends at X
    ahCentro    ///< it is centred on X
};
/// Where a text stands above or below its Y; the ordinals are those of figure files.
enum class TAlinhamentoVertical : std::uint8_t {
    avAbaixo, ///< the text hangs below Y
    avAcima,  ///< it stands above Y
    avCentro  ///< it is centred on Y
};

/// A line of text. It stands at its own X, Y in pixels of the canvas: the figure's fitting neither moves nor
/// scales it.
///
/// The rotation reaches the canvas from the second drawing on: a drawing uses the font as it is and turns it
/// afterwards.
class SIBREL_EXPORT TTexto : public ComClasse<TTexto, IElementoGrafico>
{
public:
    static constexpr const char *NomeDaClasse = "TTexto";

    TTexto();
    ~TTexto() override;

    std::int32_t X() const noexcept { return FPosicao.X; }
    void AtribuirX(std::int32_t X) { Mudar(FPosicao.X, X); }
    std::int32_t Y() const noexcept { return FPosicao.Y; }
    void AtribuirY(std::int32_t Y) { Mudar(FPosicao.Y, Y); }
    /// The font, to be changed in place.
    TFont &Fonte() noexcept { return FFonte; }
    const TFont &Fonte() const noexcept { return FFonte; }
    const QString &Texto() const noexcept { return FTexto; }
    void AtribuirTexto(const QString &Texto) { Mudar(FTexto, Texto); }
    /// Centred both ways in a new text. Values that name no alignment are kept and mean none.
    TAlinhamentoHorizontal AlinhamentoHorizontal() const noexcept { return FHorizontal; }
    void AtribuirAlinhamentoHorizontal(TAlinhamentoHorizontal Valor) { Mudar(FHorizontal, Valor); }
    TAlinhamentoVertical AlinhamentoVertical() const noexcept { return FVertical; }
    void AtribuirAlinhamentoVertical(TAlinhamentoVertical Valor) { Mudar(FVertical, Valor); }
    /// Tenths of a degree, counter-clockwise.
    std::uint16_t Orientacao() const noexcept { return FOrientacao; }
    void AtribuirOrientacao(std::uint16_t Decimos) { Mudar(FOrientacao, Decimos); }

    /// The flags of TCanvas::TextAlign that the text is written with. Figures were drawn to look right with
    /// exactly these: above and below are the same, and centred vertically is centred horizontally too.
    unsigned Alinhamento() const noexcept;

    /// A square with the text's width as both sides, placed by the alignments; sides whose alignment names
    /// none are 0. Needs a QGuiApplication.
    TRect Area() const override;
    QString ObterXML() const override;
    void Desenhar(TCanvas &Canvas, const TRect &Rect) override;
    void AtribuirXML(const TCursorXML &No) override;
    std::uint64_t Selo() const override;
    bool DescreverPintura(const TRect &Rect, TPinturaDoElemento &Pintura) const override;
    void AplicarEstado(TCanvas &Canvas) const override;

private:
    const TLinhaDeTexto &Linha() const;
    TRect Alcance() const;

    TPoint FPosicao;
    TFont FFonte;
    QString FTexto;
    TAlinhamentoHorizontal FHorizontal = TAlinhamentoHorizontal::ahCentro;
    TAlinhamentoVertical FVertical = TAlinhamentoVertical::avCentro;
    std::uint16_t FOrientacao = 0;

    mutable std::uint64_t FSeloDaFonte = 0; // as last seen
    // What was measured, for the stamp and the application's fonts that it was measured with.
    struct TMedida {
        std::uint64_t Selo = 0;
        std::uint64_t Fontes = 0;
        TLinhaDeTexto Linha;
    };
    mutable TMedida FMedida;
};

} // namespace Sibrel
