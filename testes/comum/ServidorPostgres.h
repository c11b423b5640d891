// SPDX-License-Identifier: LGPL-2.1-or-later
// A database server of the test's own, on a socket in a folder of its own: it touches nothing of the machine.
#pragma once

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

namespace Sibrel::Testes
{

/// Makes a new cluster and starts its server; raises std::runtime_error, which says why, when that fails (the
/// server's programs missing too: tools/dependencias --testes installs them). Stopped and deleted with the
/// object, and stopped by the system when the test dies.
class TServidorPostgres
{
public:
    TServidorPostgres();
    ~TServidorPostgres();
    TServidorPostgres(const TServidorPostgres &) = delete;
    TServidorPostgres &operator=(const TServidorPostgres &) = delete;

    /// Address of one of its databases for a connection.
    QString Endereco(const QString &Banco = QStringLiteral("postgres")) const;
    /// Makes a database in one of the server's encodings ("UTF8", "LATIN1", "SQL_ASCII").
    void CriarBanco(const QString &Nome, const QString &Codificacao);

    /// Ends the server at once, as a failing machine does: no session is told.
    void Derrubar();
    /// Starts it again on the same data.
    void Subir();

private:
    static QString Programa(const QString &Nome);
    void Rodar(QProcess &Processo, const QString &Nome, const QStringList &Argumentos) const;
    void Executar(const QString &Nome, const QStringList &Argumentos) const;
    bool Atende() const;

    QTemporaryDir FPasta;
    QProcess FServidor;
};

} // namespace Sibrel::Testes
