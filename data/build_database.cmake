# SPDX-License-Identifier: GPL-3.0-or-later
# cmake -DSQLITE3=PROGRAM -DOUTPUT=FILE -DSOURCES=FILE;FILE... -P build_database.cmake
#
# Reads the SQL files, in this order, into a fresh database. OUTPUT changes only if all of them succeed.

set(fresh ${OUTPUT}.new)
set(no_settings ${OUTPUT}.init)  # keeps a user's own .sqliterc out of the build
get_filename_component(folder ${OUTPUT} DIRECTORY)
file(MAKE_DIRECTORY ${folder})
file(REMOVE ${fresh})
file(WRITE ${no_settings} "")

set(commands "PRAGMA journal_mode = OFF" "PRAGMA synchronous = OFF" "BEGIN")
foreach(source IN LISTS SOURCES)
  list(APPEND commands ".read '${source}'")
endforeach()
list(APPEND commands "COMMIT" "VACUUM")

execute_process(COMMAND ${SQLITE3} -batch -bail -init ${no_settings} ${fresh} ${commands}
                OUTPUT_QUIET ERROR_VARIABLE errors RESULT_VARIABLE result)
file(REMOVE ${no_settings})
string(REGEX REPLACE "-- Loading resources from [^\n]*\n" "" errors "${errors}")
if(NOT result EQUAL 0 OR NOT errors STREQUAL "")
  file(REMOVE ${fresh})
  message(FATAL_ERROR "The reference database cannot be built:\n${errors}")
endif()
file(RENAME ${fresh} ${OUTPUT})
