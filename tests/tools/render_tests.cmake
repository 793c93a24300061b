find_package(PNG REQUIRED)

quorvex_test_program(render_tests
  SOURCES
    picture_file_test.cpp
    picture_file_hostile_test.cpp
    render_camera_test.cpp
    render_command_test.cpp
    render_presets_test.cpp
    render_settings_test.cpp
    render_target_test.cpp
  LIBRARIES quorvex_tools PNG::PNG)
