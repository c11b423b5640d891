// SPDX-License-Identifier: LGPL-2.1-or-later
// An update's life on the GUI thread: start, progress, questions, end. What it does on its own thread is in
// PrepararAtualizacaoThread.cpp, PreparacaoDeOperacoes.cpp and RealizacaoDeOperacoes.cpp.
#include "arvore/PrepararAtualizacao.h"

#include "arvore/FalhaDeAtualizacao.h"
#include "arvore/FilaDeAtualizacoes.h"
#include "arvore/TextosXML.h"
#include "arvore/TreeViewXML.h"
#include "plataforma/Exception.h"

#include <QCoreApplication>

#include <algorithm>

namespace Sibrel
{

namespace
{

bool EncerraComAplicacao = false; // GUI thread

constexpr int EstadosDaLeitura = 4;

} // namespace

// Nothing of the library runs on after the application or the library has gone.
void TFilaDeAtualizacoes::Encerrar()
{
    EncerraComAplicacao = false;
    const std::vector<TPreparaAtualizacao *> Restantes = FilaDeAtualizacoes().Todas();
    for (TPreparaAtualizacao *A : Restantes)
        A->Soltar();
    for (TPreparaAtualizacao *A : Restantes)
        delete A; // waits for its thread
}

namespace
{

constinit TModulo Modulo("PrepararAtualizacao", nullptr, &TFilaDeAtualizacoes::Encerrar);

} // namespace

TModulo &ModuloPrepararAtualizacao() noexcept
{
    return Modulo;
}

TPreparaAtualizacao &TPreparaAtualizacao::Iniciar(TTreeViewXML &Arvore, const QString &XML,
                                                  const QString &ElementoRaiz, TAoProgresso AoProgresso,
                                                  TConfigurarOperacao AoConfigurarOperacao, QObject *Contexto)
{
    if (!EncerraComAplicacao) {
        qAddPostRoutine(&TFilaDeAtualizacoes::Encerrar);
        EncerraComAplicacao = true;
    }
    std::unique_ptr<TPreparaAtualizacao> A(new TPreparaAtualizacao(
        Arvore, XML, ElementoRaiz, std::move(AoProgresso), std::move(AoConfigurarOperacao), Contexto));
    A->Abrir();
    QMetaObject::invokeMethod(A.get(), "Comecar", Qt::QueuedConnection);
    return *A.release(); // its own owner from here: it destroys itself at its end
}

TPreparaAtualizacao::TPreparaAtualizacao(TTreeViewXML &Arvore, const QString &XML,
                                         const QString &ElementoRaiz, TAoProgresso AoProgresso,
                                         TConfigurarOperacao AoConfigurarOperacao, QObject *Contexto)
    : FArvore(&Arvore)
    , FNos(std::static_pointer_cast<TTreeNodesXML>(Arvore.ItemsGuardados()))
    , FXML(XML)
    , FElementoRaiz(ElementoRaiz)
    , FAtributoNome(Arvore.AtributoNome)
    , FAoProgresso(std::move(AoProgresso))
    , FAoConfigurarOperacao(std::move(AoConfigurarOperacao))
    , FContexto(Contexto)
{
    FilaDeAtualizacoes().Registrar(*this);
}

TPreparaAtualizacao::~TPreparaAtualizacao()
{
    if (FThread.joinable())
        FThread.join();
    FilaDeAtualizacoes().Esquecer(*this);
}

int TPreparaAtualizacao::Instancias() noexcept
{
    return FilaDeAtualizacoes().Quantas();
}

std::vector<TPreparaAtualizacao *> TPreparaAtualizacao::DaVista(const TTreeViewXML &Arvore)
{
    std::vector<TPreparaAtualizacao *> Delas = FilaDeAtualizacoes().Todas();
    std::erase_if(Delas, [&Arvore](const TPreparaAtualizacao *A) { return A->FArvore != &Arvore; });
    return Delas;
}

void TPreparaAtualizacao::SoltarVista(TTreeViewXML &Arvore)
{
    for (TPreparaAtualizacao *A : DaVista(Arvore))
        A->Soltar();
}

QString TPreparaAtualizacao::TextoDaPergunta()
{
    return QStringLiteral("Erro ao tratar o xml de resposta") + PULALINHA.toString() +
           QStringLiteral("Deseja continuar?");
}

QString TPreparaAtualizacao::Etapa() const
{
    const std::lock_guard Guarda(FMutex);
    return FEtapa;
}

int TPreparaAtualizacao::Posicao() const
{
    return FPosicao.load(std::memory_order_relaxed);
}

int TPreparaAtualizacao::Total() const
{
    return FTotal.load(std::memory_order_relaxed);
}

void TPreparaAtualizacao::Cancelar() noexcept
{
    FCancelado.store(true, std::memory_order_relaxed);
}

void TPreparaAtualizacao::Abrir()
{
    FEtapa = QStringLiteral("Abertura");
    FTotal = EstadosDaLeitura;
    Contar(0);
    FDocumento = TXMLDocument::DeTexto(FXML);
}

void TPreparaAtualizacao::Comecar()
{
    try {
        LeuXML(EstadosDaLeitura);
    } catch (const std::exception &E) {
        qWarning("Sibrel: o progresso da abertura falhou: %s", E.what()); // nobody is above the event loop
    }
    if (FSolto)
        return Terminar();
    try {
        FilaDeAtualizacoes().Entrar(*this);
    } catch (const std::bad_alloc &) {
        FicarSemThread();
    }
}

// Lets one of the operations of the GUI thread run there. The call itself takes a little memory: when there
// is none the thread waits for some, since without the call the update would never end.
void TPreparaAtualizacao::Chamar(const char *Operacao) noexcept
{
    constexpr std::chrono::milliseconds Espera(10);
    for (;; std::this_thread::sleep_for(Espera)) {
        try {
            QMetaObject::invokeMethod(this, Operacao, Qt::QueuedConnection);
            return;
        } catch (const std::bad_alloc &) {
            continue;
        }
    }
}

void TPreparaAtualizacao::LeuXML(int Estado)
{
    Contar(Estado);
}

void TPreparaAtualizacao::Contar(int Posicao)
{
    FPosicao.store(Posicao, std::memory_order_relaxed);
    if (FArvore != nullptr)
        DoProgresso();
}

void TPreparaAtualizacao::DoProgresso()
{
    if (FAoProgresso)
        FAoProgresso(*this);
}

void TPreparaAtualizacao::Servir()
{
    TPedido Pedido = TPedido::Nenhum;
    {
        const std::lock_guard Guarda(FMutex);
        if (FSolto || FPedido == TPedido::Nenhum)
            return;
        Pedido = FPedido;
        FServindo = true;
    }
    std::exception_ptr Erro;
    try {
        if (Pedido == TPedido::Pergunta)
            FResposta = FArvore->DesejaContinuar(FFalhas.back());
        else
            ServirProgresso(Pedido);
    } catch (...) {
        Erro = std::current_exception(); // the update's own affair, as if it had called the handler itself
    }
    {
        const std::lock_guard Guarda(FMutex);
        FErroDaEntrega = Erro;
        FPedido = TPedido::Nenhum;
        FServindo = false;
        FMudou.notify_all();
    }
    if (FPorTerminar)
        Chamar("Terminar");
}

// Steps are told also when what they did cannot be shown, as for want of memory.
void TPreparaAtualizacao::ServirProgresso(TPedido Pedido)
{
    std::exception_ptr Erro;
    try {
        MostrarOFeito();
    } catch (...) {
        Erro = std::current_exception();
    }
    if (Pedido == TPedido::Progresso)
        Contar(FPosicao);
    else
        for (int Passo = FPrimeiroPasso; Passo <= FUltimoPasso && FArvore != nullptr; ++Passo)
            Contar(Passo);
    if (Erro)
        std::rethrow_exception(Erro);
}

void TPreparaAtualizacao::MostrarOFeito()
{
    if (FDocumentoPorGuardar) {
        FArvore->DocumentosNaoGravados.append(FXML);
        FDocumentoPorGuardar = false; // when it is safe
    }
    if (FPublicarTudo || HoraDePublicar()) {
        FArvore->Modelo().Publicar();
        FUltimaPublicacao = TRelogio::now();
    }
}

// Showing a batch makes the view lay out all its rows again: the larger the tree, the rarer, so that showing
// takes a bounded share of the time.
bool TPreparaAtualizacao::HoraDePublicar() const
{
    constexpr int Menor = 8;
    constexpr int VezesOCusto = 4;
    const int Intervalo = std::max(Menor, VezesOCusto * FArvore->CustoDoLayout());
    return TRelogio::now() - FUltimaPublicacao >= std::chrono::milliseconds(Intervalo);
}

void TPreparaAtualizacao::Soltar()
{
    {
        const std::lock_guard Guarda(FMutex);
        FSolto = true;
        FCancelado.store(true, std::memory_order_relaxed);
        FMudou.notify_all();
    }
    {
        const std::lock_guard Guarda(FTravaDaVista); // a hook that is running comes to its end
        FArvore = nullptr;
    }
    if (FilaDeAtualizacoes().Desistir(*this))
        Chamar("Terminar");
}

// The system gives no more threads: nothing was done, the document is not lost.
void TPreparaAtualizacao::FicarSemThread()
{
    if (FArvore != nullptr) {
        FFalhas.push_back({QStringLiteral("O sistema não criou a thread da atualização."), {}, 0, 0, {}, {}});
        FArvore->DocumentosNaoGravados.append(FXML);
        FEtapa = XMLInvalido();
        FTotal = 0;
        Contar(0);
    }
    Terminar();
}

void TPreparaAtualizacao::Terminar()
{
    if (FServindo) { // a handler runs an event loop of its own
        FPorTerminar = true;
        return;
    }
    delete this;
}

} // namespace Sibrel
