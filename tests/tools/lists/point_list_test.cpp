#include "tools/lists/point_list.h"

#include <gtest/gtest.h>

#include "tools/errors.h"

namespace quorvex::tests {

using namespace tools;

namespace {

TEST(PointList, PositionsBeyondAFloatAreRefused) {
  EXPECT_THROW(ToPointList({{1, 0, 0, 1e39, 0}}, "p.csv"), InputError);
  EXPECT_THROW(ToPointList({{1, 0, 0, 0, -1e39}}, "p.csv"), InputError);
  EXPECT_EQ(ToPointList({{1, 0, 0, 1e38, -1e38}}, "p.csv")[0].x, 1e38f);
}

TEST(PointList, KindsFollowThePositions) {
  const std::vector<ListedPoint> before = {{1, 0, 0, 0.1, 2, PointKind::kSeen},
                                           {2, 0, 1, 30, 4, PointKind::kFilled},
                                           {3, 0, 2, 50, 6, PointKind::kUnknown}};
  PointList points = ToPointList(before, "p.csv");
  std::swap(points[0], points[1]);
  points.push_back(points[0]);
  points.back().x = 31;  // added, or moved away from where it was
  const std::vector<ListedPoint> after = ToListedPoints(points, before);
  ASSERT_EQ(after.size(), 4u);
  EXPECT_EQ(after[0].kind, PointKind::kFilled);
  EXPECT_EQ(after[1].kind, PointKind::kSeen);
  EXPECT_EQ(after[2].kind, PointKind::kUnknown);
  EXPECT_EQ(after[3].kind, PointKind::kSeen);
}

TEST(PointList, AListWithoutKindsGetsNone) {
  const std::vector<ListedPoint> before = {{1, 0, 0, 1, 2}};
  PointList points = ToPointList(before, "p.csv");
  points.push_back(points[0]);
  points.back().x = 31;
  EXPECT_FALSE(HasKinds(ToListedPoints(points, before)));
}

}  // namespace
}  // namespace quorvex::tests
