// SPDX-License-Identifier: LGPL-2.1-or-later
// The pictures that a canvas draws: pixel on pixel where the surface has pixels, and by the copy mode.
#include "plataforma/Canvas.h"
#include "plataforma/Graphic.h"
#include "plataforma/Transparencia.h"

#include <QPaintEngine>
#include <QPainter>
#include <QPixmap>

#include <algorithm>
#include <cmath>

namespace Sibrel
{

namespace
{

// Above this many pixels a picture is scaled by the painter, which only computes what its clip shows.
constexpr qint64 MaiorPreparada = qint64{4} * 1024 * 1024;

bool TemPixels(const QPainter &P)
{
    const QPaintEngine *Motor = P.paintEngine();
    return Motor != nullptr && Motor->type() == QPaintEngine::Raster;
}

// The pixels of the surface that stand for a rectangle: each side goes to the nearest, so that rectangles
// that share a side leave no gap at any density.
QRect EmPixels(const QTransform &ParaOAparelho, const QRect &Area)
{
    const QRectF Exata = ParaOAparelho.mapRect(QRectF(Area));
    const auto Lado = [](double Valor) { return static_cast<int>(std::floor(Valor + 0.5)); };
    const QPoint Canto(Lado(Exata.left()), Lado(Exata.top()));
    return {Canto, QSize(Lado(Exata.right()) - Canto.x(), Lado(Exata.bottom()) - Canto.y())};
}

constexpr QRgb Preto = 0xFF000000U;
constexpr QRgb Branco = 0xFFFFFFFFU;

// On an opaque surface raster operations are exact; what is see-through in another they would make opaque.
bool Opaca(const QPainter &P)
{
    const QPaintDevice *Aparelho = P.paintEngine()->paintDevice();
    switch (Aparelho->devType()) {
    case QInternal::Image:
        return !static_cast<const QImage *>(Aparelho)->hasAlphaChannel();
    case QInternal::Pixmap:
        return !static_cast<const QPixmap *>(Aparelho)->hasAlphaChannel();
    default:
        return false;
    }
}

// The picture without the pixels that would leave the surface as it is: drawn as it then is, a picture of
// white and black under "and", or of black and one colour over the black hole of the former under "or", gives
// what the operation gives.
QImage SemOQueNaoMuda(const QImage &Imagem, TCopyMode Modo)
{
    switch (Modo) {
    case TCopyMode::cmSrcAnd:
        return SemACor(Imagem, Branco);
    case TCopyMode::cmSrcPaint:
        return SemACor(Imagem, Preto);
    default:
        return Imagem;
    }
}

bool SoMudaPorTransparencia(const QPainter &P, TCopyMode Modo)
{
    const bool EOuOu = Modo == TCopyMode::cmSrcAnd || Modo == TCopyMode::cmSrcPaint;
    return Modo == TCopyMode::cmSrcCopy || !TemPixels(P) || (EOuOu && !Opaca(P));
}

void DesenharSob(QPainter &P, QPainter::CompositionMode Modo, const QRect &Area, const QImage &Imagem)
{
    const QPainter::CompositionMode Antigo = P.compositionMode();
    P.setCompositionMode(Modo);
    P.drawImage(QRectF(Area), Imagem, QRectF(Imagem.rect()));
    P.setCompositionMode(Antigo);
}

void PreencherSob(QPainter &P, QPainter::CompositionMode Modo, const QRect &Area, const QColor &Cor)
{
    const QPainter::CompositionMode Antigo = P.compositionMode();
    P.setCompositionMode(Modo);
    P.fillRect(Area, Cor);
    P.setCompositionMode(Antigo);
}

} // namespace

void TCanvas::Draw(int X, int Y, const TGraphic &Grafico)
{
    StretchDraw({X, Y, X + Grafico.Width(), Y + Grafico.Height()}, Grafico);
}

void TCanvas::StretchDraw(const TRect &Area, const TGraphic &Grafico)
{
    if (Area.Width() == 0 || Area.Height() == 0 || Grafico.Empty())
        return;
    const QRect Alvo = TRect(std::min(Area.Left, Area.Right), std::min(Area.Top, Area.Bottom),
                             std::max(Area.Left, Area.Right), std::max(Area.Top, Area.Bottom))
                           .ParaQRect();
    const bool ComPixels = DensidadeDePixels().has_value();
    const QTransform ParaOAparelho = Pintor().deviceTransform();
    const QRect Fisica = ComPixels ? EmPixels(ParaOAparelho, Alvo) : QRect();
    const bool PixelAPixel = ComPixels && qint64{Fisica.width()} * qint64{Fisica.height()} <= MaiorPreparada;
    QImage Imagem;
    if (CopyMode != TCopyMode::cmDstInvert) // which knows no source
        Imagem = Grafico.Preparada(PixelAPixel ? Fisica.size() : QSize(Grafico.Width(), Grafico.Height()));
    if (Area.Width() < 0 || Area.Height() < 0)
        Imagem = Imagem.mirrored(Area.Width() < 0, Area.Height() < 0);
    QPainter &P = Pintor(); // again: a bitmap that is drawn on itself was let go of to be read
    if (!PixelAPixel || ParaOAparelho.isIdentity()) {
        DrawComModo(P, Alvo, Imagem);
        return;
    }
    const QTransform Antiga = P.worldTransform();
    P.setWorldTransform(ParaOAparelho.inverted() * Antiga); // what is left is one unit a pixel
    DrawComModo(P, Fisica, Imagem);
    P.setWorldTransform(Antiga);
}

void TCanvas::DrawComModo(QPainter &P, const QRect &Area, const QImage &Imagem)
{
    if (SoMudaPorTransparencia(P, CopyMode)) {
        P.drawImage(QRectF(Area), SemOQueNaoMuda(Imagem, CopyMode), QRectF(Imagem.rect()));
        return;
    }
    switch (CopyMode) {
    case TCopyMode::cmDstInvert:
        PreencherSob(P, QPainter::RasterOp_NotDestination, Area, Qt::black);
        break;
    case TCopyMode::cmMergeCopy:
        P.drawImage(QRectF(Area), Imagem, QRectF(Imagem.rect()));
        PreencherSob(P, QPainter::RasterOp_SourceAndDestination, Area, Brush.Color.ParaQColor());
        break;
    case TCopyMode::cmSrcAnd:
        DesenharSob(P, QPainter::RasterOp_SourceAndDestination, Area, Imagem);
        break;
    case TCopyMode::cmSrcPaint:
        DesenharSob(P, QPainter::RasterOp_SourceOrDestination, Area, Imagem);
        break;
    case TCopyMode::cmSrcInvert:
        DesenharSob(P, QPainter::RasterOp_SourceXorDestination, Area, Imagem);
        break;
    case TCopyMode::cmNotSrcCopy:
        DesenharSob(P, QPainter::RasterOp_NotSource, Area, Imagem);
        break;
    default:
        break;
    }
}

std::optional<double> TCanvas::DensidadeDePixels() const
{
    if (FBitmap != nullptr)
        return 1.0;
    if (!TemPixels(*FPintor) || FPintor->viewTransformEnabled() ||
        FPintor->worldTransform().type() > QTransform::TxTranslate)
        return std::nullopt;
    return FPintor->device()->devicePixelRatioF();
}

void TCanvas::DesenharPreparada(int X, int Y, const QImage &Imagem)
{
    QPainter &P = Pintor();
    const double Densidade = Imagem.devicePixelRatio();
    if (Densidade == 1.0 || Densidade == 2.0) { // the densities that the painter itself copies pixel by pixel
        P.drawImage(QPoint(X, Y), Imagem);
        return;
    }
    const QTransform Antiga = P.worldTransform();
    const QPointF Canto = Antiga.map(QPointF(X, Y)) * Densidade;
    P.setWorldTransform(QTransform::fromScale(1 / Densidade, 1 / Densidade));
    P.drawImage(QRectF(QPointF(Canto.toPoint()), QSizeF(Imagem.size())), Imagem, QRectF(Imagem.rect()));
    P.setWorldTransform(Antiga);
}

} // namespace Sibrel
