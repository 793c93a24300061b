// Comparison of point lists by the bits of their fields, in words.
#ifndef QUORVEX_TESTS_SUPPORT_LIST_DIFFERENCE_H_
#define QUORVEX_TESTS_SUPPORT_LIST_DIFFERENCE_H_

#include <cstddef>
#include <string>

#include "base/calibration_point.h"
#include "tests/support/float_difference.h"

namespace quorvex::tests {

inline std::string ListDifference(const PointList& plain, const PointList& fast) {
  if (plain.size() != fast.size()) {
    return std::to_string(fast.size()) + " points, plain " + std::to_string(plain.size());
  }
  for (std::size_t i = 0; i < plain.size(); ++i) {
    const std::string name = "point " + std::to_string(i);
    if (plain[i].id != fast[i].id || plain[i].row != fast[i].row || plain[i].col != fast[i].col) {
      return name + " is number " + std::to_string(fast[i].id) + " at " +
             std::to_string(fast[i].row) + ", " + std::to_string(fast[i].col) + ", plain " +
             std::to_string(plain[i].id) + " at " + std::to_string(plain[i].row) + ", " +
             std::to_string(plain[i].col);
    }
    const std::string difference =
        PointDifference(name, {plain[i].x, plain[i].y}, {fast[i].x, fast[i].y});
    if (!difference.empty()) {
      return difference;
    }
  }
  return "";
}

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_LIST_DIFFERENCE_H_
