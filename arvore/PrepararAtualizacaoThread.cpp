// SPDX-License-Identifier: LGPL-2.1-or-later
// What an update does on its own thread: its stages, its end and the hand-overs to the GUI thread.
#include "arvore/ArquivoDeErro.h"
#include "arvore/FalhaDeAtualizacao.h"
#include "arvore/FilaDeAtualizacoes.h"
#include "arvore/PastaDeErros.h"
#include "arvore/PrepararAtualizacao.h"
#include "arvore/TreeViewXML.h"
#include "plataforma/Exception.h"

#include <QThread>

#include <new>

namespace Sibrel
{

namespace
{

// What telling of a failure takes, when memory is what failed.
constexpr std::size_t BytesDeReserva = 524288;

// What is left out when it fails, as for want of memory: the update comes to its end in any case.
template <class Fazer>
void HavendoMemoria(Fazer &&F) noexcept
{
    try {
        F();
    } catch (...) {
        return;
    }
}

bool PorFaltaDeMemoria(const std::exception_ptr &Erro) noexcept
{
    try {
        std::rethrow_exception(Erro);
    } catch (const std::bad_alloc &) {
        return true;
    } catch (...) {
        return false;
    }
}

} // namespace

void TPreparaAtualizacao::Execute()
{
    const TTravaDeNos::TPaciente Paciente;
    FNos->Segurar();
    // Qt keeps a record of each thread, made when it is first needed: not in the middle, when memory may be
    // short.
    static_cast<void>(QThread::currentThread());
    Reservar();
    QString Ultima;
    try {
        Etapas();
        Ultima = QStringLiteral("Terminado");
    } catch (const TCancelado &) {
        Ultima = QStringLiteral("Cancelado");
    } catch (...) {
        Ultima = XMLInvalido();
        Falhar(std::current_exception());
    }
    Encerrar(Ultima);
    FilaDeAtualizacoes().Passar(*this);
    Chamar("Terminar"); // nothing of this object from here on
}

void TPreparaAtualizacao::Etapas()
{
    IrParaEtapa(QStringLiteral("Preparação"));
    Progresso(0, 0);
    if (!PrepararAtualizacao())
        throw Exception(XMLInvalido());
    std::erase(FOperacoes, nullptr);
    IrParaEtapa(QStringLiteral("Atualização"));
    Progresso(0, static_cast<int>(FOperacoes.size()));
    Atualizar();
    EntregarPassos();
}

// The last report comes after everything is shown and let go; then the next update may begin. Deleted nodes
// are destroyed here, once their rows are gone, and not on the GUI thread: there may be very many.
void TPreparaAtualizacao::Encerrar(const QString &Ultima)
{
    const auto SemErro = [](auto &&Fazer) {
        try {
            Fazer();
        } catch (...) { // the outcome is settled: a handler's error, or the view's end, changes it no more
        }
    };
    FPublicarTudo = true;
    SemErro([this] { EntregarPassos(); });
    SemErro([this] { Entregar(TPedido::Passos); });
    LiberarOperacoes();
    FNos->Soltar();
    SemErro([&] {
        IrParaEtapa(Ultima);
        Progresso(0, 0);
    });
    FDocumento.reset();
}

// Without a reserve the next want of memory ends the update.
void TPreparaAtualizacao::Reservar() noexcept
{
    if (FReserva == nullptr)
        HavendoMemoria([this] { FReserva = std::make_unique_for_overwrite<char[]>(BytesDeReserva); });
}

// Memory may be what failed: then what the update held is given back first, since ending takes some on both
// threads. Each part that finds none is left out, and the document is kept in any case.
void TPreparaAtualizacao::Falhar(const std::exception_ptr &Erro) noexcept
{
    if (FReserva == nullptr || PorFaltaDeMemoria(Erro))
        LiberarOperacoes();
    FReserva.reset();
    TFalhaDeAtualizacao Falha;
    Falha.Mensagem = MemoriaInsuficiente();
    HavendoMemoria([&] { Falha = FalhaDe(Erro); });
    HavendoMemoria([&] { Situar(Falha); });
    FDocumentoPorGuardar = true;
    HavendoMemoria([&] {
        try {
            FArquivoDeErro =
                GravarArquivoDeErro(PastaDeErros(), QDateTime::currentDateTime(), Falha.Mensagem, FXML);
            FDocumentoPorGuardar = false;
        } catch (const Exception &E) {
            const QString Motivo = E.Message + u' ' + E.Detalhe;
            Falha.Detalhe += (Falha.Detalhe.isEmpty() ? QString() : QStringLiteral(" ")) + Motivo;
            qWarning("Sibrel: %s", qUtf8Printable(Motivo));
        }
    });
    HavendoMemoria([&] { FFalhas.push_back(std::move(Falha)); });
}

// Tells where in the document the failure lies.
void TPreparaAtualizacao::Situar(TFalhaDeAtualizacao &Falha)
{
    if (!FElementoAtual)
        return;
    if (!FLocalizador)
        FLocalizador.emplace(FXML);
    Falha.Linha = FElementoAtual.Linha();
    Falha.Coluna = FLocalizador->Coluna(FElementoAtual);
    Falha.Elemento = FElementoAtual.NodeName();
    for (TCursorXML No = FElementoAtual; No; No = No.Parent())
        Falha.Caminho = Falha.Caminho.isEmpty() ? No.NodeName() : No.NodeName() + u'/' + Falha.Caminho;
}

void TPreparaAtualizacao::IrParaEtapa(const QString &Etapa)
{
    EntregarPassos(); // those of the stage before
    const std::lock_guard Guarda(FMutex);
    FEtapa = Etapa;
}

void TPreparaAtualizacao::Progresso(int Posicao, int Total)
{
    FPosicao.store(Posicao, std::memory_order_relaxed);
    FTotal.store(Total, std::memory_order_relaxed);
    FPrimeiroPasso = 1;
    FUltimoPasso = 0;
    Entregar(TPedido::Progresso);
}

// One step done; told at the next hand-over, which comes every few milliseconds.
void TPreparaAtualizacao::TalvezEntregar()
{
    constexpr std::chrono::milliseconds Intervalo(4);
    if (TRelogio::now() - FUltimaEntrega >= Intervalo)
        Entregar(TPedido::Passos);
}

void TPreparaAtualizacao::EntregarPassos()
{
    if (FUltimoPasso >= FPrimeiroPasso)
        Entregar(TPedido::Passos);
}

void TPreparaAtualizacao::Entregar(TPedido Pedido)
{
    std::unique_lock Guarda(FMutex);
    if (FSolto)
        throw TCancelado();
    FPedido = Pedido;
    FErroDaEntrega = nullptr;
    Guarda.unlock();
    Chamar("Servir");
    Guarda.lock();
    FMudou.wait(Guarda, [this] { return FPedido == TPedido::Nenhum || (FSolto && !FServindo); });
    FPrimeiroPasso = FUltimoPasso + 1;
    FUltimaEntrega = TRelogio::now();
    if (FSolto)
        throw TCancelado();
    if (FErroDaEntrega)
        std::rethrow_exception(std::exchange(FErroDaEntrega, nullptr));
}

void TPreparaAtualizacao::VerificarCancelamento() const
{
    if (FCancelado.load(std::memory_order_relaxed))
        throw TCancelado();
}

} // namespace Sibrel
