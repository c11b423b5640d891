// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "arvore/ParseTableXML.h"
#include "arvore/ParseTableXMLMapeada.h"

#include <QCursor>
#include <QGuiApplication>
#include <QStringList>

#include <utility>

namespace Sibrel::Testes
{

/// A table object that writes fixed lines, remembers the screen cursor under which it did and counts its end.
class TLinhasFixas : public TParseTableXML
{
public:
    explicit TLinhasFixas(QStringList Linhas = {}, int *Mortas = nullptr)
        : FLinhas(std::move(Linhas))
        , FMortas(Mortas)
    {
    }
    ~TLinhasFixas() override
    {
        if (FMortas != nullptr)
            ++*FMortas;
    }
    void GerarXML(TStrings &Lista) override
    {
        CursorNaHora = QGuiApplication::overrideCursor() != nullptr
                           ? QGuiApplication::overrideCursor()->shape()
                           : Qt::ArrowCursor;
        for (const QString &Linha : FLinhas)
            Lista.Add(Linha);
    }

    Qt::CursorShape CursorNaHora = Qt::ArrowCursor;

private:
    QStringList FLinhas;
    int *FMortas;
};

/// The units of the sample exercise.
inline TMapeamentoXML DasUnidades()
{
    TMapeamentoXML M;
    M.ColunaTag = QStringLiteral("TAG");
    M.ColunaNome = QStringLiteral("NOME");
    M.ColunaCor = QStringLiteral("COR");
    M.ColunaSimbolo = QStringLiteral("SIMBOLO");
    M.ColunaLink = QStringLiteral("LINK");
    M.ColunaChave = QStringLiteral("ID");
    M.ColunaPai = QStringLiteral("PAI");
    M.Identificacao = {{QStringLiteral("Código"), QStringLiteral("CODIGO")}};
    M.Informacao = {{QStringLiteral("Comandante"), QStringLiteral("COMANDANTE")},
                    {QStringLiteral("Codinome"), QStringLiteral("CODINOME")}};
    return M;
}

} // namespace Sibrel::Testes
