#include "precise/block_fit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

#include "tests/precise/drawn_board.h"

namespace quorvex::tests {
namespace {

using precise::Block;
using precise::EdgeTables;
using precise::GrayPicture;
using precise::Stroke;
using precise::StrokeProfile;

// The stroke along the columns of a mark of pitch 60, moved by `shift` px across.
Stroke StrokeOf(const DrawnBoard& board, const EdgeTables& edges, double shift, bool isFirst) {
  Stroke stroke;
  const Eigen::Vector2d along = board.step.normalized();
  stroke.line.direction = isFirst ? along : Eigen::Vector2d(-along.y(), along.x());
  stroke.line.origin = board.first + shift * stroke.line.Normal();
  stroke.profile = StrokeProfile(edges, stroke.line.Normal(), board.stroke);
  return stroke;
}

DrawnBoard OneMark() {
  DrawnBoard board;
  board.width = board.height = 90;
  board.first = {44.3, 45.8};
  board.step = {57.0, 19.0};
  return board;
}

TEST(BlockFit, MeasuresHowFarTheStrokeIsFromItsExpectedLine) {
  const DrawnBoard board = OneMark();
  const EdgeTables edges(board.blur);
  std::vector<Block> blocks;
  FitBlocks(board.Draw(), StrokeOf(board, edges, -0.1, true), StrokeOf(board, edges, 0.0, false),
            {3.0, 20.0, 5}, 0, blocks);
  ASSERT_EQ(blocks.size(), 5U);
  for (const Block& block : blocks) {
    EXPECT_NEAR(block.shift, 0.1, 0.01) << block.along;
    EXPECT_NEAR(block.darkness, 160.0, 3.0) << block.along;
    EXPECT_EQ(block.arm, 0);
  }
}

// The same picture with noise; the drawing itself takes longer.
GrayPicture WithNoise(const GrayPicture& picture, double noise, std::mt19937& random) {
  std::normal_distribution<double> gauss(0.0, noise);
  GrayPicture noisy = picture;
  for (int y = 0; y < noisy.Height(); ++y) {
    for (int x = 0; x < noisy.Width(); ++x) {
      const double level = std::round(picture.At(x, y) + gauss(random));
      noisy.Row(y)[x] = static_cast<std::uint8_t>(std::clamp(level, 0.0, 255.0));
    }
  }
  return noisy;
}

TEST(BlockFit, BlocksScatterAsTheirInformationSays) {
  const DrawnBoard board = OneMark();
  const EdgeTables edges(board.blur);
  const GrayPicture picture = board.Draw();
  constexpr int kPictures = 300;
  constexpr double kNoise = 4.0;
  std::mt19937 random(7);
  std::array<double, 4> sums = {};
  std::array<double, 4> squares = {};
  std::array<double, 4> information = {};
  for (int i = 0; i < kPictures; ++i) {
    std::vector<Block> blocks;
    FitBlocks(WithNoise(picture, kNoise, random), StrokeOf(board, edges, 0.0, true),
              StrokeOf(board, edges, 0.0, false), {-20.0, -3.0, 4}, 1, blocks);
    ASSERT_EQ(blocks.size(), 4U);
    for (std::size_t block = 0; block < 4; ++block) {
      sums[block] += blocks[block].shift / kPictures;
      squares[block] += blocks[block].shift * blocks[block].shift / kPictures;
      information[block] += blocks[block].information / kPictures;
    }
  }
  for (std::size_t block = 0; block < 4; ++block) {
    const double variance = squares[block] - sums[block] * sums[block];
    EXPECT_NEAR(variance * information[block] / (kNoise * kNoise), 1.0, 0.25) << block;
  }
}

TEST(BlockFit, AnEdgeHasNoContrastAgainstItsDarkSide) {
  GrayPicture picture(60, 60, 200);
  for (int y = 30; y < 60; ++y) {
    for (int x = 0; x < 60; ++x) {
      picture.Row(y)[x] = 30;
    }
  }
  DrawnBoard board;
  board.first = {30.0, 31.0};
  const EdgeTables edges(0.7);
  std::vector<Block> blocks;
  FitBlocks(picture, StrokeOf(board, edges, 0.0, true), StrokeOf(board, edges, 0.0, false),
            {5.0, 20.0, 3}, 0, blocks);
  ASSERT_FALSE(blocks.empty());
  for (const Block& block : blocks) {
    EXPECT_LT(block.contrast, 10.0);
  }
}

TEST(BlockFit, OutsideThePictureThereAreNoBlocks) {
  DrawnBoard board = OneMark();
  const EdgeTables edges(board.blur);
  const GrayPicture picture = board.Draw();
  board.first = {-200.0, 45.0};
  std::vector<Block> blocks;
  FitBlocks(picture, StrokeOf(board, edges, 0.0, true), StrokeOf(board, edges, 0.0, false),
            {3.0, 20.0, 5}, 0, blocks);
  EXPECT_TRUE(blocks.empty());
}

}  // namespace
}  // namespace quorvex::tests
