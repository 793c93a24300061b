include(${CMAKE_CURRENT_LIST_DIR}/system_header.cmake)
quorvex_system_header(nlohmann_json::nlohmann_json nlohmann)
set(nlohmann_json_FOUND TRUE)
