// Whether the two detections will find the marks of a set-up, and what to change when not. The
// limits hold for a well lit, sharp picture: a board of grey level 200, marks near 0, a blur with a
// sigma of 0.8 pixels, noise with a sigma of 1 to 2 grey levels.
#ifndef QUORVEX_TOOLS_TARGET_SETUP_VERDICT_H_
#define QUORVEX_TOOLS_TARGET_SETUP_VERDICT_H_

#include <string>
#include <vector>

#include "tools/render/render_settings.h"
#include "tools/target/setup_measures.h"

namespace quorvex::tools {

// Sentences without a full stop: what is wrong, a colon, what to change.
using Problems = std::vector<std::string>;

// Of `quorvex detect`, which needs the whole board. Without problems it finds all marks, or all but
// a few.
Problems ProblemsOfPlainDetection(const RenderSettings& settings, const SetupMeasures& measures);

// Of `quorvex detect --precise`, which finds the marks in the picture, without problems
// all of them.
Problems ProblemsOfPreciseDetection(const RenderSettings& settings, const SetupMeasures& measures);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_TARGET_SETUP_VERDICT_H_
