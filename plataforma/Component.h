// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Exportacao.h"

#include <QIcon>
#include <QWidget>

namespace Sibrel
{

/// A component without a picture of its own on the running form.
///
/// It is a widget because form editors, generated form code and run-time form loaders all accept one, in
/// layouts too; while the application runs it stays hidden whatever is asked of it. In a form editor it shows
/// the palette icon, 28 x 28 pixels. Owner is the parent, which deletes it. GUI thread only.
class SIBREL_EXPORT TComponent : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(int Tag READ Tag WRITE AtribuirTag)

public:
    /// Side of the icon that stands for the component in a form editor, in logical pixels.
    static constexpr int LadoDoIcone = 28;

    explicit TComponent(QWidget *Dono = nullptr);
    ~TComponent() override;

    /// A number for the host's own use, 0 in a new component.
    int Tag() const noexcept { return FTag; }
    void AtribuirTag(int Valor) noexcept { FTag = Valor; }

    /// Set once by a form editor's plugin, before it makes components: they then show themselves as icons.
    static void AtribuirEmProjeto(bool Valor) noexcept;
    static bool EmProjeto() noexcept;
    /// The icon shown in a form editor.
    void AtribuirIcone(const QIcon &Icone);

    void setVisible(bool Visivel) override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *Evento) override;

private:
    QIcon FIcone;
    int FTag = 0;
};

} // namespace Sibrel
