// SPDX-License-Identifier: LGPL-2.1-or-later
// The example host run as a program, by the tests of its command line.
#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

namespace Sibrel::Testes
{

struct TResultado {
    QString Saida;
    QString Erros;
    int Codigo = -1;
};

/// Runs `Programa` in a folder, as on a machine without a display; text in UTF-8. Code -1 when it did not end
/// by itself.
inline TResultado RodarPrograma(const QString &Programa, const QString &Pasta, const QStringList &Argumentos)
{
    QProcess Processo;
    QProcessEnvironment Ambiente = QProcessEnvironment::systemEnvironment();
    // Without a runtime folder of its own Qt would speak up among the errors; and nothing is left with the
    // user.
    for (const char *Nome : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "QT_STYLE_OVERRIDE"})
        Ambiente.remove(QLatin1String(Nome));
    for (const char *Nome : {"XDG_RUNTIME_DIR", "XDG_DATA_HOME"})
        Ambiente.insert(QLatin1String(Nome), Pasta);
    Processo.setProcessEnvironment(Ambiente);
    Processo.setWorkingDirectory(Pasta);
    Processo.start(Programa, Argumentos);
    if (!Processo.waitForFinished(120000) || Processo.exitStatus() != QProcess::NormalExit)
        return {{}, QStringLiteral("o programa não terminou bem: ") + Processo.errorString(), -1};
    return {QString::fromUtf8(Processo.readAllStandardOutput()),
            QString::fromUtf8(Processo.readAllStandardError()), Processo.exitCode()};
}

} // namespace Sibrel::Testes
