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
/// however many share its key. Different keys may come up together: who looks compares what he looks for.
class TIndiceDeNos
{
public:
    static constexpr std::uint32_t Nenhuma = 0;

    /// The number of the new entry, never `Nenhuma`. Memory that runs out leaves the index as it was.
    std::uint32_t Acrescentar(std::uint64_t Chave, std::uint32_t Serie, TTreeNode *No);
    void Retirar(std::uint32_t Entrada) noexcept;
    /// The first entry that may have the key, and the one behind an entry; `Nenhuma` at the end.
    std::uint32_t Primeira(std::uint64_t Chave) const noexcept;
    std::uint32_t Proxima(std::uint32_t Entrada) const noexcept;
    TTreeNode *No(std::uint32_t Entrada) const noexcept { return FEntradas[Entrada].No; }
    std::size_t Quantas() const noexcept { return FQuantas; }

private:
    struct TEntrada {
        std::uint64_t Chave = 0;
        TTreeNode *No = nullptr;
        std::uint32_t Serie = 0;
        std::uint32_t Anterior = Nenhuma;
        std::uint32_t Proxima = Nenhuma;
    };
    struct TBalde {
        std::uint32_t Primeira = Nenhuma;
        std::uint32_t Ultima = Nenhuma;
    };
    std::size_t Balde(std::uint64_t Chave) const noexcept;
    std::uint32_t ComChave(std::uint32_t Entrada, std::uint64_t Chave) const noexcept;
    void Ligar(std::uint32_t Entrada) noexcept;
    void Crescer();

    std::vector<TEntrada> FEntradas = std::vector<TEntrada>(1); // the first is nobody's
    std::vector<TBalde> FBaldes;
    std::uint32_t FLivre = Nenhuma; // entries without a node, one behind the other
    std::size_t FQuantas = 0;
};

} // namespace Sibrel
