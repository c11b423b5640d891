// SPDX-License-Identifier: LGPL-2.1-or-later
#include "registro/Sibrel.h"

#include "simbolos/TabelaDeSimbolos.h"

#include <algorithm>
#include <array>
#include <exception>
#include <ranges>

namespace Sibrel
{

std::span<TModulo *const> ModulosDoPacote() noexcept
{
    static const std::array Modulos = {&ModuloTabelaDeSimbolos()};
    return Modulos;
}

namespace
{

// Lives exactly as long as the library is loaded.
struct TPartida {
    TPartida()
    {
        std::ranges::for_each(ModulosDoPacote(), [](TModulo *M) { M->Iniciar(); });
    }
    ~TPartida()
    {
        std::ranges::for_each(ModulosDoPacote() | std::views::reverse, [](TModulo *M) { M->Parar(); });
    }
    TPartida(const TPartida &) = delete;
    TPartida &operator=(const TPartida &) = delete;
};

const TPartida Partida;

} // namespace

} // namespace Sibrel
