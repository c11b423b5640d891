// SPDX-License-Identifier: LGPL-2.1-or-later
// What the tests of databases share: one embedded, one of a server, and the sample exercise in either.
#pragma once

#include "comum/ServidorPostgres.h"
#include "plataforma/CustomConnection.h"

#include <QString>

#include <memory>

namespace Sibrel::Testes
{

/// For test classes that try each thing on both kinds of database.
class TComBancos
{
protected:
    /// Starts the server and makes the connections; `Arquivo` is the embedded one. Empty, or why it failed.
    QString SubirBancos(const QString &Arquivo = QStringLiteral(":memory:"));
    void DescerBancos();
    /// Column "DoServidor" with a row for each kind.
    static void CadaBanco();
    /// The connection that the present row means.
    TCustomConnection &Conexao() const;

    std::unique_ptr<TServidorPostgres> FServidor;
    std::unique_ptr<TCustomConnection> FArquivo;
    std::unique_ptr<TCustomConnection> FNoServidor;
};

/// Runs statements, each ended by a semicolon at the end of its line; raises std::runtime_error with the
/// driver's words and the statement that failed.
void RodarSQL(TCustomConnection &Onde, const QString &SQL);

/// The sample exercise, as it comes for servers, in a new database "exercicio" of that encoding; its address.
QString CriarExercicio(TServidorPostgres &Servidor, const QString &Codificacao);

} // namespace Sibrel::Testes
