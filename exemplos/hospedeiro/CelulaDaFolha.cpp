// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/CelulaDaFolha.h"

#include "hospedeiro/PinturaDeSimbolo.h"

#include "simbolos/TabelaDeSimbolos.h"

#include <QFontMetrics>
#include <QPainter>
#include <QTextLayout>
#include <QTextOption>

#include <algorithm>

namespace Hospedeiro
{

namespace
{

constexpr int Margem = 6;
constexpr int LinhasDoRotulo = 2;
constexpr int LetrasDoRotulo = 17; // what one line of a label is to hold, at least

} // namespace

TCelulaDaFolha::TCelulaDaFolha(int Tamanho, const QFont &Fonte)
    : FTamanho(Tamanho)
    , FFonte(Fonte)
{
    const QFontMetrics Metricas(FFonte);
    FAlturaDaLinha = Metricas.height();
    const int Largura = std::max(FTamanho, Metricas.averageCharWidth() * LetrasDoRotulo);
    FLado = QSize(Largura + 2 * Margem, FTamanho + LinhasDoRotulo * FAlturaDaLinha + 3 * Margem);
}

QRect TCelulaDaFolha::AreaDoSimbolo(const QRect &Celula) const
{
    return {Celula.x() + (Celula.width() - FTamanho) / 2, Celula.y() + Margem, FTamanho, FTamanho};
}

QRect TCelulaDaFolha::AreaDoRotulo(const QRect &Celula) const
{
    return {Celula.x() + Margem, Celula.y() + 2 * Margem + FTamanho, Celula.width() - 2 * Margem,
            LinhasDoRotulo * FAlturaDaLinha};
}

void TCelulaDaFolha::Pintar(QPainter &Pintor, const QRect &Celula, const Sibrel::TTabelaDeSimbolos &Tabela,
                            int Indice, const QColor &Cor, const QColor &CorDoRotulo) const
{
    // What reaches beyond the symbol's square may fill its cell but not the neighbours' nor the label.
    Pintor.save();
    Pintor.setClipRect(QRect(Celula.topLeft(), QPoint(Celula.right(), AreaDoRotulo(Celula).top() - 1)),
                       Qt::IntersectClip);
    PintarSimbolo(Pintor, AreaDoSimbolo(Celula), *Tabela.Simbolos().Item(Indice), Cor);
    Pintor.restore();
    Pintor.setFont(FFonte);
    Pintor.setPen(CorDoRotulo);
    PintarRotulo(Pintor, AreaDoRotulo(Celula), Tabela.ObterRotulo(Indice));
}

void TCelulaDaFolha::PintarRotulo(QPainter &Pintor, const QRect &Area, const QString &Rotulo) const
{
    QTextOption Opcao;
    Opcao.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    QTextLayout Texto(Rotulo, FFonte);
    Texto.setTextOption(Opcao);
    Texto.beginLayout();
    for (int I = 0; I < LinhasDoRotulo; ++I) {
        QTextLine Linha = Texto.createLine();
        if (!Linha.isValid())
            break;
        Linha.setLineWidth(Area.width());
        // The last line takes all that is left, shortened where it does not fit.
        const int Quantos = I + 1 < LinhasDoRotulo ? Linha.textLength() : -1;
        const QString Trecho = QFontMetrics(FFonte).elidedText(
            Rotulo.mid(Linha.textStart(), Quantos).trimmed(), Qt::ElideRight, Area.width());
        Pintor.drawText(QRect(Area.x(), Area.y() + I * FAlturaDaLinha, Area.width(), FAlturaDaLinha),
                        Qt::AlignHCenter | Qt::AlignTop | Qt::TextSingleLine, Trecho);
    }
    Texto.endLayout();
}

} // namespace Hospedeiro
