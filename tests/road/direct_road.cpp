#include "tests/road/direct_road.h"

#include <fmt/format.h>

#include "tests/support/fnv_hash.h"
#include "tools/render/presets.h"
#include "tools/render/render_target.h"

namespace quorvex::tests {

DirectRoad RunDirectRoad(const std::string& preset) {
  const tools::RenderedTarget target = tools::RenderTarget(tools::PresetByName(preset));
  const tools::Picture& picture = target.picture;
  precise::Options options;
  options.predictsMissing = true;
  DirectRoad road;
  road.picture = fmt::format("{:016x}", FnvHash(picture.pixels));
  road.result = precise::Detect(
      {picture.pixels.data(), picture.width, picture.height, picture.width}, options);
  return road;
}

const char* VerdictName(precise::Verdict verdict) {
  switch (verdict) {
    case precise::Verdict::kMeasured:
      return "measured";
    case precise::Verdict::kDoubtful:
      return "doubtful";
    default:
      return "predicted";
  }
}

std::string PositionsText(const DirectRoad& road) {
  std::string text = fmt::format("picture {}\n", road.picture);
  for (const precise::Mark& mark : road.result.marks) {
    text += fmt::format("{} {} {:.9f} {:.9f} {}\n", mark.row, mark.column, mark.x, mark.y,
                        VerdictName(mark.verdict));
  }
  return text;
}

std::string PositionsFileName(const std::string& preset) {
  return fmt::format("positions/{}.txt", preset);
}

}  // namespace quorvex::tests
