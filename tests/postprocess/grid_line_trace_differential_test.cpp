// Traces through grids and heaps of points, held against the plain form.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "postprocess/grid_line_trace.h"
#include "tests/reference/postprocess.h"
#include "tests/support/differential.h"
#include "tests/support/list_difference.h"
#include "tests/support/random_grid.h"

namespace quorvex::tests {
namespace {

// What is traced, and behind it where the trace ends.
template <typename Trace>
PointList Traced(Trace trace, const PointList& points, CalibrationPoint previous,
                 CalibrationPoint current) {
  PointList output;
  trace(points, previous, current, output);
  output.push_back(previous);
  output.push_back(current);
  return output;
}

// The points that both forms trace, or what differs.
struct Comparison {
  std::size_t longest = 0;
  std::string difference;
};

Comparison CompareTraces(CaseRandom& random) {
  Comparison comparison;
  PointList points = RandomGridPoints(random);
  Shuffle(random, points);
  for (int n = 0; n < 8 && comparison.difference.empty(); ++n) {
    const CalibrationPoint current = OneOfPoints(random, points);
    CalibrationPoint previous = OneOfPoints(random, points);
    if (random.OneIn(2)) {  // a step that the grid can go on with
      previous = current;
      (random.OneIn(2) ? previous.x : previous.y) +=
          random.OneOf({-1.0f, 1.0f}) * random.Fraction(4, 400);
    }
    const PointList plain = Traced(plain::TraceGridLine, points, previous, current);
    const PointList fast = Traced(TraceGridLine, points, previous, current);
    comparison.longest = std::max(comparison.longest, plain.size());
    comparison.difference = ListDifference(plain, fast);
  }
  return comparison;
}

std::string SamePointsAsThePlainForm(CaseRandom& random) {
  return CompareTraces(random).difference;
}
DIFFERENTIAL_TEST(GridLineTraceDifferential, SamePointsAsThePlainForm, kCases / 5);

// Or the cases would show little.
TEST(GridLineTraceDifferential, SomeTracesAreLong) {
  std::size_t longest = 0;
  for (std::uint32_t seed = 1; seed <= 20; ++seed) {
    CaseRandom random(seed);
    longest = std::max(longest, CompareTraces(random).longest);
  }
  EXPECT_GT(longest, 6u);
}

}  // namespace
}  // namespace quorvex::tests
