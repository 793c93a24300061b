// Where a run's overlays, diagnostics and report go.
#ifndef QUORVEX_TOOLS_DETECT_DETECT_OUTPUTS_H_
#define QUORVEX_TOOLS_DETECT_DETECT_OUTPUTS_H_

#include <filesystem>
#include <vector>

#include "tools/detect/detect_run.h"

namespace quorvex::tools {

// The files and folders of each image; empty where nothing is to be kept.
struct ImageOutputs {
  std::vector<std::filesystem::path> overlays;
  std::vector<std::filesystem::path> diagnosticsFolders;
  std::filesystem::path report;  // the page
};

// Makes folders, and refuses all that can be refused before the first detection: throws InputError
// (tools/errors.h).
ImageOutputs PrepareOutputs(const DetectOptions& options);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_DETECT_DETECT_OUTPUTS_H_
