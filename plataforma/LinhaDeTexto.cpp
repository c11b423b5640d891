// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/LinhaDeTexto.h"

#include "plataforma/Canvas.h"
#include "plataforma/Font.h"

#include <QFont>
#include <QFontMetricsF>
#include <QTextLayout>

namespace Sibrel
{

namespace
{

// From the base line of the text, which is where a text is drawn from.
QList<QGlyphRun> Glifos(const QFont &Fonte, const QString &Texto)
{
    QTextLayout Disposicao(Texto, Fonte);
    Disposicao.beginLayout();
    const QTextLine Linha = Disposicao.createLine();
    Disposicao.endLayout();
    if (!Linha.isValid())
        return {};
    QList<QGlyphRun> Achados = Linha.glyphRuns();
    for (QGlyphRun &Parte : Achados) {
        QList<QPointF> Posicoes = Parte.positions();
        for (QPointF &P : Posicoes)
            P.ry() -= Linha.y() + Linha.ascent();
        Parte.setPositions(Posicoes);
    }
    return Achados;
}

} // namespace

TLinhaDeTexto::TLinhaDeTexto(const TFont &Fonte, const QString &Texto)
    : FTexto(Texto)
    , FDesenhado(Fonte.TextoParaDesenhar(Texto))
    , FSeloDaFonte(Fonte.Selo())
{
    TCanvas::ContarMedida();
    const QFont ComoQFont = Fonte.ParaQFont();
    const QFontMetricsF Metricas(ComoQFont);
    FAvanco = Metricas.horizontalAdvance(FDesenhado);
    FLargura = qRound(FAvanco);
    FAltura = qRound(Metricas.height());
    if (!ComoQFont.underline() && !ComoQFont.strikeOut())
        FGlifos = Glifos(ComoQFont, FDesenhado);
}

} // namespace Sibrel
