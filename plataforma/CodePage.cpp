// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/CodePage.h"

#include "plataforma/CodePageTabelas.h"
#include "plataforma/Exception.h"

#include <algorithm>

namespace Sibrel
{

namespace
{

using namespace PaginasDeCodigo;

// The byte of a character of code page 1252 above 0x7F, 0 when it has none.
std::uint8_t ByteDe1252(char16_t C) noexcept
{
    if (C >= 0xA0 && C <= 0xFF)
        return static_cast<std::uint8_t>(C);
    // Only 0x80 to 0x9F differ from the code points: 32 entries, searched for the rare character that is
    // there.
    const auto Fim = Pagina1252.begin() + 32;
    const auto Lugar = std::find(Pagina1252.begin(), Fim, C);
    return Lugar != Fim ? static_cast<std::uint8_t>(0x80 + (Lugar - Pagina1252.begin())) : std::uint8_t{0};
}

const TMetade &MetadeDoCharset(std::uint8_t Charset) noexcept
{
    switch (Charset) {
    case 161:
        return Pagina1253;
    case 162:
        return Pagina1254;
    case 163:
        return Pagina1258;
    case 177:
        return Pagina1255;
    case 178:
        return Pagina1256;
    case 186:
        return Pagina1257;
    case 204:
        return Pagina1251;
    case 222:
        return Pagina874;
    case 238:
        return Pagina1250;
    case 255:
        return Pagina437;
    default:
        return Pagina1252;
    }
}

} // namespace

QString De1252(QByteArrayView Bytes)
{
    QString Texto(Bytes.size(), Qt::Uninitialized);
    auto *Destino = reinterpret_cast<char16_t *>(Texto.data());
    for (const char B : Bytes) {
        const auto Codigo = static_cast<std::uint8_t>(B);
        *Destino++ = Codigo < 0x80 ? char16_t{Codigo} : Pagina1252[Codigo - 0x80U];
    }
    return Texto;
}

QByteArray Utf8De1252(QByteArrayView Bytes)
{
    const auto Alto = [](char B) { return static_cast<std::uint8_t>(B) >= 0x80; };
    // Two bytes for most, three for the euro and its like: room for all, and no second pass.
    const auto Altos = std::count_if(Bytes.begin(), Bytes.end(), Alto);
    QByteArray Texto(Bytes.size() + 2 * Altos, Qt::Uninitialized);
    char *Destino = Texto.data();
    for (auto Lugar = Bytes.begin(); Lugar != Bytes.end();) {
        const auto Fim = std::find_if(Lugar, Bytes.end(), Alto);
        Destino = std::copy(Lugar, Fim, Destino);
        Lugar = Fim;
        for (; Lugar != Bytes.end() && Alto(*Lugar); ++Lugar) {
            const unsigned C = Pagina1252[static_cast<std::uint8_t>(*Lugar) - 0x80U];
            if (C >= 0x800)
                *Destino++ = static_cast<char>(0xE0U | (C >> 12U));
            *Destino++ = static_cast<char>(C >= 0x800 ? 0x80U | ((C >> 6U) & 0x3FU) : 0xC0U | (C >> 6U));
            *Destino++ = static_cast<char>(0x80U | (C & 0x3FU));
        }
    }
    Texto.truncate(Destino - Texto.constData());
    return Texto;
}

std::optional<QByteArray> Para1252(QStringView Texto)
{
    QByteArray Bytes(Texto.size(), Qt::Uninitialized);
    char *Destino = Bytes.data();
    for (const QChar Caracter : Texto) {
        const char16_t C = Caracter.unicode();
        const std::uint8_t B = C < 0x80 ? static_cast<std::uint8_t>(C) : ByteDe1252(C);
        if (B == 0 && C != 0)
            return std::nullopt;
        *Destino++ = static_cast<char>(B);
    }
    return Bytes;
}

qsizetype PrimeiroFora1252(QStringView Texto) noexcept
{
    const auto Lugar = std::find_if(Texto.begin(), Texto.end(), [](QChar C) {
        return C.unicode() >= 0x80 && ByteDe1252(C.unicode()) == 0;
    });
    return Lugar != Texto.end() ? Lugar - Texto.begin() : -1;
}

QByteArray Exigir1252(QStringView Texto)
{
    if (auto Bytes = Para1252(Texto))
        return *std::move(Bytes);
    const qsizetype Onde = PrimeiroFora1252(Texto);
    throw EConvertError(
        QStringLiteral("O texto <%1> tem um caracter que não existe na página de código 1252!").arg(Texto),
        QStringLiteral("Caracter U+%1 na posição %2.")
            .arg(static_cast<uint>(Texto[Onde].unicode()), 4, 16, QLatin1Char('0'))
            .arg(Onde + 1));
}

char16_t CaracterDoCharset(std::uint8_t Charset, std::uint8_t Codigo) noexcept
{
    return Codigo < 0x80 ? char16_t{Codigo} : MetadeDoCharset(Charset)[Codigo - 0x80U];
}

} // namespace Sibrel
