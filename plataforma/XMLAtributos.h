// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <cstddef>
#include <string_view>

namespace Sibrel
{

/// Looks for a start tag with more attributes than TLimitesXML::Atributos, before the parser sees the text:
/// the parser's time grows with the square of their number. Never misses such a tag; may find one where there
/// is none in a text with declarations of a DTD.
class TVigiaDeAtributos
{
public:
    /// Takes a piece, the next one of the text, and returns how many bytes of it are decided: the others have
    /// to come again at the start of the next piece. There are none in the `Ultimo`, and never more than
    /// Indecisos.
    std::size_t Ver(std::string_view Pedaco, bool Ultimo) noexcept;
    bool Demais() const noexcept { return FDemais; }

    /// "<![CDATA[" without its last character.
    static constexpr std::size_t Indecisos = 8;

private:
    std::size_t Abrir(std::string_view Resto) noexcept;
    std::size_t VerEtiqueta(std::string_view Resto) noexcept;
    void Contar(std::string_view Parte) noexcept;

    std::string_view FFecho; // what ends the comment, CDATA section or instruction that the text is inside of
    int FAtributos = 0;      // of the tag that the text is inside of
    char FAspa = '\0';       // of the attribute value that the text is inside of
    bool FNaEtiqueta = false;
    bool FComDTD = false;
    bool FDemais = false;
};

/// The same for a whole text.
bool AtributosDemais(std::string_view Utf8) noexcept;

} // namespace Sibrel
