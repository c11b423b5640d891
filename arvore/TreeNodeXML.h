// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "arvore/ListaXML.h"
#include "arvore/TextosXML.h"
#include "plataforma/Exportacao.h"
#include "plataforma/Modulo.h"
#include "plataforma/RefClasse.h"
#include "plataforma/Strings.h"
#include "plataforma/TreeNode.h"
#include "plataforma/XMLDocument.h"

#include <QString>

#include <cstdint>

class QMenu;

namespace Sibrel
{

class TIdentificacao;
class TTreeNodesXML;
class TTreeNodeXML;

/// A class of nodes; its virtual constructor takes the collection that the node is for.
using TRefNoXML = RefClasse<TTreeNodeXML, TTreeNodes &>;

/// One of a node's two lists, as a list of texts. The lines stay in the node, compactly: this is a way to
/// reach them, good as long as the node is. Each call takes the tree's lock.
class SIBREL_EXPORT TListaDeNo final : public TStrings
{
public:
    TListaDeNo(TTreeNodeXML &No, TTextosCompactos::TParte Parte) noexcept;
    ~TListaDeNo() override;
    TListaDeNo(const TListaDeNo &) = default;
    TListaDeNo &operator=(const TListaDeNo &) = delete; // of the lines or of the way? Assign says which

    int Count() const override;
    QString Linha(int Indice) const override;
    void AtribuirLinha(int Indice, const QString &Texto) override;
    void Insert(int Indice, const QString &Texto) override;
    void Delete(int Indice) override;
    void Clear() override;
    void Assign(const TStrings &Outra) override;

private:
    void Verificar(int Indice, int Limite) const;

    TTreeNodeXML &FNo;
    TTextosCompactos::TParte FParte;
};

/// A node that stands for an element of a document.
///
/// Beside its caption and picture it has a colour, an identification by which updates and links find it
/// again, and information for the frame that shows the selected node. It may be a link, which shows what
/// another node with the same identification shows. Classes of a host derive through ComClasse and are
/// registered by tag (TTreeViewXML::RegistrarClasse). What an update calls here runs on the update's thread.
class SIBREL_EXPORT TTreeNodeXML : public TTreeNode
{
public:
    using RefDeClasse = TRefNoXML;
    using ClasseDeclarada = TTreeNodeXML;
    static constexpr const char *NomeDaClasse = "TTreeNodeXML";

    explicit TTreeNodeXML(TTreeNodes &Owner);
    ~TTreeNodeXML() override;

    /// The class of which this object is, for making another one.
    virtual RefDeClasse ObterClasse() const;

    /// Colour value of caption, symbol pen and link line; 0 until set.
    std::int32_t Cor() const;
    void AtribuirCor(std::int32_t Valor);
    /// "name=value" lines that identify the node.
    TListaDeNo Identificacao() const;
    /// "name=value" lines for the information frame.
    TListaDeNo Informacao() const;
    /// The deleted mark itself; see ObterApagado.
    bool Apagado() const;
    void AtribuirApagado(bool Valor);
    /// Has it become a link? Never turns back to false from true.
    bool Link() const;

    /// The lists as XML fragments, without declaration.
    virtual QString ObterXMLInformacao() const;
    virtual QString ObterXMLIdentificacao() const;
    /// Load the node from the text of a whole node element. EDOMParseError for a text that is none: the node
    /// is unchanged then. The narrower two are there for derived classes to narrow.
    virtual void AtribuirXML(const QString &Texto);
    virtual void AtribuirXMLInformacao(const QString &Texto);
    virtual void AtribuirXMLIdentificacao(const QString &Texto);
    /// Does the node count as deleted? Drawing takes no notice.
    virtual bool ObterApagado() const;

    /// Loads the node from its element: colour ("Cor"), caption ("Nome", else the first attribute, else the
    /// element's name), symbol ("Símbolo"), identification (replaced), information (merged), link ("Link" is
    /// "sim"). EConvertError when a number is none: what comes before it in this order has been done. False
    /// rejects the element; this class never does.
    virtual bool AtribuirNoXML(const IXMLNode &No);
    /// Has no information?
    virtual bool Vazio() const;
    /// The context menu is about to be shown for this node: what is added goes away before the next time.
    virtual void ConfigurarPopup(QMenu &Menu);

    /// ObterXMLStrings of the module, for derived classes.
    static QString ObterXMLStrings(const TTagsDeLista &Tags, const TStrings &Lista);
    /// Replace the identification, merge into the information, from the lists of an element.
    void TratarIdentificadores(const TCursorXML &No);
    void TratarInformacoes(const TCursorXML &No);
    /// The first node in tree order that is no link and has this one's identification; null when none has.
    TTreeNodeXML *ObterNoLink() const;
    /// Makes this node show what its target shows. False, and no link, while there is no target in the tree;
    /// a later call can still find it.
    bool TransformarEmLink();
    /// Is the node what the list describes? See TIdentificacao::Identifica.
    bool Identifica(const TStrings &Lista) const;
    bool Identifica(const TIdentificacao &Lista) const;

    /// The caption that this class gives to an element that is no link, in UTF-8.
    static QByteArray LegendaDoElemento(const TCursorXML &No);
    /// Does the element ask for a link ("Link" is "sim", in any letter case)?
    static bool PedeLink(const TCursorXML &No) noexcept;
    /// EConvertError when loading the element would raise it.
    static void VerificarNumeros(const TCursorXML &No);

private:
    friend class TListaDeNo;
    friend class TTreeNodesXML;
    enum TMarcaXML : std::uint8_t { MarcaLink = 1, MarcaApagado = 2 };

    TTreeNodesXML *Nos() const noexcept;
    bool Marcado(TMarcaXML M) const noexcept { return (FMarcasDaClasse & M) != 0; }
    void Marcar(TMarcaXML M, bool Sim);
    TTreeNodeXML *Alvo(const TTreeNode *Menos) const;
    void Montar(const TCursorXML &No);
    void CopiarAparencia(const TTreeNodeXML &Outro);

    std::int32_t FCor = 0;
};

/// The module that holds the fixed texts of tree documents.
SIBREL_EXPORT TModulo &ModuloTreeNodeXML() noexcept;

} // namespace Sibrel
