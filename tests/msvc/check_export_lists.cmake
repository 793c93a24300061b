# Compares the checked-in lists of exported names with those that the compilers give now. Called with
# SOURCE_DIR and WORK_DIR, which is emptied before.
include(${CMAKE_CURRENT_LIST_DIR}/require_tools.cmake)
require_tools(bash clang++ llvm-nm x86_64-w64-mingw32-g++-posix)

file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})
execute_process(COMMAND bash ${SOURCE_DIR}/scripts/generate_exports_def.sh ${WORK_DIR}
  COMMAND_ERROR_IS_FATAL ANY)
foreach(list IN ITEMS exports.def exports_msvc.def)
  execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${SOURCE_DIR}/interface/${list}
    ${WORK_DIR}/${list} RESULT_VARIABLE differs)
  if(differs)
    message(SEND_ERROR "interface/${list} is not what the header gives (${WORK_DIR}/${list}). "
      "After a change that is meant to change an export, run scripts/generate_exports_def.sh.")
  endif()
endforeach()
