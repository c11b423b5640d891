// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "arvore/LinhasNomeValor.h"
#include "plataforma/Exportacao.h"
#include "plataforma/TextosCompactos.h"
#include "plataforma/XMLDocument.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Sibrel
{

/// The key of a list of pairs that a hash can decide: every line has "=" and a value, no name occurs twice.
/// Lists that identify each other have the same key, whatever the order of their lines; nothing for others.
std::optional<std::uint64_t> ChaveDeIdentificacao(TLinhasUtf8 Linhas);

/// A list of pairs by which nodes are looked for.
class SIBREL_EXPORT TIdentificacao
{
public:
    explicit TIdentificacao(const TStrings &Lista);
    /// The identification list of an element.
    explicit TIdentificacao(const TCursorXML &No);
    /// That of a node.
    explicit TIdentificacao(const TTextosCompactos &Textos);
    ~TIdentificacao() = default;
    TIdentificacao(const TIdentificacao &) = delete;
    TIdentificacao &operator=(const TIdentificacao &) = delete;

    bool Vazia() const noexcept { return FLinhas.empty(); }
    TLinhasUtf8 Linhas() const noexcept { return FLinhas; }
    /// Nothing when only looking at each node can tell.
    const std::optional<std::uint64_t> &Chave() const;
    /// The identity test: as many lines, and for the name of each line of this list the node has the same
    /// value. An empty list identifies nothing.
    bool Identifica(const TTextosCompactos &Textos) const;

private:
    void Copiar(TLinhasUtf8 Linhas);

    std::string FBytes;
    std::vector<QByteArrayView> FLinhas;
    mutable std::optional<std::uint64_t> FChave;
    mutable bool FComChave = false;
};

/// The lines of one part of a node's texts; thread-local memory, valid until the next call.
TLinhasUtf8 LinhasDoNo(const TTextosCompactos &Textos, TTextosCompactos::TParte Parte);

} // namespace Sibrel
