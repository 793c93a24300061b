include(${CMAKE_CURRENT_LIST_DIR}/system_header.cmake)
quorvex_system_header(fmt::fmt fmt)
target_compile_definitions(fmt::fmt INTERFACE FMT_HEADER_ONLY)
set(fmt_FOUND TRUE)
