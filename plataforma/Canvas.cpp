// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/Canvas.h"

#include "plataforma/LinhaDeTexto.h"
#include "plataforma/TelaDePixels.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPolygon>
#include <QVarLengthArray>

#include <algorithm>
#include <atomic>

namespace Sibrel
{

namespace
{

std::atomic<std::uint64_t> ContagemDeMedidas{0};

Qt::PenStyle EstiloDaCaneta(TPenStyle Estilo) noexcept
{
    switch (Estilo) {
    case TPenStyle::psDash:
        return Qt::DashLine;
    case TPenStyle::psDot:
        return Qt::DotLine;
    case TPenStyle::psDashDot:
        return Qt::DashDotLine;
    case TPenStyle::psDashDotDot:
        return Qt::DashDotDotLine;
    case TPenStyle::psClear:
        return Qt::NoPen;
    default:
        return Qt::SolidLine; // also styles that a damaged file invents
    }
}

Qt::BrushStyle EstiloDoPincel(TBrushStyle Estilo) noexcept
{
    switch (Estilo) {
    case TBrushStyle::bsClear:
        return Qt::NoBrush;
    case TBrushStyle::bsHorizontal:
        return Qt::HorPattern;
    case TBrushStyle::bsVertical:
        return Qt::VerPattern;
    case TBrushStyle::bsFDiagonal:
        return Qt::FDiagPattern;
    case TBrushStyle::bsBDiagonal:
        return Qt::BDiagPattern;
    case TBrushStyle::bsCross:
        return Qt::CrossPattern;
    case TBrushStyle::bsDiagCross:
        return Qt::DiagCrossPattern;
    default:
        return Qt::SolidPattern;
    }
}

QPen Caneta(const TPen &Pen)
{
    // A flat cap leaves the last point of an open line out; corners stay sharp.
    return {Pen.Color.ParaQColor(), static_cast<double>(std::max(Pen.Width, 1)), EstiloDaCaneta(Pen.Style),
            Qt::FlatCap, Qt::MiterJoin};
}

TPen PenDoPintor(const QPainter &Pintor)
{
    const QPen &P = Pintor.pen();
    TPen Pen{TColor(P.color()), TPenStyle::psSolid, std::max(P.width(), 1)};
    switch (P.style()) {
    case Qt::NoPen:
        Pen.Style = TPenStyle::psClear;
        break;
    case Qt::DashLine:
        Pen.Style = TPenStyle::psDash;
        break;
    case Qt::DotLine:
        Pen.Style = TPenStyle::psDot;
        break;
    case Qt::DashDotLine:
        Pen.Style = TPenStyle::psDashDot;
        break;
    case Qt::DashDotDotLine:
        Pen.Style = TPenStyle::psDashDotDot;
        break;
    default:
        break;
    }
    return Pen;
}

TBrush BrushDoPintor(const QPainter &Pintor)
{
    const QBrush &B = Pintor.brush();
    if (B.style() == Qt::NoBrush)
        return {clWhite, TBrushStyle::bsClear};
    return {TColor(B.color()), TBrushStyle::bsSolid};
}

QPoint *ComoQPoints(std::span<const TPoint> Pontos, QVarLengthArray<QPoint, 64> &Onde)
{
    Onde.resize(static_cast<qsizetype>(Pontos.size()));
    std::transform(Pontos.begin(), Pontos.end(), Onde.begin(),
                   [](const TPoint &P) { return P.ParaQPoint(); });
    return Onde.data();
}

} // namespace

TCanvas::TCanvas(QPainter &Pintor)
    : Pen(PenDoPintor(Pintor))
    , Brush(BrushDoPintor(Pintor))
    , FPintor(&Pintor)
{
}

TCanvas::TCanvas(QPaintDevice &Superficie)
    : FProprio(std::make_unique<QPainter>(&Superficie))
{
    FPintor = FProprio.get();
}

TCanvas::TCanvas(TBitmap &Bitmap)
    : FBitmap(&Bitmap)
{
}

TCanvas::~TCanvas()
{
    if (!FDoHospedeiro)
        return;
    FPintor->setPen(FDoHospedeiro->Caneta);
    FPintor->setBrush(FDoHospedeiro->Pincel);
    FPintor->setFont(FDoHospedeiro->Fonte);
}

QPainter &TCanvas::Pintor()
{
    if (FBitmap != nullptr)
        FPintor = &FBitmap->Pintor();
    return *FPintor;
}

void TCanvas::EsquecerPintor() noexcept
{
    FPintor = nullptr;
    EsquecerAplicado();
}

void TCanvas::EsquecerAplicado() noexcept
{
    FPenAplicada.reset();
    FBrushAplicado.reset();
    FSeloDaFonteAplicada = 0;
}

void TCanvas::GuardarDoHospedeiro(QPainter &P)
{
    if (FBitmap == nullptr && !FProprio && !FDoHospedeiro)
        FDoHospedeiro = TEstadoDoHospedeiro{P.pen(), P.brush(), P.font()};
}

QPainter &TCanvas::ComPen()
{
    QPainter &P = Pintor();
    if (FPenAplicada != Pen) {
        GuardarDoHospedeiro(P);
        P.setPen(Caneta(Pen));
        FPenAplicada = Pen;
    }
    return P;
}

void TCanvas::AplicarBrush(QPainter &P)
{
    if (FBrushAplicado == Brush)
        return;
    GuardarDoHospedeiro(P);
    P.setBrush(QBrush(Brush.Color.ParaQColor(), EstiloDoPincel(Brush.Style)));
    FBrushAplicado = Brush;
}

QPainter &TCanvas::ComPenEBrush()
{
    QPainter &P = ComPen();
    AplicarBrush(P);
    return P;
}

const QFont &TCanvas::FonteAtual() const
{
    if (FSeloDaFonte != Font.Selo()) {
        FFonte = Font.ParaQFont();
        FMetricas.reset();
        FSeloDaFonte = Font.Selo();
    }
    return FFonte;
}

const QFontMetricsF &TCanvas::MetricasAtuais() const
{
    const QFont &Fonte = FonteAtual();
    if (!FMetricas)
        FMetricas = std::make_unique<QFontMetricsF>(Fonte);
    return *FMetricas;
}

std::uint64_t TCanvas::Medidas() noexcept
{
    return ContagemDeMedidas.load(std::memory_order_relaxed);
}

void TCanvas::ContarMedida() noexcept
{
    ContagemDeMedidas.fetch_add(1, std::memory_order_relaxed);
}

int TCanvas::TextWidth(const QString &Texto) const
{
    ContarMedida();
    return qRound(MetricasAtuais().horizontalAdvance(Font.TextoParaDesenhar(Texto)));
}

int TCanvas::TextHeight(const QString &) const
{
    ContarMedida();
    return qRound(MetricasAtuais().height());
}

// Where a line that is so wide begins on its base line, seen from the reference point.
TPoint TCanvas::Inicio(double Largura) const
{
    const QFontMetricsF &Metricas = MetricasAtuais();
    double X = 0;
    if ((TextAlign & TA_CENTER) == TA_CENTER)
        X = -std::floor(Largura / 2);
    else if ((TextAlign & TA_RIGHT) == TA_RIGHT)
        X = -Largura;
    double LinhaDeBase = Metricas.ascent();
    if ((TextAlign & TA_BASELINE) == TA_BASELINE)
        LinhaDeBase = 0;
    else if ((TextAlign & TA_BOTTOM) == TA_BOTTOM)
        LinhaDeBase = -Metricas.descent();
    // Whole pixels, so that the same text looks the same wherever it stands.
    return {static_cast<std::int32_t>(std::round(X)), static_cast<std::int32_t>(std::round(LinhaDeBase))};
}

void TCanvas::Escrever(QPainter &P, TPoint Referencia, const QString &Texto)
{
    const QFontMetricsF &Metricas = MetricasAtuais();
    const bool ComFundo = Brush.Style != TBrushStyle::bsClear;
    const bool AEsquerdaDoPonto = (TextAlign & TA_CENTER) != TA_CENTER && (TextAlign & TA_RIGHT) != TA_RIGHT;
    const double Largura = ComFundo || !AEsquerdaDoPonto ? Metricas.horizontalAdvance(Texto) : 0;
    const TPoint Desvio = Inicio(Largura);
    const QPointF Onde(double(Referencia.X) + Desvio.X, double(Referencia.Y) + Desvio.Y);
    if (ComFundo)
        P.fillRect(QRectF(Onde.x(), Onde.y() - std::round(Metricas.ascent()), std::ceil(Largura),
                          std::round(Metricas.height())),
                   QBrush(Brush.Color.ParaQColor(), EstiloDoPincel(Brush.Style)));
    P.drawText(Onde, Texto);
}

QPainter &TCanvas::ComFonte()
{
    QPainter &P = Pintor();
    GuardarDoHospedeiro(P);
    if (FSeloDaFonteAplicada != Font.Selo()) {
        P.setFont(FonteAtual());
        FSeloDaFonteAplicada = Font.Selo();
    }
    P.setPen(Font.Color().ParaQColor());
    FPenAplicada.reset();
    return P;
}

void TCanvas::TextOut(int X, int Y, const QString &Texto)
{
    if (Texto.isEmpty())
        return;
    QPainter &P = ComFonte();
    const QString Desenhado = Font.TextoParaDesenhar(Texto);
    if (Font.Orientation() == 0) {
        Escrever(P, {X, Y}, Desenhado);
        return;
    }
    const QTransform Antes = P.worldTransform();
    P.translate(X, Y);
    P.rotate(Font.Orientation() / -10.0); // the painter turns clockwise, by degrees
    Escrever(P, {}, Desenhado);
    P.setWorldTransform(Antes);
}

void TCanvas::TextOut(int X, int Y, const TLinhaDeTexto &Linha)
{
    // Glyphs are found for one font; a printer or a recording wants the text itself.
    if (Linha.FGlifos.isEmpty() || Linha.FSeloDaFonte != Font.Selo() || Font.Orientation() != 0 ||
        Brush.Style != TBrushStyle::bsClear || !DensidadeDePixels()) {
        TextOut(X, Y, Linha.FTexto);
        return;
    }
    QPainter &P = ComFonte();
    const TPoint Desvio = Inicio(Linha.FAvanco);
    const QPointF Onde(double(X) + Desvio.X, double(Y) + Desvio.Y);
    for (const QGlyphRun &Glifos : Linha.FGlifos)
        P.drawGlyphRun(Onde, Glifos);
}

void TCanvas::TextRect(const TRect &Area, int X, int Y, const QString &Texto)
{
    if (Area.Vazio())
        return;
    QPainter &P = Pintor();
    GuardarDoHospedeiro(P);
    P.save();
    P.setClipRect(Area.ParaQRect(), Qt::IntersectClip);
    TextOut(X, Y, Texto);
    P.restore();
    EsquecerAplicado(); // restore() put back more than the clip
}

void TCanvas::LineTo(int X, int Y)
{
    const TPoint Ate(X, Y);
    if (Ate != FAqui)
        ComPen().drawLine(FAqui.ParaQPoint(), Ate.ParaQPoint());
    FAqui = Ate;
}

bool TCanvas::PorEmPixels(std::span<const TPoint> Pontos, bool Fechado)
{
    if (Pen.Width > 1 || (Fechado && Brush.Style > TBrushStyle::bsClear))
        return false;
    const std::optional<TTelaDePixels> Tela = TTelaDePixels::Sob(Pintor());
    if (!Tela || !Tela->Contem(Pontos))
        return false;
    if (Fechado && Brush.Style == TBrushStyle::bsSolid)
        Tela->Preencher(Pontos, Brush.Color.ParaRgb());
    if (Pen.Style != TPenStyle::psClear)
        Tela->Tracar(Pontos, Fechado, Pen.Color.ParaRgb(), Pen.Style);
    return true;
}

void TCanvas::Polygon(std::span<const TPoint> Pontos)
{
    if (Pontos.size() < 2 || PorEmPixels(Pontos, true))
        return;
    QVarLengthArray<QPoint, 64> Lista;
    ComPenEBrush().drawPolygon(ComoQPoints(Pontos, Lista), static_cast<int>(Pontos.size()), Qt::OddEvenFill);
}

void TCanvas::Polyline(std::span<const TPoint> Pontos)
{
    if (Pontos.size() < 2 || PorEmPixels(Pontos, false))
        return;
    QVarLengthArray<QPoint, 64> Lista;
    ComPen().drawPolyline(ComoQPoints(Pontos, Lista), static_cast<int>(Pontos.size()));
}

void TCanvas::Ellipse(const TRect &Area)
{
    if (Area.Vazio())
        return;
    // Qt draws the outline on the far edge too; the pixels of this rectangle end one before it.
    ComPenEBrush().drawEllipse(Area.ParaQRect().adjusted(0, 0, -1, -1));
}

void TCanvas::Rectangle(const TRect &Area)
{
    if (Area.Vazio())
        return;
    ComPenEBrush().drawRect(Area.ParaQRect().adjusted(0, 0, -1, -1));
}

void TCanvas::FillRect(const TRect &Area)
{
    if (!Area.Vazio() && Brush.Style != TBrushStyle::bsClear)
        Pintor().fillRect(Area.ParaQRect(), QBrush(Brush.Color.ParaQColor(), EstiloDoPincel(Brush.Style)));
}

TColor TCanvas::Pixel(int X, int Y) const
{
    if (FBitmap != nullptr)
        return FBitmap->Pixel(X, Y);
    if (FPintor->device()->devType() != QInternal::Image)
        return clWhite;
    const auto *Imagem = static_cast<const QImage *>(FPintor->device());
    return Imagem->valid(X, Y) ? TColor(Imagem->pixelColor(X, Y)) : clWhite;
}

void TCanvas::AtribuirPixel(int X, int Y, TColor Cor)
{
    Pintor().fillRect(X, Y, 1, 1, Cor.ParaQColor());
}

} // namespace Sibrel
