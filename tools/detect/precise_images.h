// The direct detection of many images, in threads.
#ifndef QUORVEX_TOOLS_DETECT_PRECISE_IMAGES_H_
#define QUORVEX_TOOLS_DETECT_PRECISE_IMAGES_H_

#include <optional>
#include <vector>

#include "interface/quorvex_precise.h"
#include "tools/detect/detect_images.h"
#include "tools/pictures/grey_levels.h"

namespace quorvex::tools {

// Works on up to `parallel` images at a time and hands one result per image to the observer, in
// their order; none is kept. The observer is called by one thread at a time; what it throws ends
// the work and is thrown on.
void DetectImagesPrecisely(const std::vector<DetectionJob>& jobs, const precise::Options& options,
                           const std::optional<GreyLevels>& levels, int parallel,
                           const DetectionObserver& observer);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_DETECT_PRECISE_IMAGES_H_
