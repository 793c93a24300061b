#include "grid/missing_points.h"

#include <cstddef>
#include <vector>

#include "grid/curve_axis.h"
#include "grid/curve_crossing.h"
#include "grid/point_selection.h"

namespace quorvex {
namespace {

// Which cells hold a point; a cell index outside the grid is nobody's.
std::vector<bool> Occupancy(const PointList& points, int rows, int cols) {
  const long long cells = static_cast<long long>(rows) * cols;
  std::vector<bool> isOccupied(static_cast<std::size_t>(cells));
  for (const CalibrationPoint& point : points) {
    const long long cell = static_cast<long long>(point.row) * cols + point.col;
    if (cell >= 0 && cell < cells) {
      isOccupied[static_cast<std::size_t>(cell)] = true;
    }
  }
  return isOccupied;
}

struct Grid {
  const PointList& points;
  int cols;
  int width;  // pixels, of the image
  int height;
};

void PredictCell(const Grid& grid, int row, int col, PointList& predicted) {
  const PointList rowPoints = PointsWith(grid.points, &CalibrationPoint::row, row);
  const PointList columnPoints = PointsWith(grid.points, &CalibrationPoint::col, col);
  if (rowPoints.size() < 2 || columnPoints.size() < 2) {
    return;
  }
  QuadraticCoefficients rowCurve;
  QuadraticCoefficients columnCurve;
  if (!FitAxisCurve(CurveAxis::kRow, rowPoints, rowCurve) ||
      !FitAxisCurve(CurveAxis::kColumn, columnPoints, columnCurve)) {
    return;
  }
  CalibrationPoint point = columnPoints.back();
  if (IntersectRowAndColumnCurves(rowCurve, columnCurve, grid.width, grid.height, point.x,
                                  point.y)) {
    point.id = grid.cols * row + 1 + col;
    point.row = row;
    point.col = col;
    predicted.push_back(point);
  }
}

}  // namespace

void PredictMissingGridPoints(const PointList& points, int rows, int cols, int width, int height,
                              PointList& predicted) {
  if (rows < 1 || cols < 1) {
    return;
  }
  const std::vector<bool> isOccupied = Occupancy(points, rows, cols);
  for (int row = 0; row < rows; ++row) {
    for (int col = 0; col < cols; ++col) {
      const std::size_t cell = static_cast<std::size_t>(row) * static_cast<std::size_t>(cols) +
                               static_cast<std::size_t>(col);
      if (!isOccupied[cell]) {
        PredictCell({points, cols, width, height}, row, col, predicted);
      }
    }
  }
}

}  // namespace quorvex
