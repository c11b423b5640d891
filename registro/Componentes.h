// SPDX-License-Identifier: LGPL-2.1-or-later
// The components that a form editor shows on the palette page "Simbolos": one table drives it.
#pragma once

#include "plataforma/Exportacao.h"

#include <QIcon>
#include <QLatin1String>

#include <span>

class QWidget;

namespace Sibrel
{

/// A property that a component publishes, as a form editor shows and stores it.
struct TPropriedadePublicada {
    QLatin1String Nome;
    const char16_t *Dica;         ///< tool tip, in Portuguese
    bool SempreGuardada = false;  ///< a form file holds it whatever its value
    bool NomeNoDocumento = false; ///< a text that documents contain: no translator may touch it
};

/// What a form editor has to know of one component.
struct TComponenteDoPacote {
    QLatin1String Classe;    ///< without the namespace
    QLatin1String Cabecalho; ///< what a form's generated code includes
    const char16_t *Dica;    ///< tool tip, in Portuguese
    bool Visual;             ///< false: shows its icon on the form at design time and nothing at run time
    QWidget *(*Criar)(QWidget *Dono);
    std::span<const TPropriedadePublicada> Propriedades;

    /// The picture of the resource named after the class in upper case; null when there is none and the form
    /// editor's own stands in.
    SIBREL_EXPORT QIcon Icone() const;
};

/// The palette page.
inline constexpr QLatin1String PaginaDaPaleta("Simbolos");

/// In the order of registration.
SIBREL_EXPORT std::span<const TComponenteDoPacote> ComponentesDoPacote() noexcept;

} // namespace Sibrel
