# require_tools(TOOL...): sets program_TOOL for each; where one is missing, says so and ends the calling
# script, which ctest takes for a skipped test.
macro(require_tools)
  foreach(tool IN ITEMS ${ARGN})
    find_program(program_${tool} NAMES ${tool})
    if(NOT program_${tool})
      message("Skipped: ${tool} is not installed")
      return()
    endif()
  endforeach()
endmacro()
