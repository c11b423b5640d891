// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/ModeloDeNos.h"

#include <QThread>

#include <algorithm>
#include <mutex>
#include <unordered_map>
#include <unordered_set>

namespace Sibrel
{

using TGuarda = std::lock_guard<TTravaDeNos>;

TModeloDeNos::TModeloDeNos(std::shared_ptr<TTreeNodes> Nos, QObject *Dono)
    : QAbstractItemModel(Dono)
    , FNos(std::move(Nos))
{
    FNos->AtribuirPublicador(this);
}

TModeloDeNos::~TModeloDeNos()
{
    FNos->AtribuirPublicador(nullptr);
}

std::vector<TTreeNode *> &TModeloDeNos::FilhosPublicados(TTreeNode *Pai) const
{
    return Pai != nullptr ? Pai->Filhos()->Publicados : FNos->FRaizes.Publicados;
}

// Is the node's row, as far as the model is concerned, there? Its ancestors' rows may have gone before.
bool TModeloDeNos::TemLinha(const TTreeNode *No) const noexcept
{
    for (; No != nullptr; No = No->FPai)
        if (No->FLinha < 0)
            return false;
    return true;
}

QModelIndex TModeloDeNos::IndiceDaLinha(TTreeNode *No) const
{
    return No != nullptr ? createIndex(No->FLinha, 0, No) : QModelIndex();
}

QModelIndex TModeloDeNos::IndiceDe(const TTreeNode *No) const
{
    return No != nullptr && TemLinha(No) ? createIndex(No->FLinha, 0, No) : QModelIndex();
}

TTreeNode *TModeloDeNos::NoDe(const QModelIndex &Indice) const noexcept
{
    return Indice.isValid() && Indice.model() == this ? static_cast<TTreeNode *>(Indice.internalPointer())
                                                      : nullptr;
}

// The rows below an index. A view's layout asks for every row what is asked here, several times each.
std::span<TTreeNode *const> TModeloDeNos::Linhas(const QModelIndex &Pai) const noexcept
{
    const TTreeNode *No = NoDe(Pai);
    if (No == nullptr)
        return Pai.isValid() ? std::span<TTreeNode *const>() : FNos->FRaizes.Publicados;
    const TFilhosDeNo *Filhos = No->Filhos();
    return Filhos != nullptr ? Filhos->Publicados : std::span<TTreeNode *const>();
}

// A layout goes through the rows in order and asks each node for its children. The nodes of a large tree are
// in no cache: those of the next rows are fetched while the view works on this one, which saves a third of
// the time.
void TModeloDeNos::Antecipar(std::span<TTreeNode *const> Seguintes) noexcept
{
    for (const TTreeNode *No : Seguintes.first(std::min(LinhasAdiante, Seguintes.size())))
        __builtin_prefetch(&No->FFilhos);
}

QModelIndex TModeloDeNos::index(int Linha, int Coluna, const QModelIndex &Pai) const
{
    const std::span<TTreeNode *const> Todas = Linhas(Pai);
    if (Linha < 0 || Coluna != 0 || static_cast<std::size_t>(Linha) >= Todas.size())
        return {};
    const auto Esta = static_cast<std::size_t>(Linha);
    if (Esta + LinhasAdiante < Todas.size())
        Antecipar(Todas.subspan(Esta + LinhasAdiante, 1));
    return createIndex(Linha, 0, Todas[Esta]);
}

QModelIndex TModeloDeNos::parent(const QModelIndex &Indice) const
{
    const TTreeNode *No = NoDe(Indice);
    return No != nullptr ? IndiceDaLinha(No->FPai) : QModelIndex();
}

int TModeloDeNos::rowCount(const QModelIndex &Pai) const
{
    const std::span<TTreeNode *const> Todas = Linhas(Pai);
    Antecipar(Todas);
    return static_cast<int>(Todas.size());
}

int TModeloDeNos::columnCount(const QModelIndex &) const
{
    return 1;
}

bool TModeloDeNos::hasChildren(const QModelIndex &Pai) const
{
    return !Linhas(Pai).empty();
}

QVariant TModeloDeNos::data(const QModelIndex &Indice, int Papel) const
{
    const TTreeNode *No = NoDe(Indice);
    if (No == nullptr)
        return {};
    if (Papel == Qt::DisplayRole)
        return No->Text();
    return DadoDoNo ? DadoDoNo(*No, Papel) : QVariant();
}

Qt::ItemFlags TModeloDeNos::flags(const QModelIndex &Indice) const
{
    if (!Indice.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags Todas = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    // A view keeps a persistent index for every expanded row: leaves are exempt when they say so.
    return Linhas(Indice).empty() ? Todas | Qt::ItemNeverHasChildren : Todas;
}

void TModeloDeNos::HaPendencias()
{
    if (QThread::currentThread() == thread()) {
        Publicar();
    } else if (!TTravaDeNos::TPaciente::Sou() && !FPedido.exchange(true)) {
        QMetaObject::invokeMethod(this, "Publicar", Qt::QueuedConnection);
    }
}

void TModeloDeNos::Publicar()
{
    const TGuarda Guarda(FNos->Trava());
    FPedido = false;
    if (FPublicando)
        return; // the outer call goes on until nothing waits
    FPublicando = true;
    try {
        if (FPorRefazer)
            Refazer();
        while (FNos->TemPendencias())
            Aplicar(FNos->TomarPendencias());
    } catch (...) { // no memory, or a host's handler: what was taken is shown half
        FPublicando = false;
        FPorRefazer = true;
        throw;
    }
    FPublicando = false;
    FNos->Publicou();
}

// Shows everything anew, after a publication that did not come to its end.
void TModeloDeNos::Refazer()
{
    struct TSegurando { // rows are asked for until the reset is over
        TTreeNodes &Nos;
        explicit TSegurando(TTreeNodes &Quais)
            : Nos(Quais)
        {
            Nos.Segurar();
        }
        ~TSegurando() { Nos.Soltar(); }
        TSegurando(const TSegurando &) = delete;
        TSegurando &operator=(const TSegurando &) = delete;
    };
    const TSegurando Segurando(*FNos);
    beginResetModel();
    FNos->AtribuirPublicador(this);
    endResetModel();
    FPorRefazer = false;
}

void TModeloDeNos::Aplicar(const TPendenciasDeNos &P)
{
    if (AntesDePublicar) {
        constexpr std::size_t Poucos = 4;
        AntesDePublicar(P.Retirados.size() + P.Inseridos.size() + P.Mudados.size() + P.Expansoes.size() >
                        Poucos);
    }
    if (P.Limpar) {
        beginResetModel();
        FNos->FRaizes.Publicados.clear();
        endResetModel();
    }
    Retirar(P.Retirados);
    Inserir(P.Inseridos);
    Anunciar(P.Mudados);
    PedirExpansoes(P.Expansoes);
}

// Nodes that stand in adjacent rows, one run after the other, in the order given.
std::vector<TModeloDeNos::TTrecho> TModeloDeNos::Trechos(const std::vector<TTreeNode *> &Nos) const
{
    std::vector<TTrecho> Todos;
    for (const TTreeNode *No : Nos) {
        if (!TemLinha(No))
            continue;
        TTrecho *Atual = !Todos.empty() && Todos.back().Pai == No->FPai ? &Todos.back() : nullptr;
        if (Atual != nullptr && No->FLinha == Atual->Ultima + 1)
            Atual->Ultima = No->FLinha;
        else if (Atual != nullptr && No->FLinha == Atual->Primeira - 1)
            Atual->Primeira = No->FLinha;
        else
            Todos.push_back({No->FPai, No->FLinha, No->FLinha});
    }
    return Todos;
}

void TModeloDeNos::Retirar(const std::vector<TTreeNode *> &Nos)
{
    const std::vector<TTrecho> Todos = Trechos(Nos);
    if (Todos.size() > MaximoDeTrechos) {
        RetirarMuitos(Nos);
        return;
    }
    // The rows move as runs go: each is found again by its first node.
    std::vector<std::pair<TTreeNode *, int>> Comecos;
    Comecos.reserve(Todos.size());
    for (const TTrecho &T : Todos)
        Comecos.emplace_back(FilhosPublicados(T.Pai)[static_cast<std::size_t>(T.Primeira)],
                             T.Ultima - T.Primeira);
    for (const auto &[No, Mais] : Comecos)
        if (TemLinha(No))
            RetirarTrecho({No->FPai, No->FLinha, No->FLinha + Mais});
}

void TModeloDeNos::RetirarTrecho(const TTrecho &T)
{
    std::vector<TTreeNode *> &Filhos = FilhosPublicados(T.Pai);
    beginRemoveRows(IndiceDaLinha(T.Pai), T.Primeira, T.Ultima);
    for (int L = T.Primeira; L <= T.Ultima; ++L)
        Filhos[static_cast<std::size_t>(L)]->FLinha = -1;
    Filhos.erase(Filhos.begin() + T.Primeira, Filhos.begin() + T.Ultima + 1);
    for (auto L = static_cast<std::size_t>(T.Primeira); L < Filhos.size(); ++L)
        Filhos[L]->FLinha = static_cast<std::int32_t>(L);
    endRemoveRows();
}

void TModeloDeNos::RetirarMuitos(const std::vector<TTreeNode *> &Nos)
{
    Q_EMIT layoutAboutToBeChanged();
    std::unordered_set<TTreeNode *> Pais;
    for (TTreeNode *No : Nos)
        if (No->FLinha >= 0) {
            No->FLinha = -1;
            Pais.insert(No->FPai);
        }
    for (TTreeNode *Pai : Pais) {
        std::vector<TTreeNode *> &Filhos = FilhosPublicados(Pai);
        std::erase_if(Filhos, [](const TTreeNode *No) { return No->FLinha < 0; });
        for (std::size_t L = 0; L < Filhos.size(); ++L)
            Filhos[L]->FLinha = static_cast<std::int32_t>(L);
    }
    const QModelIndexList Antigos = persistentIndexList();
    QModelIndexList Novos;
    Novos.reserve(Antigos.size());
    for (const QModelIndex &I : Antigos)
        Novos.append(IndiceDe(NoDe(I)));
    changePersistentIndexList(Antigos, Novos);
    Q_EMIT layoutChanged();
}

void TModeloDeNos::Inserir(const std::vector<TTreeNode *> &Nos)
{
    struct TGrupo {
        TTreeNode *Pai;
        std::vector<TTreeNode *> Novos;
    };
    std::vector<TGrupo> Grupos;
    std::unordered_map<TTreeNode *, std::size_t> GrupoDoPai;
    std::vector<TTreeNode *> PorExpandir;
    std::vector<TTreeNode *> DoLote;
    DoLote.reserve(Nos.size());
    for (TTreeNode *No : Nos) {
        No->Desmarcar(TTreeNode::PorInserir);
        if (No->Tem(TTreeNode::Retirado))
            continue;
        DoLote.push_back(No);
        No->Marcar(TTreeNode::Publicado);
        No->Marcar(TTreeNode::EmLote);
        TTreeNode *Pai = No->FPai;
        if (Pai != nullptr && Pai->Tem(TTreeNode::EmLote)) {
            // Comes with its parent's row: nobody has seen either.
            std::vector<TTreeNode *> &Irmaos = FilhosPublicados(Pai);
            No->FLinha = static_cast<std::int32_t>(Irmaos.size());
            Irmaos.push_back(No);
            continue;
        }
        std::size_t Grupo = Grupos.size() - 1;
        if (Grupos.empty() || Grupos.back().Pai != Pai) {
            const auto [Lugar, Novo] = GrupoDoPai.try_emplace(Pai, Grupos.size());
            if (Novo)
                Grupos.push_back({Pai, {}});
            Grupo = Lugar->second;
        }
        Grupos[Grupo].Novos.push_back(No);
    }
    const bool PeloLayout = Grupos.size() > MaximoDeTrechos;
    if (PeloLayout)
        Q_EMIT layoutAboutToBeChanged(); // rows are only appended: no persistent index moves
    for (const TGrupo &G : Grupos) {
        std::vector<TTreeNode *> &Irmaos = FilhosPublicados(G.Pai);
        const int Primeira = static_cast<int>(Irmaos.size());
        if (!PeloLayout)
            beginInsertRows(IndiceDaLinha(G.Pai), Primeira, Primeira + static_cast<int>(G.Novos.size()) - 1);
        for (TTreeNode *No : G.Novos) {
            No->FLinha = static_cast<std::int32_t>(Irmaos.size());
            Irmaos.push_back(No);
        }
        if (!PeloLayout)
            endInsertRows();
        if (G.Pai != nullptr && Primeira == 0)
            PorExpandir.push_back(G.Pai);
    }
    if (PeloLayout)
        Q_EMIT layoutChanged();
    for (TTreeNode *No : DoLote) {
        No->Desmarcar(TTreeNode::EmLote);
        if (No->Tem(TTreeNode::Expandido) && No->FLinha >= 0 && rowCount(IndiceDaLinha(No)) > 0)
            PorExpandir.push_back(No);
    }
    std::erase_if(PorExpandir, [](const TTreeNode *No) { return !No->Tem(TTreeNode::Expandido); });
    PedirExpansoes(PorExpandir);
}

void TModeloDeNos::Anunciar(const std::vector<TTreeNode *> &Nos)
{
    for (TTreeNode *No : Nos)
        No->Desmarcar(TTreeNode::PorMudar);
    for (const TTrecho &T : Trechos(Nos)) {
        const QModelIndex Pai = IndiceDaLinha(T.Pai);
        Q_EMIT dataChanged(index(T.Primeira, 0, Pai), index(T.Ultima, 0, Pai));
    }
}

void TModeloDeNos::PedirExpansoes(const std::vector<TTreeNode *> &Nos)
{
    if (AoExpandir && !Nos.empty())
        AoExpandir(Nos);
}

} // namespace Sibrel
