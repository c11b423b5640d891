// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "arvore/Identificacao.h"
#include "arvore/IndiceDeNos.h"
#include "plataforma/Exportacao.h"
#include "plataforma/TreeNodes.h"

#include <QByteArray>
#include <QStringView>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace Sibrel
{

class TTreeNodeXML;

/// How captions are compared in a search; a set.
enum TSearchFlag : std::uint8_t {
    sfPartial = 1,        ///< a caption matches when it begins with the text
    sfCaseInsensitive = 2 ///< letters A to Z only: accented letters are not folded
};
using TSearchFlags = std::uint8_t; ///< a set of TSearchFlag, joined by |

/// The nodes of an XML tree, and how they are found.
///
/// Every search gives exactly the node that walking the tree would give. Indexes, made at the first search
/// that is worth one and kept up to date from then on, only make it faster: identifications over the whole
/// tree, captions among the children of a node that has many. Any thread, under the tree's lock.
class SIBREL_EXPORT TTreeNodesXML : public TTreeNodes
{
public:
    TTreeNodesXML();
    ~TTreeNodesXML() override;

    /// The first node in tree order that is no link and that the list identifies, `Menos` left out.
    TTreeNodeXML *ObterNo(const TIdentificacao &Lista, const TTreeNode *Menos = nullptr) const;
    /// The caption of that node in UTF-8; nothing when there is none.
    std::optional<QByteArray> ObterLegenda(const TIdentificacao &Lista) const;
    /// All nodes that the list identifies, links too, in tree order.
    std::vector<TTreeNodeXML *> ObterNos(const TIdentificacao &Lista) const;
    /// The first child of `Pai` (top level when null) with that caption, to the letter, that is a
    /// TTreeNodeXML and that `Lista` identifies; an empty list asks for the caption alone.
    TTreeNodeXML *ObterFilho(const TTreeNode *Pai, QByteArrayView Legenda, const TIdentificacao &Lista) const;
    /// The first node in tree order whose path, captions joined by the separator, is exactly `Caminho`.
    TTreeNode *ObterNoPeloCaminho(const QString &Caminho, const QString &Separador) const;
    /// The first node behind `Inicio` in tree order (the first of all when null) whose caption matches.
    TTreeNode *ObterPrimeiroNo(const QString &Texto, TTreeNode *Inicio, TSearchFlags Opcoes) const;

protected:
    void DepoisDeInserir(TTreeNode &No) override;
    void AntesDeRetirar(TTreeNode &No) override;
    void AntesDeMudar(TTreeNode &No, TTreeNode::TMudancas Quais) override;
    void DepoisDeMudar(TTreeNode &No, TTreeNode::TMudancas Quais) override;
    void AntesDeLimpar() override;

private:
    enum TQual : std::size_t { PorLegenda, PorIdentificacao };
    using TIndiceDeIrmaos = std::unordered_map<const TTreeNode *, TIndiceDeNos>;

    static std::uint64_t ChaveDaLegenda(QByteArrayView Legenda) noexcept;
    static std::uint64_t ComLink(std::uint64_t Chave, bool Link) noexcept;
    const TIndiceDeNos &Identificacoes() const;
    const TIndiceDeNos *Legendas(const TTreeNode *Pai) const;
    void Indexar(TTreeNode &No, TTreeNode::TMudancas Quais) const noexcept;
    void EsquecerIndices() const noexcept;
    void Desindexar(TTreeNode &No, TTreeNode::TMudancas Quais) const;
    void IndexarIdentificacao(TTreeNode &No) const;
    TTreeNode *NoCaminho(const TTreeNode *Pai, QByteArrayView Resto, QByteArrayView Separador) const;
    std::vector<TTreeNode *> FilhosNoCaminho(const TTreeNode *Pai, QByteArrayView Resto,
                                             QByteArrayView Separador) const;

    mutable std::unique_ptr<TIndiceDeNos> FIdentificacoes; // none until first needed
    mutable TIndiceDeIrmaos FLegendas;
};

} // namespace Sibrel
