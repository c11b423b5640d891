// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "hospedeiro/Biblioteca.h"
#include "hospedeiro/FontesDaBiblioteca.h"

#include <QMainWindow>

#include <memory>

class QLabel;
class QTabWidget;

namespace Sibrel
{
class TSimboloVetorial;
}

namespace Hospedeiro
{

class TGaleria;
class TPagina;
class TPaginaDeSimbolos;
class TPainelDaArvore;
class TPainelDeAvisos;

/// The window: a symbol library as a sheet, a tree drawn with its symbols and a gallery of silhouettes, each
/// on its page.
class TJanelaPrincipal : public QMainWindow
{
    Q_OBJECT

public:
    explicit TJanelaPrincipal(QWidget *Dono = nullptr);
    ~TJanelaPrincipal() override;

    /// Adds a page behind the others; the window owns it.
    void AcrescentarPagina(TPagina *Pagina);
    /// Brings a page to the front.
    void MostrarPagina(TPagina *Pagina);

    /// Opens a library in place of the present one. On an error tells the user and keeps the present one;
    /// false then.
    bool Abrir(const QString &Arquivo);
    /// Opens the symbols and the units of a database (TBancoDoExercicio) in place of library and tree: both,
    /// when the units too have been read, or, with a message to the user, none.
    void AbrirBanco(const QString &Endereco);
    /// Opens a figure file in a window of its own, beside the library. False and a message on an error.
    bool AbrirFigura(const QString &Arquivo);
    /// Writes the library; false and a message to the user on an error.
    bool Exportar(const QString &Arquivo);
    /// Side of a symbol in logical pixels.
    void AtribuirTamanho(int Pixels);

    const TBiblioteca &Biblioteca() const noexcept { return *FBiblioteca; }
    TPainelDaArvore &PainelDaArvore() noexcept { return *FPainelDaArvore; }
    TGaleria &Galeria() noexcept { return *FGaleria; }

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
    void MontarMenuLocalizar();
    void MontarEstado();
    TPagina *PaginaAtual() const;

    void Trocar(std::unique_ptr<TBiblioteca> Nova, const QString &Lugar);
    void PerguntarEAbrir();
    void PerguntarEAbrirBanco();
    void PerguntarEAbrirFigura();
    void MostrarFiguraDoSimbolo(int Indice);
    void PerguntarEExportar();
    void PerguntarEGravarFolha();
    void AbrirSolto(const QString &Arquivo);
    void MostrarEstado();

    TFontesDaBiblioteca FFontes;
    std::unique_ptr<TBiblioteca> FBiblioteca;
    QTabWidget *FPaginas;
    TPaginaDeSimbolos *FPaginaDeSimbolos;
    TPainelDaArvore *FPainelDaArvore;
    TGaleria *FGaleria;
    TPainelDeAvisos *FAvisos;
    QLabel *FContagem = nullptr;
    QLabel *FAtual = nullptr;
};

} // namespace Hospedeiro
