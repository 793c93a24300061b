// A rendered target that is small enough for tests of the command.
#ifndef QUORVEX_TESTS_SUPPORT_SMALL_TARGET_H_
#define QUORVEX_TESTS_SUPPORT_SMALL_TARGET_H_

#include "tools/render/presets.h"
#include "tools/render/render_target.h"

namespace quorvex::tests {

constexpr int kSmallTargetRows = 4;
constexpr int kSmallTargetColumns = 5;

// 960 x 800 pixels; the mark in row 1, column 2 is missing.
inline tools::RenderedTarget RenderSmallTarget() {
  tools::RenderSettings settings = tools::PresetByName("easy");
  settings.width = 960;
  settings.height = 800;
  settings.rows = kSmallTargetRows;
  settings.columns = kSmallTargetColumns;
  settings.missing = {{1, 2}};
  return tools::RenderTarget(settings);
}

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_SMALL_TARGET_H_
