// SPDX-License-Identifier: LGPL-2.1-or-later
// The example host as a program of its own, run as from a shell.
#pragma once

#include <QString>
#include <QStringList>

namespace Sibrel::Testes
{

struct TResultado {
    QString Saida;
    QString Erros;
    int Codigo = -1;
};

/// Runs it, or a copy of it, in a folder, which is also its user's, without a display; waits for its end.
TResultado RodarPrograma(const QString &Pasta, const QStringList &Argumentos, const QString &Copia = {});

} // namespace Sibrel::Testes
