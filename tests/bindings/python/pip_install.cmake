# Installs the Python package with pip in a fresh virtual environment, offline, and looks whether it finds what the
# command finds. Called with SOURCE_DIR, PYTHON, COMMAND, WORK_DIR, which is emptied before, and CMAKE_BUILD: the
# build that the module is taken from; empty to compile it from the sources alone.
execute_process(COMMAND ${PYTHON} -c "import setuptools, wheel, pip, ensurepip, numpy"
  RESULT_VARIABLE result ERROR_VARIABLE error)
if(NOT result EQUAL 0)
  string(REGEX MATCH "[^\n]*\n$" error "${error}")
  message("Skipped: python3-venv, python3-pip, python3-setuptools, python3-wheel or python3-numpy is not installed: ${error}")
  return()
endif()

function(run)
  execute_process(COMMAND ${ARGN} WORKING_DIRECTORY ${WORK_DIR}
    OUTPUT_VARIABLE output ERROR_VARIABLE output RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    string(REPLACE ";" " " command "${ARGN}")
    message(FATAL_ERROR "${command}\n${output}")
  endif()
endfunction()

file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})
run(${COMMAND} render --preset easy --output board.bmp)
run(${COMMAND} detect board.bmp --output points.csv)
run(${PYTHON} -m venv --system-site-packages venv)
unset(ENV{PYTHONPATH})
set(environment "")
if(CMAKE_BUILD)
  set(environment ${CMAKE_COMMAND} -E env QUORVEX_CMAKE_BUILD=${CMAKE_BUILD})
endif()
run(${environment} venv/bin/python -m pip install --no-index --no-build-isolation ${SOURCE_DIR}/bindings/python)
run(venv/bin/python ${SOURCE_DIR}/tests/bindings/python/check_package.py board.bmp points.csv)

# Nothing is left beside the sources.
file(GLOB left RELATIVE ${SOURCE_DIR}/bindings/python ${SOURCE_DIR}/bindings/python/build
  ${SOURCE_DIR}/bindings/python/*.egg-info ${SOURCE_DIR}/bindings/python/dist)
if(left)
  message(SEND_ERROR "left beside the sources: ${left}")
endif()
