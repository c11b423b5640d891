// SPDX-License-Identifier: LGPL-2.1-or-later
#include "registro/InformacoesDoPacote.h"

#include <array>

namespace Sibrel
{

namespace
{

constexpr std::array<TPacoteRequerido, 9> Requeridos = {{
    {"visualclx70", "Qt6::Widgets"},
    {"inet70", "Qt6::Core"},
    {"Corvane", "corvane"},
    {"Lumbrix", "lumbrix"},
    {"dsnap70", "Qt6::Sql"},
    {"xmlrtl70", "LibXml2"},
    {"dbrtl70", "Qt6::Sql"},
    {"vcl70", "Qt6::Gui"},
    {"rtl70", "Qt6::Core"},
}};

// The fourth is the start-up module, which every package has: here the loader's own start of the library.
constexpr std::array<std::string_view, 11> Contidos = {
    "Sibrel",          "PrepararAtualizacao", "TagsXML",          "Partida",
    "TreeViewXML",     "TreeNodeXML",         "TabelaDeSimbolos", "TreeViewXMLBD",
    "SimboloVetorial", "TabelaDeSimbolosBD",  "SimboloImagem",
};

} // namespace

std::string_view DescricaoDoPacote() noexcept
{
    return "Quenda - Componentes para trabalhar com simbolos";
}

std::span<const TPacoteRequerido> PacotesRequeridos() noexcept
{
    return Requeridos;
}

std::span<const std::string_view> ModulosContidos() noexcept
{
    return Contidos;
}

QIcon IconeDoPacote()
{
    return QIcon(QStringLiteral(":/sibrel/MAINICON.png"));
}

std::string_view VersaoDoPacote() noexcept
{
    return SIBREL_VERSAO;
}

} // namespace Sibrel
