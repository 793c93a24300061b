#include "bindings/shared/list_edits.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "interface/quorvex.h"

namespace quorvex::bindings {
namespace {

std::vector<std::pair<float, float>> SortedPositions(const PointList& points) {
  std::vector<std::pair<float, float>> positions;
  for (const CalibrationPoint& point : points) {
    positions.emplace_back(point.x, point.y);
  }
  std::sort(positions.begin(), positions.end());
  return positions;
}

// The library counts the points it numbered; this also tells a grid of another shape, and one where
// a point was numbered twice while another was left out.
bool IsNumberingOf(const PointList& numbered, const PointList& points, int rows, int columns) {
  return std::all_of(numbered.begin(), numbered.end(),
                     [rows, columns](const CalibrationPoint& point) {
                       return point.row < rows && point.col < columns;
                     }) &&
         SortedPositions(numbered) == SortedPositions(points);
}

}  // namespace

bool RenumberGrid(int rows, int columns, PointList& points) {
  // Asked here, since the library shows a message for it.
  if (points.size() != static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns)) {
    return false;
  }
  PointList numbered = points;
  if (!ReAssignmentID(rows, columns, numbered) || !IsNumberingOf(numbered, points, rows, columns)) {
    return false;
  }
  points = std::move(numbered);
  return true;
}

bool RearrangeGrid(CameraSide side, int count, PointList& points) {
  PointList rearranged = points;
  if (side == CameraSide::kLeft) {
    LeftPtsRearrange(rearranged, 0, count);
  } else {
    RightPtsRearrange(rearranged, 0, count);
  }
  if (rearranged.empty()) {
    return false;
  }
  points = std::move(rearranged);
  return true;
}

}  // namespace quorvex::bindings
