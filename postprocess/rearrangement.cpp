#include "postprocess/rearrangement.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>

#include "base/stable_sort.h"
#include "grid/point_order.h"

namespace quorvex {
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

// Gives the points of one former column their places in the row of that number.
void NumberRow(const Camera& camera, int n, PointList& row) {
  SortPointsByY(row, camera.direction);
  for (std::size_t j = 0; j < row.size(); ++j) {
    row[j].row = row[j].col;
    row[j].col = camera.columnOf(static_cast<int>(j), n);
    row[j].id = GridId(row[j].row, n, row[j].col);
  }
}

void Rearrange(const Camera& camera, PointList& points, int n) {
  PointList kept;
  std::copy_if(points.begin(), points.end(), std::back_inserter(kept),
               [n](const CalibrationPoint& point) { return point.col >= 0 && point.col < n; });
  SortAscending(kept, [](const CalibrationPoint& point) { return point.col; });
  // The columns that occur, not all up to n: n may be any number.
  for (auto first = kept.begin(); first != kept.end();) {
    const auto last = std::find_if(first, kept.end(), [first](const CalibrationPoint& point) {
      return point.col != first->col;
    });
    PointList row(first, last);
    NumberRow(camera, n, row);
    first = std::copy(row.begin(), row.end(), first);
  }
  points = kept;
}

}  // namespace

void LeftPtsRearrange(PointList& points, int, int n) { Rearrange(kLeft, points, n); }

void RightPtsRearrange(PointList& points, int, int n) { Rearrange(kRight, points, n); }

}  // namespace quorvex
