// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/Conversao.h"

#include "plataforma/Exception.h"

#include <QVarLengthArray>

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <optional>

namespace Sibrel
{

namespace
{

constexpr int Decimal = 10;
constexpr int Hexadecimal = 16;

// The text as bytes for std::from_chars; a character that no number has becomes one that ends the number.
using TBytes = QVarLengthArray<char, 64>;
TBytes Bytes(QStringView Texto, char NoLugarDaVirgula)
{
    TBytes Resultado(Texto.size());
    std::transform(Texto.begin(), Texto.end(), Resultado.begin(), [NoLugarDaVirgula](QChar C) {
        const char Byte = C.unicode() < 0x80 ? static_cast<char>(C.unicode()) : '?';
        return Byte == ',' ? NoLugarDaVirgula : Byte;
    });
    return Resultado;
}

template <class Numero, class Formato>
std::optional<Numero> LerTudo(const char *Inicio, const char *Fim, Formato Como)
{
    Numero Valor{};
    const auto [Ate, Erro] = std::from_chars(Inicio, Fim, Valor, Como);
    return Erro == std::errc() && Ate == Fim ? std::optional(Valor) : std::nullopt;
}

std::optional<std::int32_t> Inteiro(const char *Inicio, const char *Fim)
{
    const bool Negativo = Inicio != Fim && *Inicio == '-';
    if (Inicio != Fim && (*Inicio == '-' || *Inicio == '+'))
        ++Inicio;
    const bool Hexa = Inicio != Fim && *Inicio == '$';
    if (Hexa)
        ++Inicio;
    if (Inicio == Fim || *Inicio == '-') // from_chars takes a sign of its own
        return std::nullopt;
    const std::optional<std::int64_t> Modulo =
        LerTudo<std::int64_t>(Inicio, Fim, Hexa ? Hexadecimal : Decimal);
    constexpr std::int64_t Maior = std::numeric_limits<std::int32_t>::max();
    constexpr std::int64_t MaiorHexa = std::numeric_limits<std::uint32_t>::max();
    if (!Modulo || *Modulo > (Hexa ? MaiorHexa : Maior + (Negativo ? 1 : 0)))
        return std::nullopt;
    const auto Bits = static_cast<std::uint32_t>(*Modulo);
    return static_cast<std::int32_t>(Negativo ? 0U - Bits : Bits);
}

} // namespace

std::int32_t StrToInt(QStringView Texto)
{
    const TBytes Todos = Bytes(Texto, ',');
    const char *Fim = Todos.end();
    const char *Inicio = std::find_if(Todos.begin(), Todos.end(), [](char C) { return C != ' '; });
    if (const std::optional<std::int32_t> Valor = Inteiro(Inicio, Fim))
        return *Valor;
    throw EConvertError(QStringLiteral("<%1> não é um número inteiro válido!").arg(Texto));
}

double StrToReal(QStringView Texto)
{
    const QStringView SemBrancos = Texto.trimmed();
    const TBytes Todos = Bytes(SemBrancos, '.');
    const char *Inicio = Todos.begin();
    if (Todos.size() > 1 && *Inicio == '+' && Todos[1] != '-')
        ++Inicio;
    if (const std::optional<double> Valor = LerTudo<double>(Inicio, Todos.end(), std::chars_format::general))
        return *Valor;
    throw EConvertError(QStringLiteral("<%1> não é um número real válido!").arg(Texto));
}

QString MenorFormaDecimal(double Valor)
{
    std::array<char, 32> Texto{};
    const auto [Fim, Erro] = std::to_chars(Texto.data(), Texto.data() + Texto.size(), Valor);
    return QString::fromLatin1(Texto.data(), Erro == std::errc() ? Fim - Texto.data() : 0);
}

QString IntToHex(std::int32_t Valor, int Digitos)
{
    return QString::number(static_cast<std::uint32_t>(Valor), Hexadecimal)
        .toUpper()
        .rightJustified(Digitos, u'0');
}

} // namespace Sibrel
