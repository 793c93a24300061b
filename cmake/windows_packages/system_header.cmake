# Packages that are headers only serve every system, but the folder that Debian puts them in holds the C
# library's headers, too; so each is reached through a link in a folder of its own.
function(quorvex_system_header target)
  set(folder ${PROJECT_BINARY_DIR}/packages/include)
  file(MAKE_DIRECTORY ${folder})
  foreach(name IN LISTS ARGN)
    if(NOT EXISTS /usr/include/${name})
      message(FATAL_ERROR "/usr/include/${name} is missing; scripts/setup.sh --windows installs it")
    endif()
    file(CREATE_LINK /usr/include/${name} ${folder}/${name} SYMBOLIC)
  endforeach()
  add_library(${target} INTERFACE IMPORTED GLOBAL)
  target_include_directories(${target} SYSTEM INTERFACE ${folder})
endfunction()
