// SPDX-License-Identifier: LGPL-2.1-or-later
#include "arvore/TreeViewXMLBD.h"

#include "arvore/DocumentoDeTabelas.h"

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

} // namespace Sibrel
