# SPDX-License-Identifier: GPL-3.0-or-later
# Runs SCRIPT, which saves default.qcf, on the tool without a window in a FOLDER of its own, and copies the file to
# OUTPUT. Naming the operating mode keeps the tool from opening a default configuration first.

file(REMOVE_RECURSE ${FOLDER})
file(MAKE_DIRECTORY ${FOLDER})
execute_process(
  COMMAND ${CLI} script --clock virtual --settings ${FOLDER}/settings.ini --command "HD Video Downconvert" ${SCRIPT}
  WORKING_DIRECTORY ${FOLDER}
  OUTPUT_VARIABLE answers
  RESULT_VARIABLE status)
if(NOT status EQUAL 0 OR NOT EXISTS ${FOLDER}/default.qcf)
  message(FATAL_ERROR "The default configuration was not saved (${status}): ${answers}")
endif()
file(COPY_FILE ${FOLDER}/default.qcf ${OUTPUT})
