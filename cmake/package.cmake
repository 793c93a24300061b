# The archive for Windows hosts: cmake --build --preset windows --target package
set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_FILE_NAME quorvex-${PROJECT_VERSION}-windows-x64)
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR})
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
include(CPack)
