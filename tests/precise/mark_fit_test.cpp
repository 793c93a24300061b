#include "precise/mark_fit.h"

#include <gtest/gtest.h>

#include <Eigen/LU>

#include "tests/precise/board_views.h"

namespace quorvex::tests {
namespace {

using precise::BoardMap;
using precise::EdgeTables;
using precise::FitMark;
using precise::GrayPicture;
using precise::LookAround;
using precise::MarkFit;
using precise::MarkFitSettings;
using precise::MarkFrame;

DrawnBoard OneMark() {
  DrawnBoard board;
  board.width = board.height = 110;
  board.first = {55.3, 53.8};
  board.step = {60.0, 17.0};
  return board;
}

MarkFrame FrameOf(const DrawnBoard& board) {
  MarkFrame frame;
  EXPECT_TRUE(BoardMap({}, CameraOf(board)).Frame(0, 0, FactsOf(board), frame));
  return frame;
}

struct Fitter {
  explicit Fitter(const DrawnBoard& board) : edges(board.blur) {
    settings.edges = {&edges, &edges};
    settings.noise = board.noise > 0 ? board.noise : 0.3;
    settings.bendSigma = {0.1, 0.05};
  }
  EdgeTables edges;
  MarkFitSettings settings;
};

TEST(MarkFit, FindsTheCrossingFromAFrameThatIsOff) {
  const DrawnBoard board = OneMark();
  MarkFrame frame = FrameOf(board);
  frame.centre += Eigen::Vector2d(0.4, -0.3);
  const MarkFit fit = FitMark(board.Draw(), frame, Fitter(board).settings);
  ASSERT_TRUE(fit.isMeasured);
  EXPECT_LT((fit.centre - board.first).norm(), 0.006);
  EXPECT_EQ(fit.SeenArms(), 4);
  EXPECT_NEAR(fit.darkness, 160.0, 12.0);
}

TEST(MarkFit, ErrorsAreAsLargeAsTheCovarianceSays) {
  DrawnBoard board = OneMark();
  board.noise = 5;
  const Fitter fitter(board);
  const MarkFrame frame = FrameOf(board);
  double sum = 0.0;
  constexpr int kPictures = 40;
  for (board.seed = 1; board.seed <= kPictures; ++board.seed) {
    const MarkFit fit = FitMark(board.Draw(), frame, fitter.settings);
    ASSERT_TRUE(fit.isMeasured);
    const Eigen::Vector2d away = fit.centre - board.first;
    sum += 0.5 * away.dot(fit.covariance.inverse() * away);
  }
  EXPECT_NEAR(sum / kPictures, 1.0, 0.4);
}

TEST(MarkFit, TwoArmsAreEnough) {
  const DrawnBoard board = OneMark();
  GrayPicture picture = board.Draw();
  for (int y = 0; y < picture.Height(); ++y) {
    for (int x = 0; x < picture.Width(); ++x) {
      if (x < 50 || y > 60) {
        picture.Row(y)[x] = 200;
      }
    }
  }
  const MarkFit fit = FitMark(picture, FrameOf(board), Fitter(board).settings);
  ASSERT_TRUE(fit.isMeasured);
  EXPECT_TRUE(fit.arms[0][0].isSeen);
  EXPECT_FALSE(fit.arms[0][1].isSeen);
  EXPECT_FALSE(fit.arms[1][0].isSeen);
  EXPECT_TRUE(fit.arms[1][1].isSeen);
  EXPECT_LT((fit.centre - board.first).norm(), 0.05);
}

TEST(MarkFit, OneStrokeIsNoMark) {
  DrawnBoard board = OneMark();
  GrayPicture picture(board.width, board.height, 200);
  for (int x = 30; x < 80; ++x) {
    picture.Row(54)[x] = picture.Row(55)[x] = 40;
  }
  board.step = {60.0, 0.0};
  board.first = {55.0, 54.5};
  EXPECT_FALSE(FitMark(picture, FrameOf(board), Fitter(board).settings).SeesBothStrokes());
}

TEST(MarkFit, NothingIsMeasuredOnAnEmptyPicture) {
  const DrawnBoard board = OneMark();
  const GrayPicture picture(board.width, board.height, 120);
  EXPECT_FALSE(FitMark(picture, FrameOf(board), Fitter(board).settings).isMeasured);
}

TEST(LookAround, MovesAFrameOntoTheDarkStrokes) {
  const DrawnBoard board = OneMark();
  MarkFrame frame = FrameOf(board);
  frame.centre += Eigen::Vector2d(4.0, -5.0);
  EXPECT_LT((LookAround(board.Draw(), frame, 8.0).centre - board.first).norm(), 1.0);
}

TEST(LookAround, LeavesAFrameAloneWhereNothingIsDark) {
  const DrawnBoard board = OneMark();
  const MarkFrame frame = FrameOf(board);
  const GrayPicture picture(board.width, board.height, 120);
  EXPECT_EQ(LookAround(picture, frame, 8.0).centre, frame.centre);
}

}  // namespace
}  // namespace quorvex::tests
