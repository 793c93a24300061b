#include "base/rounding.h"

#include <gtest/gtest.h>

#include <limits>

namespace quorvex::tests {
namespace {

constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();

TEST(TruncateToInt, CutsTowardsZero) {
  EXPECT_EQ(TruncateToInt(2.9), 2);
  EXPECT_EQ(TruncateToInt(-2.9), -2);
  EXPECT_EQ(TruncateToInt(-0.5), 0);
}

TEST(TruncateToInt, NotANumberGivesZero) {
  EXPECT_EQ(TruncateToInt(std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST(TruncateToInt, ValuesOutOfRangeGiveTheNearestEnd) {
  EXPECT_EQ(TruncateToInt(1e300), kHighest);
  EXPECT_EQ(TruncateToInt(-1e300), kLowest);
  EXPECT_EQ(TruncateToInt(std::numeric_limits<double>::infinity()), kHighest);
  EXPECT_EQ(TruncateToInt(-std::numeric_limits<double>::infinity()), kLowest);
  EXPECT_EQ(TruncateToInt(2147483648.0), kHighest);
  EXPECT_EQ(TruncateToInt(2147483646.9), kHighest - 1);
  EXPECT_EQ(TruncateToInt(-2147483647.9), kLowest + 1);
}

TEST(RoundHalfUp, CutsAfterAddingOneHalf) {
  EXPECT_EQ(RoundHalfUp(2.5f), 3);
  EXPECT_EQ(RoundHalfUp(2.4f), 2);
  EXPECT_EQ(RoundHalfUp(-2.3f), -1);
  EXPECT_EQ(RoundHalfUp(-2.5f), -2);
  EXPECT_EQ(RoundHalfUp(-0.7f), 0);
}

TEST(RoundHalfUp, AddsTheHalfInDouble) {
  // In single precision the sum would be 1.
  EXPECT_EQ(RoundHalfUp(0.49999997f), 0);
  EXPECT_EQ(RoundHalfUp(8388609.0f), 8388609);
}

}  // namespace
}  // namespace quorvex::tests
