// Renders the picture of a cross-mark board together with the exact position of every mark.
#ifndef QUORVEX_TOOLS_RENDER_RENDER_TARGET_H_
#define QUORVEX_TOOLS_RENDER_RENDER_TARGET_H_

#include <vector>

#include "tools/lists/truth_file.h"
#include "tools/pictures/picture.h"
#include "tools/render/render_settings.h"

namespace quorvex::tools {

struct RenderedTarget {
  Picture picture;
  std::vector<TruthMark> marks;  // row after row
};

// Where the centres of all marks are seen, the missing ones too. Throws InputError (tools/errors.h)
// when the settings are out of range or a mark lies outside the picture.
std::vector<TruthMark> ProjectMarks(const RenderSettings& settings);

// Each of 16 samples a pixel is a ray met with the board; blur and pixel area are applied to the
// samples, then light gradient, noise and rounding. Deterministic: the same settings give the same
// bytes.
// Throws as ProjectMarks does.
RenderedTarget RenderTarget(const RenderSettings& settings);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_RENDER_RENDER_TARGET_H_
