# Compiles the public headers alone. Called with SOURCE_DIR, COMPILER (a name or path) and STANDARD.
find_program(compiler NAMES ${COMPILER})
if(NOT compiler)
  message("Skipped: ${COMPILER} is not installed")
  return()
endif()

foreach(source interface/quorvex.h interface/calibration_point.h base/calibration_point.h tests/interface/public_header.cpp)
  execute_process(
    COMMAND ${compiler} -std=${STANDARD} -fsyntax-only -Wall -Wextra -Wpedantic -Werror -I ${SOURCE_DIR}
      -x c++ ${SOURCE_DIR}/${source}
    RESULT_VARIABLE result ERROR_VARIABLE errors)
  if(NOT result EQUAL 0)
    message(SEND_ERROR "${source} as ${STANDARD} with ${COMPILER}:\n${errors}")
  endif()
endforeach()
