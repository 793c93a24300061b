# The library. Its sources are compiled once, as objects, and linked into the shared library and, without
# the platform's message box, into the tests.
add_library(quorvex_objects OBJECT
  imageio/bmp_file.cpp
  imageio/diagnostic_picture.cpp
  imageio/grey_conversion.cpp
  platform/posix/file.cpp
  platform/posix/memory.cpp
)
target_link_libraries(quorvex_objects PUBLIC quorvex_compile_options)
set_target_properties(quorvex_objects PROPERTIES
  POSITION_INDEPENDENT_CODE ON
  CXX_VISIBILITY_PRESET hidden
  VISIBILITY_INLINES_HIDDEN ON)

add_library(quorvex SHARED platform/posix/message_box.cpp)
target_link_libraries(quorvex PRIVATE quorvex_objects)
target_include_directories(quorvex PUBLIC
  $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/quorvex>)
set_target_properties(quorvex PROPERTIES
  CXX_VISIBILITY_PRESET hidden
  VISIBILITY_INLINES_HIDDEN ON)
