// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/Component.h"

#include <QPainter>

namespace Sibrel
{

namespace
{

bool FormEmProjeto = false; // GUI thread only

} // namespace

TComponent::TComponent(QWidget *Dono)
    : QWidget(Dono)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    if (!EmProjeto())
        QWidget::setVisible(false);
}

TComponent::~TComponent() = default;

void TComponent::AtribuirEmProjeto(bool Valor) noexcept
{
    FormEmProjeto = Valor;
}
bool TComponent::EmProjeto() noexcept
{
    return FormEmProjeto;
}

void TComponent::AtribuirIcone(const QIcon &Icone)
{
    FIcone = Icone;
    update();
}

void TComponent::setVisible(bool Visivel)
{
    QWidget::setVisible(Visivel && EmProjeto());
}

QSize TComponent::sizeHint() const
{
    return EmProjeto() ? QSize(LadoDoIcone, LadoDoIcone) : QSize(0, 0);
}
QSize TComponent::minimumSizeHint() const
{
    return sizeHint();
}

void TComponent::paintEvent(QPaintEvent *)
{
    QPainter Pintor(this);
    Pintor.fillRect(rect(), palette().button());
    Pintor.setPen(palette().mid().color());
    Pintor.drawRect(rect().adjusted(0, 0, -1, -1));
    constexpr int LadoDaFigura = 24; // of a palette picture
    QRect Area(0, 0, LadoDaFigura, LadoDaFigura);
    Area.moveCenter(rect().center());
    FIcone.paint(&Pintor, Area);
}

} // namespace Sibrel
