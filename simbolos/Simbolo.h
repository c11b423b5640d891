// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Exportacao.h"
#include "plataforma/Rect.h"
#include "plataforma/RefClasse.h"

namespace Sibrel
{

class TCanvas;
struct TPinturaPedida;

/// Something that can draw itself into a rectangle of a canvas: the base of every symbol kind.
///
/// A plain object: it needs no widgets and is owned by the list that holds it. A kind derives through
/// `ComClasse<Kind, ISimbolo>`, names itself in `NomeDaClasse`, has a constructor without arguments and
/// overrides the operations below. GUI thread only.
class SIBREL_EXPORT ISimbolo
{
public:
    using RefDeClasse = RefClasse<ISimbolo>;

    ISimbolo() = default;
    virtual ~ISimbolo();
    ISimbolo(const ISimbolo &) = delete;
    ISimbolo &operator=(const ISimbolo &) = delete;

    /// Exactly this object's class; ComClasse overrides it.
    virtual RefDeClasse ObterClasse() const = 0;

    /// Draws the symbol into `Rect` of `Canvas`.
    virtual void Desenhar(TCanvas &Canvas, const TRect &Rect) = 0;

    /// Becomes a copy of `Origem`, which is of the same class and, for kinds that move their content, changes
    /// too. EInvalidCast for a symbol of another kind; nothing has changed then.
    virtual void Assign(ISimbolo &Origem) = 0;

    /// For drawing again from memory: appends to `Pedida` all that the symbol's picture in `Rect` depends on,
    /// leaves `Canvas` in the state in which Desenhar would leave it, and is true. False when the picture
    /// cannot be remembered (the default): the canvas may then have changed and the caller puts it back.
    virtual bool PedirPintura(TCanvas &Canvas, const TRect &Rect, double Densidade, TPinturaPedida &Pedida);
};

/// A new symbol of exactly `Simbolo`'s class that is a copy of it.
SIBREL_EXPORT std::unique_ptr<ISimbolo> Copia(ISimbolo &Simbolo);

} // namespace Sibrel
