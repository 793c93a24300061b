#include "preprocess/outline_filter.h"

#include <cmath>
#include <cstddef>

#include "base/rounding.h"

namespace quorvex {
namespace {

constexpr long long kSpikeDepth = -100;  // pixels inward

int RoundedDistance(PixelPosition point, int centreX, int centreY) {
  const double dx = static_cast<double>(point.x) - centreX;
  const double dy = static_cast<double>(point.y) - centreY;
  return TruncateToInt(std::sqrt(dx * dx + dy * dy) + 0.5);
}

}  // namespace

bool FilterOutlinePoints(OutlineList& outline, int centreX, int centreY) {
  if (outline.size() < 3) {
    return false;
  }
  std::vector<long long> distances;
  for (const PixelPosition& point : outline) {
    distances.push_back(RoundedDistance(point, centreX, centreY));
  }
  OutlineList kept;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const bool isInterior = i >= 1 && i + 1 < outline.size();
    const bool isSpike = isInterior && distances[i] - distances[i - 1] < kSpikeDepth &&
                         distances[i] - distances[i + 1] < kSpikeDepth;
    if (!isSpike) {
      kept.push_back(outline[i]);
    }
  }
  outline.swap(kept);
  return true;
}

}  // namespace quorvex
