// SPDX-License-Identifier: LGPL-2.1-or-later
#include "arvore/ParseTableXML.h"

#include <utility>

namespace Sibrel
{

TParseTableXML::TParseTableXML() = default;
TParseTableXML::~TParseTableXML() = default;

TParseTableXMLList::TParseTableXMLList(TCustomConnection *Conexao)
    : FDataBase(Conexao)
{
}

TParseTableXMLList::~TParseTableXMLList() = default;

void TParseTableXMLList::AtribuirDataBase(TCustomConnection *Conexao)
{
    FDataBase = Conexao;
    for (const auto &Objeto : *this)
        if (Objeto)
            Objeto->DataBase = Conexao;
}

std::unique_ptr<TParseTableXML> TParseTableXMLList::ComConexao(std::unique_ptr<TParseTableXML> Objeto) const
{
    if (Objeto)
        Objeto->DataBase = FDataBase;
    return Objeto;
}

int TParseTableXMLList::Add(std::unique_ptr<TParseTableXML> Objeto)
{
    return TObjectList::Add(ComConexao(std::move(Objeto)));
}

void TParseTableXMLList::Insert(int Indice, std::unique_ptr<TParseTableXML> Objeto)
{
    TObjectList::Insert(Indice, ComConexao(std::move(Objeto)));
}

void TParseTableXMLList::SetItem(int Indice, std::unique_ptr<TParseTableXML> Objeto)
{
    TObjectList::SetItem(Indice, ComConexao(std::move(Objeto)));
}

void TParseTableXMLList::AtribuirParseTableXML(int Indice, std::unique_ptr<TParseTableXML> Objeto)
{
    SetItem(Indice, std::move(Objeto));
}

void TParseTableXMLList::MoverDe(TObjectList<TParseTableXML> &Outra)
{
    TObjectList::MoverDe(Outra);
    AtribuirDataBase(FDataBase);
}

} // namespace Sibrel
