// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QAbstractListModel>

namespace Sibrel
{
class TTabelaDeSimbolos;
}

namespace Hospedeiro
{

/// A symbol table as rows for Qt's views: labels for display, search and assistive tools, descriptions as
/// tooltips. GUI thread only.
class TModeloDeSimbolos : public QAbstractListModel
{
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    /// The table to show, not owned, null for none. It tells the model when it changes; call this with null
    /// before it dies.
    void AtribuirTabela(const Sibrel::TTabelaDeSimbolos *Tabela);
    const Sibrel::TTabelaDeSimbolos *Tabela() const noexcept { return FTabela; }

    /// The next row behind `Linha` (or before it) whose label contains `Texto`, going round at the end; -1
    /// when there is none. Letter case and accents play no part: "operacao" finds "Operação".
    int Procurar(const QString &Texto, int Linha, bool ParaTras = false) const;

    int rowCount(const QModelIndex &Pai = {}) const override;
    QVariant data(const QModelIndex &Indice, int Papel) const override;

private:
    const Sibrel::TTabelaDeSimbolos *FTabela = nullptr;
};

} // namespace Hospedeiro
