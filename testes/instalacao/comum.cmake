# SPDX-License-Identifier: LGPL-2.1-or-later
# What the tests of an installed Sibrel share. They are given: FONTES (the consumer), COMPILADOR, SINALIZADORES, CCACHE
# (or nothing), FONTE (a font file), PASTA (a scratch folder), DESIGNER (is the form editor's plugin built?).

function(executar)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE resultado)
  if(NOT resultado EQUAL 0)
    message(FATAL_ERROR "failed (${resultado}): ${ARGN}")
  endif()
endfunction()

# Configures a project against the prefix and builds it.
function(construir_contra prefixo fontes construcao)
  if(CCACHE)
    list(APPEND ARGN "-DCMAKE_CXX_COMPILER_LAUNCHER=${CCACHE}")
  endif()
  executar("${CMAKE_COMMAND}" -S "${fontes}" -B "${construcao}" -G Ninja "-DCMAKE_PREFIX_PATH=${prefixo}"
    "-DCMAKE_CXX_COMPILER=${COMPILADOR}" "-DCMAKE_CXX_FLAGS=${SINALIZADORES}" ${ARGN})
  executar("${CMAKE_COMMAND}" --build "${construcao}")
endfunction()

# Every way into the package that stands at the prefix; further arguments are the consumer's.
function(experimentar prefixo)
  construir_contra("${prefixo}" "${FONTES}" "${PASTA}/construcao" ${ARGN})
  executar("${PASTA}/construcao/consumidor" "${FONTE}")

  file(GLOB_RECURSE plugin "${prefixo}/libsibrel_designer.so")
  if(plugin)
    executar("${PASTA}/construcao/carregar_plugin" "${plugin}")
  elseif(DESIGNER)
    message(FATAL_ERROR "no form editor's plugin below ${prefixo}")
  endif()

  # The guide's first program, from where the guide was installed.
  set(inicio "${prefixo}/share/doc/libsibrel-dev/guia/inicio")
  construir_contra("${prefixo}" "${inicio}" "${PASTA}/inicio")
  executar("${PASTA}/inicio/quadro" "${inicio}" "${PASTA}/quadro.png")

  # A version that is not there is not found.
  file(CONFIGURE OUTPUT "${PASTA}/versao/CMakeLists.txt" @ONLY CONTENT
    "cmake_minimum_required(VERSION 3.25)\nproject(Versao LANGUAGES CXX)\nfind_package(Sibrel \${PEDIDA} CONFIG REQUIRED)\n")
  foreach(pedida IN ITEMS 0.0 0.2 1.0)
    execute_process(COMMAND "${CMAKE_COMMAND}" -S "${PASTA}/versao" -B "${PASTA}/versao/${pedida}" -G Ninja
      "-DCMAKE_PREFIX_PATH=${prefixo}" "-DCMAKE_CXX_COMPILER=${COMPILADOR}" "-DPEDIDA=${pedida}"
      RESULT_VARIABLE resultado OUTPUT_QUIET ERROR_VARIABLE erro)
    if(resultado EQUAL 0 OR NOT erro MATCHES "not.*compatible")
      message(FATAL_ERROR "version ${pedida} was taken for this one: ${erro}")
    endif()
  endforeach()
  experimentar_pkg_config("${prefixo}")
endfunction()

# Without CMake: the compiler and what pkg-config says.
function(experimentar_pkg_config prefixo)
  find_program(PKG_CONFIG pkg-config REQUIRED)
  file(GLOB_RECURSE arquivo "${prefixo}/sibrel.pc")
  cmake_path(GET arquivo PARENT_PATH pasta)
  set(ENV{PKG_CONFIG_PATH} "${pasta}")
  execute_process(COMMAND "${PKG_CONFIG}" --cflags --libs sibrel OUTPUT_VARIABLE opcoes
    OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND "${PKG_CONFIG}" --variable=libdir sibrel OUTPUT_VARIABLE bibliotecas
    OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  separate_arguments(opcoes UNIX_COMMAND "${opcoes}")
  separate_arguments(sinalizadores UNIX_COMMAND "${SINALIZADORES}")
  executar("${COMPILADOR}" -std=c++20 -fPIC ${sinalizadores} -o "${PASTA}/consumidor_pc" "${FONTES}/consumidor.cpp"
    ${opcoes} "-Wl,-rpath,${bibliotecas}")
  executar("${PASTA}/consumidor_pc" "${FONTE}")
endfunction()
