# SPDX-License-Identifier: LGPL-2.1-or-later
# cmake -DCONSTRUCAO=<build of Sibrel> -DPASTA=<scratch> -DFONTES=<this folder> -DFONTE=<font> -P verificar.cmake
# Installs Sibrel in a clean prefix, moves the prefix, builds the consumer against it there and runs it.
function(executar)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE resultado)
  if(NOT resultado EQUAL 0)
    message(FATAL_ERROR "failed (${resultado}): ${ARGN}")
  endif()
endfunction()

file(REMOVE_RECURSE "${PASTA}")
executar("${CMAKE_COMMAND}" --install "${CONSTRUCAO}" --prefix "${PASTA}/instalado")
file(RENAME "${PASTA}/instalado" "${PASTA}/mudado")
executar("${CMAKE_COMMAND}" -S "${FONTES}" -B "${PASTA}/construcao" -G Ninja "-DCMAKE_PREFIX_PATH=${PASTA}/mudado"
  "-DCMAKE_CXX_COMPILER=${COMPILADOR}" "-DCMAKE_CXX_FLAGS=${SINALIZADORES}")
executar("${CMAKE_COMMAND}" --build "${PASTA}/construcao")
executar("${PASTA}/construcao/consumidor" "${FONTE}")
