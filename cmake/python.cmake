# Whether the Python module is built: sets QUORVEX_HAS_PYTHON.
set(QUORVEX_BUILD_PYTHON AUTO CACHE STRING
  "Build the Python module: ON, OFF or AUTO, where Python's headers and pybind11 are installed")
set(QUORVEX_HAS_PYTHON OFF)

if(WIN32 OR NOT QUORVEX_BUILD_PRECISE OR QUORVEX_BUILD_PYTHON STREQUAL "OFF")
  return()
endif()
# An interpreter without a sanitizer's runtime cannot load a module with it.
if(QUORVEX_SANITIZE AND NOT QUORVEX_BUILD_PYTHON STREQUAL "ON")
  return()
endif()

# The first interpreter that has numpy, which the module needs.
if(NOT Python_EXECUTABLE)
  foreach(name IN ITEMS python3 /usr/bin/python3)
    find_program(quorvex_python_candidate ${name} NO_CACHE)
    if(quorvex_python_candidate)
      execute_process(COMMAND ${quorvex_python_candidate} -c "import numpy" RESULT_VARIABLE result
        OUTPUT_QUIET ERROR_QUIET)
      if(result EQUAL 0)
        set(Python_EXECUTABLE ${quorvex_python_candidate})
        break()
      endif()
    endif()
    unset(quorvex_python_candidate)
  endforeach()
endif()
find_package(Python QUIET COMPONENTS Interpreter Development.Module)
find_package(pybind11 CONFIG QUIET)

if(Python_Interpreter_FOUND AND Python_Development.Module_FOUND AND pybind11_FOUND)
  set(QUORVEX_HAS_PYTHON ON)
elseif(QUORVEX_BUILD_PYTHON STREQUAL "AUTO")
  message(STATUS "The Python module is not built: python3-dev or pybind11-dev is not installed")
else()
  message(FATAL_ERROR "QUORVEX_BUILD_PYTHON needs python3-dev and pybind11-dev")
endif()
