// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Exportacao.h"
#include "plataforma/TreeNodes.h"

#include <QAbstractItemModel>

#include <functional>
#include <memory>
#include <span>
#include <vector>

namespace Sibrel
{

/// Shows a tree's nodes to item views: a thin model over what has been published.
///
/// The rows are those of the last publication; the texts are the nodes' present ones. Changes made on the
/// GUI thread are published at once. Those made elsewhere wait until Publicar() is called, which an update
/// does when it hands over; a stray change of another thread asks the event loop for it.
///
/// A batch that touches few places tells each as inserted, removed or changed rows; one that touches more
/// than `MaximoDeTrechos` tells a change of layout instead, since every row signal costs as much as there
/// are expanded rows. GUI thread only.
class SIBREL_EXPORT TModeloDeNos : public QAbstractItemModel, private IPublicadorDeNos
{
    Q_OBJECT

public:
    static constexpr std::size_t MaximoDeTrechos = 64;

    explicit TModeloDeNos(std::shared_ptr<TTreeNodes> Nos, QObject *Dono = nullptr);
    ~TModeloDeNos() override;

    TTreeNodes &Nos() const noexcept { return *FNos; }
    /// The index of a node; invalid for null and for a node that is not shown (yet, or any more).
    QModelIndex IndiceDe(const TTreeNode *No) const;
    TTreeNode *NoDe(const QModelIndex &Indice) const noexcept;

    /// Called before a batch is shown, with whether it is more than a row or two.
    std::function<void(bool Grande)> AntesDePublicar;
    /// Nodes whose children are now to be shown or hidden, as the nodes say.
    std::function<void(std::span<TTreeNode *const>)> AoExpandir;
    /// What a node answers for roles other than its caption's; an invalid value when there is nothing.
    std::function<QVariant(const TTreeNode &, int Papel)> DadoDoNo;

    QModelIndex index(int Linha, int Coluna, const QModelIndex &Pai = {}) const override;
    QModelIndex parent(const QModelIndex &Indice) const override;
    using QObject::parent;
    int rowCount(const QModelIndex &Pai = {}) const override;
    int columnCount(const QModelIndex &Pai = {}) const override;
    bool hasChildren(const QModelIndex &Pai = {}) const override;
    QVariant data(const QModelIndex &Indice, int Papel = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &Indice) const override;

public Q_SLOTS:
    /// Shows everything that waits. Callable from inside itself: what comes up meanwhile is shown too. What a
    /// handler raises, or memory that runs out, reaches the caller; the next call then shows everything anew.
    void Publicar();

private:
    struct TTrecho {
        TTreeNode *Pai;
        int Primeira;
        int Ultima;
    };

    void HaPendencias() override;
    void Refazer();
    void Aplicar(const TPendenciasDeNos &P);
    void Retirar(const std::vector<TTreeNode *> &Nos);
    void RetirarTrecho(const TTrecho &T);
    void RetirarMuitos(const std::vector<TTreeNode *> &Nos);
    void Inserir(const std::vector<TTreeNode *> &Nos);
    void Anunciar(const std::vector<TTreeNode *> &Nos);
    std::vector<TTrecho> Trechos(const std::vector<TTreeNode *> &Nos) const;
    std::vector<TTreeNode *> &FilhosPublicados(TTreeNode *Pai) const;
    std::span<TTreeNode *const> Linhas(const QModelIndex &Pai) const noexcept;
    static constexpr std::size_t LinhasAdiante = 4;
    static void Antecipar(std::span<TTreeNode *const> Seguintes) noexcept;
    bool TemLinha(const TTreeNode *No) const noexcept;
    QModelIndex IndiceDaLinha(TTreeNode *No) const;
    void PedirExpansoes(const std::vector<TTreeNode *> &Nos);

    std::shared_ptr<TTreeNodes> FNos;
    bool FPublicando = false;
    bool FPorRefazer = false;
    std::atomic<bool> FPedido = false;
};

} // namespace Sibrel
