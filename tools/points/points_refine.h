// What 'quorvex points refine' does once its options are known.
#ifndef QUORVEX_TOOLS_POINTS_POINTS_REFINE_H_
#define QUORVEX_TOOLS_POINTS_POINTS_REFINE_H_

#include <filesystem>
#include <optional>

#include "tools/pictures/grey_levels.h"
#include "tools/points/points_run.h"

namespace quorvex::tools {

// Measures the list's points on the picture. A point that is no mark stays as it is, and a sentence
// on standard error says why. Returns the exit code: 1, and nothing is written, when no point is a
// mark. Throws InputError.
int RunRefinement(const PointsRun& run, const std::filesystem::path& picture,
                  const std::optional<GreyLevels>& levels = std::nullopt);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_POINTS_POINTS_REFINE_H_
