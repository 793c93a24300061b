#include "tests/reference/postprocess.h"

#include <cstddef>
#include <cstdint>
#include <set>

#include "grid/point_order.h"
#include "grid/point_selection.h"
#include "tests/reference/grid.h"

namespace quorvex::plain {
namespace {

// What differs between the two cameras.
struct Camera {
  SortDirection direction;        // in which the points of a row are sorted by y
  int (*columnOf)(int j, int n);  // the column of the j-th of them
};

constexpr Camera kLeft = {kDescending, [](int j, int) { return j; }};
constexpr Camera kRight = {kAscending, [](int j, int n) { return n - 1 - j; }};

// row * n + 1 + col in 32-bit arithmetic, which wraps around.
int GridId(int row, int n, int col) {
  return static_cast<int>(static_cast<std::uint32_t>(row) * static_cast<std::uint32_t>(n) + 1u +
                          static_cast<std::uint32_t>(col));
}

// The former columns that hold points, ascending. Gathered, not counted up to n: n may be any
// number.
std::set<int> OccupiedColumns(const PointList& points, int n) {
  std::set<int> columns;
  for (const CalibrationPoint& point : points) {
    if (point.col >= 0 && point.col < n) {
      columns.insert(point.col);
    }
  }
  return columns;
}

void Rearrange(const Camera& camera, PointList& points, int n) {
  PointList result;
  for (const int k : OccupiedColumns(points, n)) {
    PointList row = PointsWith(points, &CalibrationPoint::col, k);
    plain::SortPointsByY(row, camera.direction);
    for (std::size_t j = 0; j < row.size(); ++j) {
      row[j].row = k;
      row[j].col = camera.columnOf(static_cast<int>(j), n);
      row[j].id = GridId(row[j].row, n, row[j].col);
      result.push_back(row[j]);
    }
  }
  points = result;
}

}  // namespace

void LeftPtsRearrange(PointList& points, int, int n) { Rearrange(kLeft, points, n); }

void RightPtsRearrange(PointList& points, int, int n) { Rearrange(kRight, points, n); }

}  // namespace quorvex::plain
