// What 'quorvex detect' does once its options are known.
#ifndef QUORVEX_TOOLS_DETECT_DETECT_RUN_H_
#define QUORVEX_TOOLS_DETECT_DETECT_RUN_H_

#include <filesystem>
#include <optional>
#include <vector>

#include "tools/detect/detect_worker.h"
#include "tools/lists/points_file.h"

namespace quorvex::tools {

struct DetectOptions {
  std::vector<std::filesystem::path> images;
  DetectParameters parameters;
  std::optional<PointsFormat> format;  // absent: by the output's name, else CSV
  std::filesystem::path output;        // empty or "-" for standard output
  std::filesystem::path overlay;       // file, folder or pattern (overlay_files.h); empty for none
  std::filesystem::path diagnostics;   // empty for none
  bool isQuiet = false;
  int parallel = 1;  // workers at a time
};

// Returns the command's exit code (tools/errors.h). Throws InputError for what can be refused
// before the first detection and for output that cannot be written, and Interrupted
// (worker_process.h).
int RunDetect(const DetectOptions& options);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_DETECT_DETECT_RUN_H_
