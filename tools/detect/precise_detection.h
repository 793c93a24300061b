// The direct detection of the marks in one picture, as the command's lists hold it.
#ifndef QUORVEX_TOOLS_DETECT_PRECISE_DETECTION_H_
#define QUORVEX_TOOLS_DETECT_PRECISE_DETECTION_H_

#include <filesystem>
#include <optional>

#include "interface/quorvex_precise.h"
#include "tools/detect/detection_result.h"
#include "tools/pictures/grey_levels.h"
#include "tools/pictures/picture.h"

namespace quorvex::tools {

// The picture as the direct detector takes it; valid as long as the picture is.
precise::ImageView ViewOf(const Picture& picture);

// Detects in the picture file; every failure is told by the result. Thread-safe.
DetectionResult DetectPrecisely(const std::filesystem::path& image, const precise::Options& options,
                                const std::optional<GreyLevels>& levels = std::nullopt);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_DETECT_PRECISE_DETECTION_H_
