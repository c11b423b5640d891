# SPDX-License-Identifier: LGPL-2.1-or-later
# What every test's environment says to the sanitizers.
set(SIBREL_AMBIENTE_DE_SANITIZADORES
  "ASAN_OPTIONS=detect_leaks=1;LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/testes/lsan.supp;TSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/testes/tsan.supp")

# All that ThreadSanitizer has to see, so that its preset need not build and run the rest.
add_custom_target(testes_com_threads)

# sibrel_teste(<name> <sources>... [LIBS <targets>...] [THREADS]): one Qt Test program a module, run on the offscreen
# platform with nothing of the desktop's own: no system dpi, no style or scale settings. THREADS: it starts threads.
function(sibrel_teste nome)
  cmake_parse_arguments(PARSE_ARGV 1 arg "THREADS" "" "LIBS")
  add_executable(${nome} ${arg_UNPARSED_ARGUMENTS})
  target_link_libraries(${nome} PRIVATE Sibrel::Sibrel testes_comum Qt6::Test sibrel_opcoes ${arg_LIBS})
  if(SIBREL_PRECOMPILAR)
    target_precompile_headers(${nome} REUSE_FROM testes_precompilado)
  endif()
  add_test(NAME ${nome} COMMAND ${nome})
  set_tests_properties(${nome} PROPERTIES TIMEOUT 600 ENVIRONMENT
    "QT_QPA_PLATFORM=offscreen;QT_STYLE_OVERRIDE=Fusion;LC_ALL=C.UTF-8;${SIBREL_AMBIENTE_DE_SANITIZADORES}"
    ENVIRONMENT_MODIFICATION "QT_FONT_DPI=unset:;QT_SCALE_FACTOR=unset:")
  if(arg_THREADS)
    add_dependencies(testes_com_threads ${nome})
    set_tests_properties(${nome} PROPERTIES LABELS threads)
  endif()
endfunction()
