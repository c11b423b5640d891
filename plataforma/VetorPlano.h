// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>
#include <type_traits>

namespace Sibrel
{

/// A growing array of plain values, written at its end, for what documents keep. Where it grows, the system
/// moves its pages instead of copying them, and what is left over at the end goes back without a copy:
/// std::vector cannot do that. Growing raises std::bad_alloc and changes nothing.
template <class T>
class TVetorPlano
{
    static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>);

public:
    std::size_t size() const noexcept { return FTamanho; }
    bool empty() const noexcept { return FTamanho == 0; }
    std::size_t capacity() const noexcept { return FCapacidade; }
    const T *data() const noexcept { return FDados.get(); }

    T &operator[](std::size_t Indice) noexcept { return FDados.get()[Indice]; }

    /// Room for `Quantos` more, to be written before anything else is done here; `take` keeps those up to
    /// `Fim`.
    T *room(std::size_t Quantos)
    {
        Garantir(FTamanho + Quantos);
        return FDados.get() + FTamanho;
    }
    void take(const T *Fim) noexcept { FTamanho = static_cast<std::size_t>(Fim - FDados.get()); }

    void reserve(std::size_t Quantos)
    {
        if (Quantos > FCapacidade)
            Realocar(Quantos);
    }
    /// Gives back what is not used.
    void shrink_to_fit()
    {
        if (FTamanho < FCapacidade)
            Realocar(std::max<std::size_t>(FTamanho, 1));
    }

private:
    struct TLiberar {
        void operator()(T *Dados) const noexcept { std::free(Dados); }
    };

    void Garantir(std::size_t Quantos)
    {
        if (Quantos > FCapacidade)
            Realocar(std::max(Quantos, FCapacidade + FCapacidade / 2 + 16));
    }
    void Realocar(std::size_t Capacidade)
    {
        if (Capacidade > static_cast<std::size_t>(-1) / sizeof(T))
            throw std::bad_alloc();
        auto *Novos = static_cast<T *>(std::realloc(FDados.get(), Capacidade * sizeof(T)));
        if (!Novos)
            throw std::bad_alloc();
        static_cast<void>(FDados.release()); // freed or moved by realloc
        FDados.reset(Novos);
        FCapacidade = Capacidade;
    }

    std::unique_ptr<T, TLiberar> FDados;
    std::size_t FTamanho = 0;
    std::size_t FCapacidade = 0;
};

} // namespace Sibrel
