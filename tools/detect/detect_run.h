// What 'quorvex detect' does once its options are known.
#ifndef QUORVEX_TOOLS_DETECT_DETECT_RUN_H_
#define QUORVEX_TOOLS_DETECT_DETECT_RUN_H_

#include <filesystem>
#include <optional>
#include <vector>

#include "interface/quorvex_precise.h"
#include "tools/detect/detect_worker.h"
#include "tools/detect/output_format.h"
#include "tools/lists/point_edits.h"
#include "tools/lists/points_file.h"

namespace quorvex::tools {

struct DetectOptions {
  std::vector<std::filesystem::path> images;
  DetectParameters parameters;
  std::optional<OutputFormat> format;  // absent: by the output's name, else CSV
  std::optional<double> pitch;         // millimetres between marks, of the format kOpencv
  std::filesystem::path output;        // empty or "-" for standard output
  std::filesystem::path overlay;       // file, folder or pattern (overlay_files.h); empty for none
  std::filesystem::path diagnostics;   // empty for none
  std::filesystem::path report;        // the folder of its page; empty for none
  bool isPrecise = false;              // the direct detection instead of the host's
  precise::Options preciseOptions;
  bool isStrict = false;             // a point that is not as it should be is a failure
  std::optional<GridSize> expected;  // another grid is a failure
  bool isQuiet = false;
  bool showsProgress = false;  // even where standard error is no terminal
  bool resumes = false;        // goes on with the output
  int parallel = 1;            // images at a time
};

// Returns the command's exit code (tools/errors.h). Throws InputError for what can be refused
// before the first detection and for output that cannot be written, and Interrupted
// (worker_process.h).
int RunDetect(const DetectOptions& options);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_DETECT_DETECT_RUN_H_
