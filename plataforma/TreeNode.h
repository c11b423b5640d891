// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Exportacao.h"
#include "plataforma/TextosCompactos.h"

#include <QString>

#include <array>
#include <atomic>
#include <cstdint>
#include <vector>

namespace Sibrel
{

class TModeloDeNos;
class TTreeNode;
class TTreeNodes;

/// The children of a node, made when it gets its first one: most nodes are leaves.
struct TFilhosDeNo {
    TTreeNode *Primeiro = nullptr;
    TTreeNode *Ultimo = nullptr;
    int Quantos = 0;
    /// What the view shows of them; the model's business, on the GUI thread only.
    std::vector<TTreeNode *> Publicados;
};

/// One node of a tree: a caption, two image indexes, links to its neighbours. Plain data.
///
/// A node is made for a collection (its owner) and stands in the tree once the collection has added it; it
/// never moves. Everything here takes the collection's lock for the moment of the call, so that the GUI
/// thread and an update's thread may both use the node; take the lock around several calls to see them as
/// one. A node that was deleted while an update runs is not destroyed before the update is through (see
/// TTreeNodes).
class SIBREL_EXPORT TTreeNode
{
public:
    explicit TTreeNode(TTreeNodes &Owner);
    virtual ~TTreeNode();
    TTreeNode(const TTreeNode &) = delete;
    TTreeNode &operator=(const TTreeNode &) = delete;

    TTreeNodes &Owner() const noexcept { return FOwner; }

    /// The caption.
    QString Text() const;
    void AtribuirText(const QString &Texto);
    /// Index of the picture, 0 in a new node; the view decides which indexes have one.
    int ImageIndex() const;
    void AtribuirImageIndex(int Indice);
    /// The same while the node is selected.
    int SelectedIndex() const;
    void AtribuirSelectedIndex(int Indice);

    /// Neighbours; null where there is none. Costs do not depend on the number of siblings.
    TTreeNode *Parent() const;
    TTreeNode *GetFirstChild() const;
    TTreeNode *GetLastChild() const;
    TTreeNode *GetNextSibling() const;
    TTreeNode *GetPrevSibling() const;
    /// The next node in tree order: depth first, parents before children.
    TTreeNode *GetNext() const;
    /// Number of children.
    int Count() const;
    bool HasChildren() const { return Count() > 0; }
    /// 0 for a top-level node.
    int Level() const;
    /// Place among its siblings; counts them.
    int Index() const;
    /// Is this node `No` or above it?
    bool Contem(const TTreeNode *No) const;
    /// Stands in the tree (was added and not deleted)?
    bool NaArvore() const;

    /// Shows or hides the children, once there are some and a view to show them. A new node is not expanded.
    void Expand();
    void Collapse();
    bool Expanded() const;

    /// Takes the node and all below it out of the tree and destroys them.
    void Delete();

    /// What of a node changes; a set. The parts of its texts come first, in their order.
    enum TMudanca : std::uint8_t { MudaLegenda = 1, MudaListaA = 2, MudaListaB = 4, MudaMarcas = 8 };
    using TMudancas = std::uint8_t; ///< a set of TMudanca, joined by |
    static constexpr TMudancas MudaTudo = MudaLegenda | MudaListaA | MudaListaB | MudaMarcas;

protected:
    /// For derived classes, under the lock: the texts in their compact form.
    const TTextosCompactos &Textos() const noexcept { return FTextos; }
    /// Replaces one part of the texts and tells whoever follows the tree. Nothing happens when they are the
    /// same already.
    void TrocarTextos(TTextosCompactos::TParte Parte, TTextosCompactos::TLinhas Linhas);
    /// Replaces all parts at once; only what is different counts as changed.
    void TrocarTextos(const std::array<TTextosCompactos::TLinhas, TTextosCompactos::Partes> &Todas);
    /// Runs a change of something that the owner keeps indexes of, or that the view shows.
    template <class Mudanca>
    void Mudando(TMudancas Quais, Mudanca &&Fazer);
    /// Something that the view shows has changed.
    void Mudou();

private:
    friend class TTreeNodes;
    friend class TModeloDeNos;

    // All guarded by the lock.
    enum TMarca : std::uint8_t {
        Publicado = 1,   // has a row in the model
        PorInserir = 2,  // waits for its row
        PorMudar = 4,    // waits for its row to be drawn anew
        Retirado = 8,    // deleted, perhaps not yet destroyed
        Expandido = 16,  // children are to be shown
        Inserido = 32,   // was added to the tree
        EmLote = 64,     // of the batch that is being published
        Reservado = 128, // see TTreeNodes::Reservar
    };
    bool Tem(TMarca M) const noexcept { return (FMarcas & M) != 0; }
    void Marcar(TMarca M) noexcept { FMarcas = static_cast<std::uint8_t>(FMarcas | M); }
    void Desmarcar(TMarca M) noexcept { FMarcas = static_cast<std::uint8_t>(FMarcas & ~M); }
    TFilhosDeNo *Filhos() const noexcept { return FFilhos.load(std::memory_order_acquire); }
    TFilhosDeNo &FilhosPorFazer();
    TTreeNode *ProximoFora() const noexcept;

    TTreeNodes &FOwner;
    TTreeNode *FPai = nullptr;
    TTreeNode *FAnterior = nullptr;
    TTreeNode *FProximo = nullptr;
    std::atomic<TFilhosDeNo *> FFilhos = nullptr; // owned; read by the model without the lock
    TTextosCompactos FTextos;
    std::uint32_t FSerie = 0; // order of creation, which is the order of siblings
    std::int32_t FLinha = -1; // row in the model; GUI thread
    std::int32_t FImageIndex = 0;
    std::int32_t FSelectedIndex = 0;
    std::array<std::uint32_t, 2> FEntradas{}; // in indexes of the owner's class

protected:
    /// Free for derived classes: it fills what would be padding. Under the lock.
    std::uint8_t FMarcasDaClasse = 0;

private:
    std::uint8_t FMarcas = 0;
};

} // namespace Sibrel
