# SPDX-License-Identifier: GPL-3.0-or-later
# Runs during the installation, because the folders that the manual pages name are known only then (cmake --install
# --prefix). Takes SOURCE, WORK, VERSION, DATADIR, MANDIR and DOCDIR; the last three are relative to the prefix.

foreach(folder DATADIR MANDIR DOCDIR)
  cmake_path(ABSOLUTE_PATH ${folder} BASE_DIRECTORY "${CMAKE_INSTALL_PREFIX}" NORMALIZE)
endforeach()
find_program(GZIP gzip REQUIRED)

# Omits the time of day, so that an unchanged file compresses to the same bytes.
function(install_compressed file folder)
  execute_process(COMMAND ${GZIP} -9nf ${file} COMMAND_ERROR_IS_FATAL ANY)
  file(INSTALL ${file}.gz DESTINATION ${folder})
endfunction()

set(DATA_FOLDER ${DATADIR}/marlinset)
foreach(program marlinset marlinset-cli marlinset-unit)
  configure_file(${SOURCE}/docs/man/${program}.1.in ${WORK}/${program}.1 @ONLY)
  install_compressed(${WORK}/${program}.1 ${MANDIR}/man1)
endforeach()
configure_file(${SOURCE}/CHANGELOG.md ${WORK}/changelog COPYONLY)
install_compressed(${WORK}/changelog ${DOCDIR})
file(INSTALL ${SOURCE}/data/package/copyright DESTINATION ${DOCDIR})
