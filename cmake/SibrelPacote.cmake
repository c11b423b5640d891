# SPDX-License-Identifier: LGPL-2.1-or-later
# Debian packages, by  cpack -G DEB  in a build folder (or  cpack --preset deb): the library; what building against it
# and editing forms needs; the example host with its data.
set(SIBREL_PACOTE_biblioteca "libsibrel${PROJECT_VERSION_MAJOR}")
set(SIBREL_PACOTE_desenvolvimento libsibrel-dev)
set(SIBREL_PACOTE_exemplos sibrel-exemplos)
set(componentes biblioteca desenvolvimento)
if(SIBREL_EXEMPLOS)
  list(APPEND componentes exemplos)
endif()

# gzip's own time and name would make each package a different one.
find_program(GZIP gzip)
if(GZIP)
  file(MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/debian")
  execute_process(COMMAND "${GZIP}" -9nc "${PROJECT_SOURCE_DIR}/cmake/debian/changelog"
    OUTPUT_FILE "${PROJECT_BINARY_DIR}/debian/changelog.Debian.gz" COMMAND_ERROR_IS_FATAL ANY)
endif()
foreach(componente IN LISTS componentes)
  set(pasta "${CMAKE_INSTALL_DATAROOTDIR}/doc/${SIBREL_PACOTE_${componente}}")
  install(FILES cmake/debian/copyright DESTINATION "${pasta}" COMPONENT ${componente})
  if(GZIP)
    install(FILES "${PROJECT_BINARY_DIR}/debian/changelog.Debian.gz" DESTINATION "${pasta}" COMPONENT ${componente})
  endif()
endforeach()
# The guide shows pictures of the folder beside it.
install(DIRECTORY docs/guia docs/imagens DESTINATION "${CMAKE_INSTALL_DATAROOTDIR}/doc/${SIBREL_PACOTE_desenvolvimento}"
  COMPONENT desenvolvimento)

set(CPACK_PACKAGE_NAME sibrel)
set(CPACK_PACKAGE_VENDOR Sibrel)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has its own
set(CPACK_PACKAGE_CONTACT "Sibrel <sibrel@localhost>" CACHE STRING "Maintainer named in packages")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL ${componentes})
set(CPACK_RESOURCE_FILE_LICENSE "${PROJECT_SOURCE_DIR}/LICENSE")

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The packages that need the library are made before it is installed anywhere.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}")
set(da_biblioteca "${SIBREL_PACOTE_biblioteca} (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")

set(CPACK_DEBIAN_BIBLIOTECA_PACKAGE_NAME "${SIBREL_PACOTE_biblioteca}")
set(CPACK_DEBIAN_BIBLIOTECA_PACKAGE_SECTION libs)
# What the library finds at run time, without linking it: database drivers, picture formats.
set(CPACK_DEBIAN_BIBLIOTECA_PACKAGE_RECOMMENDS "libqt6sql6-sqlite, libqt6svg6, qt6-image-formats-plugins")
set(CPACK_DEBIAN_BIBLIOTECA_PACKAGE_SUGGESTS libqt6sql6-psql)
# What a package that links the library depends on. Before 1.0 the interface may change with each version.
file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/debian/shlibs" @ONLY CONTENT
  "libSibrel @PROJECT_VERSION_MAJOR@ @SIBREL_PACOTE_biblioteca@ (= @PROJECT_VERSION@-@CPACK_DEBIAN_PACKAGE_RELEASE@)\n")
set(CPACK_DEBIAN_BIBLIOTECA_PACKAGE_CONTROL_EXTRA "${PROJECT_SOURCE_DIR}/cmake/debian/postinst"
  "${PROJECT_SOURCE_DIR}/cmake/debian/postrm" "${PROJECT_SOURCE_DIR}/cmake/debian/triggers"
  "${PROJECT_BINARY_DIR}/debian/shlibs")
set(CPACK_DEBIAN_BIBLIOTECA_DESCRIPTION
  "components for tactical symbols and XML object trees\n\
Symbol tables, vector figures and tree views described in XML documents, for\n\
desktop applications built on Qt 6. This package holds the library.")

set(CPACK_DEBIAN_DESENVOLVIMENTO_PACKAGE_NAME "${SIBREL_PACOTE_desenvolvimento}")
set(CPACK_DEBIAN_DESENVOLVIMENTO_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DESENVOLVIMENTO_PACKAGE_DEPENDS "${da_biblioteca}, qt6-base-dev (>= 6.4)")
set(CPACK_DEBIAN_DESENVOLVIMENTO_PACKAGE_SUGGESTS "cmake, designer-qt6")
set(CPACK_DEBIAN_DESENVOLVIMENTO_DESCRIPTION
  "components for tactical symbols and XML object trees - development\n\
Headers, CMake package, pkg-config file, guide, and the plugin that puts the\n\
components on the palette of Qt Designer.")

set(CPACK_DEBIAN_EXEMPLOS_PACKAGE_NAME "${SIBREL_PACOTE_exemplos}")
set(CPACK_DEBIAN_EXEMPLOS_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_EXEMPLOS_PACKAGE_DEPENDS "${da_biblioteca}")
set(CPACK_DEBIAN_EXEMPLOS_DESCRIPTION
  "components for tactical symbols and XML object trees - example\n\
An application that shows symbol libraries and object trees, with sample data.")

include(CPack)
