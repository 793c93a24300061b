// Where the diagnostics of a detection go: its pictures and its lists of numbers. Under their fixed
// names, as hosts expect them, unless a program that has the library linked in says otherwise.
#ifndef QUORVEX_IMAGEIO_DIAGNOSTIC_PLACE_H_
#define QUORVEX_IMAGEIO_DIAGNOSTIC_PLACE_H_

namespace quorvex {

// From the fixed name, for example "./Mask.bmp" or "D:/Row.txt", to the name of the file to write,
// valid until the thread's next diagnostic; null for a diagnostic that is not wanted. Called on the
// thread of the detection.
using DiagnosticPlace = const char* (*)(const char* name);

// To be called while no detection runs; a null pointer brings the fixed names back.
void PlaceDiagnosticsBy(DiagnosticPlace place);

// The name of the file to write, or null.
const char* PlaceOfDiagnostic(const char* name);

}  // namespace quorvex

#endif  // QUORVEX_IMAGEIO_DIAGNOSTIC_PLACE_H_
