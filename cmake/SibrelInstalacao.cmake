# SPDX-License-Identifier: LGPL-2.1-or-later
# What another project needs to find and use Sibrel: headers, library, CMake package, pkg-config file. All of it can be
# moved as a whole: no file names the prefix. Components: "biblioteca" is what a finished program needs,
# "desenvolvimento" what building one and editing its forms needs; "exemplos" is installed by its own folder.
include(CMakePackageConfigHelpers)
include(SibrelEncaminhamento)

foreach(pasta IN ITEMS LIBDIR INCLUDEDIR)
  if(IS_ABSOLUTE "${CMAKE_INSTALL_${pasta}}")
    message(FATAL_ERROR "CMAKE_INSTALL_${pasta} must lie below the prefix: what is installed can be moved")
  endif()
endforeach()

set(SIBREL_PASTA_CMAKE "${CMAKE_INSTALL_LIBDIR}/cmake/Sibrel")
set(SIBREL_PASTA_DE_CABECALHOS "${CMAKE_INSTALL_INCLUDEDIR}/Sibrel")

install(TARGETS Sibrel EXPORT SibrelTargets
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT biblioteca NAMELINK_COMPONENT desenvolvimento
  FILE_SET HEADERS DESTINATION "${SIBREL_PASTA_DE_CABECALHOS}" COMPONENT desenvolvimento
  INCLUDES DESTINATION "${SIBREL_PASTA_DE_CABECALHOS}")
# Apart from the file set: its folder lies below the other headers', which a file set does not allow.
install(FILES "${PROJECT_BINARY_DIR}/gerado/plataforma/Exportacao.h"
  DESTINATION "${SIBREL_PASTA_DE_CABECALHOS}/plataforma" COMPONENT desenvolvimento)
# In a folder below the one that is searched: beside the layers, <Exception> would stand for <exception> on a file
# system that ignores letter case.
sibrel_encaminhar("${PROJECT_BINARY_DIR}/gerado")
install(DIRECTORY "${PROJECT_BINARY_DIR}/gerado/Sibrel" DESTINATION "${SIBREL_PASTA_DE_CABECALHOS}"
  COMPONENT desenvolvimento)
install(EXPORT SibrelTargets NAMESPACE Sibrel:: DESTINATION "${SIBREL_PASTA_CMAKE}" COMPONENT desenvolvimento)

configure_package_config_file(cmake/SibrelConfig.cmake.in "${PROJECT_BINARY_DIR}/SibrelConfig.cmake"
  INSTALL_DESTINATION "${SIBREL_PASTA_CMAKE}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/SibrelConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/SibrelConfig.cmake" "${PROJECT_BINARY_DIR}/SibrelConfigVersion.cmake"
  DESTINATION "${SIBREL_PASTA_CMAKE}" COMPONENT desenvolvimento)

# From the file's own folder up to the prefix.
file(RELATIVE_PATH SIBREL_ATE_O_PREFIXO "/prefixo/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefixo")
configure_file(cmake/sibrel.pc.in "${PROJECT_BINARY_DIR}/sibrel.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/sibrel.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig"
  COMPONENT desenvolvimento)
