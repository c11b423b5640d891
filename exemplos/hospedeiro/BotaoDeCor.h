// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QColor>
#include <QToolButton>

namespace Hospedeiro
{

/// A tool button that shows a colour and asks for another one when it is pressed.
class TBotaoDeCor : public QToolButton
{
    Q_OBJECT

public:
    explicit TBotaoDeCor(QWidget *Dono = nullptr);

    /// What the colour is of, for tooltip, dialog and assistive tools; "Cor dos glifos" in a new button.
    void AtribuirDescricao(const QString &Descricao);

    const QColor &Cor() const noexcept { return FCor; }
    /// Emits CorMudou when the colour is another one.
    void AtribuirCor(const QColor &Cor);

Q_SIGNALS:
    void CorMudou(const QColor &Cor);

private:
    void Mostrar();

    QString FDescricao;
    QColor FCor = Qt::black;
};

} // namespace Hospedeiro
