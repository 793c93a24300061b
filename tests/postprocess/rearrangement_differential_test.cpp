// Lists with any columns and any y, held against the plain form.
#include <gtest/gtest.h>

#include <climits>
#include <limits>
#include <string>

#include "postprocess/rearrangement.h"
#include "tests/reference/postprocess.h"
#include "tests/support/differential.h"
#include "tests/support/list_difference.h"
#include "tests/support/points.h"

namespace quorvex::tests {
namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kNan = std::numeric_limits<float>::quiet_NaN();

// The x tells the points apart.
PointList RandomPoints(CaseRandom& random, int count) {
  PointList points;
  const bool isWild = random.OneIn(3);
  for (int i = random.Below(60); i > 0; --i) {
    const int last = count > INT_MIN ? count - 1 : count;
    const int column =
        isWild ? random.OneOf({-1, 0, last, count, INT_MAX, INT_MIN, 3}) : random.Between(-1, 5);
    const float y = random.OneIn(5) ? random.OneOf({kNan, kInfinity, -kInfinity, -0.0f, 0.0f})
                                    : static_cast<float>(random.Below(20));
    points.push_back(MakePoint(random.Below(9), 0, column, static_cast<float>(i), y));
  }
  return points;
}

std::string SameListsAsThePlainForm(CaseRandom& random) {
  const int count = random.OneOf({4, 5, 6, 1, 0, -1, INT_MAX, INT_MIN, 1'000'000});
  const PointList points = RandomPoints(random, count);
  PointList plain = points;
  PointList fast = points;
  if (random.OneIn(2)) {
    plain::LeftPtsRearrange(plain, 0, count);
    LeftPtsRearrange(fast, 0, count);
  } else {
    plain::RightPtsRearrange(plain, 0, count);
    RightPtsRearrange(fast, 0, count);
  }
  return ListDifference(plain, fast);
}
DIFFERENTIAL_TEST(RearrangementDifferential, SameListsAsThePlainForm, kCases);

}  // namespace
}  // namespace quorvex::tests
