#include "interface/grid_numbering.h"

#include <algorithm>
#include <iterator>

#include "base/largest_field.h"
#include "base/stable_sort.h"
#include "grid/missing_points.h"

namespace quorvex {
namespace {

// How many lines the grid has along a field: its largest value + 1, 0 for an empty grid.
int LineCount(const PointList& grid, int CalibrationPoint::*field) {
  return LargestField(grid, field, -1) + 1;
}

}  // namespace

void NumberGrid(PointList& grid) {
  const int columns = LineCount(grid, &CalibrationPoint::col);
  for (CalibrationPoint& point : grid) {
    point.id = point.row * columns + point.col + 1;
  }
}

void CompleteGrid(int width, int height, PointList& grid) {
  const int rows = LineCount(grid, &CalibrationPoint::row);
  const int columns = LineCount(grid, &CalibrationPoint::col);
  if (static_cast<long long>(grid.size()) >= static_cast<long long>(rows) * columns) {
    return;
  }
  PointList predicted;
  PredictMissingGridPoints(grid, rows, columns, width, height, predicted);
  grid.insert(grid.end(), predicted.begin(), predicted.end());
}

void AppendNumberedPoints(const PointList& grid, PointList& points) {
  std::copy_if(grid.begin(), grid.end(), std::back_inserter(points),
               [](const CalibrationPoint& point) { return point.id >= 0; });
}

void SortPointsById(PointList& points) {
  SortAscending(points, [](const CalibrationPoint& point) { return point.id; });
}

}  // namespace quorvex
