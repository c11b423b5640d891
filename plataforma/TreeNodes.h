// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Exportacao.h"
#include "plataforma/TravaDeNos.h"
#include "plataforma/TreeNode.h"

#include <QString>

#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

namespace Sibrel
{

/// Who shows a tree and wants to know when there is something new to show.
class SIBREL_EXPORT IPublicadorDeNos
{
public:
    virtual ~IPublicadorDeNos();
    /// Changes wait for publication (TTreeNodes::TomarPendencias). Called on the thread that made them,
    /// unless that is a patient one (TTravaDeNos::TPaciente): it says itself when there is enough to show.
    virtual void HaPendencias() = 0;
};

/// What has happened to a tree since it was last shown, in the order in which it happened within each kind.
struct SIBREL_EXPORT TPendenciasDeNos {
    bool Limpar = false; ///< all that was shown is gone; what follows came afterwards
    std::vector<TTreeNode *> Retirados;
    std::vector<TTreeNode *> Inseridos;
    std::vector<TTreeNode *> Mudados;
    std::vector<TTreeNode *> Expansoes; ///< to be expanded or collapsed, as the node says
    bool Vazia() const noexcept
    {
        return !Limpar && Retirados.empty() && Inseridos.empty() && Mudados.empty() && Expansoes.empty();
    }
};

/// The nodes of a tree: their structure and contents, as data. Knows no view and no widget.
///
/// Any thread may read and change it: every operation takes the lock (Trava) for its own moment, and a
/// caller takes it around several that belong together, for short. Changes wait for publication to the one
/// publisher, when there is one; those made on its own thread are shown at once, or at the end of the
/// outermost BeginUpdate/EndUpdate.
///
/// A deleted node leaves the tree at once and is destroyed when nothing can point at it any more: at once,
/// after its row has been withdrawn, or when the last Segurar has ended. Node pointers kept while
/// holding (Segurar) are therefore good until the hold ends, and NaArvore() tells whether they still count.
class SIBREL_EXPORT TTreeNodes
{
public:
    TTreeNodes();
    virtual ~TTreeNodes();
    TTreeNodes(const TTreeNodes &) = delete;
    TTreeNodes &operator=(const TTreeNodes &) = delete;

    TTravaDeNos &Trava() const noexcept { return FTrava; }

    /// Appends a node, made for this collection, as the last child of `Pai` (top level when null).
    TTreeNode *AddNode(std::unique_ptr<TTreeNode> No, TTreeNode *Pai);
    /// Appends a plain node with a caption.
    TTreeNode *AddChild(TTreeNode *Pai, const QString &Texto);
    /// Takes a node and all below it out. Null and nodes that are not in the tree are ignored.
    void Delete(TTreeNode *No);
    /// Takes everything out.
    void Clear();

    /// Number of nodes at all levels.
    int Count() const;
    TTreeNode *GetFirstNode() const;
    /// The first child of `Pai`, or the first top-level node when it is null.
    TTreeNode *PrimeiroFilho(const TTreeNode *Pai) const;
    int QuantosFilhos(const TTreeNode *Pai) const;
    /// Does `A` come before `B` in tree order?
    bool Antes(const TTreeNode *A, const TTreeNode *B) const;

    /// Between the two nothing is published from the publisher's thread. They nest.
    void BeginUpdate();
    void EndUpdate();

    /// Holds: nodes deleted until the matching Soltar are not destroyed.
    void Segurar();
    void Soltar();
    /// A mark on nodes that an update's queue refers to, and whether a node has it.
    void Reservar(TTreeNode &No, bool Sim);
    bool Reservado(const TTreeNode &No) const;

    /// The publisher, not owned; null when nobody shows the tree. On its own thread.
    void AtribuirPublicador(IPublicadorDeNos *Publicador);
    /// What waits for publication, which the caller now owes. Under the lock.
    TPendenciasDeNos TomarPendencias();
    bool TemPendencias() const;
    /// Called by the publisher when all taken changes are shown: withdrawn nodes may go.
    void Publicou();

protected:
    /// Called under the lock, for classes that keep indexes: a node was added, is about to leave (each node
    /// of a deleted subtree), is about to change what the set says, has changed it; everything is leaving.
    /// None may raise.
    virtual void DepoisDeInserir(TTreeNode &No);
    virtual void AntesDeRetirar(TTreeNode &No);
    virtual void AntesDeMudar(TTreeNode &No, TTreeNode::TMudancas Quais);
    virtual void DepoisDeMudar(TTreeNode &No, TTreeNode::TMudancas Quais);
    virtual void AntesDeLimpar();
    static std::uint32_t Serie(const TTreeNode &No) noexcept { return No.FSerie; }
    static const TTextosCompactos &TextosDe(const TTreeNode &No) noexcept { return No.FTextos; }
    /// A number of the node in an index that the class keeps; there is room for two.
    static std::uint32_t &EntradaDe(TTreeNode &No, std::size_t Indice) noexcept
    {
        return No.FEntradas[Indice];
    }

private:
    friend class TTreeNode;
    friend class TModeloDeNos;

    TFilhosDeNo &FilhosDe(TTreeNode *Pai);
    const TFilhosDeNo *FilhosDe(const TTreeNode *Pai) const noexcept;
    void NoMudou(TTreeNode &No);
    void PedirExpansao(TTreeNode &No);
    void Desligar(TTreeNode &No);
    void MarcarRetirados(TTreeNode &Raiz);
    void Avisar();
    std::vector<TTreeNode *> MortosDeVez();
    void Enterrar();
    static void Destruir(TTreeNode *Primeiro) noexcept;

    mutable TTravaDeNos FTrava;
    TFilhosDeNo FRaizes;
    TPendenciasDeNos FPendencias;
    std::vector<TTreeNode *> FMortos; // roots of what was deleted and not destroyed
    IPublicadorDeNos *FPublicador = nullptr;
    int FQuantos = 0;
    int FSegurados = 0;
    int FEmAtualizacao = 0;
    std::uint32_t FProximaSerie = 0;
    bool FDevendo = false; // pending changes were taken and are not all shown yet
};

template <class Mudanca>
void TTreeNode::Mudando(TMudancas Quais, Mudanca &&Fazer)
{
    const std::lock_guard Guarda(FOwner.Trava());
    const bool Indexado = Tem(Inserido) && !Tem(Retirado);
    if (Indexado)
        FOwner.AntesDeMudar(*this, Quais);
    try {
        Fazer();
    } catch (...) {
        if (Indexado)
            FOwner.DepoisDeMudar(*this, Quais); // as it is now
        throw;
    }
    if (Indexado)
        FOwner.DepoisDeMudar(*this, Quais);
    Mudou();
}

/// BeginUpdate for the life of an object.
class SIBREL_EXPORT TAtualizacaoDeNos
{
public:
    explicit TAtualizacaoDeNos(TTreeNodes &Nos)
        : FNos(Nos)
    {
        FNos.BeginUpdate();
    }
    ~TAtualizacaoDeNos() { FNos.EndUpdate(); }
    TAtualizacaoDeNos(const TAtualizacaoDeNos &) = delete;
    TAtualizacaoDeNos &operator=(const TAtualizacaoDeNos &) = delete;

private:
    TTreeNodes &FNos;
};

} // namespace Sibrel
