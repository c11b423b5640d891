// SPDX-License-Identifier: LGPL-2.1-or-later
#include "simbolos/TratadorDeSimbolo.h"

#include "simbolos/TabelaDeSimbolos.h"

namespace Sibrel
{

TTratadorDeSimbolo::TTratadorDeSimbolo(TTabelaDeSimbolos *ATabela) noexcept
    : Tabela(ATabela)
{
}

TTratadorDeSimbolo::~TTratadorDeSimbolo() = default;

QString TTratadorDeSimbolo::SemComentario(const QString &Texto)
{
    const qsizetype Comentario = Texto.indexOf(QLatin1String("//"));
    return Comentario >= 0 ? Texto.first(Comentario) : Texto;
}

void TTratadorDeSimbolo::Avisar(int Linha, TTipoDeAviso Tipo, const QString &Texto) const
{
    if (Tabela != nullptr)
        Tabela->AcrescentarAviso({Linha, Tipo, Texto});
}

} // namespace Sibrel
