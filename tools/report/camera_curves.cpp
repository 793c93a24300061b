#include "tools/report/camera_curves.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

namespace quorvex::tools {
namespace {

constexpr int kStepsPerPitch = 4;

struct Range {
  int first = 0;
  int last = 0;
};

using Ranges = std::map<int, Range>;

void Include(int line, int place, Ranges& ranges) {
  const auto [range, isNew] = ranges.try_emplace(line, Range{place, place});
  if (!isNew) {
    range->second.first = std::min(range->second.first, place);
    range->second.last = std::max(range->second.last, place);
  }
}

// `seenAlong` takes the line and the place along it.
template <typename SeenAlong>
std::vector<Curve> CurvesOf(const Ranges& ranges, const SeenAlong& seenAlong) {
  std::vector<Curve> curves;
  for (const auto& [line, range] : ranges) {
    Curve curve;
    for (int step = 0; step <= (range.last - range.first) * kStepsPerPitch; ++step) {
      curve.push_back(seenAlong(line, range.first + static_cast<double>(step) / kStepsPerPitch));
    }
    if (curve.size() > 1) {
      curves.push_back(curve);
    }
  }
  return curves;
}

}  // namespace

PicturePlace SeenAt(const precise::CameraFacts& camera, double row, double column) {
  const std::array<double, 3> board{column, row * camera.aspect, 0};
  std::array<double, 3> place = camera.translation;
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t k = 0; k < 3; ++k) {
      place[i] += camera.rotation[3 * i + k] * board[k];
    }
  }
  const double across = std::hypot(place[0], place[1]);
  if (across == 0) {
    return {camera.centreX, camera.centreY};
  }
  const double a = std::atan2(across, place[2]);
  const double a2 = a * a;
  const double radius =
      camera.focalLength * a * (1 + a2 * (camera.k1 + a2 * (camera.k2 + a2 * camera.k3)));
  return {camera.centreX + radius * place[0] / across, camera.centreY + radius * place[1] / across};
}

std::vector<Curve> RowCurves(const precise::CameraFacts& camera,
                             const std::vector<precise::Mark>& marks) {
  Ranges ranges;
  for (const precise::Mark& mark : marks) {
    Include(mark.row, mark.column, ranges);
  }
  return CurvesOf(ranges, [&](int row, double column) { return SeenAt(camera, row, column); });
}

std::vector<Curve> ColumnCurves(const precise::CameraFacts& camera,
                                const std::vector<precise::Mark>& marks) {
  Ranges ranges;
  for (const precise::Mark& mark : marks) {
    Include(mark.column, mark.row, ranges);
  }
  return CurvesOf(ranges, [&](int column, double row) { return SeenAt(camera, row, column); });
}

}  // namespace quorvex::tools
