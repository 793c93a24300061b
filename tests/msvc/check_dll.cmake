# Builds quorvex.dll the way the project tells Visual C++ to, with clang in its place, and compares what it
# exports with interface/exports.def: both Windows builds export the same names. Called with SOURCE_DIR,
# GENERATOR and WORK_DIR, which is emptied before.
include(${CMAKE_CURRENT_LIST_DIR}/require_tools.cmake)
require_tools(clang++ lld-link llvm-mt llvm-rc llvm-readobj)

file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})
# By this name clang takes Visual C++'s options.
file(CREATE_LINK ${program_clang++} ${WORK_DIR}/clang-cl SYMBOLIC)
execute_process(
  COMMAND ${CMAKE_COMMAND} -S ${SOURCE_DIR} -B ${WORK_DIR}/build -G ${GENERATOR}
    -DCMAKE_TOOLCHAIN_FILE=${CMAKE_CURRENT_LIST_DIR}/clang_cl_toolchain.cmake
    -DCMAKE_CXX_COMPILER=${WORK_DIR}/clang-cl -DCMAKE_LINKER=${program_lld-link}
    -DCMAKE_MT=${program_llvm-mt} -DCMAKE_RC_COMPILER=${program_llvm-rc} -DCMAKE_BUILD_TYPE=Release
    -DQUORVEX_BUILD_TOOLS=OFF -DQUORVEX_BUILD_TESTS=OFF -DQUORVEX_WARNINGS_AS_ERRORS=ON
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${CMAKE_COMMAND} --build ${WORK_DIR}/build --target quorvex
  OUTPUT_VARIABLE output RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "${output}")
endif()

execute_process(COMMAND ${program_llvm-readobj} --coff-exports ${WORK_DIR}/build/quorvex.dll
  OUTPUT_VARIABLE exports COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "Name: [^\n]+\n *RVA: 0x[0-9A-F]+" exports "${exports}")
set(exported "")
foreach(export IN LISTS exports)
  string(REGEX MATCH "Name: (\\?([A-Za-z_]+)@@[^\n]+)\n *RVA: (.*)" matched "${export}")
  list(APPEND exported "${CMAKE_MATCH_1}")
  # All spellings of a name are the same function.
  set(function ${CMAKE_MATCH_2})
  if(NOT DEFINED address_${function})
    set(address_${function} ${CMAKE_MATCH_3})
  elseif(NOT address_${function} STREQUAL CMAKE_MATCH_3)
    message(SEND_ERROR "${CMAKE_MATCH_1} is another function")
  endif()
endforeach()

set(expected "")
file(STRINGS ${SOURCE_DIR}/interface/exports.def lines REGEX "=")
foreach(line IN LISTS lines)
  string(REGEX REPLACE "^ *\"([^\"]+)\".*" "\\1" name "${line}")
  list(APPEND expected "${name}")
endforeach()
list(SORT exported)
list(SORT expected)
if(NOT exported STREQUAL expected)
  message(SEND_ERROR "exported: ${exported}\nexpected: ${expected}")
endif()
