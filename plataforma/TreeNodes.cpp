// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/TreeNodes.h"

#include <mutex>
#include <utility>

namespace Sibrel
{

using TGuarda = std::lock_guard<TTravaDeNos>;

IPublicadorDeNos::~IPublicadorDeNos() = default;

TTreeNodes::TTreeNodes() = default;

TTreeNodes::~TTreeNodes()
{
    for (TTreeNode *Morto : FMortos)
        Destruir(Morto);
    while (FRaizes.Primeiro != nullptr)
        Destruir(std::exchange(FRaizes.Primeiro, FRaizes.Primeiro->FProximo));
}

// Without recursion: a tree may be as deep as it is long.
void TTreeNodes::Destruir(TTreeNode *Raiz) noexcept
{
    TTreeNode *No = Raiz;
    for (;;) {
        for (const TFilhosDeNo *F = No->Filhos(); F != nullptr && F->Primeiro != nullptr; F = No->Filhos())
            No = F->Primeiro;
        if (No == Raiz)
            break;
        TTreeNode *Pai = No->FPai;
        TTreeNode *Proximo = No->FProximo;
        Pai->Filhos()->Primeiro = Proximo;
        const std::unique_ptr<TTreeNode> Morto(No);
        No = Proximo != nullptr ? Proximo : Pai;
    }
    const std::unique_ptr<TTreeNode> Morto(Raiz);
}

TFilhosDeNo &TTreeNodes::FilhosDe(TTreeNode *Pai)
{
    return Pai != nullptr ? Pai->FilhosPorFazer() : FRaizes;
}

const TFilhosDeNo *TTreeNodes::FilhosDe(const TTreeNode *Pai) const noexcept
{
    return Pai != nullptr ? Pai->Filhos() : &FRaizes;
}

TTreeNode *TTreeNodes::AddNode(std::unique_ptr<TTreeNode> Novo, TTreeNode *Pai)
{
    const TGuarda Guarda(FTrava);
    TFilhosDeNo &Irmaos = FilhosDe(Pai);
    TTreeNode *No = Novo.get();
    if (FPublicador != nullptr) {
        FPendencias.Inseridos.push_back(No);
        No->Marcar(TTreeNode::PorInserir);
    }
    // From here on nothing raises: the node is in the tree and in the list, or in neither.
    static_cast<void>(Novo.release());
    No->FPai = Pai;
    No->FAnterior = Irmaos.Ultimo;
    (Irmaos.Ultimo != nullptr ? Irmaos.Ultimo->FProximo : Irmaos.Primeiro) = No;
    Irmaos.Ultimo = No;
    ++Irmaos.Quantos;
    ++FQuantos;
    No->FSerie = FProximaSerie++;
    No->Marcar(TTreeNode::Inserido);
    DepoisDeInserir(*No);
    Avisar();
    return No;
}

TTreeNode *TTreeNodes::AddChild(TTreeNode *Pai, const QString &Texto)
{
    auto No = std::make_unique<TTreeNode>(*this);
    No->AtribuirText(Texto);
    return AddNode(std::move(No), Pai);
}

void TTreeNodes::Desligar(TTreeNode &No)
{
    TFilhosDeNo &Irmaos = FilhosDe(No.FPai);
    (No.FAnterior != nullptr ? No.FAnterior->FProximo : Irmaos.Primeiro) = No.FProximo;
    (No.FProximo != nullptr ? No.FProximo->FAnterior : Irmaos.Ultimo) = No.FAnterior;
    No.FProximo = No.FAnterior = nullptr; // its parent stays: the model asks for it until the row is gone
    --Irmaos.Quantos;
}

void TTreeNodes::MarcarRetirados(TTreeNode &Raiz)
{
    TTreeNode *Fim = Raiz.ProximoFora();
    for (TTreeNode *No = &Raiz; No != Fim; No = No->GetNext()) {
        AntesDeRetirar(*No);
        No->Marcar(TTreeNode::Retirado);
        --FQuantos;
    }
}

void TTreeNodes::Delete(TTreeNode *No)
{
    const TGuarda Guarda(FTrava);
    if (No == nullptr || !No->Tem(TTreeNode::Inserido) || No->Tem(TTreeNode::Retirado))
        return;
    if (No->Tem(TTreeNode::Publicado))
        FPendencias.Retirados.push_back(No);
    try {
        FMortos.push_back(No);
    } catch (...) { // it stays in the tree, and its row too
        if (No->Tem(TTreeNode::Publicado))
            FPendencias.Retirados.pop_back();
        throw;
    }
    MarcarRetirados(*No);
    Desligar(*No);
    if (FPublicador == nullptr)
        Enterrar();
    else
        Avisar();
}

void TTreeNodes::Clear()
{
    const TGuarda Guarda(FTrava);
    FMortos.reserve(FMortos.size() + static_cast<std::size_t>(FRaizes.Quantos)); // all of them or none
    AntesDeLimpar();
    for (TTreeNode *No = FRaizes.Primeiro; No != nullptr; No = No->FProximo)
        FMortos.push_back(No);
    for (TTreeNode *No = FRaizes.Primeiro; No != nullptr; No = No->GetNext())
        No->Marcar(TTreeNode::Retirado);
    FRaizes.Primeiro = FRaizes.Ultimo = nullptr;
    FRaizes.Quantos = 0;
    FQuantos = 0;
    FPendencias = TPendenciasDeNos();
    if (FPublicador == nullptr) {
        Enterrar();
    } else {
        FPendencias.Limpar = true;
        Avisar();
    }
}

int TTreeNodes::Count() const
{
    const TGuarda Guarda(FTrava);
    return FQuantos;
}

TTreeNode *TTreeNodes::GetFirstNode() const
{
    const TGuarda Guarda(FTrava);
    return FRaizes.Primeiro;
}

TTreeNode *TTreeNodes::PrimeiroFilho(const TTreeNode *Pai) const
{
    const TGuarda Guarda(FTrava);
    const TFilhosDeNo *Filhos = FilhosDe(Pai);
    return Filhos != nullptr ? Filhos->Primeiro : nullptr;
}

int TTreeNodes::QuantosFilhos(const TTreeNode *Pai) const
{
    const TGuarda Guarda(FTrava);
    const TFilhosDeNo *Filhos = FilhosDe(Pai);
    return Filhos != nullptr ? Filhos->Quantos : 0;
}

bool TTreeNodes::Antes(const TTreeNode *A, const TTreeNode *B) const
{
    const TGuarda Guarda(FTrava);
    int NivelA = A->Level();
    int NivelB = B->Level();
    const bool BMaisFundo = NivelB > NivelA;
    for (; NivelA > NivelB; --NivelA)
        A = A->FPai;
    for (; NivelB > NivelA; --NivelB)
        B = B->FPai;
    if (A == B)
        return BMaisFundo; // one lay inside the other, or they are the same
    for (; A->FPai != B->FPai; B = B->FPai)
        A = A->FPai;
    return A->FSerie < B->FSerie;
}

void TTreeNodes::BeginUpdate()
{
    const TGuarda Guarda(FTrava);
    ++FEmAtualizacao;
}

void TTreeNodes::EndUpdate()
{
    const TGuarda Guarda(FTrava);
    --FEmAtualizacao;
    if (!FPendencias.Vazia())
        Avisar();
}

void TTreeNodes::Segurar()
{
    const TGuarda Guarda(FTrava);
    ++FSegurados;
}

void TTreeNodes::Soltar()
{
    std::vector<TTreeNode *> Mortos;
    {
        const TGuarda Guarda(FTrava);
        --FSegurados;
        Mortos = MortosDeVez();
    }
    for (TTreeNode *Morto : Mortos) // without the lock: there may be very many
        Destruir(Morto);
}

void TTreeNodes::Reservar(TTreeNode &No, bool Sim)
{
    const TGuarda Guarda(FTrava);
    if (Sim)
        No.Marcar(TTreeNode::Reservado);
    else
        No.Desmarcar(TTreeNode::Reservado);
}

bool TTreeNodes::Reservado(const TTreeNode &No) const
{
    const TGuarda Guarda(FTrava);
    return No.Tem(TTreeNode::Reservado);
}

void TTreeNodes::AtribuirPublicador(IPublicadorDeNos *Publicador)
{
    const TGuarda Guarda(FTrava);
    FPublicador = Publicador;
    FPendencias = TPendenciasDeNos();
    FDevendo = false;
    FRaizes.Publicados.clear();
    for (TTreeNode *No = FRaizes.Primeiro; No != nullptr; No = No->GetNext()) {
        No->Desmarcar(TTreeNode::Publicado);
        No->Desmarcar(TTreeNode::PorMudar);
        No->Desmarcar(TTreeNode::EmLote);
        No->FLinha = -1;
        if (TFilhosDeNo *Filhos = No->Filhos())
            Filhos->Publicados.clear();
        if (Publicador != nullptr) {
            No->Marcar(TTreeNode::PorInserir);
            FPendencias.Inseridos.push_back(No);
        }
    }
    Enterrar();
    Avisar();
}

TPendenciasDeNos TTreeNodes::TomarPendencias()
{
    FDevendo = true;
    return std::exchange(FPendencias, TPendenciasDeNos());
}

bool TTreeNodes::TemPendencias() const
{
    const TGuarda Guarda(FTrava);
    return !FPendencias.Vazia();
}

void TTreeNodes::Publicou()
{
    const TGuarda Guarda(FTrava);
    FDevendo = false;
    Enterrar();
}

// Those at which nothing can point any more.
std::vector<TTreeNode *> TTreeNodes::MortosDeVez()
{
    if (FSegurados > 0 || FDevendo || !FPendencias.Vazia())
        return {};
    return std::exchange(FMortos, {});
}

void TTreeNodes::Enterrar()
{
    // Out of the list first: a destructor may delete further nodes.
    for (TTreeNode *Morto : MortosDeVez())
        Destruir(Morto);
}

void TTreeNodes::NoMudou(TTreeNode &No)
{
    if (!No.Tem(TTreeNode::Publicado) || No.Tem(TTreeNode::Retirado))
        return;
    if (!No.Tem(TTreeNode::PorMudar)) {
        FPendencias.Mudados.push_back(&No);
        No.Marcar(TTreeNode::PorMudar);
    }
    Avisar();
}

void TTreeNodes::PedirExpansao(TTreeNode &No)
{
    if (!No.Tem(TTreeNode::Publicado) || No.Tem(TTreeNode::Retirado))
        return; // its row comes with the state
    FPendencias.Expansoes.push_back(&No);
    Avisar();
}

void TTreeNodes::Avisar()
{
    if (FPublicador != nullptr && FEmAtualizacao == 0 && !TTravaDeNos::TPaciente::Sou())
        FPublicador->HaPendencias();
}

void TTreeNodes::DepoisDeInserir(TTreeNode &) {}
void TTreeNodes::AntesDeRetirar(TTreeNode &) {}
void TTreeNodes::AntesDeMudar(TTreeNode &, TTreeNode::TMudancas) {}
void TTreeNodes::DepoisDeMudar(TTreeNode &, TTreeNode::TMudancas) {}
void TTreeNodes::AntesDeLimpar() {}

} // namespace Sibrel
