# Ways to compile much in little time, for builds that run tests: without them a build says whether every source
# includes what it uses, and compiles only what changed.

# Lets a target read headers of other libraries from a form that the compiler has read once.
function(quorvex_precompile_headers target)
  if(QUORVEX_COMPILE_JOINED)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
endfunction()

# Compiles the sources that a target has by now by the dozen. What two of them keep to themselves must have two
# names: those that share one are left EXCEPT, a regular expression. So is what includes windows.h with its macros.
function(quorvex_join_sources target)
  if(NOT QUORVEX_COMPILE_JOINED)
    return()
  endif()
  cmake_parse_arguments(arg "" "EXCEPT" "" EXCEPT windows ${ARGN})
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 12)
  get_target_property(sources ${target} SOURCES)
  list(FILTER sources INCLUDE REGEX "${arg_EXCEPT}|windows")
  set_source_files_properties(${sources} TARGET_DIRECTORY ${target} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
endfunction()

# Compiles a target without optimising but for the sources that run long: those that match OPTIMIZED, a regular
# expression, of the sources that it has by now. Takes half the time where texts, options and tests are most of it.
function(quorvex_compile_plainly target)
  cmake_parse_arguments(arg "" "OPTIMIZED" "" ${ARGN})
  target_compile_options(${target} PRIVATE -O0)
  get_target_property(sources ${target} SOURCES)
  list(FILTER sources INCLUDE REGEX "${arg_OPTIMIZED}")
  set_source_files_properties(${sources} TARGET_DIRECTORY ${target}
    PROPERTIES COMPILE_OPTIONS -O2 SKIP_PRECOMPILE_HEADERS ON)
endfunction()
