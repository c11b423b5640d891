// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "arvore/PrepararAtualizacao.h"

#include <QString>

#include <exception>

namespace Sibrel
{

/// The last stage of an update that failed, and the message of its failure.
QString XMLInvalido();

/// The message of a failure for want of memory.
QString MemoriaInsuficiente();

/// What an exception of any kind says, without its place in the document.
TFalhaDeAtualizacao FalhaDe(const std::exception_ptr &Erro);

} // namespace Sibrel
