# The program in C finds what the command finds, digit by digit. Called with COMMAND, HOST, EMULATOR and
# WORK_DIR, which is emptied before.
file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})

function(run output)
  execute_process(COMMAND ${EMULATOR} ${ARGN} WORKING_DIRECTORY ${WORK_DIR}
    OUTPUT_VARIABLE text RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${ARGN} ended with ${result}")
  endif()
  string(REPLACE "\r" "" text "${text}")
  set(${output} "${text}" PARENT_SCOPE)
endfunction()

run(ignored ${COMMAND} render --preset easy --output board.bmp)
foreach(option IN ITEMS "" --precise)
  run(list ${COMMAND} detect board.bmp ${option})
  run(points ${HOST} board.bmp ${option})
  # Of each row the id, the row and column, x and y.
  string(FIND "${list}" "\n" end)
  math(EXPR begin "${end} + 1")
  string(SUBSTRING "${list}" ${begin} -1 list)
  string(REGEX REPLACE "([^,\n]*,[^,\n]*,[^,\n]*,[^,\n]*,[^,\n]*),[^\n]*" "\\1" list "${list}")
  if(NOT list MATCHES "\n48,5,7," OR NOT list STREQUAL points)
    message(SEND_ERROR "the command:\n${list}\nthe program:\n${points}")
  endif()
endforeach()

execute_process(COMMAND ${EMULATOR} ${HOST} missing.bmp WORKING_DIRECTORY ${WORK_DIR}
  ERROR_VARIABLE errors RESULT_VARIABLE result)
if(NOT result EQUAL 1 OR NOT errors MATCHES "a file cannot be opened, read or written .missing.bmp: ")
  message(SEND_ERROR "a missing file: ${result}\n${errors}")
endif()
