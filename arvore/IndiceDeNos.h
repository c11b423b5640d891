// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Sibrel
{

class TTreeNode;

/// Nodes by a hash key, those of one key in the order of their serial numbers.
///
/// Entries are numbered and the caller keeps each node's number, so that taking a node out costs the same
/// however many share its key. Keys stand in a table of their own, so that looking for one touches hardly
/// an entry of another, and a table that grows touches no entry at all. Not synchronised: a search changes it
/// too.
class TIndiceDeNos
{
public:
    static constexpr std::uint32_t Nenhuma = 0;

    /// The number of the new entry, never `Nenhuma`. Memory that runs out leaves the index as it was.
    std::uint32_t Acrescentar(std::uint64_t Chave, std::uint32_t Serie, TTreeNode *No);
    void Retirar(std::uint32_t Entrada) noexcept;
    /// Room for so many entries in all, so that adding them one by one moves nothing.
    void Reservar(std::size_t Entradas);
    /// The first entry of the key, and the one behind an entry; `Nenhuma` at the end.
    std::uint32_t Primeira(std::uint64_t Chave) const noexcept;
    std::uint32_t Proxima(std::uint32_t Entrada) const noexcept { return FEntradas[Entrada].Proxima; }
    TTreeNode *No(std::uint32_t Entrada) const noexcept { return FEntradas[Entrada].No; }
    std::uint32_t Serie(std::uint32_t Entrada) const noexcept { return FEntradas[Entrada].Serie; }
    std::size_t Quantas() const noexcept { return FQuantas; }

private:
    struct TEntrada {
        std::uint64_t Chave = 0;
        TTreeNode *No = nullptr;
        std::uint32_t Serie = 0;
        std::uint32_t Anterior = Nenhuma; // the first one's is the last
        std::uint32_t Proxima = Nenhuma;
    };
    // A key, by part of its hash, and its first entry; without one the place is free. A key stands in its own
    // place or, where that is taken, in the next free one.
    struct TBalde {
        std::uint32_t Hash = 0;
        std::uint32_t Primeira = Nenhuma;
    };
    static std::uint32_t HashDe(std::uint64_t Chave) noexcept;
    std::size_t Proprio(std::uint32_t Hash) const noexcept;
    std::size_t Lugar(std::uint64_t Chave) const noexcept;
    bool PrimeiraDaChave(std::uint32_t Entrada, std::uint64_t Chave) const noexcept;
    void Ligar(std::uint32_t Entrada) noexcept;
    void Fechar(std::size_t Livre) noexcept;
    void Crescer(std::size_t Chaves);

    std::vector<TEntrada> FEntradas; // the first is nobody's
    std::vector<TBalde> FBaldes;     // as many as a power of two, some of them free
    std::size_t FChaves = 0;
    std::uint32_t FLivre = Nenhuma; // entries without a node, one behind the other
    std::size_t FQuantas = 0;
    mutable std::uint32_t FAchada = Nenhuma; // by the last search
};

} // namespace Sibrel
