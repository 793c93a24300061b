# GoogleTest, built from the sources that Debian installs.
set(INSTALL_GTEST OFF)
set(BUILD_GMOCK ON)
add_subdirectory(/usr/src/googletest ${PROJECT_BINARY_DIR}/packages/googletest EXCLUDE_FROM_ALL SYSTEM)
set(GTest_FOUND TRUE)
