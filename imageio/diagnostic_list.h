// The files of the lists of numbers that a detection leaves behind. A list that cannot be written
// is skipped in silence, like a picture.
#ifndef QUORVEX_IMAGEIO_DIAGNOSTIC_LIST_H_
#define QUORVEX_IMAGEIO_DIAGNOSTIC_LIST_H_

#include <cstdio>

namespace quorvex {

// Opens the list of that fixed name, for example "D:/Row.txt", emptied, where the diagnostics go.
// Null where it is not wanted or cannot be opened: for want of its folder, while another writes it,
// or when what has its name is no file. Never waits.
std::FILE* OpenDiagnosticList(const char* name);

}  // namespace quorvex

#endif  // QUORVEX_IMAGEIO_DIAGNOSTIC_LIST_H_
