// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/FontesDaBiblioteca.h"

#include "plataforma/Arquivo.h"

#include <QDir>
#include <QFileInfo>
#include <QFontDatabase>

namespace Hospedeiro
{

QStringList TFontesDaBiblioteca::Carregar(const QString &Biblioteca)
{
    const QDir PastaDaBiblioteca = QFileInfo(Sibrel::ResolverNomeDeArquivo(Biblioteca)).absoluteDir();
    const QDir Pasta(Sibrel::ResolverNomeDeArquivo(PastaDaBiblioteca.filePath(QStringLiteral("fontes"))));
    QStringList Recusadas;
    // Without this an absent folder would be taken for the current one.
    if (!Pasta.exists())
        return Recusadas;
    const QStringList Tipos = {QStringLiteral("*.ttf"), QStringLiteral("*.otf"), QStringLiteral("*.ttc")};
    const QFileInfoList Arquivos = Pasta.entryInfoList(Tipos, QDir::Files, QDir::Name);
    for (const QFileInfo &Arquivo : Arquivos) {
        const QString Nome = Arquivo.absoluteFilePath();
        if (FCarregadas.contains(Nome))
            continue;
        if (QFontDatabase::addApplicationFont(Nome) >= 0)
            FCarregadas.append(Nome);
        else
            Recusadas.append(Nome);
    }
    return Recusadas;
}

} // namespace Hospedeiro
