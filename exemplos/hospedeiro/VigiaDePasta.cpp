// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/VigiaDePasta.h"

#include "plataforma/Exception.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace Hospedeiro
{

namespace
{

// Folders of other machines give no notice: these are looked at now and then all the same.
constexpr int Ronda = 1000;
constexpr int RondaComNovidade = 100; // while something is being written

} // namespace

TVigiaDePasta::TVigiaDePasta(QObject *Dono)
    : QObject(Dono)
{
    connect(&FAvisos, &QFileSystemWatcher::directoryChanged, this, &TVigiaDePasta::Olhar);
    connect(&FRelogio, &QTimer::timeout, this, &TVigiaDePasta::Olhar);
}

void TVigiaDePasta::Comecar(const QString &Pasta)
{
    const QFileInfo Info(Pasta);
    if (!Info.isDir() || !Info.isReadable())
        throw Sibrel::EInOutError(tr("A pasta <%1> não existe ou não pode ser lida!").arg(Pasta));
    Parar();
    FPasta = Info.absoluteFilePath();
    FArquivos = Listar(FPasta);
    for (auto &[Nome, Arquivo] : FArquivos)
        Arquivo.Contado = true;
    FAvisos.addPath(FPasta);
    FRelogio.start(Ronda);
}

void TVigiaDePasta::Parar()
{
    if (!FPasta.isEmpty())
        FAvisos.removePath(FPasta);
    FPasta.clear();
    FArquivos.clear();
    FRelogio.stop();
}

TVigiaDePasta::TArquivos TVigiaDePasta::Listar(const QString &Pasta) const
{
    TArquivos Achados;
    const QFileInfoList Infos =
        QDir(Pasta).entryInfoList({QStringLiteral("*.xml")}, QDir::Files, QDir::NoSort);
    for (const QFileInfo &Info : Infos) {
        TArquivo A{Info.size(), Info.lastModified(), {}, false};
        const auto Antes = FArquivos.find(Info.fileName());
        if (Antes != FArquivos.end() && Antes->second.Tamanho == A.Tamanho &&
            Antes->second.Mudado == A.Mudado)
            A = Antes->second;
        else
            A.Parado.start();
        Achados.emplace(Info.fileName(), A);
    }
    return Achados;
}

void TVigiaDePasta::Olhar()
{
    // A folder of another machine may go and come back: what was known stays known.
    if (!QFileInfo(FPasta).isDir())
        return;
    if (!FAvisos.directories().contains(FPasta))
        FAvisos.addPath(FPasta);
    FArquivos = Listar(FPasta);
    QStringList Novos;
    bool Espera = false;
    for (auto &[Nome, Arquivo] : FArquivos) {
        if (Arquivo.Contado)
            continue;
        Espera = !Arquivo.Parado.hasExpired(Sossego);
        if (Espera)
            break;
        Arquivo.Contado = true;
        if (Arquivo.Tamanho > 0)
            Novos += QDir(FPasta).filePath(Nome);
    }
    FRelogio.start(Espera ? RondaComNovidade : Ronda);
    for (const QString &Novo : Novos) {
        if (!Vigiando())
            return; // whoever was told has had enough
        Q_EMIT Documento(Novo);
    }
}

} // namespace Hospedeiro
