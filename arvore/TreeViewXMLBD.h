// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "arvore/DocumentoDeTabelas.h"
#include "arvore/ParseTableXML.h"
#include "arvore/TreeViewXML.h"
#include "plataforma/CustomConnection.h"
#include "plataforma/Exportacao.h"
#include "plataforma/Modulo.h"

#include <QPointer>

#include <memory>

namespace Sibrel
{

/// A tree view whose document is assembled from database tables.
///
/// The host adds one table object a table to `Parses`, gives the connection once to the view, and calls
/// Executar whenever the tree is to be made anew. GUI thread only.
class SIBREL_EXPORT TTreeViewXMLBD : public TTreeViewXML
{
    Q_OBJECT
    Q_PROPERTY(Sibrel::TCustomConnection *DataBase READ DataBase WRITE AtribuirDataBase
                   DESIGNABLE false STORED false)
    Q_PROPERTY(Sibrel::TParseTableXMLList *Parses READ ObterParses DESIGNABLE false STORED false)

public:
    /// With an empty list of tables and no connection.
    explicit TTreeViewXMLBD(QWidget *Dono = nullptr);
    ~TTreeViewXMLBD() override;

    /// The connection of all tables; not owned, null until set and when it dies.
    TCustomConnection *DataBase() const noexcept { return FDataBase; }
    /// Gives the connection to every table object that `Parses` holds; those that come later get it too.
    void AtribuirDataBase(TCustomConnection *Conexao);

    /// The table objects; owned, and through the list each of them.
    TParseTableXMLList &Parses() const noexcept { return *FParses; }
    /// Replaces the list, which keeps the connection that it has, and hands the old one back. A null list
    /// raises EInvalidOperation and changes nothing.
    [[nodiscard]] std::unique_ptr<TParseTableXMLList>
    AtribuirParses(std::unique_ptr<TParseTableXMLList> Lista);
    TParseTableXMLList *ObterParses() const noexcept { return FParses.get(); }

    /// Assembles the document of all tables, in list order, inside `ElementoRaiz` (MontarDocumentoDeTabelas)
    /// and loads it in place of all nodes: the tables are read when it returns, the nodes are made by an
    /// update (TTreeViewXML::AtribuirXML).
    ///
    /// The screen cursor is an hourglass meanwhile. What a table object, the database or the loading raises
    /// reaches the caller; the cursor then stays an hourglass. An error of a table leaves the nodes as they
    /// were.
    void Executar();

private:
    QPointer<TCustomConnection> FDataBase;
    std::unique_ptr<TParseTableXMLList> FParses;
};

/// The module that sets the first and last lines of assembled documents at its start and empties them at its
/// stop.
SIBREL_EXPORT TModulo &ModuloTreeViewXMLBD() noexcept;

} // namespace Sibrel
