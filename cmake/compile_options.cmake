# What every target of the project is compiled with.
add_library(quorvex_compile_options INTERFACE)
target_compile_features(quorvex_compile_options INTERFACE cxx_std_17)
target_include_directories(quorvex_compile_options INTERFACE ${PROJECT_SOURCE_DIR})
# Texts and file names are wide on Windows, and windows.h keeps its macros min and max to itself.
set(quorvex_windows_definitions UNICODE _UNICODE NOMINMAX)
if(WIN32)
  target_compile_definitions(quorvex_compile_options INTERFACE ${quorvex_windows_definitions})
endif()

if(MSVC)
  # The message texts are UTF-8 in the sources. From Visual Studio 2022 on /fp:precise does not contract.
  target_compile_options(quorvex_compile_options INTERFACE /utf-8 /fp:precise /permissive- /W4
    $<$<BOOL:${QUORVEX_WARNINGS_AS_ERRORS}>:/WX>)
  return()
endif()

# The arithmetic is part of the contract: no fused multiply-add, no reordering.
target_compile_options(quorvex_compile_options INTERFACE -ffp-contract=off)

# gcc 12 at -O2 and above vectorises pairs of expressions like (int)((double)(float)(r * c) + 0.5)
# and drops the narrowing to float on the way, which moves pixels: r = 105, c = -0.49999998509046656
# gives -51 instead of -52. Its superword vectoriser alone does this; loops stay vectorised.
target_compile_options(quorvex_compile_options INTERFACE
  $<$<CXX_COMPILER_ID:GNU>:-fno-tree-slp-vectorize>)

# Loops over pixels are written for vectors of bytes; gcc 12 needs to be told at -O2. Roots set no
# errno, so that they can be vectorised, too.
target_compile_options(quorvex_compile_options INTERFACE -fno-math-errno
  $<$<CXX_COMPILER_ID:GNU>:-ftree-loop-vectorize -fvect-cost-model=dynamic>)

target_compile_options(quorvex_compile_options INTERFACE
  -Wall -Wextra -Wconversion -Wno-sign-conversion -Wshadow
  $<$<BOOL:${QUORVEX_WARNINGS_AS_ERRORS}>:-Werror>)

if(QUORVEX_SANITIZE)
  target_compile_options(quorvex_compile_options INTERFACE
    -fsanitize=${QUORVEX_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(quorvex_compile_options INTERFACE -fsanitize=${QUORVEX_SANITIZE})
endif()

# What is compiled counts its edges for libFuzzer. Nothing more: told of every comparison as well, a detection takes
# several times as long. Programs without an engine link it, too: AddressSanitizer has the functions that are called.
if(QUORVEX_BUILD_FUZZERS AND NOT QUORVEX_FUZZING_ENGINE)
  if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang" OR NOT QUORVEX_SANITIZE MATCHES "address")
    message(FATAL_ERROR "QUORVEX_BUILD_FUZZERS needs clang and AddressSanitizer: the preset fuzz")
  endif()
  target_compile_options(quorvex_compile_options INTERFACE -fsanitize-coverage=inline-8bit-counters,pc-table)
endif()
