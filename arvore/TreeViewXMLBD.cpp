// SPDX-License-Identifier: LGPL-2.1-or-later
#include "arvore/TreeViewXMLBD.h"

#include "plataforma/CursorDeTela.h"
#include "plataforma/Exception.h"

#include <utility>

namespace Sibrel
{

namespace
{

constinit TModulo Modulo("TreeViewXMLBD", &IniciarLinhasDoDocumento, &LimparLinhasDoDocumento);

} // namespace

TModulo &ModuloTreeViewXMLBD() noexcept
{
    return Modulo;
}

TTreeViewXMLBD::TTreeViewXMLBD(QWidget *Dono)
    : TTreeViewXML(Dono)
    , FParses(std::make_unique<TParseTableXMLList>(nullptr))
{
}

TTreeViewXMLBD::~TTreeViewXMLBD() = default;

void TTreeViewXMLBD::AtribuirDataBase(TCustomConnection *Conexao)
{
    FParses->AtribuirDataBase(Conexao);
    FDataBase = Conexao;
}

std::unique_ptr<TParseTableXMLList> TTreeViewXMLBD::AtribuirParses(std::unique_ptr<TParseTableXMLList> Lista)
{
    if (!Lista)
        throw EInvalidOperation(QStringLiteral("A árvore precisa de uma lista de tabelas!"));
    return std::exchange(FParses, std::move(Lista));
}

void TTreeViewXMLBD::Executar()
{
    AtribuirCursorDeTela(TCursorDeTela::Ampulheta);
    TStringList Documento;
    MontarDocumentoDeTabelas(*FParses, ElementoRaiz, Documento);
    AtribuirXML(Documento, nullptr);
    AtribuirCursorDeTela(TCursorDeTela::Padrao);
}

} // namespace Sibrel
