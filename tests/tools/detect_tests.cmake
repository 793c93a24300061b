quorvex_test_program(detect_tests
  SOURCES
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
  LIBRARIES quorvex_tools)
target_compile_definitions(detect_tests PRIVATE
  QUORVEX_COMMAND="$<TARGET_FILE:quorvex_command>")
add_dependencies(detect_tests quorvex_command)
