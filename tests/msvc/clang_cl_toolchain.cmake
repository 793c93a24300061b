# clang in the place of Visual C++, with the stand-ins of this folder in the place of its headers. There are
# no libraries, so a DLL links with its imports left open: its exports can be read, but it cannot be loaded.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR AMD64)
set(CMAKE_CXX_COMPILER_TARGET x86_64-pc-windows-msvc)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
set(CMAKE_CXX_FLAGS_INIT
  "/X /imsvc \"${CMAKE_CURRENT_LIST_DIR}/stand_in/std\" /imsvc \"${CMAKE_CURRENT_LIST_DIR}/stand_in/mfc\"")
set(CMAKE_CXX_STANDARD_LIBRARIES "" CACHE STRING "")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "/noentry /nodefaultlib /force:unresolved /manifest:no")
