// SPDX-License-Identifier: LGPL-2.1-or-later
// Prepared pictures of symbols, remembered so that a symbol drawn again is one picture blitted.
#pragma once

#include "plataforma/Canvas.h"
#include "plataforma/Exportacao.h"
#include "plataforma/Rect.h"

#include <QVarLengthArray>

#include <cstdint>
#include <functional>

namespace Sibrel
{

/// Everything that one prepared picture depends on. Stamps (`Selo`) never repeat, so that equal keys mean
/// equal pixels; a key whose symbol is gone is never asked for again and ages out.
struct TChaveDePintura {
    std::uint64_t Conteudo = 0; ///< stamp of what is drawn
    std::uint64_t Variante = 0; ///< what else selects the picture, as the kind of symbol means it
    std::int32_t Largura = 0;   ///< of the rectangle, logical pixels
    std::int32_t Altura = 0;
    std::uint32_t Codigo = 0;
    QRgb Cor = 0;         ///< of the caller's pen, 0 when it plays no part
    double Densidade = 1; ///< physical pixels a logical pixel

    friend bool operator==(const TChaveDePintura &, const TChaveDePintura &) noexcept = default;
};

/// What a symbol says of its picture before it is drawn.
struct TPinturaPedida {
    /// The first key finds the picture; the others must be the same as when it was prepared.
    QVarLengthArray<TChaveDePintura, 8> Chaves;
    /// The pixels that drawing may touch; may pass beyond the symbol's rectangle.
    TRect Alcance;
};

/// The picture of `Pedida`, prepared by `Pintar` when it is not remembered, drawn where it stands.
///
/// `Pintar` draws on the canvas that it is given, in the coordinates of the caller's; its canvas starts with
/// the pen `Caneta` and the render hints of the caller's. False, and nothing drawn, when the surface does not
/// show pixels one to one or the picture would be too large: the caller then draws directly. GUI thread only.
SIBREL_EXPORT bool DesenharLembrada(TCanvas &Canvas, const TRect &Rect, const TPinturaPedida &Pedida,
                                    const TPen &Caneta, const std::function<void(TCanvas &)> &Pintar);

/// Limits and state of what is remembered, for hosts that want to know and for tests.
struct SIBREL_EXPORT TCacheDePinturas {
    /// The most that all pictures together take; the one least recently searched for
    /// goes first. Drawing again while nothing new was prepared does not count as a search.
    static constexpr qsizetype BytesMaximos = qsizetype{32} * 1024 * 1024;
    /// A picture that takes more than this, its keys included, is drawn directly each time.
    static constexpr qsizetype BytesDeUma = qsizetype{4} * 1024 * 1024;

    static qsizetype Bytes() noexcept;
    static qsizetype Quantas() noexcept;
    /// How many pictures had to be prepared since the module started.
    static std::uint64_t Preparadas() noexcept;
    static void Esvaziar() noexcept;
};

/// The start and the stop of the symbol table's module make and free what is remembered; outside of them
/// every symbol is drawn directly.
void CriarCacheDePinturas();
void LiberarCacheDePinturas() noexcept;

} // namespace Sibrel
