# SPDX-License-Identifier: LGPL-2.1-or-later
# Flags of this project's own code. They stay private: a project that uses Sibrel is not held to them.
# Left out of an export by $<BUILD_INTERFACE>, since the installed package has no need of it.
add_library(sibrel_opcoes_impl INTERFACE)
# Messages name their source: by its place in the sources, not by where those happen to stand.
target_compile_options(sibrel_opcoes_impl INTERFACE "-fmacro-prefix-map=${PROJECT_SOURCE_DIR}/=")
target_compile_options(sibrel_opcoes_impl INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor -Woverloaded-virtual
  -Wcast-align -Wunused -Wnull-dereference -Wdouble-promotion -Wformat=2
  $<$<BOOL:${SIBREL_AVISOS_SAO_ERROS}>:-Werror>
  # Qt 6.4 headers trip these in GCC 12 at -O2; the code is Qt's, not ours.
  $<$<CXX_COMPILER_ID:GNU>:-Wno-null-dereference>)

if(SIBREL_SANITIZAR)
  add_compile_options(-fsanitize=${SIBREL_SANITIZAR} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${SIBREL_SANITIZAR})
  if(SIBREL_SANITIZAR MATCHES "undefined")
    # Qt is built without type information for its private classes' vtables.
    add_compile_options(-fno-sanitize=vptr)
  endif()
endif()

add_library(sibrel_opcoes INTERFACE)
target_link_libraries(sibrel_opcoes INTERFACE $<BUILD_INTERFACE:sibrel_opcoes_impl>)

# sibrel_camada(<layer> <Class>... [SO_CABECALHO <Class>...] [INTERNOS <file>...]): the header/source pairs of a layer
# and its headers without a source, all public and installed; and source files whose headers, if any, are not.
function(sibrel_camada camada)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SO_CABECALHO;INTERNOS")
  set(cabecalhos "")
  foreach(nome IN LISTS arg_UNPARSED_ARGUMENTS arg_INTERNOS)
    target_sources(Sibrel PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}/${nome}.cpp")
  endforeach()
  foreach(nome IN LISTS arg_UNPARSED_ARGUMENTS arg_SO_CABECALHO)
    list(APPEND cabecalhos "${CMAKE_CURRENT_SOURCE_DIR}/${nome}.h")
    set_property(GLOBAL APPEND PROPERTY SIBREL_CABECALHOS "${camada}/${nome}.h") # for who makes things of all of them
  endforeach()
  target_sources(Sibrel PUBLIC FILE_SET HEADERS BASE_DIRS "${PROJECT_SOURCE_DIR}" FILES ${cabecalhos})
endfunction()

# sibrel_precompilar(<target> <header>...): what Qt costs every source, paid once. Lint and the presets clang and release
# do without it, which proves that every source includes what it needs.
option(SIBREL_PRECOMPILAR "Precompile the headers that most sources include" OFF)
function(sibrel_precompilar alvo)
  if(SIBREL_PRECOMPILAR)
    target_precompile_headers(${alvo} PRIVATE ${ARGN})
  endif()
endfunction()
