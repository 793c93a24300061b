#include "base/largest_field.h"

#include <gtest/gtest.h>

#include "tests/support/points.h"

namespace quorvex::tests {
namespace {

TEST(LargestField, IsThatOfTheNamedField) {
  const PointList points = {MakePoint(1, 5, 2, 0.0f, 0.0f), MakePoint(9, 3, 7, 0.0f, 0.0f),
                            MakePoint(4, -1, 6, 0.0f, 0.0f)};
  EXPECT_EQ(LargestField(points, &CalibrationPoint::id, -1), 9);
  EXPECT_EQ(LargestField(points, &CalibrationPoint::row, -1), 5);
  EXPECT_EQ(LargestField(points, &CalibrationPoint::col, -1), 7);
}

TEST(LargestField, IsNeverBelowTheLowest) {
  const PointList points = {MakePoint(0, -5, 0, 0.0f, 0.0f), MakePoint(0, -3, 0, 0.0f, 0.0f)};
  EXPECT_EQ(LargestField(points, &CalibrationPoint::row, -1), -1);
  EXPECT_EQ(LargestField(points, &CalibrationPoint::row, -4), -3);
  EXPECT_EQ(LargestField({}, &CalibrationPoint::row, 0), 0);
}

}  // namespace
}  // namespace quorvex::tests
