#include "tools/detect/detection_check.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace quorvex::tools {
namespace {

constexpr double kReach = 0.25;  // pitches, from a mark to its point
constexpr double kOffAbove = 1;  // pixels

using Step = std::pair<int, int>;  // rows, columns

// Nothing when no point is near.
const ListedPoint* NearestPoint(const std::vector<ListedPoint>& points, const precise::Mark& mark,
                                double reach) {
  const ListedPoint* nearest = nullptr;
  double least = reach;
  for (const ListedPoint& point : points) {
    const double distance = std::hypot(point.x - mark.x, point.y - mark.y);
    if (distance <= least) {
      least = distance;
      nearest = &point;
    }
  }
  return nearest;
}

std::string Counted(int count, const char* one, const char* many) {
  return fmt::format("{} {}", count, count == 1 ? one : many);
}

}  // namespace

DetectionCheck CheckPoints(const std::vector<ListedPoint>& points,
                           const std::vector<precise::Mark>& marks, double pitch) {
  DetectionCheck check;
  std::map<Step, int> steps;
  for (const precise::Mark& mark : marks) {
    if (mark.verdict != precise::Verdict::kMeasured) {
      continue;
    }
    const ListedPoint* point = NearestPoint(points, mark, kReach * pitch);
    if (point == nullptr) {
      ++check.lost;
      continue;
    }
    ++check.compared;
    ++steps[{point->row - mark.row, point->col - mark.column}];
    check.off += std::hypot(point->x - mark.x, point->y - mark.y) > kOffAbove ? 1 : 0;
  }
  int most = 0;
  for (const auto& [step, count] : steps) {
    most = std::max(most, count);
  }
  check.otherLabels = check.compared - most;
  return check;
}

std::string DescribeCheck(const DetectionCheck& check) {
  std::vector<std::string> parts;
  if (check.otherLabels > 0) {
    parts.push_back(Counted(check.otherLabels, "label is wrong", "labels are wrong"));
  }
  if (check.lost > 0) {
    parts.push_back(Counted(check.lost, "mark was lost", "marks were lost"));
  }
  if (check.off > 0) {
    parts.push_back(Counted(check.off, "point lies", "points lie") + " more than 1 px off");
  }
  if (parts.empty()) {
    return "";
  }
  return fmt::format(
      "by the direct detection {}; try --precise, or look at an --overlay and correct "
      "the list with 'quorvex points'",
      fmt::join(parts, ", "));
}

}  // namespace quorvex::tools
