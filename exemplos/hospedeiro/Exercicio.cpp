// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/Exercicio.h"

#include "plataforma/Exception.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace Hospedeiro
{

namespace
{

const QString NomeDaPasta = QStringLiteral("exercicio");
const QString DadosInstalados = QStringLiteral("../share/Sibrel/exemplos/arvore/exercicio");

} // namespace

TExercicio::TExercicio(QObject *Dono)
    : QObject(Dono)
{
    FRelogio.setInterval(Passo);
    connect(&FRelogio, &QTimer::timeout, this, &TExercicio::Proximo);
}

QString TExercicio::PastaPara(const QString &Documento)
{
    const QString Pasta = Documento.isEmpty()
                              ? QDir(QCoreApplication::applicationDirPath()).filePath(DadosInstalados)
                              : QFileInfo(Documento).dir().filePath(NomeDaPasta);
    return QFileInfo(Pasta).isDir() ? QDir::cleanPath(Pasta) : QString();
}

void TExercicio::Comecar(const QString &Pasta)
{
    QStringList Nomes = QDir(Pasta).entryList({QStringLiteral("*.xml")}, QDir::Files, QDir::NoSort);
    if (Nomes.isEmpty())
        throw Sibrel::EInOutError(tr("A pasta <%1> não tem documentos de exercício!").arg(Pasta));
    Nomes.sort();
    FDocumentos.clear();
    for (const QString &Nome : Nomes)
        FDocumentos += QDir(Pasta).filePath(Nome);
    FFeitos = 0;
    FRelogio.start();
    Proximo();
}

void TExercicio::Parar()
{
    if (!Andando())
        return;
    FRelogio.stop();
    Q_EMIT Parou();
}

void TExercicio::Proximo()
{
    if (PodeSeguir && !PodeSeguir())
        return;
    Q_EMIT Documento(FDocumentos.at(FFeitos++));
    if (FFeitos == FDocumentos.size())
        Parar();
}

} // namespace Hospedeiro
