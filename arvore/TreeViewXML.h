// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "arvore/PrepararAtualizacao.h"
#include "arvore/RegistroDeClasses.h"
#include "arvore/TreeNodeXML.h"
#include "arvore/TreeNodesXML.h"
#include "corvane/VisualizadorInformacoesXML.h"
#include "plataforma/Bitmap.h"
#include "plataforma/Exportacao.h"
#include "plataforma/Font.h"
#include "plataforma/Modulo.h"
#include "plataforma/TreeView.h"
#include "simbolos/TabelaDeSimbolos.h"

#include <QCursor>
#include <QDateTime>
#include <QPointer>
#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

namespace Sibrel
{

/// A tree view whose nodes are built from XML documents and drawn with symbols of a table.
///
/// Documents are applied by an update of their own thread (TPreparaAtualizacao): the loading operations
/// return as soon as the document has been read. When the view gets its window, at its first show or at
/// `ensurePolished()`, the two references to other components are dropped: assign them after that. GUI
/// thread only, but for what an update calls (Excluir, ObterNos, ObterNoPeloXML) and the events that say so.
class SIBREL_EXPORT TTreeViewXML : public TTreeView
{
    Q_OBJECT
    Q_PROPERTY(bool ConfigurarPopup READ ObterConfigurarPopup WRITE AtribuirConfigurarPopup)
    Q_PROPERTY(Sibrel::TVisualizadorInformacoesXML *FrameDeInformacoes READ FrameDeInformacoes WRITE
                   AtribuirFrameDeInformacoes DESIGNABLE false STORED false)
    Q_PROPERTY(Sibrel::TTabelaDeSimbolos *TabelaDeSimbolos READ TabelaDeSimbolos WRITE
                   AtribuirTabelaDeSimbolos DESIGNABLE false STORED false)
    Q_PROPERTY(QString ElementoRaiz READ ObterElementoRaiz WRITE AtribuirElementoRaiz)
    Q_PROPERTY(QString AtributoNome READ ObterAtributoNome WRITE AtribuirAtributoNome)

public:
    explicit TTreeViewXML(QWidget *Dono = nullptr);
    /// Updates on the way to this view end early, in silence.
    ~TTreeViewXML() override;

    /// Let the selected node adjust the context menu before it shows; true in a new view.
    bool ConfigurarPopup = true;
    /// Name that a document's root element must have; empty, as at the start, accepts any.
    QString ElementoRaiz;
    /// Attribute that names an element when it is matched with the nodes; "Nome" in a new view.
    QString AtributoNome;
    /// Asked before Excluir deletes a node, on the thread that deletes it: an update's for what it deletes.
    std::function<void(TTreeViewXML &, TTreeNode &, bool &PodeExcluir)> AoExcluirNo;
    /// Told of an update's progress; the signal Progresso tells the same.
    std::function<void(TTreeViewXML &, TPreparaAtualizacao &)> OnProgresso;
    /// Called by an update, on its thread, for each operation before it is queued.
    TConfigurarOperacao ConfigurarOperacao;

    /// Shows the selected node's information; not owned, null until set.
    TVisualizadorInformacoesXML *FrameDeInformacoes() const { return FFrameDeInformacoes; }
    void AtribuirFrameDeInformacoes(TVisualizadorInformacoesXML *Frame) { FFrameDeInformacoes = Frame; }
    /// Where the nodes' symbols come from; not owned, null until set and when the table dies.
    TTabelaDeSimbolos *TabelaDeSimbolos() const { return FTabelaDeSimbolos; }
    void AtribuirTabelaDeSimbolos(TTabelaDeSimbolos *Tabela);
    /// The font of captions; their colour is each node's.
    const TFont &Fonte() const noexcept { return FFonte; }
    void AtribuirFonte(const TFont &Fonte);

    TTreeNodesXML &Nos() const noexcept { return static_cast<TTreeNodesXML &>(Items()); }

    /// @name Classes of nodes, one registry for all views
    /// @{
    /// EInvalidOperation for a tag that is registered already, in whatever letter case. An empty class makes
    /// the tag's elements mere groups of others.
    static void RegistrarClasse(const QString &Tag, const TRefNoXML &Classe);
    /// EInvalidOperation for a tag that is not registered.
    static void RemoverRegistroClasse(const QString &Tag);
    /// False, and an empty class, for a tag that is not registered.
    static bool ObterRefClassPeloTag(const QString &Tag, TRefNoXML &Classe);
    /// @}

    /// @name Loading
    /// @{
    /// Starts an update with a document and returns; `Contexto` is the caller's own, told with the progress.
    /// Exception "XML em formato inválido!" when the text is no document; the reason is in `Detalhe`.
    void Atualizar(const QString &Texto, QObject *Contexto = nullptr);
    /// The same from a file, by its byte order mark or declared encoding, else code page 1252; all nodes are
    /// deleted first unless `Acrescentar`. EFOpenError when it cannot be read; Exception "Arquivo em formato
    /// inválido!" when it holds no document. Nodes that were deleted stay deleted.
    void Ler(const QString &Arquivo, bool Acrescentar);
    /// The same from a list of lines; always deletes all nodes first. The screen cursor is an hourglass
    /// meanwhile, and stays one after an exception.
    void AtribuirXML(const TStrings &Lista, QObject *Contexto = nullptr);
    /// Updates that were started and are not over.
    std::vector<TPreparaAtualizacao *> Atualizacoes() const;
    /// Date and time of the tree's data: of the last document that gave one, else of the view's creation.
    QDateTime DataHora() const;
    void AtribuirDataHora(const QDateTime &Valor);
    /// Documents of failed updates whose error file could not be written, oldest first.
    QStringList DocumentosNaoGravados;
    /// @}

    /// @name Finding; each gives what walking the tree would
    /// @{
    /// The node that stands for an element among the children of `Pai`; see ProcurarNoPeloXML.
    TTreeNode *ObterNoPeloXML(TTreeNode *Pai, const IXMLNode &No, const TRefNoXML &Classe);
    /// By path, captions joined by "/".
    TTreeNode *ObterNo(const QString &Caminho) const;
    /// The first node that is no link and that the list identifies.
    TTreeNodeXML *ObterNo(const TStrings &Lista) const;
    /// Appends all nodes that the list identifies, links too.
    void ObterNos(std::vector<TTreeNodeXML *> &Nos, const TStrings &Lista) const;
    /// The first node behind `Inicio` whose caption matches.
    TTreeNode *ObterPrimeiroNo(const QString &Texto, TTreeNode *Inicio, TSearchFlags Opcoes) const;
    /// All nodes whose caption matches, instead of what is in `Nos`.
    void ObterNos(std::vector<TTreeNode *> &Nos, const QString &Texto, TSearchFlags Opcoes) const;
    /// @}

    /// @name Deleting
    /// @{
    /// Deletes a node and all below it if AoExcluirNo lets it. Any thread.
    void Excluir(TTreeNode *No);
    /// Excluir for each node that the list identifies.
    void ExcluirTodosOsNos(const TStrings &Lista);
    /// @}

    /// Makes the drawing bitmap square again and repaints.
    void Repaint();
    /// The drawing bitmap; null before the view has a window.
    TBitmap *BitmapDeDesenho() const noexcept { return FBitmap.get(); }

    bool ObterConfigurarPopup() const noexcept { return ConfigurarPopup; }
    void AtribuirConfigurarPopup(bool Valor) noexcept { ConfigurarPopup = Valor; }
    const QString &ObterElementoRaiz() const noexcept { return ElementoRaiz; }
    void AtribuirElementoRaiz(const QString &Valor) { ElementoRaiz = Valor; }
    const QString &ObterAtributoNome() const noexcept { return AtributoNome; }
    void AtribuirAtributoNome(const QString &Valor) { AtributoNome = Valor; }

Q_SIGNALS:
    void Progresso(Sibrel::TPreparaAtualizacao *Atualizacao);

protected:
    friend class TPreparaAtualizacao;

    /// Tells OnProgresso and the signal. EInvalidCast when the sender is no update.
    void DoProgresso(QObject *Sender);
    /// True when nobody objects.
    bool DoExcluirNo(TTreeNode &No);
    /// Asked when treating an element fails: go on with the next one? The default shows a message box. A
    /// host without operators overrides it. On the GUI thread; the update waits.
    virtual bool DesejaContinuar(const TFalhaDeAtualizacao &Falha);

    void CreateWnd() override;
    void Change(TTreeNode *No) override;
    void DoContextPopup(const QPoint &Onde) override;
    bool IsCustomDrawn(TAlvoDoDesenho Alvo, TEstagioDoDesenho Estagio) override;
    bool CustomDrawItem(TTreeNode &No, const TEstadoDoItem &Estado, TEstagioDoDesenho Estagio,
                        bool &PaintImages) override;
    QVariant DadoDoNo(const TTreeNode &No, int Papel) const override;
    void mouseDoubleClickEvent(QMouseEvent *Evento) override;
    void mouseMoveEvent(QMouseEvent *Evento) override;

private:
    friend class TDesenhoDeItem;
    static TTreeNodeXML *ComoXML(TTreeNode *No) noexcept { return dynamic_cast<TTreeNodeXML *>(No); }
    void LimparMenu(QMenu &Menu);

    QPointer<TVisualizadorInformacoesXML> FFrameDeInformacoes;
    QPointer<TTabelaDeSimbolos> FTabelaDeSimbolos;
    QMetaObject::Connection FMudancaDaTabela;
    TFont FFonte;
    std::unique_ptr<TBitmap> FBitmap;
    std::vector<QIcon> FImagens;
    int FItensDoMenu = -1;
    QCursor FCursorGuardado;
    QDateTime FDataHora; // under the tree's lock
};

/// Captions from the top-level node down to `No`, joined; empty for null.
SIBREL_EXPORT QString ObterCaminho(const TTreeNode *No, const QString &Separador);
/// The first node in tree order whose path is exactly `Caminho`; null when there is none.
SIBREL_EXPORT TTreeNode *ObterNoPeloPath(const TTreeView &Arvore, const QString &Caminho,
                                         const QString &Separador);

/// The module that makes the registry of node classes.
SIBREL_EXPORT TModulo &ModuloTreeViewXML() noexcept;

} // namespace Sibrel
