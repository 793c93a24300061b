# Runs the check of includes on small trees with one wrong line each, and on one without. Called with
# SOURCE_DIR and WORK_DIR, which is emptied before.
cmake_minimum_required(VERSION 3.25)

function(check_tree expected)
  execute_process(COMMAND ${CMAKE_COMMAND} -DSOURCE_DIR=${WORK_DIR}
      -P ${SOURCE_DIR}/tests/layout/check_includes.cmake
    OUTPUT_VARIABLE output ERROR_VARIABLE output RESULT_VARIABLE result)
  string(REGEX REPLACE "[ \n]+" " " output "${output}")  # messages are broken into lines
  if(expected STREQUAL "" AND NOT result EQUAL 0)
    message(SEND_ERROR "a tree without a wrong include is refused:\n${output}")
  elseif(NOT expected STREQUAL "" AND (result EQUAL 0 OR NOT output MATCHES "${expected}"))
    message(SEND_ERROR "not found: ${expected}\n${output}")
  endif()
endfunction()

# Puts one source into a tree that has the project's own table and one include that is allowed.
function(plant source line expected)
  file(REMOVE_RECURSE ${WORK_DIR})
  file(COPY ${SOURCE_DIR}/docs/development.md DESTINATION ${WORK_DIR}/docs)
  file(WRITE ${WORK_DIR}/grid/high.h "#include \"base/low.h\"\n")
  file(WRITE ${WORK_DIR}/${source} "${line}\n")
  check_tree("${expected}")
endfunction()

plant(grid/right.cpp "#include \"crossmark/cross_location.h\"" "")
plant(tools/detect/right.cpp "#include \"interface/quorvex.h\"" "")
plant(base/upward.h "#include \"grid/high.h\"" "base/upward.h includes grid/high.h")
plant(base/upward.h "  #  include <grid/high.h>" "base/upward.h includes grid/high.h")
plant(crossmark/aside.cpp "#include \"preprocess/binarize.h\"" "crossmark/aside.cpp includes preprocess/binarize.h")
plant(grid/upward.cpp "#include \"interface/quorvex.h\"" "grid/upward.cpp includes interface/quorvex.h")
plant(tools/detect/inside.cpp "#include \"grid/high.h\"" "tools/detect/inside.cpp includes grid/high.h")
plant(tools/detect/aside.cpp "#include \"tools/points/points_run.h\"" "tools/detect/aside.cpp includes tools/points/points_run.h")
plant(tools/lists/upward.cpp "#include \"tools/detect/overlay.h\"" "tools/lists/upward.cpp includes tools/detect/overlay.h")
plant(grid/relative.cpp "#include \"high.h\"" "grid/relative.cpp includes high.h, which is not written from the root")
plant(attic/unknown.h "#include <vector>" "attic/unknown.h lies in a folder that has no row")

# A table that runs in a circle.
file(REMOVE_RECURSE ${WORK_DIR})
file(WRITE ${WORK_DIR}/docs/development.md
  "| folder | may include |\n|---|---|\n| `base/` | `grid/` |\n| `grid/` | `base/` |\n")
file(WRITE ${WORK_DIR}/grid/high.h "#include \"base/low.h\"\n")
check_tree("base/ may include grid/, which stands in no row above")
