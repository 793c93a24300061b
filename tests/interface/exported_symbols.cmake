# Compares what a library exports with the checked-in list, decorated names and all. Called with NM,
# LIBRARY and EXPECTED.
execute_process(COMMAND ${NM} --dynamic --defined-only --format=posix ${LIBRARY}
  OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^\n]+" lines "${symbols}")
set(exported "")
foreach(line IN LISTS lines)
  string(REGEX REPLACE " .*" "" name "${line}")
  list(APPEND exported ${name})
endforeach()
file(STRINGS ${EXPECTED} expected)

set(missing ${expected})
list(REMOVE_ITEM missing ${exported})
set(surplus ${exported})
list(REMOVE_ITEM surplus ${expected})
if(missing OR surplus)
  message(FATAL_ERROR "missing: ${missing}\nnot in the list: ${surplus}")
endif()
