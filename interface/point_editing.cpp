#include "interface/point_editing.h"

#include <algorithm>

#include "base/point_geometry.h"

namespace quorvex {
namespace {

constexpr float kDeletionReach = 9.0f;  // pixels to each side, in x and in y
constexpr int kNoPlace = -1;

PointList::iterator FindById(int id, PointList& points) {
  return std::find_if(points.begin(), points.end(),
                      [id](const CalibrationPoint& point) { return point.id == id; });
}

// Removes every point that satisfies the predicate; the others keep their order.
template <typename Predicate>
bool RemoveWhere(PointList& points, Predicate predicate) {
  const auto firstRemoved = std::remove_if(points.begin(), points.end(), predicate);
  const bool hasRemoved = firstRemoved != points.end();
  points.erase(firstRemoved, points.end());
  return hasRemoved;
}

}  // namespace

bool QueryCalibrationPt_ID(int id, int& row, int& col, float& x, float& y, PointList& points) {
  const auto found = FindById(id, points);
  if (found == points.end()) {
    return false;
  }
  row = found->row;
  col = found->col;
  x = found->x;
  y = found->y;
  return true;
}

bool DeleteCalibrationPt_ID(int id, PointList& points) {
  return RemoveWhere(points, [id](const CalibrationPoint& point) { return point.id == id; });
}

bool DeleteCalibrationPt_Coordinate(float x, float y, PointList& points) {
  // An open square: a point exactly 9 pixels off stays.
  return RemoveWhere(points, [x, y](const CalibrationPoint& point) {
    return IsInSquare(point, x, y, kDeletionReach);
  });
}

bool AddCalibrationPt_Coordinate(float x, float y, PointList& points) {
  CalibrationPoint point = {};
  point.id = kNoPlace;
  point.row = kNoPlace;
  point.col = kNoPlace;
  point.x = x;
  point.y = y;
  points.push_back(point);
  return true;
}

bool AlterCalibrationPt_Coordinate(int id, int row, int col, float x, float y, PointList& points) {
  const auto found = FindById(id, points);
  if (found == points.end()) {
    return false;
  }
  found->row = row;
  found->col = col;
  found->x = x;
  found->y = y;
  return true;
}

}  // namespace quorvex
