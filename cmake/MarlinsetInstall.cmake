# SPDX-License-Identifier: GPL-3.0-or-later
# What cmake --install installs where, and the Debian package that cpack builds from it.

set(MARLINSET_MAINTAINER "Marlinset maintainers <maintainers@marlinset.example>" CACHE STRING
    "Who answers for the package: name and mail address")

install(TARGETS marlinset marlinset-cli marlinset-unit DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/shotsys.mdb
              "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/System Default Video.qcf"
        DESTINATION ${CMAKE_INSTALL_DATADIR}/marlinset)

set(desktop ${CMAKE_SOURCE_DIR}/data/desktop)
set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable)
set(documents ${CMAKE_INSTALL_DATADIR}/doc/marlinset)
install(FILES ${CMAKE_SOURCE_DIR}/README.md DESTINATION ${documents})
install(DIRECTORY ${CMAKE_SOURCE_DIR}/docs DESTINATION ${documents} PATTERN man EXCLUDE)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/data/ansible DESTINATION ${documents}/examples)

install(FILES ${desktop}/marlinset.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${desktop}/example.marlinset.marlinset.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${desktop}/marlinset.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
install(FILES ${desktop}/marlinset.svg DESTINATION ${icons}/apps)
install(FILES ${desktop}/application-x-marlinset-qcf.svg DESTINATION ${icons}/mimetypes)

install(CODE "
  set(SOURCE \"${CMAKE_SOURCE_DIR}\")
  set(WORK \"${CMAKE_BINARY_DIR}/documents\")
  set(VERSION \"${PROJECT_VERSION}\")
  set(DATADIR \"${CMAKE_INSTALL_DATADIR}\")
  set(MANDIR \"${CMAKE_INSTALL_MANDIR}\")
  set(DOCDIR \"${documents}\")
  include(\"${CMAKE_SOURCE_DIR}/cmake/install_documents.cmake\")")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME marlinset)
set(CPACK_PACKAGE_CONTACT "${MARLINSET_MAINTAINER}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# Sorts before -1, so that a package from the distribution itself would replace this one.
set(CPACK_DEBIAN_PACKAGE_RELEASE 0upstream1)
set(CPACK_DEBIAN_PACKAGE_SECTION video)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# Fonts for print-outs, even on a machine without a desktop, and the window on a Wayland desktop.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-dejavu-core")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "configuration tool of the 7340 broadcast units")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"A 7340 sits in a video chain, reads and writes time code, burns windows, a
slate and a text into the picture and, on some models, down-converts. Its
whole setup is composed here and sent to it over one serial line.
.
The package holds the window for operators (marlinset), the same tool without
a window for racks and scripts (marlinset-cli), a virtual unit to try
everything without hardware (marlinset-unit) and the reference database.")
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_SOURCE_DIR}/cmake/finish_debian_package.cmake)
include(CPack)
