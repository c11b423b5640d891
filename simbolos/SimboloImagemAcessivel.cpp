// SPDX-License-Identifier: LGPL-2.1-or-later
#include "simbolos/SimboloImagemAcessivel.h"

#include "simbolos/SimboloImagem.h"

#include <QAccessibleWidget>

namespace Sibrel
{

namespace
{

class TAcessivel : public QAccessibleWidget, public QAccessibleImageInterface
{
public:
    explicit TAcessivel(TSimboloImagem *Controle)
        : QAccessibleWidget(Controle, QAccessible::Graphic)
    {
    }

    void *interface_cast(QAccessible::InterfaceType Tipo) override
    {
        if (Tipo == QAccessible::ImageInterface)
            return static_cast<QAccessibleImageInterface *>(this);
        return QAccessibleWidget::interface_cast(Tipo);
    }

    QString imageDescription() const override { return text(QAccessible::Description); }
    QSize imageSize() const override { return Area().size(); }
    QPoint imagePosition() const override { return widget()->mapToGlobal(Area().topLeft()); }

private:
    QRect Area() const { return static_cast<const TSimboloImagem *>(widget())->AreaDaMascara().ParaQRect(); }
};

QAccessibleInterface *Fabricar(const QString &, QObject *Objeto)
{
    auto *Controle = qobject_cast<TSimboloImagem *>(Objeto);
    return Controle != nullptr ? new TAcessivel(Controle) : nullptr; // the accessibility cache takes it
}

} // namespace

void RegistrarAcessibilidadeDeSimboloImagem()
{
    // Taken back when the library is unloaded.
    static const struct TRegistro {
        TRegistro() { QAccessible::installFactory(&Fabricar); }
        ~TRegistro() { QAccessible::removeFactory(&Fabricar); }
    } Registro;
}

} // namespace Sibrel
