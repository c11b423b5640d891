// SPDX-License-Identifier: LGPL-2.1-or-later
// A kind of symbol that a host derives from another; with ESQUECER it does not say its own class, and then
// its copies would be of its parent's class: that must not compile.
#include "simbolos/ListaSimbolo.h"
#include "simbolos/SimboloFonte.h"

#ifdef ESQUECER
class TMeuSimbolo : public Sibrel::TSimboloFonte
#else
class TMeuSimbolo : public Sibrel::ComClasse<TMeuSimbolo, Sibrel::TSimboloFonte>
#endif
{
public:
    static constexpr const char *NomeDaClasse = "TMeuSimbolo";
};

int main()
{
    Sibrel::TListaSimbolo Lista;
#ifdef PELA_REFERENCIA
    Lista.Add(Sibrel::TRefSimbolo::De<TMeuSimbolo>().Criar());
#else
    Lista.Add(std::make_unique<TMeuSimbolo>());
#endif
    return Lista.Count() == 1 ? 0 : 1;
}
