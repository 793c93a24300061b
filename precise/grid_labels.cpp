#include "precise/grid_labels.h"

#include <algorithm>
#include <cmath>

namespace quorvex::precise {
namespace {

// One quarter: what was +row becomes +column, and what was -column becomes +row.
void TurnByAQuarter(Grid& grid) {
  for (GridMark& mark : grid.marks) {
    const int column = mark.column;
    mark.column = mark.row;
    mark.row = -column;
    MarkFit& fit = mark.fit;
    std::swap(fit.direction[0], fit.direction[1]);
    std::swap(fit.bend[0], fit.bend[1]);
    std::swap(fit.arms[0], fit.arms[1]);
    // The new rows run against the old columns.
    fit.direction[1] = -fit.direction[1];
    fit.bend[1][0] = -fit.bend[1][0];
    std::swap(fit.arms[1][0], fit.arms[1][1]);
  }
  // The unit of length becomes the pitch of the new columns.
  CameraModel& camera = grid.camera.model;
  const Eigen::Matrix3d before = camera.rotation;
  camera.rotation.col(0) = before.col(1);
  camera.rotation.col(1) = -before.col(0);
  camera.translation /= camera.aspect;
  camera.aspect = 1.0 / camera.aspect;
  std::swap(grid.facts.strokeWidth[0], grid.facts.strokeWidth[1]);
  std::swap(grid.facts.sigma[0], grid.facts.sigma[1]);
}

bool ComesBefore(const GridMark& a, const GridMark& b) {
  return a.row != b.row ? a.row < b.row : a.column < b.column;
}

}  // namespace

void MoveOrigin(Grid& grid, int row, int column) {
  for (GridMark& mark : grid.marks) {
    mark.row -= row;
    mark.column -= column;
  }
  CameraModel& camera = grid.camera.model;
  const Eigen::Vector3d down = camera.rotation.col(1) * row * camera.aspect;
  const Eigen::Vector3d way = camera.rotation.col(0) * column + down;
  camera.translation += way;
  // The new origin's place follows the old one's, the rotation and the aspect.
  using Covariance = decltype(grid.camera.covariance);
  Covariance byOld = Covariance::Identity();
  byOld.block<3, 3>(3, 0) << 0.0, way.z(), -way.y(), -way.z(), 0.0, way.x(), way.y(), -way.x(), 0.0;
  byOld.block<3, 1>(3, 11) = down;
  grid.camera.covariance = byOld * grid.camera.covariance * byOld.transpose();
}

void NameRowsAndColumns(Grid& grid) {
  if (grid.marks.empty()) {
    return;
  }
  Eigen::Vector2d middle = Eigen::Vector2d::Zero();
  for (const GridMark& mark : grid.marks) {
    middle += Eigen::Vector2d(mark.column, mark.row);
  }
  middle /= static_cast<double>(grid.marks.size());
  Eigen::Vector2d pixel;
  Eigen::Matrix2d byLabel;
  if (grid.camera.model.Project(middle, pixel, nullptr, &byLabel)) {
    const Eigen::Vector2d column = byLabel.col(0).normalized();
    const Eigen::Vector2d row = byLabel.col(1).normalized();
    // How far to the right +column, +row, -column and -row lead.
    const double right[4] = {column.x(), row.x(), -column.x(), -row.x()};
    const std::ptrdiff_t turns = std::max_element(right, right + 4) - right;
    for (std::ptrdiff_t turn = 0; turn < turns; ++turn) {
      TurnByAQuarter(grid);
    }
  }
  int firstRow = grid.marks[0].row;
  int firstColumn = grid.marks[0].column;
  for (const GridMark& mark : grid.marks) {
    firstRow = std::min(firstRow, mark.row);
    firstColumn = std::min(firstColumn, mark.column);
  }
  MoveOrigin(grid, firstRow, firstColumn);
  std::sort(grid.marks.begin(), grid.marks.end(), ComesBefore);
}

}  // namespace quorvex::precise
