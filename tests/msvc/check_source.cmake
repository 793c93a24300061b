# Checks one source as Visual C++ on 64-bit Windows would see it: by clang in its Visual C++ mode, against
# the stand-ins of this folder and no header of this machine but clang's own. Called with SOURCE_DIR, SOURCE
# (relative to it), STANDARD, DEFINITIONS (comma-separated) and, for a source that must be refused,
# REFUSED_WITH, a regular expression for the error.
include(${CMAKE_CURRENT_LIST_DIR}/require_tools.cmake)
require_tools(clang++)

string(REGEX REPLACE "([^,]+),?" "-D\\1;" definitions "${DEFINITIONS}")
execute_process(
  COMMAND ${program_clang++} --target=x86_64-pc-windows-msvc -fms-extensions -fms-compatibility
    -fms-compatibility-version=19.30 -fsyntax-only -std=${STANDARD} ${definitions}
    -Wall -Wextra -Wpedantic -Wconversion -Wno-sign-conversion -Wshadow -Werror
    -nostdlibinc -nostdinc++ -isystem ${CMAKE_CURRENT_LIST_DIR}/stand_in/std
    -isystem ${CMAKE_CURRENT_LIST_DIR}/stand_in/mfc -I ${SOURCE_DIR} -x c++ ${SOURCE_DIR}/${SOURCE}
  RESULT_VARIABLE result ERROR_VARIABLE errors)

if(NOT DEFINED REFUSED_WITH)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${SOURCE} as ${STANDARD}:\n${errors}")
  endif()
elseif(result EQUAL 0)
  message(FATAL_ERROR "${SOURCE} was accepted")
elseif(NOT errors MATCHES "error: [^\n]*${REFUSED_WITH}")
  message(FATAL_ERROR "${SOURCE} was refused, but not with \"${REFUSED_WITH}\":\n${errors}")
endif()
