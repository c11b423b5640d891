// SPDX-License-Identifier: LGPL-2.1-or-later
#include "arvore/PastaDeErros.h"

#include "arvore/PrepararAtualizacao.h"

#include <QCoreApplication>

#include <mutex>

namespace Sibrel
{

namespace
{

std::mutex Trava;
QString Pasta;

} // namespace

QString PastaDeErros()
{
    const std::lock_guard Guarda(Trava);
    return Pasta.isEmpty() ? QCoreApplication::applicationDirPath() : Pasta;
}

void TPreparaAtualizacao::AtribuirPastaDeErros(const QString &Nova)
{
    const std::lock_guard Guarda(Trava);
    Pasta = Nova;
}

} // namespace Sibrel
