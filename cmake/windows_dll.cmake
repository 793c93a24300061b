# quorvex.dll as MinGW-w64 builds it: the names that Visual C++ hosts look up, and nothing else.
set_target_properties(quorvex PROPERTIES PREFIX "" ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
target_sources(quorvex PRIVATE ${PROJECT_SOURCE_DIR}/interface/exports.def)
target_link_options(quorvex PRIVATE LINKER:--exclude-all-symbols)

enable_language(RC)
configure_file(cmake/version.rc.in version.rc @ONLY)
target_sources(quorvex PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/version.rc)

# The linker's own import library would offer the Visual C++ names only; programs of this build ask for
# the names of their compiler, so each stands for its Visual C++ name.
file(STRINGS interface/exports.def export_lines REGEX "=")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/interface/exports.def)
set(import_names "LIBRARY quorvex.dll\nEXPORTS\n")
set(host_names "${import_names}")
set(known "")
foreach(line IN LISTS export_lines)
  string(REGEX MATCH "\"(.+)\" *= *([^ ]+)" matched "${line}")
  string(APPEND host_names "  \"${CMAKE_MATCH_1}\"\n")
  if(NOT CMAKE_MATCH_2 IN_LIST known)
    list(APPEND known ${CMAKE_MATCH_2})
    string(APPEND import_names "  ${CMAKE_MATCH_2} == \"${CMAKE_MATCH_1}\"\n")
  endif()
endforeach()
# Not file(CONFIGURE): the names have pieces between two @.
file(GENERATE OUTPUT quorvex_imports.def CONTENT "${import_names}")
file(GENERATE OUTPUT quorvex_hosts.def CONTENT "${host_names}")
set_property(TARGET quorvex APPEND PROPERTY LINK_DEPENDS ${CMAKE_CURRENT_BINARY_DIR}/quorvex_imports.def)
add_custom_command(TARGET quorvex POST_BUILD
  COMMAND ${CMAKE_DLLTOOL} --input-def ${CMAKE_CURRENT_BINARY_DIR}/quorvex_imports.def
    --output-lib $<TARGET_LINKER_FILE:quorvex>
  VERBATIM)

# The import library of Visual C++ hosts.
find_program(LLVM_DLLTOOL llvm-dlltool REQUIRED)
set(quorvex_host_import_library ${CMAKE_BINARY_DIR}/quorvex.lib)
add_custom_command(OUTPUT ${quorvex_host_import_library}
  COMMAND ${LLVM_DLLTOOL} -m i386:x86-64 -d ${CMAKE_CURRENT_BINARY_DIR}/quorvex_hosts.def
    -l ${quorvex_host_import_library}
  DEPENDS ${CMAKE_CURRENT_BINARY_DIR}/quorvex_hosts.def
  VERBATIM)
add_custom_target(quorvex_host_import_library ALL DEPENDS ${quorvex_host_import_library})
