#include "precise/mark_acceptance.h"

#include <gtest/gtest.h>

#include "tests/precise/board_views.h"

namespace quorvex::tests {
namespace {

using precise::BoardMap;
using precise::Expectation;
using precise::GrayPicture;
using precise::IsMark;
using precise::MarkFit;
using precise::MarkFrame;

class MarkAcceptance : public testing::Test {
 protected:
  MarkAcceptance() : picture(200, 200, 0) {
    DrawnBoard board;
    BoardMap({}, CameraOf(board)).Frame(0, 0, FactsOf(board), frame);
    fit.isMeasured = true;
    fit.centre = frame.centre;
    fit.covariance = 1e-4 * Eigen::Matrix2d::Identity();
    fit.direction = frame.direction;
    fit.darkness = 100.0;
    for (auto& stroke : fit.arms) {
      stroke[0].isSeen = stroke[1].isSeen = true;
    }
    expected.darkness = 100.0;
    expected.tolerance = 2.0;
  }

  bool Accepted() const { return IsMark(picture, frame, fit, expected); }

  GrayPicture picture;
  MarkFrame frame;
  MarkFit fit;
  Expectation expected;
};

TEST_F(MarkAcceptance, AMarkAsExpectedIsOne) { EXPECT_TRUE(Accepted()); }

TEST_F(MarkAcceptance, FarFromItsPlaceItIsNone) {
  fit.centre.x() += 2.5;
  EXPECT_FALSE(Accepted());
}

TEST_F(MarkAcceptance, MuchFainterThanItsNeighboursItIsNone) {
  fit.darkness = 20.0;
  EXPECT_FALSE(Accepted());
}

TEST_F(MarkAcceptance, MuchDarkerThanItsNeighboursItIsNone) {
  fit.darkness = 240.0;
  EXPECT_TRUE(Accepted());
  fit.darkness = 260.0;
  EXPECT_FALSE(Accepted());
  expected.darkness = 0.0;  // no neighbours
  EXPECT_TRUE(Accepted());
}

TEST_F(MarkAcceptance, UnmeasuredItIsNone) {
  fit.isMeasured = false;
  EXPECT_FALSE(Accepted());
}

TEST_F(MarkAcceptance, AtAVaguePlaceItIsNone) {
  fit.covariance = 0.07 * Eigen::Matrix2d::Identity();
  EXPECT_TRUE(Accepted());
  fit.covariance = 0.09 * Eigen::Matrix2d::Identity();
  EXPECT_FALSE(Accepted());
}

// Blocks that lie anywhere are no strokes; where noise is so low that a thousandth of a pixel
// stands out, they are.
TEST_F(MarkAcceptance, BlocksThatLieAnywhereAreNone) {
  fit.freedom = 20.0;
  fit.squares = 39.0 * fit.freedom;
  EXPECT_TRUE(Accepted());
  fit.squares = 41.0 * fit.freedom;
  EXPECT_FALSE(Accepted());
  fit.covariance = 1e-6 * Eigen::Matrix2d::Identity();
  EXPECT_TRUE(Accepted());
}

TEST_F(MarkAcceptance, ArmsBesideThePictureAreNotMissed) {
  const std::array<std::array<bool, 2>, 2> all = {{{true, true}, {true, true}}};
  EXPECT_EQ(ArmsInPicture(picture, frame), all);
  frame.centre = {197.0, 196.0};
  const std::array<std::array<bool, 2>, 2> backwards = {{{false, true}, {false, true}}};
  EXPECT_EQ(ArmsInPicture(picture, frame), backwards);
  frame.centre = {2.0, 3.0};
  const std::array<std::array<bool, 2>, 2> forwards = {{{true, false}, {true, false}}};
  EXPECT_EQ(ArmsInPicture(picture, frame), forwards);
}

TEST_F(MarkAcceptance, TurnedAgainstThePredictionItIsNone) {
  fit.direction[1] = Eigen::Vector2d(0.17, 0.985).normalized();
  EXPECT_FALSE(Accepted());
}

TEST_F(MarkAcceptance, TwoArmsDoOnlyWhereThePlaceIsWellPredicted) {
  fit.arms[0][1].isSeen = fit.arms[1][1].isSeen = false;
  EXPECT_FALSE(Accepted());
  expected.isWellPredicted = true;
  EXPECT_TRUE(Accepted());
}

TEST_F(MarkAcceptance, TwoArmsDoInACornerOfThePicture) {
  fit.arms[0][1].isSeen = fit.arms[1][1].isSeen = false;
  frame.centre = fit.centre = {3.0, 4.0};
  EXPECT_TRUE(Accepted());
}

TEST_F(MarkAcceptance, BesideThePictureItIsNone) {
  expected.isWellPredicted = true;
  frame.centre = {0.1, 90.0};
  fit.centre = {-0.4, 90.0};
  EXPECT_TRUE(Accepted());
  fit.centre = {-0.6, 90.0};
  EXPECT_FALSE(Accepted());
  frame.centre = {90.0, 199.0};
  fit.centre = {90.0, 199.6};
  EXPECT_FALSE(Accepted());
}

TEST_F(MarkAcceptance, OneStrokeAloneIsNone) {
  fit.arms[1][0].isSeen = fit.arms[1][1].isSeen = false;
  expected.isWellPredicted = true;
  EXPECT_FALSE(Accepted());
}

}  // namespace
}  // namespace quorvex::tests
