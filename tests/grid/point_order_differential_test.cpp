#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <limits>
#include <string>

#include "grid/point_order.h"
#include "tests/reference/grid.h"
#include "tests/support/differential.h"
#include "tests/support/points.h"
#include "tests/support/reserved_bytes.h"

namespace quorvex::tests {
namespace {

float RandomKey(CaseRandom& random, int kinds, bool hasNaN) {
  constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  if (hasNaN && random.OneIn(5)) {
    return random.OneOf({kNaN, -kNaN, kInfinity, -kInfinity, -0.0f, 0.0f});
  }
  return static_cast<float>(random.Below(kinds)) - 2.0f;
}

PointList RandomPoints(CaseRandom& random) {
  const int kinds = random.OneOf({1, 2, 6, 300});
  const bool hasNaN = random.OneIn(2);
  PointList points;
  for (int i = random.Below(50); i > 0; --i) {
    const float x = RandomKey(random, kinds, hasNaN);
    const float y = RandomKey(random, kinds, hasNaN);
    points.push_back(Marked(MakePoint(i, i % 3, i % 5, x, y), i));
  }
  return points;
}

// Whole records, the reserved bytes with them.
std::string DifferenceOf(const char* order, const PointList& plain, const PointList& fast) {
  for (std::size_t i = 0; i < plain.size(); ++i) {
    if (std::memcmp(&plain[i], &fast[i], sizeof plain[i]) != 0) {
      return std::string(order) + ": place " + std::to_string(i) + " of " +
             std::to_string(plain.size()) + " has point " + std::to_string(fast[i].id) +
             ", plain " + std::to_string(plain[i].id);
    }
  }
  return plain.size() == fast.size() ? "" : "other sizes";
}

std::string SameOrderByX(CaseRandom& random) {
  PointList plainPoints = RandomPoints(random);
  PointList fastPoints = plainPoints;
  plain::SortPointsByX(plainPoints);
  SortPointsByX(fastPoints);
  return DifferenceOf("by x", plainPoints, fastPoints);
}
DIFFERENTIAL_TEST(PointOrderDifferentialTest, SameOrderByX, kCases);

std::string SameOrderByY(CaseRandom& random) {
  PointList plainPoints = RandomPoints(random);
  PointList fastPoints = plainPoints;
  const int direction = random.OneOf({1, 2, 1, 2, 0});
  plain::SortPointsByY(plainPoints, direction);
  SortPointsByY(fastPoints, static_cast<SortDirection>(direction));
  return DifferenceOf("by y", plainPoints, fastPoints);
}
DIFFERENTIAL_TEST(PointOrderDifferentialTest, SameOrderByY, kCases);

}  // namespace
}  // namespace quorvex::tests
