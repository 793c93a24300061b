# The library. Its sources are compiled once, as objects, and linked into the shared library and, without
# the platform's message box, into the tests.
add_library(quorvex_objects OBJECT
  base/point_geometry.cpp
  imageio/bmp_file.cpp
  imageio/bmp_header.cpp
  imageio/diagnostic_picture.cpp
  imageio/diagnostic_place.cpp
  imageio/grey_conversion.cpp
  preprocess/binarize.cpp
  preprocess/component_removal.cpp
  preprocess/convolution.cpp
  preprocess/dilation.cpp
  preprocess/mask_spans.cpp
  preprocess/outline_drawing.cpp
  preprocess/outline_erasure.cpp
  preprocess/outline_filter.cpp
  preprocess/outline_tracing.cpp
  preprocess/outside_region.cpp
  preprocess/rank_filter.cpp
  preprocess/sobel_edges.cpp
  preprocess/target_mask.cpp
  crossmark/brightest_window.cpp
  crossmark/cross_center.cpp
  crossmark/cross_lines.cpp
  crossmark/cross_location.cpp
  crossmark/cross_mark_search.cpp
  crossmark/cross_refinement.cpp
  crossmark/cross_strokes.cpp
  crossmark/hough_lines.cpp
  crossmark/hough_votes.cpp
  crossmark/image_patch.cpp
  crossmark/line_fit.cpp
  crossmark/line_intersection.cpp
  crossmark/line_picture.cpp
  crossmark/line_splitting.cpp
  crossmark/mark_pictures.cpp
  crossmark/patch_binarization.cpp
  crossmark/profile_refinement.cpp
  crossmark/thinning.cpp
  grid/candidate_acceptance.cpp
  grid/centre_cross_pass.cpp
  grid/cross_probe.cpp
  grid/curve_axis.cpp
  grid/curve_crossing.cpp
  grid/curve_fit.cpp
  grid/dominant_group.cpp
  grid/line_growing.cpp
  grid/line_tracing.cpp
  grid/missing_points.cpp
  grid/outlier_rejection.cpp
  grid/point_merging.cpp
  grid/point_order.cpp
  grid/provisional_code.cpp
  grid/row_tracing_pass.cpp
  interface/detection_driver.cpp
  interface/exports.cpp
  interface/grid_numbering.cpp
  interface/point_editing.cpp
  interface/point_text_file.cpp
  interface/quorvex_app.cpp
  interface/result_assembly.cpp
  interface/stray_points.cpp
  interface/stroke_image.cpp
  postprocess/grid_line_trace.cpp
  postprocess/id_reassignment.cpp
  postprocess/neighbour_search.cpp
  postprocess/rearrangement.cpp
)
# The platform's part. Its message box stands apart, since tests link their own.
if(MSVC)
  # The real MFC: a regular DLL on MFC's own, so that a CFileException* is the host's as well. Narrow file
  # names are in the process's code page, which fopen takes, too, and not in the thread's.
  target_compile_definitions(quorvex_objects PRIVATE
    _AFXDLL _USRDLL _WINDLL _CONVERSION_DONT_USE_THREAD_LOCALE _CRT_SECURE_NO_WARNINGS)
  target_sources(quorvex_objects PRIVATE imageio/diagnostic_list_windows.cpp)
elseif(WIN32)
  set(quorvex_platform windows)
  target_sources(quorvex_objects PRIVATE imageio/diagnostic_list_windows.cpp platform/windows/file.cpp)
else()
  set(quorvex_platform posix)
  target_sources(quorvex_objects PRIVATE
    imageio/diagnostic_list_posix.cpp platform/posix/file.cpp platform/posix/memory.cpp)
endif()
target_link_libraries(quorvex_objects PUBLIC quorvex_compile_options)
target_compile_definitions(quorvex_objects PRIVATE QUORVEX_BUILDING_LIBRARY)
set_target_properties(quorvex_objects PROPERTIES
  POSITION_INDEPENDENT_CODE ON
  CXX_VISIBILITY_PRESET hidden
  VISIBILITY_INLINES_HIDDEN ON)

add_library(quorvex SHARED)
if(DEFINED quorvex_platform)
  target_sources(quorvex PRIVATE platform/${quorvex_platform}/message_box.cpp)
endif()
target_link_libraries(quorvex PRIVATE quorvex_objects)
target_include_directories(quorvex PUBLIC
  $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/quorvex>)
set_target_properties(quorvex PROPERTIES
  CXX_VISIBILITY_PRESET hidden
  VISIBILITY_INLINES_HIDDEN ON)
if(MSVC)
  # Neither objects nor a list of names tell CMake a language.
  set_target_properties(quorvex PROPERTIES LINKER_LANGUAGE CXX)
  target_sources(quorvex PRIVATE ${PROJECT_SOURCE_DIR}/interface/exports_msvc.def)
elseif(WIN32)
  include(cmake/windows_dll.cmake)
else()
  # libquorvex.so is a link. Before 1.0 a new minor version may break hosts, as the CMake package says, too.
  set_target_properties(quorvex PROPERTIES
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
  # Hidden visibility leaves the standard library's templates visible; the list leaves the exports alone.
  target_link_options(quorvex PRIVATE
    LINKER:--version-script=${PROJECT_SOURCE_DIR}/interface/exports.map)
  set_property(TARGET quorvex APPEND PROPERTY LINK_DEPENDS
    ${PROJECT_SOURCE_DIR}/interface/exports.map)
endif()
