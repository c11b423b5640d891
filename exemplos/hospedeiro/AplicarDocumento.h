// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>

namespace Hospedeiro
{

class TArvoreDoHospedeiro;
class TBancoDoExercicio;

/// Applies a document to a tree and waits until it is done; the number of operations that it asked for.
/// Raises Sibrel::Exception with the document's name and the places of what failed.
int AplicarDocumento(TArvoreDoHospedeiro &Arvore, const QString &Arquivo);
/// The same with the units of a database, in place of all nodes.
int AplicarBanco(TArvoreDoHospedeiro &Arvore, TBancoDoExercicio &Banco);

} // namespace Hospedeiro
