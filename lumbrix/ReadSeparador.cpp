// SPDX-License-Identifier: LGPL-2.1-or-later
#include "lumbrix/ReadSeparador.h"

#include "plataforma/ArquivoTexto.h"
#include "plataforma/CodePage.h"

namespace Sibrel
{

namespace
{

bool Separa(QStringView Separadores, char C) noexcept
{
    return Separadores.contains(QChar(static_cast<char16_t>(static_cast<unsigned char>(C))));
}

qsizetype FimEntreAspas(QByteArrayView Linha, qsizetype Inicio) noexcept
{
    const char Aspa = Linha[Inicio];
    for (qsizetype I = Inicio + 1; I < Linha.size(); ++I) {
        if (Linha[I] != Aspa)
            continue;
        if (I + 1 < Linha.size() && Linha[I + 1] == Aspa)
            ++I;
        else
            return I + 1;
    }
    return Linha.size();
}

qsizetype FimSemAspas(QByteArrayView Linha, qsizetype Inicio, QStringView Separadores) noexcept
{
    qsizetype I = Inicio;
    while (I < Linha.size() && !Separa(Separadores, Linha[I]))
        ++I;
    return I;
}

} // namespace

QString ReadSeparador(TArquivoDeLeitura &Arquivo, QStringView Separadores)
{
    const QByteArrayView Linha = Arquivo.RestoDaLinha();
    qsizetype Inicio = 0;
    while (Inicio < Linha.size() && Separa(Separadores, Linha[Inicio]))
        ++Inicio;
    if (Inicio == Linha.size()) {
        Arquivo.Avancar(Inicio);
        return {};
    }
    const bool ComAspas = Linha[Inicio] == '"' || Linha[Inicio] == '\'';
    const qsizetype Fim = ComAspas ? FimEntreAspas(Linha, Inicio) : FimSemAspas(Linha, Inicio, Separadores);
    QString Texto = De1252(Linha.sliced(Inicio, Fim - Inicio));
    Arquivo.Avancar(Fim);
    return Texto;
}

} // namespace Sibrel
