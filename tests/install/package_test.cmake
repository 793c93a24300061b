# Packs the archive of BUILD_DIR into WORK_DIR, which is emptied before, and looks at what it holds.
file(REMOVE_RECURSE ${WORK_DIR})
execute_process(COMMAND ${CMAKE_CPACK_COMMAND} --config ${BUILD_DIR}/CPackConfig.cmake -B ${WORK_DIR}
  OUTPUT_VARIABLE output ERROR_VARIABLE output RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "${output}")
endif()
set(name quorvex-${VERSION}-windows-x64)
execute_process(COMMAND ${CMAKE_COMMAND} -E tar tf ${WORK_DIR}/${name}.zip
  OUTPUT_VARIABLE files COMMAND_ERROR_IS_FATAL ANY)
foreach(file IN ITEMS
    bin/quorvex.dll bin/quorvex_c.dll bin/quorvex.exe lib/quorvex.lib lib/libquorvex.dll.a
    lib/cmake/quorvex/quorvex-config.cmake include/quorvex/interface/quorvex.h
    lib/libquorvex_c.dll.a include/quorvex/interface/quorvex_c.h
    include/quorvex/interface/calibration_point.h include/quorvex/base/calibration_point.h
    include/quorvex/base/host_allocator.h windows.md LICENSE)
  if(NOT files MATCHES "(^|\n)${name}/${file}\n")
    message(SEND_ERROR "${file} is missing in:\n${files}")
  endif()
endforeach()
