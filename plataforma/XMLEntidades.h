// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace Sibrel
{

/// The only place that files named by documents come from: a folder that the host has allowed.
class TPastaDeEntidades
{
public:
    /// The folder of the whole process; empty allows nothing. From any thread.
    static void Atribuir(const QString &Pasta);
    static QString Atual();

    /// The present folder of the process, for one document: relative names start at `Base`, or at the folder
    /// itself when `Base` is empty.
    explicit TPastaDeEntidades(const QString &Base);

    /// The address that relative names are relative to, empty when no folder is allowed.
    QByteArray Endereco() const;
    /// The text of the file that `Endereco` (an absolute address or `Nome` as it was written, when there is
    /// none) means, as UTF-8 without its declaration. EDOMParseError when it is not in the folder, on this
    /// machine, or has more than `Maximo` bytes.
    QByteArray Ler(const QString &Endereco, qsizetype Maximo) const;

private:
    QString Caminho(const QString &Endereco) const;

    QString FPasta; // canonical
    QString FBase;
};

} // namespace Sibrel
