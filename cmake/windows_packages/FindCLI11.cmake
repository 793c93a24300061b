include(${CMAKE_CURRENT_LIST_DIR}/system_header.cmake)
quorvex_system_header(CLI11::CLI11 CLI)
set(CLI11_FOUND TRUE)
