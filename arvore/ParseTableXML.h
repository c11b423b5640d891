// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/CustomConnection.h"
#include "plataforma/Exportacao.h"
#include "plataforma/ObjectList.h"
#include "plataforma/Strings.h"

#include <QPointer>

#include <memory>

namespace Sibrel
{

/// Writes the XML lines of one kind of table. A host derives a class for each kind; for the usual case there
/// is TParseTableXMLMapeada.
class SIBREL_EXPORT TParseTableXML
{
public:
    TParseTableXML();
    virtual ~TParseTableXML();
    TParseTableXML(const TParseTableXML &) = delete;
    TParseTableXML &operator=(const TParseTableXML &) = delete;

    /// The connection to read from: set by the list that holds the object, not owned, null once it is gone.
    QPointer<TCustomConnection> DataBase;

    /// Appends the lines of the table: elements that stand below the document's root.
    ///
    /// The lines hold raw ampersands and no entities: whoever assembles the document escapes every "&" once,
    /// and nothing else, so that values must be free of "<", ">" and quotation marks.
    virtual void GerarXML(TStrings &Lista) = 0;
};

/// The owning list of table objects; hands its connection down to each of them. Not synchronised.
class SIBREL_EXPORT TParseTableXMLList : public TObjectList<TParseTableXML>
{
public:
    explicit TParseTableXMLList(TCustomConnection *Conexao = nullptr);
    ~TParseTableXMLList() override;

    TCustomConnection *DataBase() const noexcept { return FDataBase; }
    /// Stores the connection, which is not owned, and gives it to every object of the list.
    void AtribuirDataBase(TCustomConnection *Conexao);

    // The operations that take an object in: it gets the list's connection first, null too.
    int Add(std::unique_ptr<TParseTableXML> Objeto);
    void Insert(int Indice, std::unique_ptr<TParseTableXML> Objeto);
    void SetItem(int Indice, std::unique_ptr<TParseTableXML> Objeto);
    void MoverDe(TObjectList<TParseTableXML> &Outra);

    TParseTableXML *ObterParseTableXML(int Indice) const { return Item(Indice); }
    void AtribuirParseTableXML(int Indice, std::unique_ptr<TParseTableXML> Objeto);

private:
    std::unique_ptr<TParseTableXML> ComConexao(std::unique_ptr<TParseTableXML> Objeto) const;

    QPointer<TCustomConnection> FDataBase;
};

} // namespace Sibrel
