#include "precise/centre_line.h"

#include <gtest/gtest.h>

#include <cmath>

namespace quorvex::tests {
namespace {

using precise::BendPrior;
using precise::Block;
using precise::CentreLine;
using precise::FitCentreLine;

std::vector<Block> BlocksOn(const std::array<double, 4>& line) {
  std::vector<Block> blocks;
  for (int i = -10; i <= 10; ++i) {
    Block block;
    block.along = 2.0 * i;
    block.shift =
        line[0] + block.along * (line[1] + block.along * (line[2] + block.along * line[3]));
    block.information = 1000.0;
    blocks.push_back(block);
  }
  return blocks;
}

BendPrior Loose() {
  BendPrior prior;
  prior.length = 20.0;
  prior.sigma = {10.0, 10.0};
  return prior;
}

TEST(CentreLine, FindsTheCubicThroughTheBlocks) {
  const std::array<double, 4> truth = {0.2, -0.01, 4e-4, -2e-5};
  const CentreLine line = FitCentreLine(BlocksOn(truth), 1.0, {}, Loose());
  ASSERT_TRUE(line.isFitted);
  for (std::size_t term = 0; term < 4; ++term) {
    EXPECT_NEAR(line.shift[term], truth[term], 1e-4 * std::abs(truth[term]) + 1e-7);
  }
}

TEST(CentreLine, AFewBlocksThatSomethingElseMovedDoNotCount) {
  std::vector<Block> blocks = BlocksOn({0.1, 0.0, 0.0, 0.0});
  blocks[3].shift = 2.0;
  blocks[4].shift = 1.5;
  const CentreLine line = FitCentreLine(blocks, 1.0, {}, Loose());
  EXPECT_NEAR(line.shift[0], 0.1, 0.002);
}

TEST(CentreLine, ABendWithoutLeewayStaysWhereItIs) {
  BendPrior prior;
  prior.length = 20.0;
  prior.expected = {1e-4, 0.0};
  const CentreLine line =
      FitCentreLine(BlocksOn({0.0, 0.0, 5e-4, 0.0}), 1.0, {0, 0, 1e-4, 0}, prior);
  EXPECT_NEAR(line.shift[2], 0.0, 1e-8);
}

TEST(CentreLine, VarianceFollowsNoiseAndDistance) {
  BendPrior prior;
  prior.length = 20.0;
  const std::vector<Block> blocks = BlocksOn({0, 0, 0, 0});
  const CentreLine line = FitCentreLine(blocks, 2.0, {}, prior);
  EXPECT_NEAR(line.Variance(0.0), 4.0 / (1000.0 * 21.0), 1e-7);
  EXPECT_GT(line.Variance(15.0), line.Variance(0.0));
}

TEST(CentreLine, OneBlockIsNoLine) {
  EXPECT_FALSE(FitCentreLine({Block()}, 1.0, {}, Loose()).isFitted);
}

}  // namespace
}  // namespace quorvex::tests
