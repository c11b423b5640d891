// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

namespace Sibrel
{

/// Values that never move, made one behind the other and let go all together: a few large pieces of memory
/// instead of one small piece each.
template <class T>
class TDeposito
{
public:
    /// A new value, good until Limpar. Memory that runs out changes nothing.
    T &Novo()
    {
        if (FUsados == FPecas.size() * PorPeca)
            FPecas.push_back(std::make_unique<T[]>(PorPeca));
        const std::size_t Lugar = FUsados++;
        return FPecas[Lugar / PorPeca][Lugar % PorPeca];
    }
    /// Takes the newest value back.
    void Desfazer()
    {
        --FUsados;
        FPecas[FUsados / PorPeca][FUsados % PorPeca] = T();
    }
    void Limpar() noexcept
    {
        FPecas.clear();
        FUsados = 0;
    }

private:
    static constexpr std::size_t BytesPorPeca = 65536;
    static constexpr std::size_t PorPeca = sizeof(T) < BytesPorPeca ? BytesPorPeca / sizeof(T) : 1;

    std::vector<std::unique_ptr<T[]>> FPecas;
    std::size_t FUsados = 0;
};

} // namespace Sibrel
