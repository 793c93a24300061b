// The stages of grid/ and postprocess/ that have one form only, on lists of any kind: what their
// headers say of the results.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <limits>
#include <set>
#include <string>
#include <utility>

#include "base/largest_field.h"
#include "base/point_geometry.h"
#include "grid/dominant_group.h"
#include "grid/missing_points.h"
#include "grid/outlier_rejection.h"
#include "grid/point_merging.h"
#include "grid/point_selection.h"
#include "postprocess/neighbour_search.h"
#include "tests/support/differential_cases.h"
#include "tests/support/random_grid.h"
#include "tests/support/reserved_bytes.h"

namespace quorvex::fuzz {
namespace {

using tests::CaseRandom;

float AnyCoordinate(CaseRandom& random) {
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
  return random.OneIn(2) ? random.Fraction(-50, 600)
                         : random.OneOf({kNan, kInfinity, -kInfinity, 3e38f, -1e30f, 1e9f, 0.0f,
                                         -0.0f, 1e-40f, 100.0f, 100.001f, 110.0f});
}

// The reserved bytes tell the points apart.
PointList AnyList(CaseRandom& random) {
  PointList points = RandomLabelledGrid(random);
  for (int n = random.OneIn(2) ? random.Below(8) : 0; n > 0 && !points.empty(); --n) {
    CalibrationPoint point = OneOfPoints(random, points);
    (random.OneIn(2) ? point.x : point.y) = AnyCoordinate(random);
    point.id = random.OneOf({-1, 0, 7, std::numeric_limits<int>::max()});
    point.row = random.Between(-2, 9);
    point.col = random.Between(-2, 9);
    points.push_back(point);
  }
  points.resize(static_cast<std::size_t>(random.OneOf({0, 1, 2, 3, 400})) < points.size()
                    ? static_cast<std::size_t>(random.Below(4))
                    : points.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    points[i] = tests::Marked(points[i], static_cast<int>(i));
  }
  return points;
}

bool IsSame(const CalibrationPoint& one, const CalibrationPoint& other) {
  return std::memcmp(&one, &other, sizeof one) == 0;
}

bool IsSame(const PointList& one, const PointList& other) {
  return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                    [](const auto& a, const auto& b) { return IsSame(a, b); });
}

// Whether the points stand in the list, in the same order.
bool AreInOrder(const PointList& points, const PointList& list) {
  auto next = list.begin();
  for (const CalibrationPoint& point : points) {
    next = std::find_if(next, list.end(),
                        [&point](const CalibrationPoint& other) { return IsSame(point, other); });
    if (next == list.end()) {
      return false;
    }
    ++next;
  }
  return true;
}

std::string RejectionKeepsTheOrder(CaseRandom& random) {
  const PointList input = AnyList(random);
  PointList points = input;
  const CurveAxis axis = random.OneOf({CurveAxis::kRow, CurveAxis::kColumn});
  QuadraticCoefficients curve;
  const bool isFitted = RejectOutliers(axis, points, random.OneOf({10.0f, 0.0f, -1.0f}), curve);
  if (isFitted != (input.size() >= 2)) {
    return "wrong result";
  }
  return AreInOrder(points, input) ? "" : "points that the list did not hold";
}
const tests::DifferentialCaseEntry rejectionEntry("GridLists.RejectionKeepsTheOrder",
                                                  RejectionKeepsTheOrder);

std::string DominantGroupIsWhole(CaseRandom& random) {
  const PointList candidates = AnyList(random);
  PointList selection;
  const bool isSelected = SelectDominantGroup(candidates, selection);
  if (isSelected != (LargestField(candidates, &CalibrationPoint::col, -1) >= 0)) {
    return "wrong result";
  }
  if (!isSelected) {
    return selection.empty() ? "" : "a selection without labels";
  }
  return !selection.empty() && IsSame(selection, PointsWith(candidates, &CalibrationPoint::col,
                                                            selection.front().col))
             ? ""
             : "not the points of one label";
}
const tests::DifferentialCaseEntry groupEntry("GridLists.DominantGroupIsWhole",
                                              DominantGroupIsWhole);

std::string MergingAddsToTheLongerList(CaseRandom& random) {
  const PointList first = AnyList(random);
  const PointList second = random.OneIn(4) ? first : AnyList(random);
  PointList merged;
  MergePointSets(first, second, merged);
  const PointList& longer = first.size() > second.size() ? first : second;
  const std::size_t most = first.size() + second.size();
  if (merged.size() < longer.size() || merged.size() > most) {
    return "another size";
  }
  const auto added = merged.begin() + static_cast<std::ptrdiff_t>(longer.size());
  return IsSame(PointList(merged.begin(), added), longer) ? "" : "the longer list is changed";
}
const tests::DifferentialCaseEntry mergingEntry("GridLists.MergingAddsToTheLongerList",
                                                MergingAddsToTheLongerList);

std::string PredictionFillsEmptyCells(CaseRandom& random) {
  const PointList points = AnyList(random);
  const int rows = random.Between(-1, 9);
  const int cols = random.Between(-1, 9);
  const int width = random.OneOf({1, 4, 300, 640});
  const int height = random.OneOf({1, 4, 300, 640});
  std::set<std::pair<int, int>> taken;
  for (const CalibrationPoint& point : points) {
    taken.insert({point.row, point.col});
  }
  PointList predicted;
  PredictMissingGridPoints(points, rows, cols, width, height, predicted);
  for (const CalibrationPoint& point : predicted) {
    if (point.row < 0 || point.row >= rows || point.col < 0 || point.col >= cols ||
        !taken.insert({point.row, point.col}).second) {
      return "a cell that is not empty";
    }
    if (point.id != point.row * cols + point.col + 1) {
      return "another id";
    }
    if (!(point.x >= 0.0f && point.x < static_cast<float>(width) && point.y >= 0.0f &&
          point.y < static_cast<float>(height))) {
      return "a place outside the image";
    }
  }
  return "";
}
const tests::DifferentialCaseEntry predictionEntry("GridLists.PredictionFillsEmptyCells",
                                                   PredictionFillsEmptyCells);

// The angle to the middle of a sector, in degrees from 0 to 180.
double AngleOff(const CalibrationPoint& from, const CalibrationPoint& to, Sector sector) {
  constexpr double kPi = 3.14159265358979323846;
  const double dx = static_cast<double>(to.x) - static_cast<double>(from.x);
  const double dy = static_cast<double>(to.y) - static_cast<double>(from.y);
  switch (sector) {
    case kTowardsLargerX:
      return std::fabs(std::atan2(dy, dx)) * 180.0 / kPi;
    case kTowardsSmallerX:
      return std::fabs(std::atan2(dy, -dx)) * 180.0 / kPi;
    case kTowardsLargerY:
      return std::fabs(std::atan2(dx, dy)) * 180.0 / kPi;
    case kTowardsSmallerY:
      return std::fabs(std::atan2(dx, -dy)) * 180.0 / kPi;
  }
  return 180.0;
}

// But for points at the border of the sector, where single precision decides.
std::string NeighbourIsTheNearest(CaseRandom& random) {
  PointList points = random.OneIn(2) ? RandomGridPoints(random) : AnyList(random);
  if (points.empty()) {
    points.push_back({});
  }
  const CalibrationPoint from = OneOfPoints(random, points);
  const Sector sector =
      random.OneOf({kTowardsLargerX, kTowardsSmallerX, kTowardsLargerY, kTowardsSmallerY});
  CalibrationPoint found = {};
  const bool isFound = FindNeighbourInSector(points, from, found, sector);
  constexpr double kBorder = 0.01;  // degrees
  if (isFound && !(AngleOff(from, found, sector) < 30.0 + kBorder)) {
    return "a neighbour outside the sector";
  }
  const float reached = isFound ? PointDistance(from, found) : 1000.0f;
  if (isFound && !(reached > 5.0f && reached < 1000.0f)) {
    return "a neighbour out of reach";
  }
  for (const CalibrationPoint& point : points) {
    const float distance = PointDistance(from, point);
    if (distance > 5.0f && distance < reached && AngleOff(from, point, sector) < 30.0 - kBorder) {
      return "a nearer neighbour";
    }
  }
  return "";
}
const tests::DifferentialCaseEntry neighbourEntry("GridLists.NeighbourIsTheNearest",
                                                  NeighbourIsTheNearest);

}  // namespace
}  // namespace quorvex::fuzz
