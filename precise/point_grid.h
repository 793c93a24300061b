// Points of a picture in square cells, for searches that look nearby first.
#ifndef QUORVEX_PRECISE_POINT_GRID_H_
#define QUORVEX_PRECISE_POINT_GRID_H_

#include <Eigen/Core>
#include <algorithm>
#include <cstddef>
#include <vector>

namespace quorvex::precise {

class PointGrid {
 public:
  // For points with 0 <= x < width and 0 <= y < height (others count to the nearest cell); `cell`
  // in px.
  PointGrid(double width, double height, double cell)
      : cell_(cell),
        columns_(std::max(1, static_cast<int>(width / cell) + 1)),
        rows_(std::max(1, static_cast<int>(height / cell) + 1)),
        cells_(static_cast<std::size_t>(columns_) * static_cast<std::size_t>(rows_)) {}

  void Add(const Eigen::Vector2d& point, int index) {
    cells_[Cell(Column(point.x()), Row(point.y()))].push_back(index);
  }

  // Calls visit(index) for every point of the cells within `reach` px of the point, in an order
  // that depends on nothing but what was added.
  template <typename Visit>
  void VisitNear(const Eigen::Vector2d& point, double reach, Visit visit) const {
    const int lastRow = Row(point.y() + reach);
    const int lastColumn = Column(point.x() + reach);
    for (int row = Row(point.y() - reach); row <= lastRow; ++row) {
      for (int column = Column(point.x() - reach); column <= lastColumn; ++column) {
        for (const int index : cells_[Cell(column, row)]) {
          visit(index);
        }
      }
    }
  }

 private:
  int Column(double x) const { return Clamped(x / cell_, columns_); }
  int Row(double y) const { return Clamped(y / cell_, rows_); }
  static int Clamped(double position, int count) {
    return position > 0 ? static_cast<int>(std::min(position, count - 1.0)) : 0;
  }
  std::size_t Cell(int column, int row) const {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
           static_cast<std::size_t>(column);
  }

  double cell_;
  int columns_;
  int rows_;
  std::vector<std::vector<int>> cells_;
};

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_POINT_GRID_H_
