// Compiled, never run: the public header with the compiler of the DLL, as C++11 and in front of
// everything else. It brings no macros of <windows.h> along and bears that header after it.
#include "interface/quorvex.h"

#if defined(_WINDOWS_) || defined(_INC_WINDOWS) || defined(ERROR)
#error "the public header includes <windows.h>"
#endif

#include <windows.h>

#include <type_traits>

static_assert(std::is_same<PointList, std::vector<CalibrationPoint, PointAllocator>>::value, "");
static_assert(!std::is_same<PointAllocator, std::allocator<CalibrationPoint>>::value, "");
static_assert(sizeof(PointList) == 3 * sizeof(void*), "hosts know lists as three pointers");
