// SPDX-License-Identifier: LGPL-2.1-or-later
// How the elements of a figure are written to and read from its file.
#pragma once

#include "plataforma/Color.h"
#include "plataforma/Conversao.h"
#include "plataforma/XMLDocument.h"

#include <QString>
#include <QStringView>

#include <algorithm>
#include <array>
#include <concepts>
#include <cstdint>

namespace Sibrel
{

/// Builds the text of one element: the name, then each attribute behind one blank. Nothing is escaped: what
/// these files have always looked like.
class TEscritaDeElemento
{
public:
    explicit TEscritaDeElemento(QStringView Nome);

    TEscritaDeElemento &Atributo(QStringView Nome, QStringView Valor);
    TEscritaDeElemento &Atributo(QStringView Nome, int Valor);
    /// A template so that a text or a number is never taken for a flag.
    template <std::same_as<bool> Sinal>
    TEscritaDeElemento &Atributo(QStringView Nome, Sinal Valor)
    {
        return AtributoSinal(Nome, Valor);
    }
    TEscritaDeElemento &Atributo(QStringView Nome, TColor Cor);
    /// The text so far and what closes the element.
    QString Fechar(QStringView Fim = u"/>") { return FTexto += Fim; }

private:
    TEscritaDeElemento &AtributoSinal(QStringView Nome, bool Valor);

    QString FTexto;
};

/// Hands the text of the attribute `Nome`, if it is there, to `Ler` as a QStringView. Short plain texts,
/// which is nearly all of them, are widened on the stack.
template <class Leitura>
void SeHouver(const TCursorXML &No, QStringView Nome, Leitura &&Ler)
{
    const auto Utf8 = No.AttributeUtf8(Nome);
    if (!Utf8)
        return;
    constexpr qsizetype Curto = 64;
    std::array<char16_t, Curto> Texto;
    const auto Simples = [](char C) { return static_cast<unsigned char>(C) < 0x80; };
    if (Utf8->size() <= Curto && std::all_of(Utf8->begin(), Utf8->end(), Simples)) {
        std::copy(Utf8->begin(), Utf8->end(), Texto.begin());
        Ler(QStringView(Texto.data(), Utf8->size()));
    } else {
        Ler(QStringView(QString::fromUtf8(*Utf8)));
    }
}

/// A colour from its bare hexadecimal text; EConvertError when it is none.
TColor CorDoTexto(QStringView Texto);
/// A flag: true for "S" alone.
inline bool SinalDoTexto(QStringView Texto)
{
    return Texto == QStringView(u"S");
}
/// An enumeration from its ordinal, of which the low 8 bits count; they may name no value of it.
template <class Enumeracao>
Enumeracao EstiloDoTexto(QStringView Texto)
{
    return static_cast<Enumeracao>(static_cast<std::uint8_t>(StrToInt(Texto)));
}

} // namespace Sibrel
