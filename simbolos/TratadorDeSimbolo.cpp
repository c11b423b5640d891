// SPDX-License-Identifier: LGPL-2.1-or-later
#include "simbolos/TratadorDeSimbolo.h"

#include "simbolos/TabelaDeSimbolos.h"

namespace Sibrel
{

namespace
{

template <class Objeto>
std::unique_ptr<Objeto> Exigido(std::unique_ptr<Objeto> Novo, const QString &Tipo)
{
    if (!Novo) // the class is abstract
        throw EInvalidOperation(QStringLiteral("O tipo de Símbolo <%1> não é suportado!").arg(Tipo));
    return Novo;
}

} // namespace

std::unique_ptr<TTratadorDeSimbolo> TTratadorDeSimbolo::Novo(const TRefTratador &Classe,
                                                             TTabelaDeSimbolos *Tabela, const QString &Tipo)
{
    return Exigido(Classe.Criar(Tabela), Tipo);
}

std::unique_ptr<ISimbolo> TTratadorDeSimbolo::NovoSimbolo(const TRefSimbolo &Classe, const QString &Tipo)
{
    return Exigido(Classe.Criar(), Tipo);
}

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
