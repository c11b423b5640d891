// SPDX-License-Identifier: LGPL-2.1-or-later
#include "exemplos/Programa.h"

#include <QProcess>
#include <QProcessEnvironment>

namespace Sibrel::Testes
{

TResultado RodarPrograma(const QString &Pasta, const QStringList &Argumentos, const QString &Copia)
{
    QProcess Programa;
    QProcessEnvironment Ambiente = QProcessEnvironment::systemEnvironment();
    // As on a machine without a display; without a folder of its own Qt would speak up among the errors.
    for (const char *Nome : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "QT_STYLE_OVERRIDE"})
        Ambiente.remove(QLatin1String(Nome));
    Ambiente.insert(QStringLiteral("XDG_RUNTIME_DIR"), Pasta);
    Ambiente.insert(QStringLiteral("XDG_DATA_HOME"), Pasta);
    Programa.setProcessEnvironment(Ambiente);
    Programa.setWorkingDirectory(Pasta);
    Programa.start(Copia.isEmpty() ? QStringLiteral(SIBREL_HOSPEDEIRO) : Copia, Argumentos);
    if (!Programa.waitForFinished(120000) || Programa.exitStatus() != QProcess::NormalExit)
        return {{}, QStringLiteral("o programa não terminou bem: ") + Programa.errorString(), -1};
    return {QString::fromUtf8(Programa.readAllStandardOutput()),
            QString::fromUtf8(Programa.readAllStandardError()), Programa.exitCode()};
}

} // namespace Sibrel::Testes
