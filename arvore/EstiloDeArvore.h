// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QProxyStyle>
#include <QRect>

namespace Sibrel
{

/// Puts the expand box's sensitive area where the box is drawn.
class TEstiloDeArvore final : public QProxyStyle
{
public:
    /// Side of the box, and its distance from the left edge of its level.
    static constexpr int LadoDaCaixa = 9;
    static constexpr int MargemDaCaixa = 5;

    /// The box of a row, given the left edge of the row's level and the row's top and height.
    static QRect Caixa(int Esquerda, int Topo, int Altura) noexcept
    {
        const int D = (Altura - LadoDaCaixa) / 2;
        return {Esquerda + MargemDaCaixa + D, Topo + D, LadoDaCaixa, LadoDaCaixa};
    }

    QRect subElementRect(SubElement Elemento, const QStyleOption *Opcao,
                         const QWidget *Controle) const override;
};

} // namespace Sibrel
