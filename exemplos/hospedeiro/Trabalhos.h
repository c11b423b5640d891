// SPDX-License-Identifier: LGPL-2.1-or-later
// What the host does from the command line, without a window.
#pragma once

#include "hospedeiro/LinhaDeComando.h"

#include <QString>

namespace Hospedeiro
{

/// Does what is asked, in the order export, sheet, picture, list. Warnings go to the error output. Raises
/// Sibrel::Exception; what was done before the error stays done.
void Executar(const TPedido &Pedido);

/// `Mensagem` on the error output and, on a line of its own, `Detalhe` when there is one. In UTF-8.
void EscreverErro(const QString &Mensagem, const QString &Detalhe);

} // namespace Hospedeiro
