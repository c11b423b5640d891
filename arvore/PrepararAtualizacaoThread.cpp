// SPDX-License-Identifier: LGPL-2.1-or-later
// What an update does on its own thread: preparation, carrying out, hand-overs to the GUI thread.
#include "arvore/ArquivoDeErro.h"
#include "arvore/Correspondencia.h"
#include "arvore/FilaDeAtualizacoes.h"
#include "arvore/PastaDeErros.h"
#include "arvore/PrepararAtualizacao.h"
#include "arvore/TagsXML.h"
#include "arvore/TreeViewXML.h"
#include "lumbrix/DecodeDateTimeXML.h"
#include "plataforma/Exception.h"
#include "plataforma/SeparadorDecimal.h"

#include <QThread>

#include <algorithm>

namespace Sibrel
{

namespace
{

constexpr QStringView AtributoDataHora = u"DataHora";
constexpr QStringView AtributoVisivel = u"Visivel";

QString XMLInvalido()
{
    return QStringLiteral("XML em formato inválido!");
}

// What telling of a failure takes, when memory is what failed.
constexpr std::size_t BytesDeReserva = 524288;

QString MemoriaInsuficiente()
{
    return QStringLiteral("Memória insuficiente!");
}

TFalhaDeAtualizacao FalhaDe(const std::exception_ptr &Erro)
{
    TFalhaDeAtualizacao Falha;
    try {
        std::rethrow_exception(Erro);
    } catch (const Exception &E) {
        Falha.Mensagem = E.Message;
        Falha.Detalhe = E.Detalhe;
    } catch (const std::bad_alloc &) {
        Falha.Mensagem = MemoriaInsuficiente();
    } catch (const std::exception &E) {
        Falha.Mensagem = QString::fromLocal8Bit(E.what());
    } catch (...) {
        Falha.Mensagem = QStringLiteral("Erro desconhecido");
    }
    return Falha;
}

template <class Fazer>
void HavendoMemoria(Fazer &&F) noexcept
{
    try {
        F();
    } catch (const std::bad_alloc &) {
        return;
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
    HavendoMemoria([this] { FReserva = std::make_unique_for_overwrite<char[]>(BytesDeReserva); });
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
    std::erase_if(FOperacoes, [](const std::unique_ptr<TAtualizacao> &A) { return A == nullptr; });
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

// Memory may be what failed: each part that finds none is left out, and the document is kept in any case.
void TPreparaAtualizacao::Falhar(const std::exception_ptr &Erro) noexcept
{
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

template <class Fazer>
void TPreparaAtualizacao::ComVista(Fazer &&F)
{
    const std::lock_guard Guarda(FTravaDaVista);
    if (FArvore == nullptr)
        throw TCancelado();
    F(*FArvore);
}

bool TPreparaAtualizacao::PrepararAtualizacao()
{
    try {
        return PrepararTudo();
    } catch (const TCancelado &) {
        throw;
    } catch (...) {
        const TFalhaDeAtualizacao Falha = FalhaDe(std::current_exception());
        throw Exception(XMLInvalido(),
                        Falha.Detalhe.isEmpty() ? Falha.Mensagem : Falha.Mensagem + u' ' + Falha.Detalhe);
    }
}

bool TPreparaAtualizacao::PrepararTudo()
{
    const IXMLNode Raiz = FDocumento->DocumentElement();
    if (!Raiz || (!FElementoRaiz.isEmpty() && !Raiz.NomeE(FElementoRaiz)))
        return true;
    if (const auto DataHora = Raiz.Attribute(AtributoDataHora)) {
        FElementoAtual = FDocumento->Raiz();
        const QDateTime Quando = DecodeDateTimeXML(*DataHora);
        FElementoAtual = {};
        ComVista([&](TTreeViewXML &Vista) { Vista.AtribuirDataHora(Quando); });
    }
    for (const TCursorXML &Filho : Raiz.TCursorXML::Filhos())
        if (!PrepararTratamento(nullptr, nullptr, Filho))
            return false;
    return true;
}

bool TPreparaAtualizacao::PrepararTratamento(TAtualizacao *AtualizacaoPai, TTreeNode *NoPai,
                                             const TCursorXML &NoXML)
{
    try {
        return TratarElemento(AtualizacaoPai, NoPai, NoXML);
    } catch (const TCancelado &) {
        throw;
    } catch (...) {
        return Perguntar(NoXML, std::current_exception());
    }
}

bool TPreparaAtualizacao::TratarElemento(TAtualizacao *AtualizacaoPai, TTreeNode *NoPai,
                                         const TCursorXML &NoXML)
{
    const std::optional<TRefNoXML> &Classe = ClasseDe(NoXML);
    if (!Classe)
        return true;
    VerificarCancelamento();
    if (*Classe) {
        auto Nova = std::make_unique<TAtualizacao>();
        TAtualizacao &A = *Nova;
        A.NoPai = NoPai;
        A.AtualizacaoPai = AtualizacaoPai;
        A.NoXML = NoXML.Guardar();
        A.ClasseNo = *Classe;
        A.No = ProcurarNoPeloXML(*FNos, FAtributoNome, NoPai, A.NoXML, *Classe);
        if (!Visivel(NoXML))
            A.Operacao = TOperacoes::exclusao;
        else
            A.Operacao = A.No == nullptr ? TOperacoes::inclusao : TOperacoes::alteracao;
        DoConfiguraOperacao(A);
        Enfileirar(std::move(Nova));
        AtualizacaoPai = &A;
        NoPai = A.No;
    }
    if (AtualizacaoPai != nullptr && AtualizacaoPai->Operacao == TOperacoes::exclusao)
        return true;
    for (const TCursorXML &Filho : NoXML.Filhos())
        if (!PrepararTratamento(AtualizacaoPai, NoPai, Filho))
            return false;
    return true;
}

bool TPreparaAtualizacao::Perguntar(const TCursorXML &NoXML, const std::exception_ptr &Erro)
{
    TFalhaDeAtualizacao Falha = FalhaDe(Erro);
    FElementoAtual = NoXML;
    Situar(Falha);
    FFalhas.push_back(std::move(Falha));
    Entregar(TPedido::Pergunta);
    if (FResposta)
        FElementoAtual = {}; // what fails from here on is not this one's fault
    return FResposta;
}

// Names are shared inside a document, so that one address is one name.
const std::optional<TRefNoXML> &TPreparaAtualizacao::ClasseDe(const TCursorXML &NoXML)
{
    const QString Nome = NoXML.NodeName();
    const auto [Lugar, Nova] = FClasses.try_emplace(Nome.constData());
    if (Nova)
        Lugar->second = {Nome, RegistroDeClasses().Obter(Nome)};
    return Lugar->second.second;
}

bool TPreparaAtualizacao::Visivel(const TCursorXML &NoXML)
{
    if (const auto Texto = NoXML.Attribute(AtributoVisivel))
        return Texto->toUpper() == u"S";
    constexpr int FilhosDeQuemSoSeIdentifica = 3;
    return NoXML.AttributeCount() >= 2 || NoXML.HasAttribute(_LINK_) ||
           NoXML.ChildCount() > FilhosDeQuemSoSeIdentifica || !NoXML.FindNode(_IDENTIFICADORES_);
}

void TPreparaAtualizacao::DoConfiguraOperacao(TAtualizacao &A)
{
    if (FAoConfigurarOperacao)
        ComVista([&](TTreeViewXML &) { FAoConfigurarOperacao(*this, A); });
}

void TPreparaAtualizacao::Enfileirar(std::unique_ptr<TAtualizacao> A)
{
    if (A->Operacao == TOperacoes::exclusao)
        RetirarOperacoes(A->No);
    std::vector<std::size_t> &Lugares = A->No != nullptr ? FPorNo[A->No] : FSemNo;
    Lugares.push_back(FOperacoes.size());
    try {
        FOperacoes.push_back(std::move(A));
    } catch (...) {
        Lugares.pop_back(); // the next operation takes that place
        throw;
    }
}

// Also for no node: a deletion that found none withdraws all insertions so far.
void TPreparaAtualizacao::RetirarOperacoes(TTreeNode *No)
{
    std::vector<std::size_t> &Lugares = No != nullptr ? FPorNo[No] : FSemNo;
    for (const std::size_t Lugar : Lugares) {
        // Kept apart: operations below it still point at it. Gone already when memory ended here before.
        if (TAtualizacao *A = FOperacoes[Lugar].get(); A != nullptr) {
            FRetiradas.push_back(std::move(FOperacoes[Lugar]));
            A->Retirada = true;
        }
    }
    Lugares.clear();
}

void TPreparaAtualizacao::Atualizar()
{
    if (SeparadorDecimal() != u'.')
        AtribuirSeparadorDecimal(u'.');
    FReservar = std::any_of(FOperacoes.begin(), FOperacoes.end(), [](const auto &A) {
        return A->Operacao == TOperacoes::exclusao && A->No == nullptr;
    });
    if (FReservar)
        for (const auto &A : FOperacoes)
            if (A->No != nullptr)
                FNos->Reservar(*A->No, true);
    FUltimaEntrega = TRelogio::now();
    for (const auto &A : FOperacoes) {
        VerificarCancelamento();
        FElementoAtual = static_cast<const TCursorXML &>(A->NoXML);
        if (Realizar(*A))
            ++FUltimoPasso;
        TalvezEntregar();
    }
    FElementoAtual = {};
}

// True when the operation counts as a step.
bool TPreparaAtualizacao::Realizar(TAtualizacao &A)
{
    switch (A.Operacao) {
    case TOperacoes::inclusao:
        return Incluir(A);
    case TOperacoes::alteracao:
        return Alterar(A);
    case TOperacoes::exclusao:
        break;
    }
    Excluir(A);
    return false;
}

bool TPreparaAtualizacao::Incluir(TAtualizacao &A)
{
    if (A.NoPai == nullptr && A.AtualizacaoPai != nullptr) {
        if (A.AtualizacaoPai->Retirada || A.AtualizacaoPai->No == nullptr)
            return false; // what it was to lie under was never made
        A.NoPai = A.AtualizacaoPai->No;
    }
    if (!A.ClasseNo)
        return false;
    std::unique_ptr<TTreeNodeXML> Novo = NovoNoXML(*FNos, A.ClasseNo);
    TTreeNodeXML *No = Novo.get();
    {
        // The tree's own class loads in no time and is seen only when it is ready; a host's class may take
        // as long as it likes, and the window goes on working meanwhile.
        const std::lock_guard Guarda(FNos->Trava());
        if (A.NoPai != nullptr && !A.NoPai->NaArvore())
            return false; // deleted meanwhile
        FNos->AddNode(std::move(Novo), A.NoPai);
        A.No = No;
        if (FReservar)
            FNos->Reservar(*No, true);
        if (A.ClasseNo == TRefNoXML::De<TTreeNodeXML>()) {
            No->AtribuirNoXML(A.NoXML);
            No->Expand();
            return true;
        }
    }
    if (No->AtribuirNoXML(A.NoXML))
        No->Expand();
    else
        FNos->Delete(No);
    return true;
}

bool TPreparaAtualizacao::Alterar(TAtualizacao &A)
{
    auto *No = dynamic_cast<TTreeNodeXML *>(A.No);
    if (No == nullptr || !No->NaArvore())
        return false;
    if (!No->AtribuirNoXML(A.NoXML))
        A.Operacao = TOperacoes::exclusao; // a mark: the node stays
    return true;
}

void TPreparaAtualizacao::Excluir(TAtualizacao &A)
{
    if (A.No != nullptr) {
        FNos->Delete(A.No);
        A.No = nullptr;
    } else {
        ExcluirTodosOsNos(A.NoXML);
    }
}

void TPreparaAtualizacao::ExcluirTodosOsNos(const IXMLNode &NoXML)
{
    for (TTreeNodeXML *No : FNos->ObterNos(TIdentificacao(NoXML)))
        if (!FNos->Reservado(*No) && No->NaArvore())
            ComVista([No](TTreeViewXML &Vista) { Vista.Excluir(No); });
}

void TPreparaAtualizacao::LiberarOperacoes()
{
    if (FReservar) {
        const std::lock_guard Guarda(FNos->Trava());
        for (const auto &A : FOperacoes)
            if (A && A->No != nullptr)
                FNos->Reservar(*A->No, false);
    }
    FOperacoes.clear();
    FOperacoes.shrink_to_fit();
    FRetiradas.clear();
    FPorNo.clear();
    FSemNo = std::vector<std::size_t>();
}

} // namespace Sibrel
