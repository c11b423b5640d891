// SPDX-License-Identifier: LGPL-2.1-or-later
// What a canvas puts on pixels by itself is, to the pixel, what the painter's engine draws.
#include "plataforma/Canvas.h"

#include <QPainter>
#include <QRandomGenerator>
#include <QTest>

#include <cmath>
#include <numbers>
#include <vector>

using namespace Sibrel;

namespace
{

constexpr int Lado = 96;
constexpr QPoint Meio(Lado / 2, Lado / 2);

struct TTracado {
    std::vector<TPoint> Pontos;
    TPen Pen;
    TBrush Brush;
    bool Fechado = true;
    QImage::Format Formato = QImage::Format_RGB32;

    QByteArray Descricao() const
    {
        QByteArray T = Fechado ? "poligono" : "linha";
        T += " estilo " + QByteArray::number(static_cast<int>(Pen.Style)) + ":";
        for (const TPoint &P : Pontos)
            T += ' ' + QByteArray::number(P.X) + ',' + QByteArray::number(P.Y);
        return T;
    }
};

QImage Fundo(QImage::Format Formato)
{
    QImage Imagem(Lado, Lado, Formato);
    Imagem.fill(QColor(200, 220, 240));
    return Imagem;
}

QImage PelaTela(const TTracado &T)
{
    QImage Imagem = Fundo(T.Formato);
    QPainter Pintor(&Imagem);
    Pintor.translate(Meio);
    TCanvas Canvas(Pintor);
    Canvas.Pen = T.Pen;
    Canvas.Brush = T.Brush;
    if (T.Fechado)
        Canvas.Polygon(T.Pontos);
    else
        Canvas.Polyline(T.Pontos);
    return Imagem;
}

QImage PeloMotor(const TTracado &T)
{
    static constexpr Qt::PenStyle Estilos[] = {Qt::SolidLine,   Qt::DashLine,       Qt::DotLine,
                                               Qt::DashDotLine, Qt::DashDotDotLine, Qt::NoPen,
                                               Qt::SolidLine};
    QImage Imagem = Fundo(T.Formato);
    QPainter Pintor(&Imagem);
    Pintor.translate(Meio);
    Pintor.setPen(QPen(T.Pen.Color.ParaQColor(), 1, Estilos[static_cast<int>(T.Pen.Style)], Qt::FlatCap,
                       Qt::MiterJoin));
    Pintor.setBrush(T.Brush.Style == TBrushStyle::bsClear ? QBrush(Qt::NoBrush)
                                                          : QBrush(T.Brush.Color.ParaQColor()));
    QPolygon Poligono;
    for (const TPoint &P : T.Pontos)
        Poligono << P.ParaQPoint();
    if (T.Fechado)
        Pintor.drawPolygon(Poligono);
    else
        Pintor.drawPolyline(Poligono);
    return Imagem;
}

class TSorteio
{
public:
    explicit TSorteio(quint32 Semente)
        : FSorte(Semente)
    {
    }
    int Ate(int Maior) { return static_cast<int>(FSorte.bounded(Maior + 1)); }
    int Entre(int Menor, int Maior) { return Menor + Ate(Maior - Menor); }

    TTracado Tracado()
    {
        TTracado T;
        T.Pontos = Ate(2) == 0 ? Volta() : Quaisquer();
        if (Ate(3) == 0 && !T.Pontos.empty())
            T.Pontos.push_back(T.Pontos.front());
        T.Pen = {TColor(0x0000C0), static_cast<TPenStyle>(Ate(6)), Ate(1)};
        T.Brush = {TColor(0x00A0FF), static_cast<TBrushStyle>(Ate(1))};
        T.Fechado = Ate(3) != 0;
        T.Formato = Ate(1) == 0 ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied;
        return T;
    }

private:
    std::vector<TPoint> Quaisquer()
    {
        const int Alcance = Entre(1, 40); // also where most points meet
        std::vector<TPoint> Pontos(static_cast<std::size_t>(Entre(2, 12)));
        for (TPoint &P : Pontos)
            P = {Entre(-Alcance, Alcance), Entre(-Alcance, Alcance)};
        return Pontos;
    }

    // An ellipse or a part of one, as the outlines of sectors are: many short sides.
    std::vector<TPoint> Volta()
    {
        const double RX = Entre(0, 40);
        const double RY = Ate(1) == 0 ? RX : Entre(0, 40);
        const double Inicio = Ate(360) * std::numbers::pi / 180;
        const double Passo = (Ate(1) == 0 ? 2 : 2 * Ate(100) / 100.0) * std::numbers::pi / 49;
        std::vector<TPoint> Pontos;
        for (int I = 0; I < 50; ++I)
            Pontos.emplace_back(static_cast<int>(std::lround(RX * std::cos(Inicio + I * Passo))),
                                static_cast<int>(std::lround(RY * std::sin(Inicio + I * Passo))));
        return Pontos;
    }

    QRandomGenerator FSorte;
};

} // namespace

class TesteTelaDePixels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void OsMesmosPixelsQueOMotor();
    void TambemOndeHaCorte_data();
    void TambemOndeHaCorte();
    void NadaForaDoCorte();
};

void TesteTelaDePixels::OsMesmosPixelsQueOMotor()
{
    for (quint32 Semente = 1; Semente <= 20000; ++Semente) {
        const TTracado T = TSorteio(Semente).Tracado();
        if (PelaTela(T) != PeloMotor(T))
            QFAIL(QByteArray::number(Semente) + ": " + T.Descricao());
    }
}

void TesteTelaDePixels::TambemOndeHaCorte_data()
{
    QTest::addColumn<QRegion>("Corte");
    QTest::newRow("retângulo que contém") << QRegion(-45, -45, 90, 90);
    QTest::newRow("retângulo que corta") << QRegion(-5, -7, 20, 18);
    QTest::newRow("duas partes") << (QRegion(-30, -30, 20, 60) + QRegion(3, 3, 30, 20));
    QTest::newRow("nada") << QRegion(200, 200, 5, 5);
}

// Cut lines are the engine's work: they look like the same lines whole.
void TesteTelaDePixels::TambemOndeHaCorte()
{
    QFETCH(QRegion, Corte);
    for (quint32 Semente = 1; Semente <= 300; ++Semente) {
        TTracado T = TSorteio(Semente).Tracado();
        T.Fechado = true;
        const QImage Inteiro = PelaTela(T);
        QImage Cortado = Fundo(T.Formato);
        {
            QPainter Pintor(&Cortado);
            Pintor.translate(Meio);
            Pintor.setClipRegion(Corte);
            TCanvas Canvas(Pintor);
            Canvas.Pen = T.Pen;
            Canvas.Brush = T.Brush;
            Canvas.Polygon(T.Pontos);
        }
        QImage Esperado = Fundo(T.Formato);
        {
            QPainter Pintor(&Esperado);
            Pintor.translate(Meio);
            Pintor.setClipRegion(Corte);
            Pintor.drawImage(-Meio, Inteiro);
        }
        if (Cortado != Esperado)
            QFAIL(QByteArray::number(Semente) + ": " + T.Descricao());
    }
}

void TesteTelaDePixels::NadaForaDoCorte()
{
    QImage Imagem = Fundo(QImage::Format_RGB32);
    QPainter Pintor(&Imagem);
    TCanvas Canvas(Pintor);
    Canvas.Brush.Color = clBlack;
    for (const TPoint &Longe : {TPoint(-50, 10), TPoint(10, -50), TPoint(Lado + 50, 10),
                                TPoint(10, Lado + 50), TPoint(0x7FFFFFFF, 0), TPoint(0, -0x7FFFFFFF)}) {
        const TPoint Pontos[] = {{10, 10}, {20, 10}, Longe};
        Canvas.Polygon(Pontos); // the address sanitizer would tell
    }
    Pintor.end();
    QVERIFY(Imagem != Fundo(QImage::Format_RGB32));
}

QTEST_MAIN(TesteTelaDePixels)
#include "TesteTelaDePixels.moc"
