# GoogleTest, built from the sources that Debian installs. More than one folder asks for it.
if(NOT TARGET GTest::gtest)
  set(INSTALL_GTEST OFF)
  set(BUILD_GMOCK ON)
  add_subdirectory(/usr/src/googletest ${PROJECT_BINARY_DIR}/packages/googletest EXCLUDE_FROM_ALL SYSTEM)
endif()
set(GTest_FOUND TRUE)
