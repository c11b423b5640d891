// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Exportacao.h"
#include "plataforma/RefClasse.h"

#include <QImage>
#include <QSize>
#include <QString>

#include <cstdint>

namespace Sibrel
{

/// A picture of any kind: what a symbol or a control draws without knowing its format.
class SIBREL_EXPORT TGraphic
{
public:
    using Raiz = TGraphic;
    using RefDeClasse = RefClasse<TGraphic>;

    TGraphic() noexcept;
    virtual ~TGraphic();
    TGraphic(const TGraphic &) = delete;
    TGraphic &operator=(const TGraphic &) = delete;

    virtual RefDeClasse ObterClasse() const = 0;
    /// Pixels.
    virtual int Width() const noexcept = 0;
    virtual int Height() const noexcept = 0;
    bool Empty() const noexcept { return Width() <= 0 || Height() <= 0; }

    /// When set, a picture without alpha shows through where it has the colour of its bottom-left pixel. A
    /// picture with alpha always uses it. False in a new graphic.
    bool Transparent() const noexcept { return FTransparent; }
    void AtribuirTransparent(bool Valor);

    /// Becomes a copy of `Outra`'s picture and its Transparent. EConvertError when the kinds do not go
    /// together.
    virtual void Assign(const TGraphic &Outra) = 0;

    /// The picture in `Tamanho` physical pixels, ready to be drawn: 32 bits, premultiplied, with transparency
    /// applied. Scaling picks for each target pixel the source pixel under its centre; it never smooths. A
    /// null image when either size is empty.
    virtual QImage Preparada(QSize Tamanho) const = 0;

    /// Changes whenever the picture or Transparent does; two graphics never share a value.
    std::uint64_t Selo() const noexcept { return FSelo; }

protected:
    void Mudou() noexcept;

private:
    std::uint64_t FSelo;
    bool FTransparent = false;
};

} // namespace Sibrel
