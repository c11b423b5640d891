// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "hospedeiro/Biblioteca.h"
#include "hospedeiro/FontesDaBiblioteca.h"
#include "hospedeiro/ModeloDeSimbolos.h"

#include <QMainWindow>

#include <memory>

class QLabel;
class QLineEdit;
class QMenu;
class QSlider;
class QToolBar;

namespace Sibrel
{
class TSimboloVetorial;
}

namespace Hospedeiro
{

class TBotaoDeCor;
class TFolhaDeSimbolos;
class TPainelDeAvisos;

/// The window: a symbol library as a sheet, with the tools to look through it.
class TJanelaPrincipal : public QMainWindow
{
    Q_OBJECT

public:
    explicit TJanelaPrincipal(QWidget *Dono = nullptr);
    ~TJanelaPrincipal() override;

    /// Opens a library in place of the present one. On an error tells the user and keeps the present one;
    /// false then.
    bool Abrir(const QString &Arquivo);
    /// Opens a figure file in a window of its own, beside the library. False and a message on an error.
    bool AbrirFigura(const QString &Arquivo);
    /// Writes the library; false and a message to the user on an error.
    bool Exportar(const QString &Arquivo);
    /// Side of a symbol in logical pixels.
    void AtribuirTamanho(int Pixels);

    const TBiblioteca &Biblioteca() const noexcept { return *FBiblioteca; }

protected:
    void dragEnterEvent(QDragEnterEvent *Evento) override;
    void dropEvent(QDropEvent *Evento) override;
    /// Shows an error and waits until it was read.
    virtual void MostrarErro(const QString &Mensagem, const QString &Detalhe);
    /// Shows a figure and waits until it was looked at.
    virtual void MostrarFigura(Sibrel::TSimboloVetorial &Figura);

private:
    void MontarMenus();
    void MontarMenuArquivo();
    void MontarMenuExibir();
    void MontarMenuLocalizar();
    void MontarFerramentas();
    void MontarTamanho(QToolBar &Barra);
    void MontarBusca(QToolBar &Barra);
    void MontarEstado();

    void PerguntarEAbrir();
    void PerguntarEAbrirFigura();
    void MostrarFiguraDoSimbolo(int Indice);
    void PerguntarEExportar();
    void PerguntarEGravarFolha();
    void Procurar(int APartirDe, bool ParaTras);
    void ProcurarOutro(bool ParaTras);
    void MostrarEstado();
    void MostrarAtual();

    TFontesDaBiblioteca FFontes;
    std::unique_ptr<TBiblioteca> FBiblioteca;
    TModeloDeSimbolos FModelo;
    TFolhaDeSimbolos *FFolha;
    TPainelDeAvisos *FAvisos;
    QSlider *FTamanho = nullptr;
    QLineEdit *FBusca = nullptr;
    QLabel *FContagem = nullptr;
    QLabel *FAtual = nullptr;
};

} // namespace Hospedeiro
