// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QColor>
#include <QFont>
#include <QRect>
#include <QSize>
#include <QString>

class QPainter;

namespace Sibrel
{
class TTabelaDeSimbolos;
}

namespace Hospedeiro
{

/// One cell of the sheet: a symbol with its label below, the same on the screen and in a picture file.
class TCelulaDaFolha
{
public:
    /// `Tamanho`: side of the symbol; `Fonte`: of the labels. Logical pixels.
    TCelulaDaFolha(int Tamanho, const QFont &Fonte);

    QSize Lado() const noexcept { return FLado; }
    /// Where the symbol stands in a cell that covers `Celula`.
    QRect AreaDoSimbolo(const QRect &Celula) const;
    QRect AreaDoRotulo(const QRect &Celula) const;

    /// Draws symbol `Indice`, glyphs in `Cor`, its label in `CorDoRotulo`.
    void Pintar(QPainter &Pintor, const QRect &Celula, const Sibrel::TTabelaDeSimbolos &Tabela, int Indice,
                const QColor &Cor, const QColor &CorDoRotulo) const;

private:
    void PintarRotulo(QPainter &Pintor, const QRect &Area, const QString &Rotulo) const;

    int FTamanho;
    QFont FFonte;
    int FAlturaDaLinha;
    QSize FLado;
};

} // namespace Hospedeiro
