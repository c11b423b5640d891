// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Bitmap.h"
#include "plataforma/Color.h"
#include "plataforma/Exportacao.h"
#include "plataforma/Font.h"
#include "plataforma/Rect.h"

#include <QBrush>
#include <QFont>
#include <QPen>

#include <cstdint>
#include <memory>
#include <optional>
#include <span>

class QFontMetricsF;
class QPaintDevice;
class QPainter;

namespace Sibrel
{

class TGraphic;
class TLinhaDeTexto;

/// Pen styles; the ordinals are those of figure files.
enum class TPenStyle : std::uint8_t {
    psSolid,
    psDash,
    psDot,
    psDashDot,
    psDashDotDot,
    psClear,
    psInsideFrame
};
/// Brush styles; the ordinals are those of figure files.
enum class TBrushStyle : std::uint8_t {
    bsSolid,
    bsClear,
    bsHorizontal,
    bsVertical,
    bsFDiagonal,
    bsBDiagonal,
    bsCross,
    bsDiagCross
};
/// How lines and outlines are drawn.
struct TPen {
    TColor Color = clBlack;
    TPenStyle Style = TPenStyle::psSolid;
    int Width = 1; ///< logical pixels
    friend bool operator==(const TPen &, const TPen &) noexcept = default;
};
/// How areas are filled.
struct TBrush {
    TColor Color = clWhite;
    TBrushStyle Style = TBrushStyle::bsSolid;
    friend bool operator==(const TBrush &, const TBrush &) noexcept = default;
};

/// How drawn pictures meet what is there; the values are the raster operation codes of the original drawings.
/// On opaque 32-bit surfaces they are exact. A surface with an alpha channel, and one without pixels (a
/// printer, a recording), gets white under cmSrcAnd and black under cmSrcPaint left out, so that it stays
/// see-through there: the same for a silhouette of black and one colour. Without pixels the other modes copy
/// the picture.
enum class TCopyMode : std::uint32_t {
    cmSrcCopy = 0x00CC0020,   ///< the picture, by its transparency
    cmDstInvert = 0x00550009, ///< not destination
    cmMergeCopy = 0x00C000CA, ///< source and brush
    cmSrcAnd = 0x008800C6,    ///< destination and source
    cmSrcPaint = 0x00EE0086,  ///< destination or source
    cmSrcInvert = 0x00660046, ///< destination exclusive-or source
    cmNotSrcCopy = 0x00330008 ///< not source
};

/// Text alignment flags of TextOut.
inline constexpr unsigned TA_TOP = 0;
inline constexpr unsigned TA_LEFT = 0;
inline constexpr unsigned TA_RIGHT = 2;
inline constexpr unsigned TA_CENTER = 6;
inline constexpr unsigned TA_BOTTOM = 8;
inline constexpr unsigned TA_BASELINE = 24;

/// A surface to draw on, in logical pixels, with a state of its own that persists between calls.
///
/// Stands on a QPainter that a host already has, on any paint device, or on a TBitmap. `Pen`, `Brush`,
/// `Font`, `CopyMode` and `TextAlign` are the state: set them directly, they take effect at the next drawing
/// call. Nothing is antialiased unless the host's painter asks for it; text is smoothed in grey levels.
///
/// While a canvas stands on a host's painter the host leaves that painter's pen, brush and font alone; the
/// canvas puts them back when it is destroyed. Used on the thread of its painter only.
class SIBREL_EXPORT TCanvas
{
public:
    /// On a painter that is active and outlives the canvas. Pen and Brush start as the painter's.
    explicit TCanvas(QPainter &Pintor);
    /// On a widget inside its paint event, an image, a pixmap, a printer: with a painter of its own.
    explicit TCanvas(QPaintDevice &Superficie);
    ~TCanvas();
    TCanvas(const TCanvas &) = delete;
    TCanvas &operator=(const TCanvas &) = delete;

    TPen Pen;
    TBrush Brush;
    TFont Font;
    TCopyMode CopyMode = TCopyMode::cmSrcCopy;
    unsigned TextAlign = TA_TOP | TA_LEFT;

    /// Advance width of a text in the present font, in whole logical pixels.
    int TextWidth(const QString &Texto) const;
    /// Height of a line in the present font (ascent plus descent), in whole logical pixels.
    int TextHeight(const QString &Texto) const;
    /// How many measurements (TextWidth and TextHeight) this process has made; for proving that a cache
    /// spares them.
    static std::uint64_t Medidas() noexcept;

    /// Writes one line at the reference point, by `TextAlign` and the font's Orientation, in the font's
    /// colour; a Brush that is not clear fills the box behind it.
    void TextOut(int X, int Y, const QString &Texto);
    /// The same text, whose glyphs were found before when `Linha` was made with this very font.
    void TextOut(int X, int Y, const TLinhaDeTexto &Linha);
    /// The same, clipped to `Area`.
    void TextRect(const TRect &Area, int X, int Y, const QString &Texto);

    void MoveTo(int X, int Y) noexcept { FAqui = {X, Y}; }
    /// A line from the present position; its last point is not drawn, so that lines join without drawing it
    /// twice.
    void LineTo(int X, int Y);
    /// An outline with the pen, filled with the brush; closed.
    void Polygon(std::span<const TPoint> Pontos);
    /// Open lines with the pen; nothing is filled and the last point is not drawn.
    void Polyline(std::span<const TPoint> Pontos);
    /// Within the rectangle, whose right and bottom edges are outside.
    void Ellipse(const TRect &Area);
    void Rectangle(const TRect &Area);
    /// Fills with the brush alone.
    void FillRect(const TRect &Area);

    /// Draws a picture at its own size, one picture pixel a logical pixel.
    void Draw(int X, int Y, const TGraphic &Grafico);
    /// Draws a picture over the whole rectangle, by `CopyMode`. A rectangle with exchanged sides mirrors it,
    /// an empty one draws nothing.
    void StretchDraw(const TRect &Area, const TGraphic &Grafico);

    /// The colour of a pixel, in physical pixels of an image surface; white where the surface cannot be read.
    TColor Pixel(int X, int Y) const;
    void AtribuirPixel(int X, int Y, TColor Cor);

    /// Physical pixels a logical pixel when the surface is made of pixels and the painter neither scales,
    /// turns nor shears, so that a picture prepared in that density lands pixel on pixel; nothing otherwise
    /// (a printer, a transformed painter): draw directly then.
    std::optional<double> DensidadeDePixels() const;
    /// Draws an image prepared for DensidadeDePixels() with its top-left corner at (X, Y), blended by its
    /// alpha.
    void DesenharPreparada(int X, int Y, const QImage &Imagem);

    /// The painter below, for what this class does not offer. Its pen, brush and font are the canvas's
    /// business.
    QPainter &Pintor();

private:
    friend class TBitmap;
    friend class TLinhaDeTexto; // which measures too
    explicit TCanvas(TBitmap &Bitmap);

    void EsquecerPintor() noexcept;
    void EsquecerAplicado() noexcept;
    QPainter &ComPen();
    QPainter &ComPenEBrush();
    bool PorEmPixels(std::span<const TPoint> Pontos, bool Fechado);
    void AplicarBrush(QPainter &P);
    void GuardarDoHospedeiro(QPainter &P);
    const QFont &FonteAtual() const;
    const QFontMetricsF &MetricasAtuais() const;
    static void ContarMedida() noexcept;
    QPainter &ComFonte();
    TPoint Inicio(double Largura) const;
    void Escrever(QPainter &P, TPoint Referencia, const QString &Texto);
    void DrawComModo(QPainter &P, const QRect &Area, const QImage &Imagem);

    struct TEstadoDoHospedeiro {
        QPen Caneta;
        QBrush Pincel;
        QFont Fonte;
    };

    QPainter *FPintor = nullptr;
    TBitmap *FBitmap = nullptr;
    std::unique_ptr<QPainter> FProprio;
    std::optional<TEstadoDoHospedeiro> FDoHospedeiro;
    std::optional<TPen> FPenAplicada;
    std::optional<TBrush> FBrushAplicado;
    std::uint64_t FSeloDaFonteAplicada = 0;
    TPoint FAqui;

    mutable std::uint64_t FSeloDaFonte = 0;
    mutable QFont FFonte;
    mutable std::unique_ptr<QFontMetricsF> FMetricas;
};

} // namespace Sibrel
