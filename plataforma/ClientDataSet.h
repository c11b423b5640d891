// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Exportacao.h"

#include <QModelIndex>
#include <QString>
#include <QStringList>
#include <QStringView>
#include <QVariant>

#include <cstddef>
#include <cstdint>
#include <vector>

class QAbstractItemModel;
class QSqlQuery;

namespace Sibrel
{

class TClientDataSet;
class TCustomConnection;

/// One column of a dataset, read at the dataset's current row. Owned by the dataset; good until it is opened
/// again, closed or destroyed.
///
/// NULL, and any column of a dataset without rows, reads as 0, 0.0 and the empty text. A conversion that
/// fails raises EConvertError, whose `Detalhe` names column and row.
class SIBREL_EXPORT TField
{
public:
    const QString &FieldName() const noexcept { return FNome; }
    bool IsNull() const;
    /// A whole number of 32 bits: texts as StrToInt reads them, reals to the nearest with halves to even.
    std::int32_t AsInteger() const;
    /// Texts may have a point or a comma before the decimals.
    double AsFloat() const;
    /// Numbers in their shortest form with a point. Bytes are UTF-8 when they can be, else code page 1252.
    QString AsString() const;
    /// The value as the source gave it; invalid when the dataset has no rows.
    const QVariant &AsVariant() const;

private:
    friend class TClientDataSet;
    TField(const TClientDataSet &DataSet, std::size_t Coluna, QString Nome);

    const TClientDataSet *FDataSet;
    std::size_t FColuna;
    QString FNome;
};

/// Rows with named columns, and a current row that moves over them.
///
/// Opening copies all rows of the source into memory. From then on the number of rows is known and moving
/// cannot fail, whatever the driver offers, and neither a server that goes away nor a change in the source
/// touches what was read; opening again reads anew. An error while opening leaves the dataset as it was.
///
/// Columns are looked up without regard to letter case; of several columns of one name the first counts.
/// Operations on a closed dataset raise EDatabaseError. Used on one thread at a time.
class SIBREL_EXPORT TClientDataSet
{
public:
    /// Closed.
    TClientDataSet();
    ~TClientDataSet();
    TClientDataSet(const TClientDataSet &) = delete;
    TClientDataSet &operator=(const TClientDataSet &) = delete;

    /// The rows of a query: from its first row; of a forward-only query the rows that are still to come. A
    /// query that is only prepared is executed first. EDatabaseError, with the driver's words in `Detalhe`,
    /// when the query failed, gives no rows by its nature, or breaks off in mid-read.
    void Open(QSqlQuery &Consulta);
    /// The rows of a statement run on `Conexao`, with `Valores` in place of its "?" marks.
    void Open(TCustomConnection &Conexao, const QString &SQL, const QVariantList &Valores = {});
    /// The rows of an item model below `Pai`: columns are named by the horizontal header, values are those of
    /// the edit role. What the model fetches piece by piece is fetched to its end; EDatabaseError when a
    /// model over a query breaks off in that.
    void Open(QAbstractItemModel &Modelo, const QModelIndex &Pai = {});
    /// Forgets all rows and columns.
    void Close() noexcept;
    bool Active() const noexcept { return FAberto; }

    /// The first row becomes current; without rows the end-of-data flag is set.
    void First();
    /// The next row becomes current; at the last row that one stays current and the end-of-data flag is set.
    void Next();
    /// True behind the last row: after a Next that found none, and always without rows.
    bool Eof() const;
    int RecordCount() const;
    /// Number of the current row, from 1; 0 without rows.
    int RecNo() const;

    int FieldCount() const noexcept { return static_cast<int>(FCampos.size()); }
    /// Column `Indice`, in the order of the source. EListError outside.
    const TField &Field(int Indice) const;
    /// Null when there is no such column.
    const TField *FindField(QStringView Nome) const;
    /// EDatabaseError for a column that does not exist; `Detalhe` names those that do.
    const TField &FieldByName(QStringView Nome) const;

private:
    friend class TField;
    void Trocar(const QStringList &Nomes, std::vector<QVariant> Valores);
    void ExigirAberto() const;
    const QVariant &Valor(std::size_t Coluna) const noexcept;

    std::vector<QVariant> FValores; // row by row
    std::vector<TField> FCampos;
    std::size_t FLinhas = 0;
    std::size_t FAtual = 0;
    bool FFim = true;
    bool FAberto = false;
};

} // namespace Sibrel
