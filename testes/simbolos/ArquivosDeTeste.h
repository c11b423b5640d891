// SPDX-License-Identifier: LGPL-2.1-or-later
// A folder for the files of one test and an observer that counts.
#pragma once

#include "comum/Dados.h"
#include "corvane/Subject.h"

#include <QDir>
#include <QTemporaryDir>

namespace Sibrel::Testes
{

class TContador : public TObserver
{
public:
    int Avisos = 0;
    void Avisado(TSubject &) override { ++Avisos; }
};

/// A folder that is gone with the object; the process's current folder is then what it was.
class TPastaDeTeste
{
public:
    TPastaDeTeste()
        : FAntes(QDir::currentPath())
    {
    }
    ~TPastaDeTeste() { QDir::setCurrent(FAntes); }
    TPastaDeTeste(const TPastaDeTeste &) = delete;
    TPastaDeTeste &operator=(const TPastaDeTeste &) = delete;

    QString Nome(const QString &Arquivo) const { return FPasta.filePath(Arquivo); }
    QString Caminho() const { return QDir(FPasta.path()).canonicalPath(); }
    /// The name of a new file of that content.
    QString Com(const QByteArray &Bytes, const QString &Arquivo = QStringLiteral("biblioteca.txt")) const
    {
        EscreverBytes(Nome(Arquivo), Bytes);
        return Nome(Arquivo);
    }

private:
    QTemporaryDir FPasta;
    QString FAntes;
};

} // namespace Sibrel::Testes
