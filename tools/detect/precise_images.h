// The direct detection of many images, in threads.
#ifndef QUORVEX_TOOLS_DETECT_PRECISE_IMAGES_H_
#define QUORVEX_TOOLS_DETECT_PRECISE_IMAGES_H_

#include <filesystem>
#include <vector>

#include "interface/quorvex_precise.h"
#include "tools/detect/detect_images.h"
#include "tools/detect/detection_result.h"

namespace quorvex::tools {

// Works on up to `parallel` images at a time and returns one result per image, in their order. The
// observer is called by one thread at a time.
std::vector<DetectionResult> DetectImagesPrecisely(const std::vector<std::filesystem::path>& images,
                                                   const precise::Options& options, int parallel,
                                                   const DetectionObserver& observer);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_DETECT_PRECISE_IMAGES_H_
