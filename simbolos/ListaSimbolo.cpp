// SPDX-License-Identifier: LGPL-2.1-or-later
#include "simbolos/ListaSimbolo.h"

namespace Sibrel
{

TListaSimbolo::TListaSimbolo() = default;
TListaSimbolo::~TListaSimbolo() = default;

void TListaSimbolo::Add(TListaSimbolo &Lista)
{
    const int Quantos = Lista.Count();
    for (int I = 0; I < Quantos; ++I)
        Add(Lista[I] != nullptr ? Copia(*Lista[I]) : nullptr);
}

void TListaSimbolo::DoChange()
{
    if (AoAlterar)
        AoAlterar(*this);
}

void TListaSimbolo::RegistrarTratadorDeSimbolo(const QString &Tipo, const TRefTratador &Tratador,
                                               const TRefSimbolo &Simbolo)
{
    RegistroDeTratadores().Registrar(Tipo, Tratador, Simbolo);
}

bool TListaSimbolo::ObterTratadorDeSimbolo(const QString &Tipo, TRefTratador &Tratador, TRefSimbolo &Simbolo)
{
    const TRegistroTratador *Registro = RegistroDeTratadores().PeloTipo(Tipo);
    Tratador = Registro != nullptr ? Registro->Tratador : nullptr;
    if (Registro != nullptr)
        Simbolo = Registro->Simbolo;
    return Registro != nullptr;
}

bool TListaSimbolo::ObterTratadorDeSimbolo(const TRefSimbolo &Simbolo, QString &Tipo, TRefTratador &Tratador)
{
    const TRegistroTratador *Registro = RegistroDeTratadores().PelaClasse(Simbolo);
    if (Registro == nullptr)
        return false;
    Tipo = Registro->Tipo;
    Tratador = Registro->Tratador;
    return true;
}

void TListaSimbolo::RemoverRegistroTratadorDeSimbolo(const QString &Tipo)
{
    RegistroDeTratadores().Remover(Tipo);
}

} // namespace Sibrel
