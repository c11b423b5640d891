// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "hospedeiro/ModeloDeSimbolos.h"
#include "hospedeiro/Pagina.h"

class QLineEdit;
class QMenu;
class QSlider;
class QToolBar;

namespace Hospedeiro
{

class TBiblioteca;
class TFolhaDeSimbolos;

/// A symbol table as a sheet, with the tools to look through it.
class TPaginaDeSimbolos : public TPagina
{
    Q_OBJECT

public:
    explicit TPaginaDeSimbolos(QWidget *Dono = nullptr);
    ~TPaginaDeSimbolos() override;

    /// The library to show, not owned; call this with null or another one before it dies.
    void AtribuirBiblioteca(const TBiblioteca *Biblioteca);
    TFolhaDeSimbolos &Folha() noexcept { return *FFolha; }
    /// Side of a symbol in logical pixels.
    void AtribuirTamanho(int Pixels);
    /// Adds a command to the page's menu, behind its own.
    void AcrescentarAoMenu(QAction *Acao);

    QString Titulo() const override;
    QString Arquivo() const override;
    QString Atual() const override;
    QString Contagem() const override;
    void MontarMenus(QMenuBar &Barra) override;
    void Localizar() override;
    void LocalizarOutro(bool ParaTras) override;

Q_SIGNALS:
    /// The user wants to look into a symbol.
    void SimboloAtivado(int Indice);

private:
    void MontarTamanho(QToolBar &Barra);
    void MontarBusca(QToolBar &Barra);
    void Crescer(int Sentido);
    void Procurar(int APartirDe, bool ParaTras);

    const TBiblioteca *FBiblioteca = nullptr;
    TModeloDeSimbolos FModelo;
    TFolhaDeSimbolos *FFolha;
    QMenu *FMenu = nullptr;
    QSlider *FTamanho = nullptr;
    QLineEdit *FBusca = nullptr;
};

} // namespace Hospedeiro
