// The Win32 types and memory functions that the library uses: the real ones on Windows, elsewhere
// a subset with their names and values, implemented in the folder of the system, chosen by CMake.
#ifndef QUORVEX_PLATFORM_WIN32_SUBSET_H_
#define QUORVEX_PLATFORM_WIN32_SUBSET_H_

#if defined(_WIN32)

#include <windows.h>
// After windows.h.
#include <tchar.h>

#else

#include <cstddef>

using BOOL = int;
using UINT = unsigned int;
using SIZE_T = std::size_t;
using ULONGLONG = unsigned long long;
using LPVOID = void*;
using TCHAR = char;  // texts are UTF-8, file names the bytes that the system gave
using LPCTSTR = const TCHAR*;

#ifndef TRUE
#define TRUE 1
#define FALSE 0
#endif
#define _T(text) text

// Handles are types of their own, never the address of the memory: a handle that is used as a
// pointer does not compile, as one that skips the lock would fail on moveable memory.
struct LocalHandle;
struct GlobalHandle;
using HLOCAL = LocalHandle*;
using HGLOBAL = GlobalHandle*;

constexpr UINT LMEM_MOVEABLE = 0x0002;
constexpr UINT LMEM_ZEROINIT = 0x0040;
constexpr UINT LHND = LMEM_MOVEABLE | LMEM_ZEROINIT;
constexpr UINT GMEM_MOVEABLE = 0x0002;
constexpr UINT GMEM_ZEROINIT = 0x0040;
constexpr UINT GHND = GMEM_MOVEABLE | GMEM_ZEROINIT;

constexpr UINT MB_OK = 0x0000;
constexpr int IDOK = 1;

extern "C" {

// Null when the memory cannot be had.
HLOCAL LocalAlloc(UINT flags, SIZE_T size);
LPVOID LocalLock(HLOCAL handle);
BOOL LocalUnlock(HLOCAL handle);  // false once the last lock is released
HLOCAL LocalFree(HLOCAL handle);  // null on success

HGLOBAL GlobalAlloc(UINT flags, SIZE_T size);
LPVOID GlobalLock(HGLOBAL handle);
BOOL GlobalUnlock(HGLOBAL handle);
HGLOBAL GlobalFree(HGLOBAL handle);

}  // extern "C"

#endif  // defined(_WIN32)

#endif  // QUORVEX_PLATFORM_WIN32_SUBSET_H_
