#include "precise/arm_judgement.h"

#include <gtest/gtest.h>

namespace quorvex::tests {
namespace {

using precise::ArmFit;
using precise::ArmSpan;
using precise::Block;
using precise::JudgeArms;
using precise::StrokeLook;
using precise::TypicalDarkness;

constexpr double kDarkness = 150.0;

// Five blocks on each arm that show the stroke.
std::vector<Block> Blocks() {
  std::vector<Block> blocks;
  for (int arm = 0; arm < 2; ++arm) {
    for (int i = 0; i < 5; ++i) {
      Block block;
      block.along = (arm == 0 ? 1.0 : -1.0) * (5.0 + 3.0 * i);
      block.information = 1.0;
      block.darkness = kDarkness;
      block.contrast = 0.9 * kDarkness;
      block.misfit = 4.0;
      block.arm = arm;
      blocks.push_back(block);
    }
  }
  return blocks;
}

StrokeLook Look() { return {kDarkness, 0.95, 2.0, true}; }

std::array<ArmFit, 2> Judged(std::vector<Block>& blocks, const StrokeLook& look) {
  const std::array<ArmSpan, 2> spans = {{{3.0, 20.0, 5}, {-20.0, -3.0, 5}}};
  return JudgeArms(look, spans, blocks);
}

TEST(ArmJudgement, SeesArmsWhoseBlocksShowTheStroke) {
  std::vector<Block> blocks = Blocks();
  const std::array<ArmFit, 2> arms = Judged(blocks, Look());
  EXPECT_EQ(blocks.size(), 10U);
  for (const ArmFit& arm : arms) {
    EXPECT_TRUE(arm.isSeen);
    EXPECT_EQ(arm.seenPart, 1.0);
    EXPECT_NEAR(arm.contrast, 0.9 * kDarkness, 1e-9);
    EXPECT_EQ(arm.lastSeen, 17.0);
  }
}

TEST(ArmJudgement, LeavesOutWhatIsNoPartOfTheStroke) {
  std::vector<Block> blocks = Blocks();
  blocks[0].darkness = 0.4 * kDarkness;
  blocks[6].contrast = 0.3 * kDarkness;
  const std::array<ArmFit, 2> arms = Judged(blocks, Look());
  EXPECT_EQ(blocks.size(), 8U);
  EXPECT_TRUE(arms[0].isSeen);
  EXPECT_NEAR(arms[1].seenPart, 0.8, 1e-9);
}

TEST(ArmJudgement, AnArmWithFewBlocksIsNotSeen) {
  std::vector<Block> blocks = Blocks();
  for (std::size_t i = 0; i < 3; ++i) {
    blocks[i].information = 0.0;
  }
  const std::array<ArmFit, 2> arms = Judged(blocks, Look());
  EXPECT_FALSE(arms[0].isSeen);
  EXPECT_TRUE(arms[1].isSeen);
  EXPECT_EQ(blocks.size(), 5U);
}

TEST(ArmJudgement, ResidualsCountNearTheStrokeOnly) {
  std::vector<Block> blocks = Blocks();
  blocks[2].misfit = 1000.0;
  StrokeLook far = Look();
  far.isNear = false;
  EXPECT_EQ(Judged(blocks, far)[0].seenPart, 1.0);
  EXPECT_NEAR(Judged(blocks, Look())[0].seenPart, 0.8, 1e-9);
}

TEST(ArmJudgement, TypicalDarknessIsTheMedianOfWhatIsDark) {
  std::vector<Block> blocks = Blocks();
  blocks[0].darkness = 900.0;
  blocks[1].contrast = -5.0;
  EXPECT_EQ(TypicalDarkness(blocks), kDarkness);
  EXPECT_EQ(TypicalDarkness({}), 0.0);
}

}  // namespace
}  // namespace quorvex::tests
