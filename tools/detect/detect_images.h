// The detection of many images, each in a process and a directory of its own.
#ifndef QUORVEX_TOOLS_DETECT_DETECT_IMAGES_H_
#define QUORVEX_TOOLS_DETECT_DETECT_IMAGES_H_

#include <filesystem>
#include <functional>
#include <vector>

#include "tools/detect/detect_worker.h"
#include "tools/detect/detection_result.h"

namespace quorvex::tools {

struct DetectionJob {
  std::filesystem::path image;
  std::filesystem::path diagnosticsFolder;  // exists; empty to keep nothing
};

// Called as images finish.
struct DetectionObserver {
  std::function<void(int finished)> onProgress;
  // In the order of the jobs, whichever ends first.
  std::function<void(DetectionResult&)> onResult;
};

// Runs up to `parallel` workers at a time and hands one result per job to the observer; none is
// kept. A worker that crashes is the failure of its image only. Throws Interrupted
// (worker_process.h) when the user asks to stop, std::runtime_error when workers cannot be run at
// all, and what the observer throws.
void DetectImages(const std::vector<DetectionJob>& jobs, const DetectParameters& parameters,
                  int parallel, const DetectionObserver& observer);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_DETECT_DETECT_IMAGES_H_
