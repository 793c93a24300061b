# Installs the library of BUILD_DIR, moves the copy, and builds and runs the project of CONSUMER_DIR
# against it. WORK_DIR is emptied before. WITH_C tells whether the build has the interface for C. Where PKG_CONFIG is
# given, the host is built by what it says, too.
function(run)
  execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE output ERROR_VARIABLE output RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    string(REPLACE ";" " " command "${ARGN}")
    message(FATAL_ERROR "${command}\n${output}")
  endif()
endfunction()

file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR}/run)

foreach(component IN ITEMS runtime development)
  run(${CMAKE_COMMAND} --install ${BUILD_DIR} --component ${component} --config "${CONFIG}"
    --prefix ${WORK_DIR}/installed)
endforeach()
# An installed copy must not remember where it was built or installed.
file(RENAME ${WORK_DIR}/installed ${WORK_DIR}/moved)
file(GLOB_RECURSE license ${WORK_DIR}/moved/LICENSE)
if(license STREQUAL "")
  message(FATAL_ERROR "the installed copy has no LICENSE")
endif()

set(flags "")
if(SANITIZE)
  set(flags "-fsanitize=${SANITIZE}")
endif()
run(${CMAKE_COMMAND} -S ${CONSUMER_DIR} -B ${WORK_DIR}/build -G ${GENERATOR}
  -DCMAKE_PREFIX_PATH=${WORK_DIR}/moved -DCMAKE_CXX_COMPILER=${COMPILER} -DCMAKE_CXX_FLAGS=${flags}
  -DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN} -DQUORVEX_VERSION=${VERSION} -DWITH_C=${WITH_C})
run(${CMAKE_COMMAND} --build ${WORK_DIR}/build)
file(GLOB hosts ${WORK_DIR}/build/host ${WORK_DIR}/build/c_host ${WORK_DIR}/build/*host.exe)
foreach(host IN LISTS hosts)
  run(${CMAKE_COMMAND} -E chdir ${WORK_DIR}/run ${EMULATOR} ${host})
endforeach()

if(PKG_CONFIG)
  file(GLOB_RECURSE description ${WORK_DIR}/moved/quorvex.pc)
  cmake_path(GET description PARENT_PATH descriptions)
  set(ENV{PKG_CONFIG_PATH} ${descriptions})
  execute_process(COMMAND ${PKG_CONFIG} --cflags --libs quorvex
    OUTPUT_VARIABLE options OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND ${PKG_CONFIG} --variable=libdir quorvex
    OUTPUT_VARIABLE libraries OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  separate_arguments(options)
  run(${COMPILER} ${flags} ${CONSUMER_DIR}/main.cpp -o ${WORK_DIR}/run/pkg_host ${options})
  set(ENV{LD_LIBRARY_PATH} ${libraries})
  run(${CMAKE_COMMAND} -E chdir ${WORK_DIR}/run ./pkg_host)
endif()
