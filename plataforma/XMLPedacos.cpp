// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/XMLPedacos.h"

#include "plataforma/XMLDocument.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace Sibrel
{

namespace
{

// How many of the bytes make a piece. Where the parser looks no further than the piece, it would miss "]]>",
// "?>" or the end of a line that is cut.
std::size_t Corte(std::string_view Bytes, std::size_t Limite) noexcept
{
    std::size_t Tamanho = std::min(Bytes.size(), Limite);
    for (int I = 0; I < 2 && Tamanho > 1 && std::string_view("]?\r").find(Bytes[Tamanho - 1]) != Bytes.npos;
         ++I)
        --Tamanho;
    return Tamanho;
}

} // namespace

TPedacosXML::TPedacosXML(QStringView Texto)
    : FResto(Texto.sliced(Texto.startsWith(QChar::ByteOrderMark) ? 1 : 0))
    , FFalhou(Texto.size() > TLimitesXML::Entrada)
{
}

int TPedacosXML::Ler(char *Para, int Bytes) noexcept
{
    const std::size_t Limite = std::min(static_cast<std::size_t>(std::max(Bytes, 0)), BytesDeUmaVez);
    while (!FFalhou && FVisto - FLido < Limite && !FResto.isEmpty())
        Converter();
    if (FFalhou)
        return -1;
    const std::string_view Prontos(FBytes.data() + FLido, FVisto - FLido);
    const bool Todos = FResto.isEmpty() && Prontos.size() <= Limite;
    const std::size_t Lidos = Todos ? Prontos.size() : Corte(Prontos, Limite);
    std::memcpy(Para, Prontos.data(), Lidos);
    FLido += Lidos;
    return static_cast<int>(Lidos);
}

// Puts the next bytes behind those that still wait.
void TPedacosXML::Converter() noexcept
{
    std::memmove(FBytes.data(), FBytes.data() + FLido, FFim - FLido);
    FVisto -= FLido;
    FFim -= FLido;
    FLido = 0;
    QStringView Parte = FResto.first(std::min<qsizetype>(FResto.size(), UnidadesDeUmaVez));
    if (Parte.size() < FResto.size() && Parte.back().isHighSurrogate())
        Parte.chop(1);
    FResto = FResto.sliced(Parte.size());
    char *const Novos = FBytes.data() + FFim;
    const auto Quantos = static_cast<std::size_t>(FCodificador.appendToBuffer(Novos, Parte) - Novos);
    FFim += Quantos;
    FVisto += FVigia.Ver({FBytes.data() + FVisto, FFim - FVisto}, FResto.isEmpty());
    FFalhou = FCodificador.hasError() || FVigia.Demais() || std::memchr(Novos, '\0', Quantos) != nullptr;
}

} // namespace Sibrel
