#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "interface/quorvex_precise.h"
#include "tests/precise/drawn_board.h"

namespace quorvex::tests {
namespace {

using precise::GrayPicture;
using precise::ImageView;
using precise::Point;
using precise::RefinedPoint;
using precise::RefineMarks;

TEST(RefineMarks, MeasuresMarksAndLeavesOtherPointsWhereTheyAre) {
  DrawnBoard board;
  board.width = 200;
  board.height = 180;
  board.rows = board.columns = 2;
  board.first = {60.3, 50.7};
  board.step = {70, 9};
  board.noise = 1;
  const GrayPicture picture = board.Draw();
  const ImageView image = {picture.Row(0), picture.Width(), picture.Height(), picture.Width()};
  const Eigen::Vector2d second = board.Place(1, 1);
  const std::vector<RefinedPoint> refined =
      RefineMarks(image, {{61.5, 49.9}, {95.0, 90.0}, {second.x() - 1.0, second.y() + 1.5}});
  ASSERT_EQ(refined.size(), 3U);
  ASSERT_TRUE(refined[0].isRefined) << refined[0].reason;
  EXPECT_LT(std::hypot(refined[0].x - 60.3, refined[0].y - 50.7), 0.03);
  EXPECT_GT(refined[0].cxx, 0.0);
  EXPECT_FALSE(refined[1].isRefined);
  EXPECT_EQ(refined[1].x, 95.0);
  EXPECT_NE(refined[1].reason, "");
  ASSERT_TRUE(refined[2].isRefined) << refined[2].reason;
  EXPECT_LT(std::hypot(refined[2].x - second.x(), refined[2].y - second.y()), 0.03);
}

TEST(RefineMarks, WrongInputIsEveryPointsReason) {
  const std::vector<RefinedPoint> refined = RefineMarks(ImageView(), {{1, 2}, {3, 4}});
  ASSERT_EQ(refined.size(), 2U);
  EXPECT_FALSE(refined[1].isRefined);
  EXPECT_EQ(refined[1].y, 4.0);
  EXPECT_NE(refined[1].reason, "");
}

}  // namespace
}  // namespace quorvex::tests
