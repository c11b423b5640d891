// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Exception.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <vector>

namespace Sibrel
{

/// Raises the list's own index error. Apart from the template, so that the text stands once.
[[noreturn]] SIBREL_EXPORT void ErroDeIndice(std::ptrdiff_t Indice);

/// A list that owns its objects: what is deleted, replaced or cleared is destroyed.
///
/// Ownership comes in as `unique_ptr` and goes out by `Extract`. Every index outside the list raises
/// EListError and changes nothing. A slot may be empty (null). Not synchronised.
template <class T>
class TObjectList
{
public:
    TObjectList() = default;
    TObjectList(TObjectList &&) noexcept = default;
    TObjectList &operator=(TObjectList &&) noexcept = default;
    TObjectList(const TObjectList &) = delete;
    TObjectList &operator=(const TObjectList &) = delete;
    virtual ~TObjectList() = default;

    int Count() const noexcept { return static_cast<int>(FItens.size()); }
    bool Vazia() const noexcept { return FItens.empty(); }
    int Capacity() const noexcept { return static_cast<int>(FItens.capacity()); }
    void SetCapacity(int Capacidade) { FItens.reserve(static_cast<std::size_t>(std::max(Capacidade, 0))); }

    /// The object at `Indice`; the list goes on owning it.
    T *Item(int Indice) const { return FItens[Verificado(Indice)].get(); }
    T *operator[](int Indice) const { return Item(Indice); }

    /// Appends; the index of the new item.
    int Add(std::unique_ptr<T> Objeto)
    {
        FItens.push_back(std::move(Objeto));
        return Count() - 1;
    }

    /// `Indice` may be Count(), which appends.
    void Insert(int Indice, std::unique_ptr<T> Objeto)
    {
        if (Indice < 0 || Indice > Count())
            ErroDeIndice(Indice);
        FItens.insert(FItens.begin() + Indice, std::move(Objeto));
    }

    /// Puts `Objeto` at `Indice` and destroys the one that stood there.
    void SetItem(int Indice, std::unique_ptr<T> Objeto) { FItens[Verificado(Indice)] = std::move(Objeto); }

    void Delete(int Indice)
    {
        Verificado(Indice);
        // Out of the list before it dies: its destructor may look at the list.
        const std::unique_ptr<T> Morto = Tirar(Indice);
    }

    /// Removes and destroys; the former index, -1 when absent.
    int Remove(const T *Objeto)
    {
        const int Indice = IndexOf(Objeto);
        if (Indice >= 0)
            Delete(Indice);
        return Indice;
    }

    /// Removes without destroying; null when absent.
    std::unique_ptr<T> Extract(const T *Objeto)
    {
        const int Indice = IndexOf(Objeto);
        return Indice >= 0 ? Tirar(Indice) : nullptr;
    }

    /// By identity, from the first; -1 when absent.
    int IndexOf(const T *Objeto) const noexcept
    {
        const auto Lugar = std::find_if(FItens.begin(), FItens.end(),
                                        [Objeto](const std::unique_ptr<T> &O) { return O.get() == Objeto; });
        return Lugar != FItens.end() ? static_cast<int>(Lugar - FItens.begin()) : -1;
    }

    T *First() const { return Item(0); }
    T *Last() const { return Item(Count() - 1); }

    void Clear() noexcept
    {
        std::vector<std::unique_ptr<T>> Mortos;
        Mortos.swap(FItens);
    }

    /// Appends all of `Outra`'s objects in order and leaves it empty; nothing is copied or destroyed.
    void MoverDe(TObjectList &Outra)
    {
        if (this == &Outra)
            return;
        FItens.insert(FItens.end(), std::make_move_iterator(Outra.FItens.begin()),
                      std::make_move_iterator(Outra.FItens.end()));
        Outra.FItens.clear();
    }

    auto begin() const noexcept { return FItens.begin(); }
    auto end() const noexcept { return FItens.end(); }

private:
    std::size_t Verificado(int Indice) const
    {
        if (Indice < 0 || Indice >= Count())
            ErroDeIndice(Indice);
        return static_cast<std::size_t>(Indice);
    }

    std::unique_ptr<T> Tirar(int Indice)
    {
        std::unique_ptr<T> Objeto = std::move(FItens[static_cast<std::size_t>(Indice)]);
        FItens.erase(FItens.begin() + Indice);
        return Objeto;
    }

    std::vector<std::unique_ptr<T>> FItens;
};

} // namespace Sibrel
