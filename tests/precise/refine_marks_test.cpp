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

ImageView ViewOf(const GrayPicture& picture) {
  return {picture.Row(0), picture.Width(), picture.Height(), picture.Width()};
}

// One mark whose arms towards +x and +y lie outside of the picture, from 12 px on.
TEST(RefineMarks, MarkThatThePictureCutsIsMeasuredOnWhatIsSeen) {
  DrawnBoard board;
  board.step = {60, 0};
  board.width = 112;
  board.height = 200;
  board.noise = 1;
  const GrayPicture cut = board.Draw();
  const std::vector<RefinedPoint> refined = RefineMarks(ViewOf(cut), {{101.0, 99.0}});
  ASSERT_TRUE(refined[0].isRefined) << refined[0].reason;
  EXPECT_LT(std::hypot(refined[0].x - 100, refined[0].y - 100), 0.05);
  board.height = 112;
  const GrayPicture corner = board.Draw();
  const std::vector<RefinedPoint> inCorner = RefineMarks(ViewOf(corner), {{101.0, 99.0}});
  ASSERT_TRUE(inCorner[0].isRefined) << inCorner[0].reason;
  EXPECT_LT(std::hypot(inCorner[0].x - 100, inCorner[0].y - 100), 0.05);
}

TEST(RefineMarks, LightMarksNeedTheirColour) {
  DrawnBoard board;
  board.board = 40;
  board.mark = 200;
  board.noise = 1;
  const GrayPicture picture = board.Draw();
  EXPECT_FALSE(RefineMarks(ViewOf(picture), {{100, 101}})[0].isRefined);
  precise::Options options;
  options.colour = precise::MarkColour::kLight;
  const std::vector<RefinedPoint> light = RefineMarks(ViewOf(picture), {{100, 101}}, options);
  ASSERT_TRUE(light[0].isRefined) << light[0].reason;
  EXPECT_LT(std::hypot(light[0].x - 100, light[0].y - 100), 0.05);
}

TEST(RefineMarks, NoPointsAreNoWork) {
  const GrayPicture picture = DrawnBoard().Draw();
  EXPECT_TRUE(RefineMarks(ViewOf(picture), {}).empty());
}

}  // namespace
}  // namespace quorvex::tests
