// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/XMLAtributos.h"

#include <QStringEncoder>
#include <QStringView>

#include <array>

namespace Sibrel
{

/// A text as UTF-8, a piece at a time for a parser that reads on as it needs: no copy of the whole is made.
/// What a document may not have (TLimitesXML::Entrada, half characters, the character zero, tags with too
/// many attributes) ends the pieces. Used once.
class TPedacosXML
{
public:
    explicit TPedacosXML(QStringView Texto);
    TPedacosXML(const TPedacosXML &) = delete;
    TPedacosXML &operator=(const TPedacosXML &) = delete;

    /// Writes the next bytes, at most so many; how many, 0 at the end, -1 for what may not be.
    int Ler(char *Para, int Bytes) noexcept;
    /// Everything was read, and may be.
    bool Terminou() const noexcept { return !FFalhou && FResto.isEmpty() && FLido == FFim; }

private:
    void Converter() noexcept;

    QStringView FResto;
    // Without state, a half at a piece's end is an error there. One that waits for the next piece is no error
    // any more, even when its other half does not follow.
    QStringEncoder FCodificador{QStringConverter::Utf8, QStringConverter::Flag::Stateless};
    TVigiaDeAtributos FVigia;
    // The bytes that wait: those before FVisto are good for the parser.
    std::size_t FLido = 0;
    std::size_t FVisto = 0;
    std::size_t FFim = 0;
    bool FFalhou = false;
    static constexpr std::size_t BytesDeUmaVez = 4096;
    static constexpr std::size_t UnidadesDeUmaVez = 4096; // code units, of up to three bytes each
    // Without a value until they are written.
    std::array<char, BytesDeUmaVez + TVigiaDeAtributos::Indecisos + 3 * (UnidadesDeUmaVez + 2)> FBytes;
};

} // namespace Sibrel
