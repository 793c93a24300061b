// Traces through grids and heaps of points, held against the plain form.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "postprocess/grid_line_trace.h"
#include "tests/reference/postprocess.h"
#include "tests/support/differential.h"
#include "tests/support/list_difference.h"
#include "tests/support/points.h"

namespace quorvex::tests {
namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kNan = std::numeric_limits<float>::quiet_NaN();

// A line of a grid from the middle outwards, where the gaps shrink, stay or, seldom, grow.
std::vector<float> LinePlaces(CaseRandom& random) {
  std::vector<float> places = {0.0f};
  float gap = random.Fraction(4, random.OneOf({6, 60, 300, 1010}));
  for (int n = random.Between(1, 14); n > 0; --n) {
    places.push_back(places.back() + gap);
    places.insert(places.begin(), places.front() - gap);
    gap += random.OneOf({-0.001f, -0.5f, -3.0f, 0.0f, 1.0f});
  }
  return places;
}

float Disturbance(CaseRandom& random) {
  return random.OneIn(4) ? random.Fraction(-12, 12) : random.Fraction(-1, 1) / 64.0f;
}

CalibrationPoint StrangePoint(CaseRandom& random) {
  const auto value = [&random] {
    return random.OneOf({kNan, kInfinity, -kInfinity, 3e38f, 1e20f, 0.0f, -0.0f, 5.0f, 1000.0f});
  };
  const float x = value();
  return At(x, value());
}

PointList RandomPoints(CaseRandom& random) {
  PointList points;
  const bool isExact = random.OneIn(3);
  const std::vector<float> columns = LinePlaces(random);
  for (const float y : LinePlaces(random)) {
    for (const float x : columns) {
      const float dx = isExact ? 0.0f : Disturbance(random);
      const float dy = isExact ? 0.0f : Disturbance(random);
      points.push_back(MakePoint(static_cast<int>(points.size()), 0, 0, x + dx, y + dy));
    }
  }
  for (int n = random.OneIn(3) ? random.Below(6) : 0; n > 0; --n) {
    points.push_back(StrangePoint(random));
    points.push_back(
        points[static_cast<std::size_t>(random.Below(static_cast<int>(points.size())))]);
  }
  return points;
}

// Somewhere else in the list, so that equals do not always stand in the order of the grid.
void Shuffle(CaseRandom& random, PointList& points) {
  for (std::size_t i = points.size(); i > 1; --i) {
    std::swap(points[i - 1], points[static_cast<std::size_t>(random.Below(static_cast<int>(i)))]);
  }
}

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
  PointList points = RandomPoints(random);
  Shuffle(random, points);
  const auto some = [&] {
    return points[static_cast<std::size_t>(random.Below(static_cast<int>(points.size())))];
  };
  for (int n = 0; n < 8 && comparison.difference.empty(); ++n) {
    const CalibrationPoint current = some();
    CalibrationPoint previous = some();
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
