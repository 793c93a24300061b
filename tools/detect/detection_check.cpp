#include "tools/detect/detection_check.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>
#include <utility>

namespace quorvex::tools {
namespace {

constexpr double kReach = 0.25;  // pitches, from a mark to its point
constexpr double kOffAbove = 1;  // pixels

using Step = std::pair<int, int>;  // rows, columns

struct Pair {
  const precise::Mark* mark = nullptr;
  const ListedPoint* point = nullptr;  // null where the mark has none
};

Step StepBetween(const precise::Mark& mark, const ListedPoint& point) {
  return {point.row - mark.row, point.col - mark.column};
}

// Of several that are as common the shortest one, so that as few labels as can be look strange.
Step MostCommonStep(const std::vector<Pair>& pairs) {
  std::map<Step, int> counts;
  for (const Pair& pair : pairs) {
    if (pair.point != nullptr) {
      ++counts[StepBetween(*pair.mark, *pair.point)];
    }
  }
  Step common{0, 0};
  int most = 0;
  for (const auto& [step, count] : counts) {
    const auto [rows, columns] = step;
    const int length = std::abs(rows) + std::abs(columns);
    if (count > most ||
        (count == most && length < std::abs(common.first) + std::abs(common.second))) {
      most = count;
      common = step;
    }
  }
  return common;
}

std::string Counted(int count, const char* one, const char* many) {
  return fmt::format("{} {}", count, count == 1 ? one : many);
}

}  // namespace

const ListedPoint* PointAt(const std::vector<ListedPoint>& points, const precise::Mark& mark,
                           double pitch) {
  const ListedPoint* nearest = nullptr;
  double least = kReach * pitch;
  for (const ListedPoint& point : points) {
    const double distance = std::hypot(point.x - mark.x, point.y - mark.y);
    if (distance <= least) {
      least = distance;
      nearest = &point;
    }
  }
  return nearest;
}

DetectionCheck CheckPoints(const std::vector<ListedPoint>& points,
                           const std::vector<precise::Mark>& marks, double pitch) {
  DetectionCheck check;
  std::vector<Pair> pairs;
  for (const precise::Mark& mark : marks) {
    if (mark.verdict == precise::Verdict::kMeasured) {
      pairs.push_back({&mark, PointAt(points, mark, pitch)});
    }
  }
  const Step step = MostCommonStep(pairs);
  for (const auto& [mark, point] : pairs) {
    ListedPoint expected{-1, mark->row + step.first, mark->column + step.second, mark->x, mark->y};
    if (point == nullptr) {
      ++check.lost;
      check.disagreements.push_back({DisagreementKind::kLost, expected, std::nullopt});
      continue;
    }
    ++check.compared;
    if (StepBetween(*mark, *point) != step) {
      ++check.otherLabels;
      check.disagreements.push_back({DisagreementKind::kLabel, expected, *point});
    }
    if (std::hypot(point->x - mark->x, point->y - mark->y) > kOffAbove) {
      ++check.off;
      check.disagreements.push_back({DisagreementKind::kOff, expected, *point});
    }
  }
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
