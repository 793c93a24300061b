#include "tools/render/board.h"

#include <gtest/gtest.h>

#include "tools/errors.h"
#include "tools/render/presets.h"

namespace quorvex::tests {

using namespace tools;

namespace {

class BoardBeforeCamera : public testing::TestWithParam<CameraModel> {};

TEST_P(BoardBeforeCamera, PointsSurviveTheWayToThePictureAndBack) {
  RenderSettings settings = PresetByName("fisheye");
  settings.model = GetParam();
  settings.focalLength = 600;
  if (settings.model == CameraModel::kKannalaBrandt) {
    settings.k1 = -0.05;
    settings.k2 = 0.01;
    settings.k3 = -0.003;
    settings.k4 = 0.0004;
  }
  settings.tiltX = 11;
  settings.tiltY = -17;
  const Camera camera(settings);
  const Board board(settings);
  for (int row = 0; row < settings.rows; ++row) {
    for (int column = 0; column < settings.columns; ++column) {
      const BoardPoint mark = board.MarkCentre(row, column);
      const auto pixel = camera.Project(board.ToCamera(mark));
      ASSERT_TRUE(pixel);
      const auto ray = camera.Ray(*pixel);
      ASSERT_TRUE(ray);
      BoardPoint met;
      ASSERT_TRUE(board.Intersect(*ray, met));
      EXPECT_NEAR(met.x, mark.x, 1e-8);
      EXPECT_NEAR(met.y, mark.y, 1e-8);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(All, BoardBeforeCamera,
                         testing::Values(CameraModel::kEquidistant, CameraModel::kKannalaBrandt,
                                         CameraModel::kPinhole));

RenderSettings Upright() {
  RenderSettings settings = PresetByName("easy");
  settings.tiltX = settings.tiltY = settings.rotation = 0;
  return settings;
}

TEST(Board, IsDarkOnTheStrokesOnly) {
  RenderSettings settings = Upright();
  settings.missing = {{1, 1}};
  const Board board(settings);
  const BoardPoint mark = board.MarkCentre(0, 0);
  EXPECT_EQ(board.LevelAt(mark), settings.markLevel);
  EXPECT_EQ(board.LevelAt({mark.x + settings.armLength - 0.01, mark.y}), settings.markLevel);
  EXPECT_EQ(board.LevelAt({mark.x + settings.armLength + 0.01, mark.y}), settings.boardLevel);
  EXPECT_EQ(board.LevelAt({mark.x + 5, mark.y + 5}), settings.boardLevel);
  EXPECT_EQ(board.LevelAt(board.MarkCentre(1, 1)), settings.boardLevel);
  EXPECT_EQ(board.LevelAt({mark.x - settings.margin + 0.01, mark.y}), settings.boardLevel);
  EXPECT_EQ(board.LevelAt({mark.x - settings.margin - 0.01, mark.y}), settings.backgroundLevel);
}

TEST(Board, ChessboardMeetsAtTheMarks) {
  RenderSettings settings = Upright();
  settings.pattern = Pattern::kChessboard;
  const Board board(settings);
  for (int row = 0; row < settings.rows; ++row) {
    for (int column = 0; column < settings.columns; ++column) {
      const BoardPoint corner = board.MarkCentre(row, column);
      const bool isEven = (row + column) % 2 == 0;
      const double towardsTopLeft = isEven ? settings.markLevel : settings.boardLevel;
      const double towardsTopRight = isEven ? settings.boardLevel : settings.markLevel;
      EXPECT_EQ(board.LevelAt({corner.x - 0.01, corner.y - 0.01}), towardsTopLeft);
      EXPECT_EQ(board.LevelAt({corner.x + 0.01, corner.y + 0.01}), towardsTopLeft);
      EXPECT_EQ(board.LevelAt({corner.x + 0.01, corner.y - 0.01}), towardsTopRight);
      EXPECT_EQ(board.LevelAt({corner.x - 0.01, corner.y + 0.01}), towardsTopRight);
    }
  }
}

TEST(Board, ChessboardHasOneSquareMoreThanCornersAndAMarginRoundThem) {
  RenderSettings settings = Upright();
  settings.pattern = Pattern::kChessboard;
  const Board board(settings);
  const BoardPoint corner = board.MarkCentre(0, 0);
  const double square = corner.x - settings.pitch;
  EXPECT_EQ(board.LevelAt({square + 0.01, corner.y - 1}), settings.markLevel);
  EXPECT_EQ(board.LevelAt({square - 0.01, corner.y - 1}), settings.boardLevel);
  EXPECT_EQ(board.LevelAt({square - settings.margin + 0.01, corner.y - 1}), settings.boardLevel);
  EXPECT_EQ(board.LevelAt({square - settings.margin - 0.01, corner.y - 1}),
            settings.backgroundLevel);
}

TEST(Board, IsNotSeenFromItsBackOrAwayFromIt) {
  RenderSettings settings = Upright();
  BoardPoint point;
  EXPECT_FALSE(Board(settings).Intersect({0, 0, -1}, point));
  EXPECT_FALSE(Board(settings).Intersect({1, 0, 0}, point));
  EXPECT_TRUE(Board(settings).Intersect({0, 0, 1}, point));
  EXPECT_NEAR(point.x, -settings.shiftX, 1e-9);
  EXPECT_NEAR(point.y, -settings.shiftY, 1e-9);
  settings.tiltY = 70;
  settings.shiftX = -900;
  EXPECT_THROW(Board{settings}, InputError);
}

}  // namespace
}  // namespace quorvex::tests
