quorvex_test_program(detect_tests USES_LIST_DRIVE
  SOURCES
    ${quorvex_platform}/detect_worker_process_test.cpp
    ${quorvex_platform}/run_program.cpp
    compare_test.cpp
    detect_command_test.cpp
    detect_diagnostics_folder_test.cpp
    detect_failure_diagnosis_test.cpp
    detect_numbering_test.cpp
    detect_overlay_test.cpp
    detect_padding_test.cpp
    detect_worker_process_test.cpp
    point_edits_test.cpp
    points_command_test.cpp
    points_command_files_test.cpp
    points_file_test.cpp
    system_files_test.cpp
  LIBRARIES quorvex_tools GTest::gmock)
target_compile_definitions(detect_tests PRIVATE
  QUORVEX_COMMAND="$<TARGET_FILE:quorvex_command>"
  QUORVEX_WORKER="$<TARGET_FILE:worker_program>")
add_dependencies(detect_tests quorvex_command worker_program)

# Without the project's options, since a sanitizer would tell of the crash in its own way.
add_executable(worker_program worker_program.cpp)
set_target_properties(worker_program PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)

if(WIN32)
  add_executable(killed_host windows/killed_host.cpp)
  target_link_libraries(killed_host PRIVATE quorvex_tools)
  set_target_properties(killed_host PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  target_sources(detect_tests PRIVATE
    windows/command_line_test.cpp
    windows/detect_command_test.cpp
    windows/system_files_test.cpp)
  target_compile_definitions(detect_tests PRIVATE
    QUORVEX_CRASH="exception 0xC0000005"
    QUORVEX_KILLED_HOST="$<TARGET_FILE:killed_host>")
  add_dependencies(detect_tests killed_host)
else()
  target_sources(detect_tests PRIVATE posix/command_test.cpp)
  target_compile_definitions(detect_tests PRIVATE QUORVEX_CRASH="Segmentation fault")
endif()
