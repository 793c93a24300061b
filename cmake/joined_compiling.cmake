# Lets a target read headers of other libraries from a form that the compiler has read once. Only for builds that
# run tests: one without says whether every source includes what it uses.
function(quorvex_precompile_headers target)
  if(QUORVEX_PRECOMPILE_HEADERS)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
endfunction()
