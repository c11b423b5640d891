# SPDX-License-Identifier: LGPL-2.1-or-later
# cmake -DCONSTRUCAO=<build of Sibrel> -P prefixo.cmake, and what comum.cmake is given.
# Installs Sibrel in a clean prefix, moves the prefix and builds against it there.
include("${CMAKE_CURRENT_LIST_DIR}/comum.cmake")

file(REMOVE_RECURSE "${PASTA}")
executar("${CMAKE_COMMAND}" --install "${CONSTRUCAO}" --prefix "${PASTA}/instalado")
file(RENAME "${PASTA}/instalado" "${PASTA}/mudado")
experimentar("${PASTA}/mudado")
