// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <cstddef>
#include <cstdint>

namespace Sibrel
{

// Numbers that are nearly always small, in as few bytes as they need: seven bits a byte, lowest first, the
// high bit meaning "more follows". Nothing is checked: who reads knows that he wrote.

constexpr unsigned BitsDoByteCompacto = 7;
constexpr unsigned MaisBytesCompactos = 0x80;

inline std::size_t TamanhoDoNumero(std::uint64_t Valor) noexcept
{
    std::size_t Bytes = 1;
    while (Valor >>= BitsDoByteCompacto)
        ++Bytes;
    return Bytes;
}

/// Returns the place behind the number.
inline unsigned char *EscreverNumero(unsigned char *Onde, std::uint64_t Valor) noexcept
{
    for (; Valor >= MaisBytesCompactos; Valor >>= BitsDoByteCompacto)
        *Onde++ = static_cast<unsigned char>(Valor | MaisBytesCompactos);
    *Onde++ = static_cast<unsigned char>(Valor);
    return Onde;
}

/// Reads the number at `Onde` and moves behind it.
inline std::uint64_t LerNumero(const unsigned char *&Onde) noexcept
{
    std::uint64_t Valor = *Onde++;
    if (Valor < MaisBytesCompactos)
        return Valor;
    Valor &= MaisBytesCompactos - 1;
    for (unsigned Casa = BitsDoByteCompacto;; Casa += BitsDoByteCompacto) {
        const std::uint64_t Byte = *Onde++;
        Valor |= (Byte & (MaisBytesCompactos - 1)) << Casa;
        if (Byte < MaisBytesCompactos)
            return Valor;
    }
}

inline const unsigned char *PularNumero(const unsigned char *Onde) noexcept
{
    while (*Onde++ >= MaisBytesCompactos) {
    }
    return Onde;
}

} // namespace Sibrel
