// Short forms of points and their bit patterns for tests.
#ifndef QUORVEX_TESTS_SUPPORT_POINTS_H_
#define QUORVEX_TESTS_SUPPORT_POINTS_H_

#include <cstdint>
#include <cstring>
#include <vector>

#include "base/calibration_point.h"

namespace quorvex::tests {

inline CalibrationPoint MakePoint(int id, int row, int col, float x, float y) {
  CalibrationPoint point = {};
  point.id = id;
  point.row = row;
  point.col = col;
  point.x = x;
  point.y = y;
  return point;
}

inline std::vector<int> Ids(const PointList& points) {
  std::vector<int> ids;
  for (const CalibrationPoint& point : points) {
    ids.push_back(point.id);
  }
  return ids;
}

inline CalibrationPoint At(float x, float y) { return MakePoint(0, 0, 0, x, y); }

// For comparing floats to the bit.
inline std::uint32_t Bits(float value) {
  std::uint32_t bits;
  std::memcpy(&bits, &value, sizeof bits);
  return bits;
}

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_POINTS_H_
