#include "grid/point_merging.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "base/largest_field.h"
#include "base/point_geometry.h"
#include "grid/candidate_acceptance.h"
#include "grid/outlier_rejection.h"
#include "grid/point_order.h"
#include "grid/point_selection.h"
#include "grid/provisional_code.h"

namespace quorvex {
namespace {

constexpr float kDuplicateReach = 10.0f;      // pixels in x and in y
constexpr float kRejectionTolerance = 10.0f;  // pixels
constexpr int kNoPlace = -1;
constexpr std::size_t kNewLineAbove = 2;  // points that a new line must exceed

// The points that are near no grid point, without a place. A point that came with the id -1 counts
// as near one.
PointList NewPoints(const PointList& grid, const PointList& extra) {
  PointList points;
  for (CalibrationPoint point : extra) {
    const bool isDuplicate =
        std::any_of(grid.begin(), grid.end(), [&point](const CalibrationPoint& gridPoint) {
          return IsInSquare(point, gridPoint.x, gridPoint.y, kDuplicateReach);
        });
    if (point.id != -1 && !isDuplicate) {
      point.row = kNoPlace;
      point.col = kNoPlace;
      points.push_back(point);
    }
  }
  return points;
}

// What differs between the pass over the rows and the pass over the columns.
struct MergeAxis {
  CurveAxis curve;
  int CalibrationPoint::*line;   // the number of the line
  int CalibrationPoint::*place;  // the number along the line
  void (*sort)(PointList&);
  bool (*accepts)(const PointList&, const CalibrationPoint&);
  int (*provisionalCode)(const PointList&, const CalibrationPoint&);
};

constexpr MergeAxis kRows = {CurveAxis::kRow, &CalibrationPoint::row, &CalibrationPoint::col,
                             SortPointsByX,   AcceptsRowCandidate,    ProvisionalColumnCode};
constexpr MergeAxis kColumns = {
    CurveAxis::kColumn,     &CalibrationPoint::col,
    &CalibrationPoint::row, [](PointList& points) { SortPointsByY(points, kDescending); },
    AcceptsColumnCandidate, ProvisionalRowCode};

// Gives every extra point that fits a line of the grid that line's number and, for want of a place
// along it, a provisional code. A later line that accepts a point overrides an earlier one.
void AssignLines(const MergeAxis& axis, const PointList& grid, PointList& extra) {
  const int largestLine = LargestField(grid, axis.line, 0);
  for (int line = 0; line <= largestLine; ++line) {
    PointList linePoints = PointsWith(grid, axis.line, line);
    if (linePoints.size() < 2) {
      continue;
    }
    axis.sort(linePoints);
    QuadraticCoefficients unusedCurve;
    RejectOutliers(axis.curve, linePoints, kRejectionTolerance, unusedCurve);
    for (CalibrationPoint& point : extra) {
      if (axis.accepts(linePoints, point)) {
        point.*axis.line = line;
        if (point.*axis.place < 0) {
          point.*axis.place = axis.provisionalCode(linePoints, point);
        }
      }
    }
  }
}

// Moves the extra points that satisfy the predicate to the end of the grid, in order.
template <typename Predicate>
void MoveToGrid(PointList& extra, PointList& grid, Predicate belongsToGrid) {
  const auto firstMoved =
      std::stable_partition(extra.begin(), extra.end(),
                            [&](const CalibrationPoint& point) { return !belongsToGrid(point); });
  grid.insert(grid.end(), firstMoved, extra.end());
  extra.erase(firstMoved, extra.end());
}

// Opens one new line of the grid when more than two of the extra points lie on one curve: all that
// carry the code of the first of these join it. The curve is sought among all extra points,
// whatever codes they carry.
void OpenNewLine(const MergeAxis& axis, PointList& extra, PointList& grid) {
  PointList survivors = extra;
  QuadraticCoefficients unusedCurve;
  RejectOutliers(axis.curve, survivors, kRejectionTolerance, unusedCurve);
  if (survivors.size() <= kNewLineAbove) {
    return;
  }
  const int code = survivors.front().*axis.line;
  const std::size_t oldSize = grid.size();
  MoveToGrid(extra, grid, [=](const CalibrationPoint& point) { return point.*axis.line == code; });
  for (std::size_t i = oldSize; i < grid.size(); ++i) {
    grid[i].*axis.line = LineNumberOfCode(code);
  }
}

}  // namespace

void MergePointSets(const PointList& first, const PointList& second, PointList& merged) {
  if (first.empty() && second.empty()) {
    return;
  }
  if (first.size() > second.size()) {
    MergeIntoGrid(first, second, merged);
  } else {
    MergeIntoGrid(second, first, merged);
  }
}

void MergeIntoGrid(PointList grid, const PointList& extra, PointList& merged) {
  PointList points = NewPoints(grid, extra);
  AssignLines(kRows, grid, points);
  AssignLines(kColumns, grid, points);
  MoveToGrid(points, grid,
             [](const CalibrationPoint& point) { return point.row >= 0 && point.col >= 0; });
  // The column half comes first and takes what fits; a genuine new row often loses a point to it.
  OpenNewLine(kColumns, points, grid);
  OpenNewLine(kRows, points, grid);
  merged = std::move(grid);
}

}  // namespace quorvex
