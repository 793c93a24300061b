# What a host needs of an installed Quorvex: the library, its public headers, and the package that
# find_package(quorvex) looks for. Component "library", so that it installs without the command.
include(CMakePackageConfigHelpers)

set(quorvex_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/quorvex)

install(TARGETS quorvex EXPORT quorvex_targets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT library
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT library
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library)
install(FILES interface/quorvex.h interface/calibration_point.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/quorvex/interface COMPONENT library)
# What the public headers include.
set(quorvex_record_headers base/calibration_point.h)
if(MINGW)
  list(APPEND quorvex_record_headers base/host_allocator.h)
endif()
install(FILES ${quorvex_record_headers}
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/quorvex/base COMPONENT library)
if(MINGW)
  install(FILES ${quorvex_host_import_library} DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library)
  install(FILES docs/windows.md LICENSE DESTINATION . COMPONENT library)
else()
  install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT library)
endif()
if(QUORVEX_BUILD_PRECISE)
  install(TARGETS quorvex_precise EXPORT quorvex_targets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT library
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT library
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library)
  install(FILES interface/quorvex_precise.h
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/quorvex/interface COMPONENT library)
endif()
install(EXPORT quorvex_targets NAMESPACE quorvex:: FILE quorvex-targets.cmake
  DESTINATION ${quorvex_package_dir} COMPONENT library)

configure_package_config_file(cmake/quorvex-config.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/quorvex-config.cmake INSTALL_DESTINATION ${quorvex_package_dir})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/quorvex-config-version.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/quorvex-config.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/quorvex-config-version.cmake
  DESTINATION ${quorvex_package_dir} COMPONENT library)
