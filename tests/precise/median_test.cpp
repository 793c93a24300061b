#include "precise/median.h"

#include <gtest/gtest.h>

namespace quorvex::tests {
namespace {

double Median(std::vector<double> values) { return precise::MedianOf(values); }

TEST(Median, IsTheValueInTheMiddle) {
  EXPECT_EQ(Median({5.0, 1.0, 9.0}), 5.0);
  EXPECT_EQ(Median({3.0}), 3.0);
}

TEST(Median, IsTheUpperOfTwoInTheMiddle) { EXPECT_EQ(Median({4.0, 1.0, 3.0, 2.0}), 3.0); }

TEST(Median, IsZeroWithoutValues) { EXPECT_EQ(Median({}), 0.0); }

}  // namespace
}  // namespace quorvex::tests
