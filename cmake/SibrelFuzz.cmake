# SPDX-License-Identifier: LGPL-2.1-or-later
# sibrel_fuzz(<name> <source>... [LIBS <targets>...]): a libFuzzer target for one input format. Its seeds are in
# fuzz/<name>; run it as  <name> [options] <folder for new inputs> fuzz/<name>.
# The test of the same name runs over the seeds only, so that an input that failed once is tried at every run.
function(sibrel_fuzz nome)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LIBS")
  if(NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    message(FATAL_ERROR "${nome}: libFuzzer comes with Clang; use the preset fuzz.")
  endif()
  add_executable(${nome} ${arg_UNPARSED_ARGUMENTS})
  target_link_libraries(${nome} PRIVATE Sibrel::Sibrel sibrel_opcoes ${arg_LIBS})
  target_link_options(${nome} PRIVATE -fsanitize=fuzzer)
  add_test(NAME ${nome} COMMAND ${nome} -runs=0 "${CMAKE_CURRENT_SOURCE_DIR}/${nome}")
endfunction()
