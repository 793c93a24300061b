#include "crossmark/cross_lines.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/support/lines.h"

namespace quorvex::tests {
namespace {

constexpr float kDegree = 0.017453293f;

// A segment of that many points whose direction is `angle` (radians). Its line passes `c` pixels
// from the origin.
LineSegment Stroke(std::size_t points, float angle, float c = 0.0f) {
  LineSegment segment;
  segment.a = std::sin(angle);
  segment.b = -std::cos(angle);
  segment.c = c;
  segment.angle = angle;
  segment.points.resize(points);
  return segment;
}

struct Selection {
  bool isFound = false;
  float x = 0.0f;
  float y = 0.0f;
  LineSegment first;
  LineSegment second;
};

Selection Select(const LineSegmentList& segments) {
  Selection selection;
  selection.isFound =
      SelectCrossLines(segments, selection.x, selection.y, selection.first, selection.second);
  return selection;
}

// Whether strokes of these angles form a cross, both ways round.
bool IsCross(float angle, float other) {
  const bool isCross = Select({Stroke(50, angle), Stroke(40, other)}).isFound;
  EXPECT_EQ(Select({Stroke(50, other), Stroke(40, angle)}).isFound, isCross);
  return isCross;
}

TEST(SelectCrossLines, FewerThanTwoSegmentsFail) {
  EXPECT_FALSE(Select({}).isFound);
  EXPECT_FALSE(Select({Stroke(50, 0.0f)}).isFound);
}

TEST(SelectCrossLines, SegmentWithTheMostPointsIsFirst) {
  const Selection selection =
      Select({Stroke(40, 0.0f), Stroke(60, 1.5f), Stroke(50, 0.1f), Stroke(59, 1.4f)});
  EXPECT_TRUE(selection.isFound);
  EXPECT_EQ(selection.first.angle, 1.5f);
  EXPECT_EQ(selection.first.points.size(), 60u);
  EXPECT_EQ(selection.second.angle, 0.1f);
  EXPECT_EQ(selection.second.points.size(), 50u);
}

TEST(SelectCrossLines, EarliestOfEqualsIsFirst) {
  const Selection selection =
      Select({Stroke(40, 0.3f), Stroke(50, 0.1f), Stroke(50, 1.5f), Stroke(50, 0.2f)});
  EXPECT_EQ(selection.first.angle, 0.1f);
}

TEST(SelectCrossLines, EarliestOfEqualsIsSecond) {
  const Selection selection =
      Select({Stroke(20, 1.2f), Stroke(50, 0.1f), Stroke(30, 1.5f), Stroke(30, 1.4f)});
  EXPECT_EQ(selection.second.angle, 1.5f);
}

TEST(SelectCrossLines, StrokeOfFewPointsQualifiesToo) {
  EXPECT_TRUE(Select({Stroke(50, 0.0f), Stroke(0, 1.5f)}).isFound);
}

TEST(SelectCrossLines, SegmentsWithinThirtyDegreesFail) {
  EXPECT_FALSE(
      Select({Stroke(50, 0.0f), Stroke(40, 29 * kDegree), Stroke(40, -29 * kDegree)}).isFound);
}

TEST(SelectCrossLines, DifferenceMustExceedThirtyDegrees) {
  // The float nearest to 30 degrees lies above the bound, its lower neighbour below.
  const float nearest = 0.5235988f;
  EXPECT_TRUE(IsCross(0.0f, nearest));
  EXPECT_TRUE(IsCross(0.0f, -nearest));
  EXPECT_FALSE(IsCross(0.0f, std::nextafter(nearest, 0.0f)));
  EXPECT_FALSE(IsCross(0.0f, -std::nextafter(nearest, 0.0f)));
}

TEST(SelectCrossLines, DifferenceIsFormedInFloat) {
  // 1 + 0.5235987 is not a float; the next one differs from 1 by 0.52359867 and fails.
  const float reference = 1.0f;
  const float other = 1.5235987f;
  const float difference = other - reference;
  ASSERT_LT(static_cast<double>(difference), 0.5235987666666667);
  EXPECT_FALSE(IsCross(reference, other));
  EXPECT_TRUE(IsCross(reference, std::nextafter(other, 2.0f)));
}

TEST(SelectCrossLines, DifferenceOfAHundredAndSeventyDegreesFoldsToTen) {
  EXPECT_FALSE(IsCross(85 * kDegree, -85 * kDegree));
}

TEST(SelectCrossLines, DifferenceOfAHundredDegreesFoldsToEighty) {
  EXPECT_TRUE(IsCross(50 * kDegree, -50 * kDegree));
}

TEST(SelectCrossLines, FoldedDifferenceMeetsTheSameBound) {
  EXPECT_TRUE(IsCross(74 * kDegree, -74 * kDegree));   // 148 folds to 32
  EXPECT_FALSE(IsCross(76 * kDegree, -76 * kDegree));  // 152 folds to 28
}

TEST(SelectCrossLines, SecondFoldActsOnTheOutcomeOfTheFirst) {
  // 6.2 becomes -3.06 and then 0.08; only the segment of larger angle folds twice.
  EXPECT_FALSE(Select({Stroke(50, 0.0f), Stroke(40, 6.2f)}).isFound);
  EXPECT_TRUE(Select({Stroke(50, 6.2f), Stroke(40, 0.0f)}).isFound);
}

TEST(SelectCrossLines, NotANumberIsNoStroke) {
  EXPECT_FALSE(Select({Stroke(50, 0.0f), Stroke(40, std::nanf(""))}).isFound);
}

TEST(SelectCrossLines, ParallelLinesFailWhateverTheirAngles) {
  LineSegment second = Stroke(40, 0.0f, 5.0f);
  second.angle = 1.0f;
  EXPECT_FALSE(Select({Stroke(50, 0.0f), second}).isFound);
}

TEST(SelectCrossLines, ParallelSecondLineIsNotReplacedByALaterOne) {
  LineSegment parallel = Stroke(40, 0.0f, 5.0f);
  parallel.angle = 1.0f;
  EXPECT_FALSE(Select({Stroke(50, 0.0f), parallel, Stroke(39, 1.5f)}).isFound);
}

TEST(SelectCrossLines, CrossingIsThatOfTheChosenLines) {
  const LineSegment weak = Stroke(40, -0.2f, 31.0f);
  const LineSegment strong = Stroke(50, 1.3f, -77.0f);
  const Selection selection = Select({weak, strong});
  const volatile float left = strong.a * weak.b;
  const volatile float right = weak.a * strong.b;
  const volatile float d = left - right;
  const volatile float x[] = {weak.c * strong.b, weak.b * strong.c};
  const volatile float y[] = {weak.a * strong.c, weak.c * strong.a};
  const volatile float numeratorX = x[0] - x[1];
  const volatile float numeratorY = y[0] - y[1];
  EXPECT_TRUE(selection.isFound);
  EXPECT_EQ(Bits(selection.x), Bits(numeratorX / d));
  EXPECT_EQ(Bits(selection.y), Bits(numeratorY / d));
}

TEST(SelectCrossLines, ResultsAreWholeCopies) {
  LineSegment stroke = Stroke(50, 1.3f, -77.0f);
  stroke.start = {1.0f, 2.0f};
  stroke.end = {3.0f, 4.0f};
  stroke.points[49] = {5.0f, 6.0f};
  const Selection selection = Select({stroke, Stroke(40, 0.0f)});
  const LineSegment& first = selection.first;
  EXPECT_EQ(first.a, stroke.a);
  EXPECT_EQ(first.b, stroke.b);
  EXPECT_EQ(first.c, stroke.c);
  EXPECT_EQ(first.start.y, 2.0f);
  EXPECT_EQ(first.end.x, 3.0f);
  EXPECT_EQ(BitsOf(first.points), BitsOf(stroke.points));
}

}  // namespace
}  // namespace quorvex::tests
