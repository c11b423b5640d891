// SPDX-License-Identifier: LGPL-2.1-or-later
#include "simbolos/XMLDeElementos.h"

#include "plataforma/Conversao.h"
#include "simbolos/ElementoGrafico.h"

#include <QVarLengthArray>

namespace Sibrel
{

namespace
{

constexpr int DigitosDaCor = 6;

} // namespace

TEscritaDeElemento::TEscritaDeElemento(QStringView Nome)
{
    FTexto += u'<';
    FTexto += Nome;
}

TEscritaDeElemento &TEscritaDeElemento::Atributo(QStringView Nome, QStringView Valor)
{
    FTexto += u' ';
    FTexto += Nome;
    FTexto += QStringView(u"=\"");
    FTexto += Valor;
    FTexto += u'"';
    return *this;
}

TEscritaDeElemento &TEscritaDeElemento::Atributo(QStringView Nome, int Valor)
{
    return Atributo(Nome, QString::number(Valor));
}

TEscritaDeElemento &TEscritaDeElemento::AtributoSinal(QStringView Nome, bool Valor)
{
    return Atributo(Nome, BooleanStr[Valor ? 1 : 0]);
}

TEscritaDeElemento &TEscritaDeElemento::Atributo(QStringView Nome, TColor Cor)
{
    return Atributo(Nome, IntToHex(Cor.Valor(), DigitosDaCor));
}

TColor CorDoTexto(QStringView Texto)
{
    QVarLengthArray<QChar, 16> ComPrefixo{u'$'};
    ComPrefixo.append(Texto.data(), Texto.size());
    return StrToInt(QStringView(ComPrefixo.constData(), ComPrefixo.size()));
}

} // namespace Sibrel
