// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "arvore/ParseTableXML.h"
#include "plataforma/Exportacao.h"

#include <QString>
#include <QVariant>

#include <functional>
#include <vector>

namespace Sibrel
{

class TClientDataSet;

/// Which columns of a row become which part of a node's element. An empty column name leaves that part out.
struct TMapeamentoXML {
    /// One pair of a list: the column's value under a name.
    struct TPar {
        QString Rotulo;
        QString Coluna;
    };

    /// Name of the element of every row, or, when empty, the column that holds each row's.
    QString Tag;
    QString ColunaTag;

    QString ColunaNome;    ///< the caption; NULL gives an empty one
    QString ColunaCor;     ///< 0x00BBGGRR as a number; NULL leaves the attribute out, as in what follows
    QString ColunaSimbolo; ///< index in the tree's symbol table
    QString ColunaLink;    ///< "sim" makes the node a link

    std::vector<TPar> Identificacao; ///< the columns that tell the node from others
    std::vector<TPar> Informacao;    ///< the columns that the information frame shows

    /// When both are given, a row whose ColunaPai holds another row's ColunaChave stands inside that row's
    /// element; NULL and the empty text are no parent. The order is that of the rows, within each parent too.
    QString ColunaChave;
    QString ColunaPai;
};

/// Turns the rows of a table or query into node elements, one a row, by a mapping.
///
/// A value that the document cannot carry (with "<", ">", a quotation mark, a control character, a line end
/// or a character outside code page 1252) raises EConvertError, whose `Detalhe` names column, row and
/// character; so does an element's name that is none, and a colour or symbol that is no number.
/// EDatabaseError for a column that does not exist, a key that repeats, a parent that is not among the rows,
/// rows that are each other's parents, and rows nested deeper than a document may be. After an error nothing
/// was appended.
class SIBREL_EXPORT TParseTableXMLMapeada : public TParseTableXML
{
public:
    /// `Consulta` is a statement, with `Valores` in place of its "?" marks, or just the name of a table, of
    /// which all rows are read.
    TParseTableXMLMapeada(TMapeamentoXML Mapeamento, QString Consulta, QVariantList Valores = {});
    ~TParseTableXMLMapeada() override;

    const TMapeamentoXML &Mapeamento() const noexcept { return FMapeamento; }

    /// Called for every text that is about to be written, with its column; what it gives is checked and
    /// written in its place. For hosts whose data hold what the document cannot carry.
    std::function<QString(const QString &Coluna, const QString &Valor)> AoConverterValor;

    void GerarXML(TStrings &Lista) override;

protected:
    /// Opens the rows. The default runs the statement on `DataBase`; EDatabaseError without a connection.
    virtual void AbrirDados(TClientDataSet &Dados);

private:
    TMapeamentoXML FMapeamento;
    QString FConsulta;
    QVariantList FValores;
};

} // namespace Sibrel
