# SPDX-License-Identifier: LGPL-2.1-or-later
# cmake -DCONSTRUCAO=<build of Sibrel> -DRAIZ=<sources> ... -P pacote.cmake, and what comum.cmake is given.
# Makes the Debian packages, installs them into a root of their own, as anybody and leaving the system alone, builds
# against what is there, removes them and looks for what they left behind.
include("${CMAKE_CURRENT_LIST_DIR}/comum.cmake")

set(raiz "${PASTA}/raiz")
# Neither root's rights nor the system's state: what the packages need is the business of the system's own tools.
set(dpkg dpkg "--root=${raiz}" --force-not-root --force-depends --force-script-chrootless --log=/dev/null)

function(preparar)
  file(REMOVE_RECURSE "${PASTA}")
  file(MAKE_DIRECTORY "${raiz}/var/lib/dpkg/info" "${raiz}/var/lib/dpkg/updates")
  file(TOUCH "${raiz}/var/lib/dpkg/status")
  # Maintainer scripts run in this root are found on the usual path only.
  set(ENV{PATH} "/usr/local/sbin:/usr/sbin:/sbin:$ENV{PATH}")
endfunction()

# Everything in the root but the records of dpkg.
function(listar resultado)
  file(GLOB_RECURSE achados LIST_DIRECTORIES true RELATIVE "${raiz}" "${raiz}/*")
  list(FILTER achados EXCLUDE REGEX "^var($|/lib($|/dpkg($|/)))")
  set(${resultado} "${achados}" PARENT_SCOPE)
endfunction()

function(exigir_texto texto expressao oque)
  if(NOT "${texto}" MATCHES "${expressao}")
    message(FATAL_ERROR "${oque} is not as it should be:\n${texto}")
  endif()
endfunction()

function(campo pacote nome resultado)
  execute_process(COMMAND dpkg-deb --field "${pacote}" "${nome}" OUTPUT_VARIABLE texto
    OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  set(${resultado} "${texto}" PARENT_SCOPE)
endfunction()

# What each package says of itself.
function(verificar_campos)
  foreach(pacote IN LISTS ARGN)
    campo("${pacote}" Description descricao)
    exigir_texto("${descricao}" "^components for [^\n]+\n [^ ]" "the description of ${pacote}")
    campo("${pacote}" Depends dependencias)
    if(pacote MATCHES "/libsibrel0_")
      exigir_texto("${dependencias}" "libqt6widgets6.*libxml2" "the dependencies of ${pacote}")
      execute_process(COMMAND dpkg-deb --info "${pacote}" triggers shlibs OUTPUT_VARIABLE da_biblioteca
        COMMAND_ERROR_IS_FATAL ANY)
      exigir_texto("${da_biblioteca}" "noawait ldconfig\nlibSibrel 0 libsibrel0 " "what ${pacote} tells other packages")
    else()
      exigir_texto("${dependencias}" "libsibrel0 \\(= [0-9.]+-1\\)" "the dependencies of ${pacote}")
    endif()
    execute_process(COMMAND dpkg-deb --info "${pacote}" md5sums OUTPUT_VARIABLE somas COMMAND_ERROR_IS_FATAL ANY)
    exigir_texto("${somas}" "usr/share/doc/[a-z0-9-]+/copyright" "the licence file of ${pacote}")
    # Files belong to root whoever packs them.
    execute_process(COMMAND dpkg-deb --contents "${pacote}" OUTPUT_VARIABLE conteudo COMMAND_ERROR_IS_FATAL ANY)
    string(REGEX MATCHALL "[^\n]+" linhas "${conteudo}")
    foreach(linha IN LISTS linhas)
      exigir_texto("${linha}" "^[-dlrwx]+ root/root " "the owner in ${pacote}")
    endforeach()
  endforeach()
endfunction()

# No file that was installed knows where it was built, nor where the sources are.
function(verificar_caminhos)
  listar(arquivos)
  foreach(arquivo IN LISTS arquivos)
    if(IS_DIRECTORY "${raiz}/${arquivo}" OR IS_SYMLINK "${raiz}/${arquivo}")
      continue()
    endif()
    foreach(proibido IN ITEMS "${CONSTRUCAO}" "${RAIZ}")
      # As an absolute path: the sources may stand in /sibrel, and the guide speaks of $HOME/sibrel.
      string(REGEX REPLACE "([][+.*^$()|?{}])" "[\\1]" padrao "${proibido}")
      execute_process(COMMAND "${CMAKE_COMMAND}" -E env LC_ALL=C
        grep -qaE "(^|[^[:alnum:]_.}~-])${padrao}/" "${raiz}/${arquivo}" RESULT_VARIABLE achado)
      if(achado EQUAL 0)
        message(FATAL_ERROR "${arquivo} holds the path ${proibido}/")
      endif()
    endforeach()
  endforeach()
endfunction()

preparar()
executar(cpack --config "${CONSTRUCAO}/CPackConfig.cmake" -G DEB -B "${PASTA}/pacotes")
file(GLOB pacotes "${PASTA}/pacotes/*.deb")
list(LENGTH pacotes quantos)
if(NOT quantos EQUAL 3)
  message(FATAL_ERROR "three packages were due: ${pacotes}")
endif()
verificar_campos(${pacotes})
executar(${dpkg} --install ${pacotes})
verificar_caminhos()
# Every header has been tried by itself where it was installed without a package.
experimentar("${raiz}/usr" -DCABECALHOS_SOZINHOS=OFF)
executar(${dpkg} --purge libsibrel-dev sibrel-exemplos libsibrel0)
listar(restos)
if(restos)
  message(FATAL_ERROR "left behind: ${restos}")
endif()
