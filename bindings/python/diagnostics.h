// Where a detection in Python leaves its diagnostic pictures and lists: nowhere, or in a folder.
// The current directory is the whole process's, and other threads rely on it.
#ifndef QUORVEX_BINDINGS_PYTHON_DIAGNOSTICS_H_
#define QUORVEX_BINDINGS_PYTHON_DIAGNOSTICS_H_

#include <string>

namespace quorvex::bindings {

// From now on no detection of this process leaves anything outside a DiagnosticsFolder.
void KeepDiagnosticsFromTheCurrentDirectory();

// Diagnostics of this thread's detections go to the folder as long as the object lives; nowhere
// when it is empty.
class DiagnosticsFolder {
 public:
  explicit DiagnosticsFolder(const std::string& folder);
  ~DiagnosticsFolder();
  DiagnosticsFolder(const DiagnosticsFolder&) = delete;
  DiagnosticsFolder& operator=(const DiagnosticsFolder&) = delete;
};

}  // namespace quorvex::bindings

#endif  // QUORVEX_BINDINGS_PYTHON_DIAGNOSTICS_H_
