// SPDX-License-Identifier: LGPL-2.1-or-later
// Files by name: how names that come from other systems are resolved, and whole-file reading and writing.
#pragma once

#include "plataforma/Exportacao.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace Sibrel
{

/// The existing file that `Nome` means, or `Nome` with this system's separators when there is none.
///
/// Names in libraries and records were written on systems with backslashes and without letter case: both
/// kinds of separator and other letter case resolve to the file that is there. An exact match wins; among
/// names that differ only in letter case the first in alphabetical order does. Relative names start at the
/// current directory.
SIBREL_EXPORT QString ResolverNomeDeArquivo(const QString &Nome);

/// The name under which a file `Nome` is to be written: the existing file that it means or, when there is
/// none, that name in the existing folder that its folder means.
SIBREL_EXPORT QString ResolverNomeParaGravar(const QString &Nome);

/// True when `Nome`, resolved as above, is a file (not a folder).
SIBREL_EXPORT bool ArquivoExiste(const QString &Nome);

/// `Nome` relative to the folder `Pasta`, with the kind of separator that `Nome` uses; `Nome` itself when
/// both share no root (different drives) or when `Nome` is already relative. Works on the texts alone, for
/// names of either system: nothing has to exist.
SIBREL_EXPORT QString CaminhoRelativo(const QString &Pasta, const QString &Nome);

/// The folder part of `Nome` without its last separator (kept for a root); empty when there is none.
SIBREL_EXPORT QString PastaDe(const QString &Nome);

/// All bytes of a file. EFOpenError with the system's reason in `Detalhe` when it cannot be opened or read,
/// is a folder, or is too large for memory.
SIBREL_EXPORT QByteArray LerArquivoInteiro(const QString &Nome);

/// Replaces a file's content as one step: on failure (EFCreateError) the former content is still there. The
/// name is resolved as by ResolverNomeParaGravar.
SIBREL_EXPORT void GravarArquivoInteiro(const QString &Nome, QByteArrayView Bytes);

/// The text of a file's bytes: by the byte order mark when there is one, else code page 1252.
SIBREL_EXPORT QString TextoDeArquivo(QByteArrayView Bytes);

} // namespace Sibrel
