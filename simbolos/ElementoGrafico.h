// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Canvas.h"
#include "plataforma/Exportacao.h"
#include "plataforma/Rect.h"
#include "plataforma/RefClasse.h"

#include <QString>
#include <QStringView>

#include <array>
#include <cstdint>

namespace Sibrel
{

class TCursorXML;

/// How figure files write a flag: indexed by the boolean, "N" and "S".
SIBREL_EXPORT extern const std::array<QStringView, 2> BooleanStr;

/// On what the pixels of an element depend besides its size, when the rectangle that it is drawn into moves.
enum class TEncaixe : std::uint8_t {
    Livre, ///< on nothing: they move along
    Par,   ///< on the position being even or odd: a coordinate lies half-way between two pixels
    Fixo   ///< on the very position
};

/// What an element says of its pixels, so that they can be kept and drawn again.
struct TPinturaDoElemento {
    TRect Alcance;                      ///< all that the drawing touches, with a pen one pixel wide
    bool CorteMuda = true;              ///< a clip that cuts the drawing changes the pixels inside it too
    TEncaixe Encaixe = TEncaixe::Livre; ///< see there
    double Desvio = 0;                  ///< how far a coordinate that is nearly half-way is from it, at most
    bool Hachurada = false;             ///< has a pattern, which is anchored to the surface
    bool CorDoSistema = false;          ///< has a colour that follows the application's palette
    bool HerdaCaneta = false;           ///< draws with the pen style that the canvas has
};

/// One graphic element of a vector figure: dot, text, sector or polygon.
///
/// A plain object, owned by the list that holds it. Figure coordinates are integer logical units; angles are
/// radians, counter-clockwise on the screen. A kind derives through `ComClasse<Kind, IElementoGrafico>`,
/// names itself in `NomeDaClasse` and has a constructor without arguments. GUI thread only.
class SIBREL_EXPORT IElementoGrafico
{
public:
    using RefDeClasse = RefClasse<IElementoGrafico>;

    IElementoGrafico();
    virtual ~IElementoGrafico();
    IElementoGrafico(const IElementoGrafico &) = delete;
    IElementoGrafico &operator=(const IElementoGrafico &) = delete;

    /// Exactly this object's class; ComClasse overrides it.
    virtual RefDeClasse ObterClasse() const = 0;

    /// The bounding rectangle in figure coordinates.
    virtual TRect Area() const = 0;
    /// The element as it stands in a figure file; nothing in it is escaped.
    virtual QString ObterXML() const = 0;
    /// Draws the element into the device rectangle `Rect`, the image of its Area. Leaves its pen, brush and
    /// font state on the canvas. Draws nothing where a device point would not be finite.
    virtual void Desenhar(TCanvas &Canvas, const TRect &Rect) = 0;
    /// Reads each attribute that the node has; absent ones leave their field. EConvertError for a number that
    /// is none: the fields read before it keep what was read.
    virtual void AtribuirXML(const TCursorXML &No) = 0;

    /// A number that is another one after each change of the element and that no two elements share.
    virtual std::uint64_t Selo() const { return FSelo; }
    /// Describes the pixels of the next Desenhar into `Rect`, which must depend on nothing but the Selo, the
    /// rectangle, the canvas's pen width and what is described. False (the default) when they cannot be kept.
    virtual bool DescreverPintura(const TRect &Rect, TPinturaDoElemento &Pintura) const;
    /// Leaves on the canvas the state that Desenhar leaves, without drawing: pen colour and style, brush,
    /// font and text alignment, each set or not touched, whatever they were. Called only after
    /// DescreverPintura was true.
    virtual void AplicarEstado(TCanvas &Canvas) const;

protected:
    /// To be called by whatever changes the element.
    void Mudou() const noexcept;
    /// Sets a field, telling a change.
    template <class Campo>
    void Mudar(Campo &Onde, const Campo &Novo)
    {
        const bool Igual = Onde == Novo;
        Onde = Novo;
        if (!Igual)
            Mudou();
    }

private:
    mutable std::uint64_t FSelo;
};

} // namespace Sibrel
