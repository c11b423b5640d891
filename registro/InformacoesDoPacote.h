// SPDX-License-Identifier: LGPL-2.1-or-later
// What the package declares about itself.
#pragma once

#include "plataforma/Exportacao.h"

#include <QIcon>

#include <span>
#include <string_view>

namespace Sibrel
{

/// A package that this one needs: the name under which the package information lists it, and what plays its
/// part here.
struct TPacoteRequerido {
    std::string_view Nome;
    std::string_view Equivalente;
};

/// The description, as form editors and hosts show it; UTF-8.
SIBREL_EXPORT std::string_view DescricaoDoPacote() noexcept;
/// In the order of the package information.
SIBREL_EXPORT std::span<const TPacoteRequerido> PacotesRequeridos() noexcept;
/// The modules that the package contains, in the order of the package information (not that in which they
/// start).
SIBREL_EXPORT std::span<const std::string_view> ModulosContidos() noexcept;
/// The package's icon, 64 pixels square; a host may show it as its own. Needs a QGuiApplication.
SIBREL_EXPORT QIcon IconeDoPacote();
/// "major.minor.patch".
SIBREL_EXPORT std::string_view VersaoDoPacote() noexcept;

} // namespace Sibrel
