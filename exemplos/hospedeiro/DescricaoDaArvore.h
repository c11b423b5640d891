// SPDX-License-Identifier: LGPL-2.1-or-later
// A tree, and what went wrong with it, in words.
#pragma once

#include "arvore/PrepararAtualizacao.h"

#include <QString>

#include <vector>

namespace Sibrel
{
class Exception;
class TTreeViewXML;
} // namespace Sibrel

namespace Hospedeiro
{

/// The list of a tree, one line a node, each ended by a line feed; the format is that of the help.
QString ListaDaArvore(const Sibrel::TTreeViewXML &Arvore);

/// What failed in an update, one line each: place in the document, and cause.
QString TextoDasFalhas(const std::vector<Sibrel::TFalhaDeAtualizacao> &Falhas);

/// What there is to say about a file or database (`Tipo`, as the user is told) that was refused, beside the
/// error's message: its name, unless the message says it, and the reason.
QString DetalheDaOrigem(const Sibrel::Exception &Erro, const QString &Tipo, const QString &Nome);

} // namespace Hospedeiro
