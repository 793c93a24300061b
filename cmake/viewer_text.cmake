# The report's page as two texts of a C++ source: what stands before its data, and what behind it. Style and script
# stand in the page itself, and a policy in its head allows these two and nothing else, by their hashes.

# The SHA-256 hash of a text in base64, as policies have it.
function(quorvex_base64_hash text result)
  set(digits "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/")
  string(SHA256 hash "${text}")
  set(encoded "")
  foreach(first RANGE 0 63 3)
    string(SUBSTRING "${hash}00" ${first} 3 bits)
    math(EXPR high "0x${bits} >> 6")
    math(EXPR low "0x${bits} & 63")
    string(SUBSTRING "${digits}" ${high} 1 high)
    string(SUBSTRING "${digits}" ${low} 1 low)
    string(APPEND encoded "${high}${low}")
  endforeach()
  # 32 bytes are 43 digits; the last one made stands for the zeros.
  string(SUBSTRING "${encoded}" 0 43 encoded)
  set(${result} "${encoded}=" PARENT_SCOPE)
endfunction()

# Joins JavaScript modules to one: each module's imports and the word export go. What a module keeps to itself must
# therefore have a name that no other module uses.
function(quorvex_join_modules folder modules result)
  set(script "")
  foreach(module IN LISTS modules)
    file(READ ${folder}/${module} text)
    string(REGEX REPLACE "(^|\n)import [^\n]*" "\\1" text "${text}")
    string(REGEX REPLACE "(^|\n)export " "\\1" text "${text}")
    string(APPEND script "\n// ${module}\n${text}")
  endforeach()
  set(${result} "${script}" PARENT_SCOPE)
endfunction()

# Writes `source`, which defines what tools/report/viewer_text.h declares.
function(quorvex_write_viewer_text source folder modules)
  foreach(file IN ITEMS index.html style.css ${modules})
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${folder}/${file})
  endforeach()
  file(GLOB there RELATIVE ${folder} ${folder}/*.js)
  foreach(module IN LISTS there)
    if(NOT module IN_LIST modules)
      message(FATAL_ERROR "${module} of ${folder} is not among the modules that are joined")
    endif()
  endforeach()
  file(READ ${folder}/index.html page)
  file(READ ${folder}/style.css style)
  quorvex_join_modules(${folder} "${modules}" script)
  quorvex_base64_hash("${style}" style_hash)
  quorvex_base64_hash("${script}" script_hash)
  string(CONCAT policy "default-src 'none'; img-src data: blob:; style-src 'sha256-${style_hash}'; "
    "script-src 'sha256-${script_hash}'; base-uri 'none'; form-action 'none'")
  foreach(place IN ITEMS policy style data script)
    string(FIND "${page}" "<!-- ${place} -->\n" at)
    if(at EQUAL -1)
      message(FATAL_ERROR "${folder}/index.html has no line <!-- ${place} -->")
    endif()
  endforeach()
  string(REPLACE "<!-- policy -->" "<meta http-equiv=\"Content-Security-Policy\" content=\"${policy}\">" page "${page}")
  string(REPLACE "<!-- style -->" "<style>${style}</style>" page "${page}")
  string(REPLACE "<!-- script -->" "<script type=\"module\">${script}</script>" page "${page}")
  string(FIND "${page}" "<!-- data -->\n" data)
  string(SUBSTRING "${page}" 0 ${data} start)
  math(EXPR data "${data} + 14")
  string(SUBSTRING "${page}" ${data} -1 end)
  string(CONCAT text
    "#include \"tools/report/viewer_text.h\"\n\n"
    "namespace quorvex::tools {\n\n"
    "const char* const kViewerStart = R\"viewer(${start})viewer\";\n"
    "const char* const kViewerEnd = R\"viewer(${end})viewer\";\n"
    "const char* const kViewerVersion = \"${PROJECT_VERSION}\";\n\n"
    "}  // namespace quorvex::tools\n")
  if(EXISTS ${source})
    file(READ ${source} written)
  endif()
  if(NOT "${text}" STREQUAL "${written}")
    file(WRITE ${source} "${text}")
  endif()
endfunction()
