// Rows and columns grown from seed curves, held against the plain form.
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>

#include "grid/line_growing.h"
#include "tests/reference/grid.h"
#include "tests/support/differential.h"
#include "tests/support/list_difference.h"
#include "tests/support/points.h"

namespace quorvex::tests {
namespace {

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kPitch = 100.0f;

// Bent lines of a grid, disturbed, with labels of both kinds that are mostly right.
PointList RandomGrid(CaseRandom& random) {
  const float bend = random.OneOf({0.0f, 1e-4f, -3e-4f});
  const int rows = random.Between(1, 6);
  const int columns = random.Between(1, 6);
  PointList points;
  for (int row = 0; row < rows; ++row) {
    for (int col = 0; col < columns; ++col) {
      const float x = kPitch * static_cast<float>(col) + random.Fraction(-1, 1);
      float y = kPitch * static_cast<float>(row) + bend * x * x + random.Fraction(-1, 1);
      y += random.OneIn(12) ? random.Fraction(-90, 90) : 0.0f;
      y = random.OneIn(80) ? kNan : y;
      const int label = random.OneIn(10) ? random.Between(-2, 2000) : col;
      points.push_back(MakePoint(static_cast<int>(points.size()), row, label, x, y));
    }
  }
  for (std::size_t i = points.size(); i > 1; --i) {
    std::swap(points[i - 1], points[static_cast<std::size_t>(random.Below(static_cast<int>(i)))]);
  }
  return points;
}

std::string SameListsAsThePlainForm(CaseRandom& random) {
  PointList points = RandomGrid(random);
  const QuadraticCoefficients seed = {random.OneOf({0.0f, 1e-4f}), random.OneOf({0.0f, 0.01f}),
                                      kPitch * static_cast<float>(random.Between(-1, 6))};
  const int span = random.OneOf({0, 1, 3, 20, -1});
  PointList plain;
  PointList fast;
  bool plainResult = false;
  bool fastResult = false;
  if (random.OneIn(2)) {
    plainResult = plain::GrowRows(points, span, 0, seed, plain);
    fastResult = GrowRows(points, span, 0, seed, fast);
  } else {
    for (CalibrationPoint& point : points) {
      std::swap(point.x, point.y);
      std::swap(point.row, point.col);
    }
    plainResult = plain::GrowColumns(points, 0, span, seed, plain);
    fastResult = GrowColumns(points, 0, span, seed, fast);
  }
  return plainResult == fastResult ? ListDifference(plain, fast) : "results differ";
}

DIFFERENTIAL_TEST(LineGrowingDifferential, SameListsAsThePlainForm, kCases);

}  // namespace
}  // namespace quorvex::tests
