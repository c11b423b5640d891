# SPDX-License-Identifier: LGPL-2.1-or-later
# What another project needs to find and use Sibrel: headers, library, CMake package (relocatable), pkg-config file.
include(CMakePackageConfigHelpers)

set(SIBREL_PASTA_CMAKE "${CMAKE_INSTALL_LIBDIR}/cmake/Sibrel")

install(TARGETS Sibrel EXPORT SibrelTargets
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
  FILE_SET HEADERS DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/Sibrel"
  INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/Sibrel")
# Apart from the file set: its folder lies below the other headers', which a file set does not allow.
install(FILES "${PROJECT_BINARY_DIR}/gerado/plataforma/Exportacao.h"
  DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/Sibrel/plataforma")
install(EXPORT SibrelTargets NAMESPACE Sibrel:: DESTINATION "${SIBREL_PASTA_CMAKE}")

configure_package_config_file(cmake/SibrelConfig.cmake.in "${PROJECT_BINARY_DIR}/SibrelConfig.cmake"
  INSTALL_DESTINATION "${SIBREL_PASTA_CMAKE}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/SibrelConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/SibrelConfig.cmake" "${PROJECT_BINARY_DIR}/SibrelConfigVersion.cmake"
  DESTINATION "${SIBREL_PASTA_CMAKE}")

configure_file(cmake/sibrel.pc.in "${PROJECT_BINARY_DIR}/sibrel.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/sibrel.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
