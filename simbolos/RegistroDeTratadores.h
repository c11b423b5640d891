// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Exportacao.h"
#include "plataforma/RefClasse.h"

#include <QString>

#include <vector>

namespace Sibrel
{

class ISimbolo;
class TTabelaDeSimbolos;
class TTratadorDeSimbolo;

/// A kind of symbol, and the class that reads and writes it.
using TRefSimbolo = RefClasse<ISimbolo>;
using TRefTratador = RefClasse<TTratadorDeSimbolo, TTabelaDeSimbolos *>;

/// What the registry knows of one kind.
struct TRegistroTratador {
    QString Tipo;
    TRefTratador Tratador;
    TRefSimbolo Simbolo;
};

/// The kinds of symbol by name, in the order of registration. GUI thread only.
class SIBREL_EXPORT TRegistroDeTratadores
{
public:
    /// EInvalidOperation when the name is taken, whatever its letter case.
    void Registrar(const QString &Tipo, const TRefTratador &Tratador, const TRefSimbolo &Simbolo);
    void Remover(const QString &Tipo);
    /// Null when unknown; letter case plays no part.
    const TRegistroTratador *PeloTipo(const QString &Tipo) const noexcept;
    /// The first registered with exactly this class; null when unknown.
    const TRegistroTratador *PelaClasse(const TRefSimbolo &Simbolo) const noexcept;

    const std::vector<TRegistroTratador> &Registros() const noexcept { return FRegistros; }

private:
    std::vector<TRegistroTratador> FRegistros;
};

/// The process-wide registry; it lives from the start of the module `TabelaDeSimbolos` to its stop, outside
/// of which asking for it raises EInvalidOperation.
SIBREL_EXPORT TRegistroDeTratadores &RegistroDeTratadores();
void CriarRegistroDeTratadores();
void LiberarRegistroDeTratadores() noexcept;

} // namespace Sibrel
