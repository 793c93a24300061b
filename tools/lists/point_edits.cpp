#include "tools/lists/point_edits.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "interface/quorvex.h"

namespace quorvex::tools {
namespace {

std::vector<std::pair<float, float>> SortedPositions(const PointList& points) {
  std::vector<std::pair<float, float>> positions;
  for (const CalibrationPoint& p : points) {
    positions.emplace_back(p.x, p.y);
  }
  std::sort(positions.begin(), positions.end());
  return positions;
}

// The library counts the points it numbered; this also tells a grid of another shape, and one where
// a point was numbered twice while another was left out.
bool IsNumberingOf(const PointList& numbered, const PointList& points, GridSize grid) {
  return std::all_of(numbered.begin(), numbered.end(),
                     [grid](const CalibrationPoint& p) {
                       return p.row < grid.rows && p.col < grid.columns;
                     }) &&
         SortedPositions(numbered) == SortedPositions(points);
}

}  // namespace

void AddPoint(Position position, PointList& points) {
  AddCalibrationPt_Coordinate(position.x, position.y, points);
}

CalibrationPoint FindPoint(int id, PointList& points) {
  CalibrationPoint point = {};
  point.id = id;
  if (!QueryCalibrationPt_ID(id, point.row, point.col, point.x, point.y, points)) {
    throw NothingChanged(fmt::format("no point has the id {}", id));
  }
  return point;
}

void DeletePoints(int id, PointList& points) {
  if (!DeleteCalibrationPt_ID(id, points)) {
    throw NothingChanged(fmt::format("no point has the id {}", id));
  }
}

void DeletePointsAt(Position position, PointList& points) {
  if (!DeleteCalibrationPt_Coordinate(position.x, position.y, points)) {
    throw NothingChanged(fmt::format("no point is less than 9 px from ({:.9g}, {:.9g}) in x and y",
                                     position.x, position.y));
  }
}

void MovePoint(int id, Position position, std::optional<int> row, std::optional<int> column,
               PointList& points) {
  const CalibrationPoint before = FindPoint(id, points);
  AlterCalibrationPt_Coordinate(id, row.value_or(before.row), column.value_or(before.col),
                                position.x, position.y, points);
}

void Renumber(GridSize grid, PointList& points) {
  const std::size_t expected =
      static_cast<std::size_t>(grid.rows) * static_cast<std::size_t>(grid.columns);
  if (points.size() != expected) {
    throw NothingChanged(
        fmt::format("{} points are not a grid of {} rows x {} columns, which has {}", points.size(),
                    grid.rows, grid.columns, expected));
  }
  PointList numbered = points;
  if (!ReAssignmentID(grid.rows, grid.columns, numbered) ||
      !IsNumberingOf(numbered, points, grid)) {
    throw NothingChanged(
        fmt::format("the points do not form a grid of {} rows x {} columns whose spacing shrinks "
                    "from the middle outwards",
                    grid.rows, grid.columns));
  }
  points = std::move(numbered);
}

void Rearrange(CameraSide side, int count, PointList& points) {
  if (count < 1) {
    throw NothingChanged("no point has a column");
  }
  PointList rearranged = points;
  const auto rearrange = side == CameraSide::kLeft ? LeftPtsRearrange : RightPtsRearrange;
  rearrange(rearranged, 0, count);
  if (rearranged.empty()) {
    throw NothingChanged(fmt::format("no point has a column from 0 to {}", count - 1));
  }
  points = std::move(rearranged);
}

int CountColumns(const PointList& points) {
  int last = -1;
  for (const CalibrationPoint& p : points) {
    last = std::max(last, p.col);
  }
  // A larger column is none that a picture has, and its count need not fit an int.
  return std::min(last, kMostGridLines - 1) + 1;
}

}  // namespace quorvex::tools
