// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QWidget>

class QMenuBar;

namespace Hospedeiro
{

/// A page of the window, on a tab of its own: what the window's menus, title and status bar ask of it.
class TPagina : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// What stands on its tab.
    virtual QString Titulo() const = 0;
    /// The file that it shows, for the window's title; empty for none.
    virtual QString Arquivo() const { return {}; }
    /// What is selected, for the left of the status bar.
    virtual QString Atual() const { return {}; }
    /// How much there is, for its right.
    virtual QString Contagem() const { return {}; }
    /// Adds the page's own menus to the window's.
    virtual void MontarMenus(QMenuBar &Barra);
    /// Puts the keyboard into the page's search.
    virtual void Localizar() {}
    /// Goes to the next match of what stands there, or to the one before.
    virtual void LocalizarOutro(bool ParaTras);

Q_SIGNALS:
    /// File, selection or count are others now.
    void EstadoMudou();
    /// To be told for some seconds.
    void Recado(const QString &Texto);
    /// To be shown and read before anything else is done.
    void Erro(const QString &Mensagem, const QString &Detalhe);
};

} // namespace Hospedeiro
