// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "arvore/IndiceDeNos.h"
#include "arvore/TreeNodeXML.h"
#include "plataforma/Deposito.h"
#include "plataforma/Exportacao.h"
#include "plataforma/LocalizadorXML.h"
#include "plataforma/Modulo.h"
#include "plataforma/XMLDocument.h"

#include <QObject>
#include <QString>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace Sibrel
{

class TPreparaAtualizacao;
class TTreeNodesXML;
class TTreeViewXML;

/// What is done with an element.
enum class TOperacoes : std::uint8_t { inclusao, alteracao, exclusao };

/// One queued operation.
struct SIBREL_EXPORT TAtualizacao {
    /// The node under which the element lies, null at the top level and below an insertion.
    TTreeNode *NoPai = nullptr;
    /// The operation of the nearest enclosing element that made one.
    TAtualizacao *AtualizacaoPai = nullptr;
    /// The node that stands for the element, null when there is none; after an insertion the new one.
    TTreeNode *No = nullptr;
    IXMLNode NoXML;
    TRefNoXML ClasseNo;
    TOperacoes Operacao = TOperacoes::inclusao;
    /// A later deletion has withdrawn it: nothing is done, nor for what was to lie below it.
    bool Retirada = false;
};

/// A host's hook: may change the operation. Called on the update's thread.
using TConfigurarOperacao = std::function<void(TPreparaAtualizacao &, TAtualizacao &)>;

/// What went wrong, in detail.
struct TFalhaDeAtualizacao {
    QString Mensagem;
    QString Detalhe;
    int Linha = 0;    ///< in the document, from 1; 0 when it has no place there
    int Coluna = 0;   ///< where the element's tag begins, from 1; 0 when not known (TLocalizadorXML)
    QString Elemento; ///< name of the element
    QString Caminho;  ///< names from the document element down to it, joined by "/"
};

/// Applies a document to a tree view: an update of its own thread.
///
/// The constructor reads the document; the update then waits for its turn (one works at a time in the whole
/// process, in the order in which they were started), matches each element with the tree's nodes, queues an
/// operation for each and carries them out. What the document's elements ask of node classes, and the hook,
/// runs on the update's thread; progress is told on the GUI thread while the update waits, and an update
/// that is over destroys itself there. Many steps share one hand-over: each is told, in order.
class SIBREL_EXPORT TPreparaAtualizacao : public QObject
{
    Q_OBJECT

public:
    using TAoProgresso = std::function<void(TPreparaAtualizacao &)>;

    /// Makes an update that owns itself and starts when the event loop runs next. Exception "XML em formato
    /// inválido!" when the text is no document. `Contexto` is the caller's and is only kept.
    static TPreparaAtualizacao &Iniciar(TTreeViewXML &Arvore, const QString &XML, const QString &ElementoRaiz,
                                        TAoProgresso AoProgresso, TConfigurarOperacao AoConfigurarOperacao,
                                        QObject *Contexto);
    ~TPreparaAtualizacao() override;

    /// Number of updates that exist.
    static int Instancias() noexcept;
    /// Updates of a view, in the order in which they were started. GUI thread.
    static std::vector<TPreparaAtualizacao *> DaVista(const TTreeViewXML &Arvore);
    /// A view goes: its updates end early, in silence. Waits for a hook of theirs that is running.
    static void SoltarVista(TTreeViewXML &Arvore);
    /// Folder of the files of failed updates; empty, as at the start, means the executable's. GUI thread.
    static void AtribuirPastaDeErros(const QString &Pasta);
    /// What the operator is asked when treating an element fails.
    static QString TextoDaPergunta();

    /// Stage, position and total, as told last. Any thread.
    QString Etapa() const;
    int Posicao() const;
    int Total() const;

    const QString &XML() const noexcept { return FXML; }
    const QString &ElementoRaiz() const noexcept { return FElementoRaiz; }
    QObject *Contexto() const noexcept { return FContexto; }
    /// The view, null once it has gone. GUI thread.
    TTreeViewXML *Arvore() const noexcept { return FArvore; }
    /// The operations, in the order in which they were made; some may be null. They are the update's and go
    /// with it. On the update's thread, or while progress is told.
    const std::vector<TAtualizacao *> &Operacoes() const noexcept { return FOperacoes; }
    /// What has failed so far, in order: elements, and at the end what ended the update. While progress is
    /// told.
    const std::vector<TFalhaDeAtualizacao> &Falhas() const noexcept { return FFalhas; }
    /// Name of the error file, empty when there is none. In the last progress.
    const QString &ArquivoDeErro() const noexcept { return FArquivoDeErro; }

    /// Ends the update between two operations: what is done stays done, and the last stage is "Cancelado".
    /// Any thread.
    void Cancelar() noexcept;

protected:
    TPreparaAtualizacao(TTreeViewXML &Arvore, const QString &XML, const QString &ElementoRaiz,
                        TAoProgresso AoProgresso, TConfigurarOperacao AoConfigurarOperacao,
                        QObject *Contexto);

    /// Tells the progress; on the GUI thread.
    virtual void DoProgresso();

private:
    struct TCancelado {
    };
    enum class TPedido : std::uint8_t { Nenhum, Progresso, Passos, Pergunta };
    using TRelogio = std::chrono::steady_clock;
    struct TClasse {
        std::optional<TRefNoXML> Classe;
        bool Procurada = false;
    };

    // GUI thread
    void Abrir();
    void LeuXML(int Estado);
    void Contar(int Posicao);
    Q_INVOKABLE void Comecar();
    Q_INVOKABLE void Servir();
    Q_INVOKABLE void Terminar();
    Q_INVOKABLE void FicarSemThread();
    void ServirProgresso(TPedido Pedido);
    void MostrarOFeito();
    bool HoraDePublicar() const;
    void Soltar();

    // Any thread
    void Chamar(const char *Operacao) noexcept;

    // The update's thread
    void Execute();
    void Etapas();
    void Encerrar(const QString &Ultima);
    void Reservar() noexcept;
    void Falhar(const std::exception_ptr &Erro) noexcept;
    void Situar(TFalhaDeAtualizacao &Falha);
    void IrParaEtapa(const QString &Etapa);
    void Progresso(int Posicao, int Total);
    void TalvezEntregar();
    void EntregarPassos();
    void Entregar(TPedido Pedido);
    void VerificarCancelamento() const;
    /// Hands the view to `F`, or ends the update when it has gone; the view stays meanwhile.
    template <class Fazer>
    void ComVista(Fazer &&F)
    {
        const std::lock_guard Guarda(FTravaDaVista);
        if (FArvore == nullptr)
            throw TCancelado();
        F(*FArvore);
    }
    bool PrepararAtualizacao();
    bool PrepararTudo();
    bool PrepararTratamento(TAtualizacao *AtualizacaoPai, TTreeNode *NoPai, const TCursorXML &NoXML);
    bool TratarElemento(TAtualizacao *AtualizacaoPai, TTreeNode *NoPai, const TCursorXML &NoXML);
    bool Perguntar(const TCursorXML &NoXML, const std::exception_ptr &Erro);
    TAtualizacao &NovaOperacao(TAtualizacao *AtualizacaoPai, TTreeNode *NoPai, const TCursorXML &NoXML,
                               const TRefNoXML &Classe);
    const std::optional<TRefNoXML> &ClasseDe(const TCursorXML &NoXML);
    bool SemClasse(const TCursorXML &NoXML) const noexcept;
    static bool Visivel(const TCursorXML &NoXML);
    void DoConfiguraOperacao(TAtualizacao &Atualizacao);
    void Enfileirar(TAtualizacao &Atualizacao);
    void RetirarOperacoes(TTreeNode *No);
    void RetirarOperacao(std::size_t Lugar) noexcept;
    void Atualizar();
    bool Realizar(TAtualizacao &A);
    bool Incluir(TAtualizacao &A);
    bool Alterar(TAtualizacao &A);
    void Excluir(TAtualizacao &A);
    void ExcluirTodosOsNos(const IXMLNode &NoXML);
    void LiberarOperacoes();

    friend class TFilaDeAtualizacoes;

    TTreeViewXML *FArvore;
    std::shared_ptr<TTreeNodesXML> FNos;
    QString FXML;
    QString FElementoRaiz;
    QString FAtributoNome;
    TAoProgresso FAoProgresso;
    TConfigurarOperacao FAoConfigurarOperacao;
    QObject *FContexto;
    TXMLDocument::TReferencia FDocumento;

    TDeposito<TAtualizacao> FDeposito;
    std::vector<TAtualizacao *> FOperacoes; // null where one was withdrawn
    std::vector<TTreeNode *> FAlvos;        // the node of each when it was queued
    TIndiceDeNos FPorAlvo;                  // their places by node, as far as a deletion has asked for them:
    std::size_t FIndexados = 0;             // up to here
    std::size_t FSemNo = 0;                 // those without a node are withdrawn up to here
    std::vector<TClasse> FClasses;          // by the number of the name
    std::vector<TFalhaDeAtualizacao> FFalhas;
    QString FArquivoDeErro;
    std::unique_ptr<char[]> FReserva; // memory for a failure
    TRelogio::time_point FUltimaEntrega;
    TRelogio::time_point FUltimaPublicacao;
    int FPrimeiroPasso = 1; // told at the next hand-over: from here to FUltimoPasso
    int FUltimoPasso = 0;
    TCursorXML FElementoAtual; // what is being treated
    std::optional<TLocalizadorXML> FLocalizador;
    bool FReservar = false;
    bool FPublicarTudo = false;
    bool FDocumentoPorGuardar = false;

    std::mutex FTravaDaVista; // held while a hook of the view's host runs
    mutable std::mutex FMutex;
    std::condition_variable FMudou;
    TPedido FPedido = TPedido::Nenhum;
    bool FResposta = false;
    bool FSolto = false;
    bool FServindo = false; // a hand-over is being served
    std::exception_ptr FErroDaEntrega;
    QString FEtapa;
    std::atomic<int> FPosicao = 0;
    std::atomic<int> FTotal = 0;
    std::atomic<bool> FCancelado = false;

    std::thread FThread;
    bool FPorTerminar = false;
};

/// The module that keeps the queue of updates.
SIBREL_EXPORT TModulo &ModuloPrepararAtualizacao() noexcept;

} // namespace Sibrel
