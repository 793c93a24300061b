#include "grid/provisional_code.h"

#include <cstddef>

namespace quorvex {
namespace {

constexpr float kMargin = 20.0f;  // pixels
constexpr int kBeforeFirst = -100;
constexpr int kCodeModulus = 100;

int JustAfter(int line) { return -101 - line; }

}  // namespace

int ProvisionalColumnCode(const PointList& rowPoints, const CalibrationPoint& point) {
  if (rowPoints.empty()) {
    return point.col;
  }
  if (point.x < rowPoints.front().x - kMargin) {
    return kBeforeFirst;
  }
  if (point.x > rowPoints.back().x + kMargin) {
    return JustAfter(rowPoints.back().col);
  }
  int code = point.col;
  for (std::size_t j = 0; j + 1 < rowPoints.size(); ++j) {
    // + on both sides is meant.
    if (point.x > rowPoints[j].x + kMargin && point.x < rowPoints[j + 1].x + kMargin) {
      code = JustAfter(rowPoints[j].col);
    }
  }
  return code;
}

int ProvisionalRowCode(const PointList& columnPoints, const CalibrationPoint& point) {
  if (columnPoints.empty()) {
    return point.row;
  }
  if (point.y > columnPoints.front().y + kMargin) {
    return kBeforeFirst;
  }
  if (point.y < columnPoints.back().y - kMargin) {
    return JustAfter(columnPoints.back().row);
  }
  int code = point.row;
  for (std::size_t j = 0; j + 1 < columnPoints.size(); ++j) {
    if (columnPoints[j].y - kMargin > point.y && point.y > columnPoints[j + 1].y + kMargin) {
      code = JustAfter(columnPoints[j].row);
    }
  }
  return code;
}

int LineNumberOfCode(int code) { return -code % kCodeModulus; }

}  // namespace quorvex
