// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QDateTime>
#include <QString>

namespace Sibrel
{

/// Writes the document of a failed update to `Pasta`, behind a comment with the error's message, as
/// "Erro" + date and time + ".xml"; a name that is taken gets "_2", "_3"... The file's full name.
///
/// In code page 1252; a character without a byte there is written as its numeric reference. EFCreateError
/// when it cannot be written as a whole: no part of it is left then.
QString GravarArquivoDeErro(const QString &Pasta, const QDateTime &Quando, const QString &Mensagem,
                            const QString &XML);

} // namespace Sibrel
