// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "arvore/ParseTableXML.h"

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

} // namespace Sibrel::Testes
