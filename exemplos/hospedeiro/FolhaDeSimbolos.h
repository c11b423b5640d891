// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "hospedeiro/CelulaDaFolha.h"
#include "hospedeiro/LinhaDeComando.h"

#include <QColor>
#include <QListView>
#include <QStyledItemDelegate>

namespace Hospedeiro
{

/// Paints one symbol of a TModeloDeSimbolos.
class TDelegadoDeSimbolo : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit TDelegadoDeSimbolo(QObject *Dono);

    void AtribuirCelula(const TCelulaDaFolha &Celula) { FCelula = Celula; }
    const TCelulaDaFolha &Celula() const noexcept { return FCelula; }
    void AtribuirCor(const QColor &Cor) { FCor = Cor; }

    void paint(QPainter *Pintor, const QStyleOptionViewItem &Opcao, const QModelIndex &Indice) const override;
    QSize sizeHint(const QStyleOptionViewItem &Opcao, const QModelIndex &Indice) const override;

private:
    TCelulaDaFolha FCelula;
    QColor FCor = Qt::black;
};

/// The sheet: all symbols of a table with their labels, in rows as wide as the window.
///
/// Shows a TModeloDeSimbolos. A view of Qt's own, so that scrolling, keys, tooltips and assistive tools work
/// as everywhere and only the cells in sight are painted.
class TFolhaDeSimbolos : public QListView
{
    Q_OBJECT

public:
    explicit TFolhaDeSimbolos(QWidget *Dono = nullptr);

    /// Side of a symbol in logical pixels; the symbol in sight stays in sight.
    int Tamanho() const noexcept { return FTamanho; }
    void AtribuirTamanho(int Pixels);
    /// Colour of the glyphs.
    const QColor &Cor() const noexcept { return FCor; }
    void AtribuirCor(const QColor &Cor);

    /// Makes the row the present one and scrolls to it.
    void IrPara(int Linha);

Q_SIGNALS:
    /// The user asked for larger or smaller symbols with the wheel; +1 or -1.
    void PassoDeTamanho(int Sentido);

protected:
    void wheelEvent(QWheelEvent *Evento) override;
    void changeEvent(QEvent *Evento) override;
    void paintEvent(QPaintEvent *Evento) override;

private:
    void RefazerCelulas();

    TDelegadoDeSimbolo *FDelegado;
    QColor FCor = Qt::black;
    int FTamanho = TamanhoInicial;
};

} // namespace Hospedeiro
