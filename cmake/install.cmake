# What a host needs of an installed Quorvex: the library, its public headers, and the package that
# find_package(quorvex) and pkg-config look for. Component "runtime" is what programs need, "development" what
# those need who write them; the command and the bindings have components of their own.
include(CMakePackageConfigHelpers)

set(quorvex_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/quorvex)

install(TARGETS quorvex EXPORT quorvex_targets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
install(FILES interface/quorvex.h interface/calibration_point.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/quorvex/interface COMPONENT development)
# What the public headers include.
set(quorvex_record_headers base/calibration_point.h)
if(MINGW)
  list(APPEND quorvex_record_headers base/host_allocator.h)
endif()
install(FILES ${quorvex_record_headers}
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/quorvex/base COMPONENT development)
if(MINGW)
  install(FILES ${quorvex_host_import_library} DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
  install(FILES docs/windows.md LICENSE DESTINATION . COMPONENT runtime)
else()
  install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT runtime)
endif()
if(QUORVEX_BUILD_PRECISE)
  install(TARGETS quorvex_precise EXPORT quorvex_targets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
  install(FILES interface/quorvex_precise.h
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/quorvex/interface COMPONENT development)
endif()
install(EXPORT quorvex_targets NAMESPACE quorvex:: FILE quorvex-targets.cmake
  DESTINATION ${quorvex_package_dir} COMPONENT development)

configure_package_config_file(cmake/quorvex-config.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/quorvex-config.cmake INSTALL_DESTINATION ${quorvex_package_dir})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/quorvex-config-version.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/quorvex-config.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/quorvex-config-version.cmake
  DESTINATION ${quorvex_package_dir} COMPONENT development)

# pkg-config's files find the rest from where they lie, like CMake's, so that an installed copy can be moved.
if(NOT WIN32)
  set(quorvex_pc_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
  file(RELATIVE_PATH quorvex_pc_prefix /${quorvex_pc_dir} /)
  function(quorvex_pkg_config name description)
    configure_file(cmake/quorvex.pc.in ${CMAKE_CURRENT_BINARY_DIR}/${name}.pc @ONLY)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${name}.pc DESTINATION ${quorvex_pc_dir} COMPONENT development)
  endfunction()
  quorvex_pkg_config(quorvex "Finds the calibration points of a cross-mark target in fisheye images")
  if(QUORVEX_BUILD_PRECISE)
    quorvex_pkg_config(quorvex_precise "Measures the marks of a cross-mark target to thousandths of a pixel")
  endif()
  if(QUORVEX_BUILD_C)
    quorvex_pkg_config(quorvex_c "Quorvex for programs in C")
  endif()
endif()
