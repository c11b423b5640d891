// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "hospedeiro/Pagina.h"

#include <QDateTime>

#include <functional>
#include <memory>

namespace Sibrel
{
class TTabelaDeSimbolos;
struct TFalhaDeAtualizacao;
} // namespace Sibrel

namespace Hospedeiro
{

class TAlimentacao;
class TArvoreDoHospedeiro;
class TBancoDoExercicio;
class TBuscaNaArvore;
class TFichaDoNo;
class TFilaDeDocumentos;
class TRegistroDeAtualizacoes;

/// The page of the tree: the tree with its search, what is known of the selected node, and the updates.
class TPainelDaArvore : public TPagina
{
    Q_OBJECT

public:
    explicit TPainelDaArvore(QWidget *Dono = nullptr);
    ~TPainelDaArvore() override;

    TArvoreDoHospedeiro &Arvore() noexcept { return *FArvore; }
    TRegistroDeAtualizacoes &Registro() noexcept { return *FRegistro; }
    TFilaDeDocumentos &Fila() noexcept { return *FFila; }
    TAlimentacao &Alimentacao() noexcept { return *FAlimentacao; }
    /// Where the nodes' symbols come from; not owned. To be given again when it was replaced.
    void AtribuirTabela(Sibrel::TTabelaDeSimbolos *Tabela);

    /// Opens a document in place of the tree. The nodes come in the events that follow.
    void Abrir(const QString &Arquivo);
    /// The same with the units of a database, which is read when what was on its way has ended; `AoCarregar`
    /// is called as soon as it was read. Erro, and the tree as it was, when that fails.
    void AbrirBanco(std::shared_ptr<TBancoDoExercicio> Banco, std::function<void()> AoCarregar);
    /// Applies a document to the tree as it is.
    void Atualizar(const QString &Arquivo);
    /// Updates a tree that has nodes with the document, else opens it.
    void Receber(const QString &Arquivo);

    QString Titulo() const override;
    QString Arquivo() const override { return FArquivo; }
    QString Atual() const override;
    QString Contagem() const override;
    void MontarMenus(QMenuBar &Barra) override;
    void Localizar() override;
    void LocalizarOutro(bool ParaTras) override;

protected:
    /// Shows which element failed and asks whether to go on with the next one.
    virtual bool PerguntarSeContinua(const Sibrel::TFalhaDeAtualizacao &Falha);

private:
    void MontarAcoes();
    void MontarDisposicao();
    void Ligar();
    void PerguntarEAbrir();
    void PerguntarEAtualizar();
    void MostrarSelecao();
    void RenovarSelecao();

    TArvoreDoHospedeiro *FArvore;
    TRegistroDeAtualizacoes *FRegistro;
    TFilaDeDocumentos *FFila;
    TAlimentacao *FAlimentacao;
    TBuscaNaArvore *FBusca;
    TFichaDoNo *FFicha;
    QAction *FAbrir = nullptr;
    QAction *FAtualizar = nullptr;
    std::shared_ptr<TBancoDoExercicio> FBanco; // whose connection the tree has
    QString FArquivo;
    QDateTime FSemDados; // the tree's time while no document has given one
};

} // namespace Hospedeiro
