#include "tools/compare/compare_points.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

namespace quorvex::tests {

using namespace tools;

namespace {

constexpr int kColumns = 4;
constexpr double kPitch = 100;  // pixels

// A board of 3 rows and 4 columns; the mark in row 1, column 2 is left out.
std::vector<TruthMark> Board() {
  std::vector<TruthMark> marks;
  for (int row = 0; row < 3; ++row) {
    for (int col = 0; col < kColumns; ++col) {
      marks.push_back({row, col, kPitch * (col + 1), kPitch * (row + 1), row == 1 && col == 2});
    }
  }
  return marks;
}

std::vector<ListedPoint> PointsAt(const std::vector<TruthMark>& marks) {
  std::vector<ListedPoint> points;
  for (const TruthMark& m : marks) {
    points.push_back({m.row * kColumns + m.column + 1, m.row, m.column, m.x, m.y});
  }
  return points;
}

TEST(ComparePoints, TheBoardItselfIsComplete) {
  const Comparison c = ComparePoints(PointsAt(Board()), Board(), 20);
  EXPECT_TRUE(c.IsComplete());
  EXPECT_EQ(c.visibleMarks, 11);
  EXPECT_EQ(c.leftOutMarks, 1);
  EXPECT_EQ(c.found.count, 11);
  EXPECT_EQ(c.filledIn.count, 1);
  EXPECT_EQ(c.found.max, 0);
}

TEST(ComparePoints, CountsMissedAndExtra) {
  std::vector<ListedPoint> points = PointsAt(Board());
  points[0].x += 20.5;  // too far from its mark, so missed and extra
  points.pop_back();    // missed
  const Comparison c = ComparePoints(points, Board(), 20);
  EXPECT_EQ(c.found.count, 9);
  EXPECT_EQ(c.missed, 2);
  EXPECT_EQ(c.extra, 1);
  EXPECT_FALSE(c.IsComplete());
}

TEST(ComparePoints, AMarkLeftOutNeedsNoPoint) {
  std::vector<ListedPoint> points = PointsAt(Board());
  points.erase(points.begin() + 6);
  const Comparison c = ComparePoints(points, Board(), 20);
  EXPECT_EQ(c.filledIn.count, 0);
  EXPECT_TRUE(c.IsComplete());
}

TEST(ComparePoints, ToleranceIsInclusive) {
  std::vector<ListedPoint> points = PointsAt(Board());
  points[0].y += 20;
  EXPECT_EQ(ComparePoints(points, Board(), 20).missed, 0);
}

TEST(ComparePoints, MeasuresFoundAndFilledInApart) {
  std::vector<ListedPoint> points = PointsAt(Board());
  points[0].x += 3, points[0].y += 4;
  points[5].x -= 1;
  points[6].y += 12;  // the mark left out
  const Comparison c = ComparePoints(points, Board(), 20);
  EXPECT_DOUBLE_EQ(c.found.rms, std::sqrt(26.0 / 11));
  EXPECT_DOUBLE_EQ(c.found.max, 5);
  EXPECT_DOUBLE_EQ(c.found.median, 0);
  EXPECT_DOUBLE_EQ(c.filledIn.rms, 12);
  EXPECT_DOUBLE_EQ(c.filledIn.max, 12);
}

TEST(ComparePoints, MedianOfAnEvenCountIsTheMeanOfTheMiddleTwo) {
  const std::vector<TruthMark> marks{{0, 0, 0, 0, false}, {0, 1, 100, 0, false}};
  const Comparison c = ComparePoints({{1, 0, 0, 1, 0}, {2, 0, 1, 104, 0}}, marks, 20);
  EXPECT_DOUBLE_EQ(c.found.median, 2.5);
}

TEST(ComparePoints, TheNearestPairIsMatchedFirst) {
  const std::vector<TruthMark> marks{{0, 0, 0, 0, false}, {0, 1, 30, 0, false}};
  // The first point is within reach of both marks; the second mark is nearer to the second point.
  const Comparison c = ComparePoints({{1, 0, 0, 16, 0}, {2, 0, 1, 31, 0}}, marks, 20);
  EXPECT_EQ(c.found.count, 2);
  EXPECT_EQ(c.labels, Labels::kAgree);
  EXPECT_DOUBLE_EQ(c.found.max, 16);
}

TEST(ComparePoints, TwoPointsAtOneMarkAreOneFoundAndOneExtra) {
  std::vector<ListedPoint> points = PointsAt(Board());
  points.push_back(points[3]);
  points.back().x += 5;
  const Comparison c = ComparePoints(points, Board(), 20);
  EXPECT_EQ(c.found.count, 11);
  EXPECT_EQ(c.extra, 1);
  EXPECT_EQ(c.found.max, 0);
}

TEST(ComparePoints, TellsAConstantOffsetOfTheLabels) {
  std::vector<ListedPoint> points = PointsAt(Board());
  for (ListedPoint& p : points) p.row += 2, p.col -= 1;
  const Comparison c = ComparePoints(points, Board(), 20);
  EXPECT_EQ(c.labels, Labels::kOffset);
  EXPECT_EQ(c.rowOffset, 2);
  EXPECT_EQ(c.columnOffset, -1);
  EXPECT_EQ(c.wrongLabels, 12);
  EXPECT_FALSE(c.IsComplete());
}

TEST(ComparePoints, TellsExchangedRowsAndColumns) {
  std::vector<ListedPoint> points = PointsAt(Board());
  for (ListedPoint& p : points) std::swap(p.row, p.col);
  EXPECT_EQ(ComparePoints(points, Board(), 20).labels, Labels::kTransposed);
}

TEST(ComparePoints, OneWrongLabelIsADisagreement) {
  std::vector<ListedPoint> points = PointsAt(Board());
  points[7].col = 9;
  const Comparison c = ComparePoints(points, Board(), 20);
  EXPECT_EQ(c.labels, Labels::kDisagree);
  EXPECT_EQ(c.wrongLabels, 1);
}

TEST(ComparePoints, NothingMatchedMeansEverythingMissed) {
  const Comparison c = ComparePoints({}, Board(), 20);
  EXPECT_EQ(c.missed, 11);
  EXPECT_EQ(c.found.rms, 0);
  EXPECT_FALSE(c.IsComplete());
}

TEST(ComparePoints, LabelsAtTheEndsOfTheRangeDoNotOverflow) {
  const std::vector<TruthMark> marks{{-2147483647, 0, 0, 0, false}};
  const Comparison c = ComparePoints({{1, 2147483647, 0, 0, 0}}, marks, 20);
  EXPECT_EQ(c.rowOffset, 4294967294);
}

TEST(ComparePoints, NamesWhatDoesNotAgree) {
  std::vector<ListedPoint> points = PointsAt(Board());
  points[1].col = 3;
  points[11].x += 30;  // missed and extra
  const Comparison c = ComparePoints(points, Board(), 20);
  ASSERT_EQ(c.missedMarks.size(), 1u);
  EXPECT_EQ(c.missedMarks[0].row, 2);
  EXPECT_EQ(c.missedMarks[0].column, 3);
  ASSERT_EQ(c.extraPoints.size(), 1u);
  EXPECT_EQ(c.extraPoints[0].id, 12);
  ASSERT_EQ(c.mislabelled.size(), 1u);
  EXPECT_EQ(c.mislabelled[0].point.id, 2);
  EXPECT_EQ(c.mislabelled[0].mark.column, 1);
}

TEST(ComparePoints, AMarkLeftOutIsNeverMissed) {
  std::vector<ListedPoint> points = PointsAt(Board());
  points.erase(points.begin() + 6);
  EXPECT_TRUE(ComparePoints(points, Board(), 20).missedMarks.empty());
}

}  // namespace
}  // namespace quorvex::tests
