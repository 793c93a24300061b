// Rows and columns grown from seed curves, held against the plain form.
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "grid/line_growing.h"
#include "tests/reference/grid.h"
#include "tests/support/differential.h"
#include "tests/support/list_difference.h"
#include "tests/support/random_grid.h"

namespace quorvex::tests {
namespace {

constexpr float kPitch = 100.0f;  // pixels, that of the grids

std::string SameListsAsThePlainForm(CaseRandom& random) {
  PointList points = RandomLabelledGrid(random);
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
