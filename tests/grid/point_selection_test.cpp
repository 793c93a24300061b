#include "grid/point_selection.h"

#include <gtest/gtest.h>

#include "tests/support/points.h"

namespace quorvex::tests {
namespace {

TEST(PointsWith, SelectsByTheFieldInListOrder) {
  const PointList points = {MakePoint(1, 4, 0, 0.0f, 0.0f), MakePoint(2, 5, 4, 0.0f, 0.0f),
                            MakePoint(3, 4, 4, 0.0f, 0.0f)};
  const PointList byRow = PointsWith(points, &CalibrationPoint::row, 4);
  ASSERT_EQ(byRow.size(), 2u);
  EXPECT_EQ(byRow[0].id, 1);
  EXPECT_EQ(byRow[1].id, 3);
  const PointList byCol = PointsWith(points, &CalibrationPoint::col, 4);
  ASSERT_EQ(byCol.size(), 2u);
  EXPECT_EQ(byCol[0].id, 2);
  EXPECT_TRUE(PointsWith(points, &CalibrationPoint::col, 9).empty());
}

}  // namespace
}  // namespace quorvex::tests
