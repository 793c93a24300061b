# What is handed out: an archive for Windows hosts (cmake --build --preset windows --target package), Debian
# packages elsewhere (scripts/make_packages.sh).
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR})
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
if(WIN32)
  set(CPACK_GENERATOR ZIP)
  set(CPACK_PACKAGE_FILE_NAME quorvex-${PROJECT_VERSION}-windows-x64)
  include(CPack)
  return()
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "The Quorvex maintainers <maintainers@quorvex.invalid>")
set(CPACK_COMPONENTS_ALL runtime development command)
# What each links, beside this project's own libraries, which are named below.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_BINARY_DIR})

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libquorvex0)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/cmake/debian/runtime/triggers)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "calibration points of cross-mark targets in fisheye images
 Finds and numbers the cross marks of a printed target in the picture of a fisheye camera.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libquorvex-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "libquorvex0 (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "headers of Quorvex
 Headers for C++ and C, and what CMake and pkg-config need to find the library.")

set(CPACK_DEBIAN_COMMAND_PACKAGE_NAME quorvex)
set(CPACK_DEBIAN_COMMAND_PACKAGE_SECTION science)
set(CPACK_DEBIAN_COMMAND_PACKAGE_DEPENDS "libquorvex0 (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_COMMAND_DESCRIPTION "find calibration points on the command line
 Detects, corrects and compares the points of cross-mark targets, and renders such targets.")

if(QUORVEX_HAS_PYTHON)
  list(APPEND CPACK_COMPONENTS_ALL python)
  set(CPACK_DEBIAN_PYTHON_PACKAGE_NAME python3-quorvex)
  set(CPACK_DEBIAN_PYTHON_PACKAGE_SECTION python)
  # Python leaves its own form of the sources beside them.
  set(CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA
    ${PROJECT_SOURCE_DIR}/cmake/debian/python/postinst ${PROJECT_SOURCE_DIR}/cmake/debian/python/prerm)
  set(CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_STRICT_PERMISSION ON)
  # A module of one version of Python, that of the build.
  execute_process(COMMAND ${Python_EXECUTABLE} -c "import sys; print(sys.version_info.minor)"
    OUTPUT_VARIABLE minor OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  math(EXPR next_minor "${minor} + 1")
  set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS
    "python3 (>= 3.${minor}), python3 (<< 3.${next_minor}), python3-numpy")
  set(CPACK_COMPONENT_PYTHON_DESCRIPTION "calibration points of cross-mark targets from Python
 Detections on numpy arrays, and the correction of what they find.")
endif()

# Each package has the licence where Debian looks for it.
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  string(TOUPPER ${component} upper)
  install(FILES LICENSE RENAME copyright COMPONENT ${component} EXCLUDE_FROM_ALL
    DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
endforeach()
include(CPack)
