// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/CustomConnection.h"

#include <QString>

namespace Sibrel
{
class TTabelaDeSimbolosBD;
class TTreeViewXMLBD;
} // namespace Sibrel

namespace Hospedeiro
{

/// What a user may see of an address: the file, or database and host without any "/", never a password.
QString NomeDoBanco(const QString &Endereco);

/// The database of an exercise: its symbols (table SIMBOLOS) and its units (table UNIDADES).
///
/// Errors are those of the library's connections and tables, with the driver's words in `Detalhe`.
class TBancoDoExercicio
{
public:
    /// `Endereco`: a SQLite file, or postgresql://user@host/database?options. Connects; raises
    /// Sibrel::EDatabaseError when that fails.
    explicit TBancoDoExercicio(const QString &Endereco);

    Sibrel::TCustomConnection &Conexao() noexcept { return FConexao; }
    const QString &Endereco() const noexcept { return FConexao.Endereco(); }
    QString Nome() const { return NomeDoBanco(Endereco()); }
    /// A file name beside which the fonts of the symbols may stand: the database itself, for a server one in
    /// the current folder.
    QString LugarDasFontes() const;

    /// Replaces symbols and labels. After an error the table holds what was read before it.
    void LerSimbolos(Sibrel::TTabelaDeSimbolosBD &Tabela);
    /// Gives the tree this connection and starts the update that puts the units in place of all its nodes.
    /// After an error the nodes are as they were.
    void CarregarUnidades(Sibrel::TTreeViewXMLBD &Arvore);

private:
    Sibrel::TCustomConnection FConexao;
};

} // namespace Hospedeiro
