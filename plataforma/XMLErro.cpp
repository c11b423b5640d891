// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/XMLErro.h"

namespace Sibrel
{

EDOMParseError ErroDeXML(const QString &Motivo, int Linha, int Coluna)
{
    const QString Onde =
        Linha > 0 ? QStringLiteral("Linha %1, coluna %2: ").arg(Linha).arg(Coluna) : QString();
    EDOMParseError Erro(QStringLiteral("XML em formato inválido!"), Onde + Motivo);
    Erro.Linha = Linha;
    Erro.Coluna = Coluna;
    return Erro;
}

} // namespace Sibrel
