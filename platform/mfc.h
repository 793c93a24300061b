// Where the names of MFC and Win32 that the library uses come from: the real MFC where the compiler
// has it, a small subset of our own elsewhere. Library sources include this header and no other.
#ifndef QUORVEX_PLATFORM_MFC_H_
#define QUORVEX_PLATFORM_MFC_H_

#if defined(_MSC_VER)
#include <afxwin.h>
#include <atlconv.h>
#else
#include "platform/mfc_subset.h"
#endif

// Whether what CFile::SetLength adds to a file reads as zeros: POSIX promises it, Windows does not.
#if defined(_WIN32)
constexpr bool kNewLengthIsZeros = false;
#else
constexpr bool kNewLengthIsZeros = true;
#endif

#endif  // QUORVEX_PLATFORM_MFC_H_
