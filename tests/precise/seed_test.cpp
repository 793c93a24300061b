#include "precise/seed.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "precise/mark_candidates.h"
#include "tests/precise/mark_drawing.h"

namespace quorvex::tests {
namespace {

using precise::FindSeed;
using precise::GrayPicture;
using precise::Seed;
using precise::SeedMark;

constexpr double kPitch = 70;  // px

struct DrawnBoard {
  int rows = 5;
  int columns = 6;
  double degrees = 10;
  double arm = 28;  // px
  double noise = 2;
  std::vector<int> absent;  // row * columns + column

  Eigen::Vector2d PlaceOf(int row, int column) const {
    return Eigen::Vector2d(280, 260) +
           kPitch * (column - (columns - 1) / 2.0) * DirectionOf(degrees) +
           kPitch * (row - (rows - 1) / 2.0) * DirectionOf(degrees + 90);
  }
};

GrayPicture Draw(const DrawnBoard& board) {
  GrayPicture picture(560, 520, kBoardLevel);
  for (int i = 0; i < board.rows * board.columns; ++i) {
    bool isAbsent = false;
    for (const int absent : board.absent) {
      isAbsent = isAbsent || absent == i;
    }
    const double turn = board.degrees;
    if (!isAbsent) {
      DrawMark({board.PlaceOf(i / board.columns, i % board.columns),
                {turn, turn + 90, turn + 180, turn + 270},
                board.arm,
                3},
               picture);
    }
  }
  AddNoise(board.noise, 11, picture);
  return picture;
}

// The seed's marks are the board's, labelled alike but for an offset.
void ExpectSeed(const Seed& seed, const DrawnBoard& board, std::size_t count) {
  ASSERT_EQ(seed.marks.size(), count) << seed.reason;
  int firstRow = seed.marks[0].row;
  int firstColumn = seed.marks[0].column;
  for (const SeedMark& mark : seed.marks) {
    firstRow = std::min(firstRow, mark.row);
    firstColumn = std::min(firstColumn, mark.column);
  }
  for (const SeedMark& mark : seed.marks) {
    const Eigen::Vector2d place = board.PlaceOf(mark.row - firstRow, mark.column - firstColumn);
    EXPECT_LT((mark.centre - place).norm(), 0.4);
    EXPECT_GT(mark.arms[0].direction.dot(DirectionOf(board.degrees)), 0.99);
    EXPECT_GT(mark.arms[1].direction.dot(DirectionOf(board.degrees + 90)), 0.99);
  }
}

TEST(Seed, BoardIsFoundWithItsLabels) {
  for (const double degrees : {-40.0, 0.0, 10.0, 40.0}) {
    DrawnBoard board;
    board.degrees = degrees;
    const Seed seed = FindSeed(Draw(board));
    ExpectSeed(seed, board, 30);
    EXPECT_NEAR(seed.pitch, kPitch, 0.5);
    EXPECT_NEAR(seed.noise, 2, 0.3);
    EXPECT_TRUE(seed.reason.empty());
  }
}

TEST(Seed, AbsentMarksShiftNoLabel) {
  DrawnBoard board;
  board.absent = {7, 14, 16, 22};
  ExpectSeed(FindSeed(Draw(board)), board, 26);
}

TEST(Seed, ArmsThatNearlyTouchAreStillMarks) {
  DrawnBoard board;
  board.arm = 0.48 * kPitch;
  ExpectSeed(FindSeed(Draw(board)), board, 30);
}

TEST(Seed, ContinuousLinesAreNone) {
  DrawnBoard board;
  board.arm = kPitch;
  const Seed seed = FindSeed(Draw(board));
  EXPECT_TRUE(seed.marks.empty());
  EXPECT_NE(seed.reason.find("continuous"), std::string::npos);
}

TEST(Seed, NegativeOfLightMarksIsABoard) {
  const DrawnBoard board;
  const GrayPicture dark = Draw(board);
  GrayPicture light = dark;
  for (int y = 0; y < light.Height(); ++y) {
    for (int x = 0; x < light.Width(); ++x) {
      light.Row(y)[x] = static_cast<std::uint8_t>(255 - light.At(x, y));
    }
  }
  EXPECT_TRUE(FindSeed(light).marks.empty());
  ExpectSeed(FindSeed(precise::CopyPicture(light.Row(0), light.Width(), light.Height(),
                                           light.Width(), precise::Polarity::kLightMarks)),
             board, 30);
}

// Most of its crossings are not looked at, which bounds the time.
TEST(Seed, PaperWithManyLinesIsNone) {
  GrayPicture paper(900, 900, kBoardLevel);
  for (int y = 0; y < 900; ++y) {
    for (int x = 0; x < 900; ++x) {
      if (x % 21 < 2 || y % 21 < 2) {
        paper.Row(y)[x] = 60;
      }
    }
  }
  EXPECT_LT(precise::FindMarkCandidates(precise::BuildPyramid(paper), 0.3).size(), 500u);
  EXPECT_GT(precise::FindMarkCandidates(precise::BuildPyramid(paper), 0.3, false).size(), 500u);
  const Seed seed = FindSeed(paper);
  EXPECT_TRUE(seed.marks.empty());
  EXPECT_NE(seed.reason.find("continuous"), std::string::npos);
}

TEST(Seed, FewMarksAreNone) {
  DrawnBoard board;
  board.rows = 2;
  board.columns = 2;
  const Seed seed = FindSeed(Draw(board));
  EXPECT_TRUE(seed.marks.empty());
  EXPECT_FALSE(seed.reason.empty());
}

TEST(Seed, PicturesWithoutAnythingHaveAReason) {
  for (const int side : {1, 15, 16, 17, 40}) {
    const Seed seed = FindSeed(GrayPicture(side, side, 90));
    EXPECT_TRUE(seed.marks.empty());
    EXPECT_FALSE(seed.reason.empty());
  }
  GrayPicture noise(200, 200, 128);
  AddNoise(60, 4, noise);
  EXPECT_FALSE(FindSeed(noise).reason.empty());
}

// Rows far longer than high, and the reverse.
TEST(Seed, NarrowPicturesAreSearchedToTheirEnds) {
  GrayPicture wide(5000, 16, kBoardLevel);
  AddNoise(3, 1, wide);
  EXPECT_TRUE(FindSeed(wide).marks.empty());
  GrayPicture high(16, 5000, kBoardLevel);
  AddNoise(3, 1, high);
  EXPECT_TRUE(FindSeed(high).marks.empty());
}

TEST(Seed, IsTheSameEachTime) {
  const GrayPicture picture = Draw(DrawnBoard());
  const Seed first = FindSeed(picture);
  const Seed second = FindSeed(picture);
  ASSERT_EQ(first.marks.size(), second.marks.size());
  for (std::size_t i = 0; i < first.marks.size(); ++i) {
    EXPECT_EQ(first.marks[i].centre, second.marks[i].centre);
    EXPECT_EQ(first.marks[i].row, second.marks[i].row);
  }
}

}  // namespace
}  // namespace quorvex::tests
