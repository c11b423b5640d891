// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Color.h"
#include "plataforma/Modulo.h"
#include "simbolos/ListaElementosGraficos.h"
#include "simbolos/Simbolo.h"

#include <QString>

#include <memory>

namespace Sibrel
{

class TCursorXML;
class TPinturaDeFigura;

/// A vector figure, read from a figure file and drawn scaled and centred into any rectangle, its proportions
/// kept.
///
/// Dots and polygons follow the rectangle; sectors do but for their own X, Y, which is added unscaled; texts
/// stand at their own position. A figure drawn again unchanged is drawn from memory (TCacheDePinturas); every
/// element may change at any time, the next drawing sees it.
class SIBREL_EXPORT TSimboloVetorial : public ComClasse<TSimboloVetorial, ISimbolo>
{
public:
    static constexpr const char *NomeDaClasse = "TSimboloVetorial";

    TSimboloVetorial();
    ~TSimboloVetorial() override;

    /// The figure, to be changed in place.
    TListaElementosGraficos &ObterElementos() noexcept { return FElementos; }
    const TListaElementosGraficos &ObterElementos() const noexcept { return FElementos; }
    /// Centre of the figure's area as of the last drawing; (0, 0) before.
    TPoint ObterCentro() const noexcept { return FCentro; }
    /// The figure file last read or written.
    const QString &ObterNomeArquivo() const noexcept { return FNomeArquivo; }

    /// Draws nothing when the figure's area is less than 1 wide or high.
    void Desenhar(TCanvas &Canvas, const TRect &Rect) override;
    /// Moves the figure of `Origem` here: it is empty afterwards. A symbol assigned to itself is unchanged.
    void Assign(ISimbolo &Origem) override;
    bool PedirPintura(TCanvas &Canvas, const TRect &Rect, double Densidade, TPinturaPedida &Pedida) override;

    /// The colour of the first element: of a dot its own, of a sector and a polygon that of the filling, of a
    /// text that of the font; 0 without any.
    TColor ObterCor() const;
    /// Gives every dot and every filling the colour. A text gives it to the font of the first element of the
    /// figure instead of its own, and to none when that is no text.
    void AtribuirCor(TColor Cor);

    /// Replaces the figure by that of a file, whose name is trimmed and may be of either system.
    ///
    /// EFOpenError when it cannot be read, EDOMParseError when it is not well-formed: the figure is then
    /// empty. EConvertError for a bad number: the elements before it stay. The file name is set in each case.
    void LerArquivo(const QString &Nome);
    /// Writes the figure to a file. EConvertError for a text outside code page 1252, before the file is
    /// touched; EFCreateError when it cannot be written. The file name is set in each case.
    void GravarArquivo(const QString &Nome);
    /// Appends the elements of a figure's text to the figure; a root of another name adds nothing. Errors as
    /// LerArquivo.
    void Atualizar(const QString &Texto);
    /// Appends the element that an XML node describes; a node of another name is skipped.
    void Criar(const TCursorXML &No);

private:
    void DesenharDireto(TCanvas &Canvas, const TRect &Rect);
    bool DesenharDeMemoria(TCanvas &Canvas, const TRect &Rect, std::uint64_t Selo);
    void AcrescentarDe(const TCursorXML &Raiz);

    TListaElementosGraficos FElementos;
    TPoint FCentro;
    QString FNomeArquivo;
    std::unique_ptr<TPinturaDeFigura> FPintura;
};

/// The module that registers the symbol kind "Vetorial"; starts behind that of the symbol table.
SIBREL_EXPORT TModulo &ModuloSimboloVetorial() noexcept;

} // namespace Sibrel
