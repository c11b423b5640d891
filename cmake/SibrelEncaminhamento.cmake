# SPDX-License-Identifier: LGPL-2.1-or-later
# Forwarding headers, one a public class: <Sibrel/TTabelaDeSimbolos> for "simbolos/TabelaDeSimbolos.h". Made at each
# configuration from the headers that the layers declared public, so that no list of classes has to be kept.

# sibrel_encaminhar(<folder>): writes them to <folder>/Sibrel; those of classes that are no more go.
function(sibrel_encaminhar pasta)
  get_property(cabecalhos GLOBAL PROPERTY SIBREL_CABECALHOS)
  set(feitos "")
  foreach(cabecalho IN LISTS cabecalhos)
    # Only definitions outside of classes: they begin the line, and a mere declaration ends in a semicolon.
    file(STRINGS "${PROJECT_SOURCE_DIR}/${cabecalho}" definicoes ENCODING UTF-8
      REGEX "^(class|struct|enum|enum class) [A-Za-z_ ]+( final)?( ?: ?.*)?({.*)?$")
    foreach(definicao IN LISTS definicoes)
      string(REGEX REPLACE "^(enum class|enum|class|struct) (SIBREL_EXPORT )?([A-Za-z]+).*" "\\3" classe "${definicao}")
      if(classe IN_LIST feitos)
        message(FATAL_ERROR "${cabecalho}: ${classe} is defined in two public headers")
      endif()
      list(APPEND feitos "${classe}")
      file(CONFIGURE OUTPUT "${pasta}/Sibrel/${classe}" @ONLY CONTENT
        "// SPDX-License-Identifier: LGPL-2.1-or-later\n#include \"@cabecalho@\"\n")
    endforeach()
  endforeach()
  file(GLOB existentes RELATIVE "${pasta}/Sibrel" "${pasta}/Sibrel/*")
  list(REMOVE_ITEM existentes ${feitos})
  foreach(velho IN LISTS existentes)
    file(REMOVE "${pasta}/Sibrel/${velho}")
  endforeach()
endfunction()
