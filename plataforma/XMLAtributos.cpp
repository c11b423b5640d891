// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/XMLAtributos.h"

#include "plataforma/XMLDocument.h"

#include <algorithm>
#include <array>

namespace Sibrel
{

namespace
{

using namespace std::string_view_literals;

struct TPar {
    std::string_view Abre;
    std::string_view Fecha;
};
constexpr std::array<TPar, 3> NaoSaoEtiquetas = {
    {{"<!--"sv, "-->"sv}, {"<![CDATA["sv, "]]>"sv}, {"<?"sv, "?>"sv}}};

} // namespace

std::size_t TVigiaDeAtributos::Ver(std::string_view Pedaco, bool Ultimo) noexcept
{
    std::size_t I = 0;
    while (I < Pedaco.size()) {
        if (!FFecho.empty()) {
            const std::size_t Fim = Pedaco.find(FFecho, I);
            if (Fim == Pedaco.npos)
                return Ultimo ? Pedaco.size()
                              : std::max(I, Pedaco.size() - std::min(Pedaco.size(), FFecho.size() - 1));
            I = Fim + FFecho.size();
            FFecho = {};
        } else if (Pedaco[I] != '<') {
            const std::size_t Fim = std::min(Pedaco.find('<', I), Pedaco.size());
            Contar(Pedaco.substr(I, Fim - I));
            I = Fim;
        } else if (!Ultimo && Pedaco.size() - I <= Indecisos) {
            return I;
        } else {
            I += Abrir(Pedaco.substr(I));
        }
    }
    return Pedaco.size();
}

// What starts with the "<" that `Resto` starts with; how many bytes of it were taken.
std::size_t TVigiaDeAtributos::Abrir(std::string_view Resto) noexcept
{
    FNaEtiqueta = false;
    const char Segundo = Resto.size() > 1 ? Resto[1] : '\0';
    if (Segundo != '!' && Segundo != '?')
        return VerEtiqueta(Resto);
    // What looks like a comment inside a DTD may be part of an entity's text: everything is looked at there.
    if (!FComDTD)
        for (const TPar &Par : NaoSaoEtiquetas)
            if (Resto.starts_with(Par.Abre)) {
                FFecho = Par.Fecha;
                return Par.Abre.size();
            }
    FComDTD = FComDTD || Segundo == '!';
    return 1;
}

std::size_t TVigiaDeAtributos::VerEtiqueta(std::string_view Resto) noexcept
{
    // A start tag lies between two "<", and an attribute takes five bytes at least, as in ` a=""`: nearly
    // every stretch is too short to need a look.
    constexpr std::size_t Curto = std::size_t{TLimitesXML::Atributos} * 5;
    const std::size_t Fim = Resto.find('<', 1);
    if (Fim <= Curto)
        return Fim;
    FNaEtiqueta = true;
    FAtributos = 0;
    FAspa = '\0';
    const std::size_t Tamanho = std::min(Fim, Resto.size());
    Contar(Resto.substr(0, Tamanho));
    return Tamanho;
}

// A part of the tag without another "<".
void TVigiaDeAtributos::Contar(std::string_view Parte) noexcept
{
    for (std::size_t I = 0; FNaEtiqueta && I < Parte.size(); ++I) {
        if (FAspa != '\0') {
            I = Parte.find(FAspa, I);
            if (I == Parte.npos)
                return;
            FAspa = '\0';
        } else if (Parte[I] == '=') {
            FDemais = FDemais || ++FAtributos > TLimitesXML::Atributos;
        } else if (Parte[I] == '"' || Parte[I] == '\'') {
            FAspa = Parte[I];
        } else {
            FNaEtiqueta = Parte[I] != '>';
        }
    }
}

bool AtributosDemais(std::string_view Utf8) noexcept
{
    TVigiaDeAtributos Vigia;
    Vigia.Ver(Utf8, true);
    return Vigia.Demais();
}

} // namespace Sibrel
