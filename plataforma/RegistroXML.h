// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/NumeroCompacto.h"
#include "plataforma/XMLDocument.h"

#include <cstring>

namespace Sibrel
{

/// The record of one node in a document's bytes. Records stand in document order, one right behind the other:
///
/// - the kind and the marks below: one byte;
/// - elements: the bytes from here to what is no longer inside: four bytes, known at the end tag;
/// - elements and instructions: the number of the name;
/// - the bytes back to the parent's record, 0 for the document element;
/// - the lines below the parent's, signed: what an entity brings in may have any;
/// - elements: number of the name, length and bytes of each attribute, then 0, which is no attribute's name;
///   others: length and bytes of the text.
///
/// Numbers are compact ones but for the four bytes. Records are small because reading a large document costs
/// as much memory as they take, and memory that the system has to give is a quarter of that time.
class TRegistroXML
{
public:
    enum TMarca : unsigned char { MascaraDoTipo = 7, ComFilhos = 8, UltimoFilho = 16 };
    static constexpr std::uint32_t LugarDoTamanho = 1; // of an element's four bytes
    /// What a record takes at most, its attributes or text aside.
    static constexpr std::size_t MaiorCabecalho = 1 + 4 + 3 * 5;

    struct TAtributo {
        std::uint32_t Nome = 0;
        QByteArrayView Texto;
    };

    explicit TRegistroXML(const unsigned char *Inicio) noexcept
        : FInicio(Inicio)
    {
    }

    TTipoDeNoXML Tipo() const noexcept { return static_cast<TTipoDeNoXML>(*FInicio & MascaraDoTipo); }
    bool Elemento() const noexcept { return Tipo() == TTipoDeNoXML::Elemento; }
    bool Tem(TMarca Marca) const noexcept { return (*FInicio & Marca) != 0; }

    /// Texts, comments and CDATA sections have the numbers of their kinds.
    std::uint32_t Nome() const noexcept
    {
        const unsigned char *Aqui = DepoisDoTamanho();
        return TemNome() ? static_cast<std::uint32_t>(LerNumero(Aqui)) : static_cast<std::uint32_t>(Tipo());
    }
    std::uint32_t AtePai() const noexcept
    {
        const unsigned char *Aqui = DepoisDoNome();
        return static_cast<std::uint32_t>(LerNumero(Aqui));
    }
    std::int64_t LinhasDesdeOPai() const noexcept
    {
        const unsigned char *Aqui = PularNumero(DepoisDoNome());
        return DeDobrado(LerNumero(Aqui));
    }
    /// The attributes of an element, the text of others.
    const unsigned char *Conteudo() const noexcept { return PularNumero(PularNumero(DepoisDoNome())); }
    QByteArrayView Texto() const noexcept { return LerTexto(Conteudo()); }
    /// Where the node's children stand, or what follows when it has none.
    const unsigned char *DepoisDoConteudo() const noexcept
    {
        const unsigned char *Aqui = Conteudo();
        if (!Elemento())
            return Fim(LerTexto(Aqui));
        for (TAtributo A; ProximoAtributo(Aqui, A);) {
        }
        return Aqui;
    }
    /// Behind the node and all below it.
    const unsigned char *Fim() const noexcept
    {
        if (!Elemento())
            return Fim(Texto());
        std::uint32_t Tamanho = 0;
        std::memcpy(&Tamanho, FInicio + LugarDoTamanho, sizeof Tamanho);
        return FInicio + Tamanho;
    }

    /// The attribute at `Aqui`, which moves behind it. False at the end.
    static bool ProximoAtributo(const unsigned char *&Aqui, TAtributo &A) noexcept
    {
        A.Nome = static_cast<std::uint32_t>(LerNumero(Aqui));
        if (A.Nome == 0)
            return false;
        A.Texto = LerTexto(Aqui);
        Aqui = Fim(A.Texto);
        return true;
    }

    // Signed numbers as compact ones: small ones of either sign stay small.
    static constexpr std::uint64_t Dobrado(std::int64_t Valor) noexcept
    {
        return Valor < 0 ? (static_cast<std::uint64_t>(-(Valor + 1)) << 1U) + 1U
                         : static_cast<std::uint64_t>(Valor) << 1U;
    }
    static constexpr std::int64_t DeDobrado(std::uint64_t Valor) noexcept
    {
        const auto Metade = static_cast<std::int64_t>(Valor >> 1U);
        return (Valor & 1U) != 0 ? -Metade - 1 : Metade;
    }

private:
    bool TemNome() const noexcept { return Elemento() || Tipo() == TTipoDeNoXML::Instrucao; }
    const unsigned char *DepoisDoTamanho() const noexcept
    {
        return FInicio + LugarDoTamanho + (Elemento() ? sizeof(std::uint32_t) : 0);
    }
    const unsigned char *DepoisDoNome() const noexcept
    {
        return TemNome() ? PularNumero(DepoisDoTamanho()) : DepoisDoTamanho();
    }
    static QByteArrayView LerTexto(const unsigned char *Aqui) noexcept
    {
        const auto Tamanho = static_cast<qsizetype>(LerNumero(Aqui));
        return {Aqui, Tamanho};
    }
    static const unsigned char *Fim(QByteArrayView Texto) noexcept
    {
        return reinterpret_cast<const unsigned char *>(Texto.data()) + Texto.size();
    }

    const unsigned char *FInicio;
};

} // namespace Sibrel
