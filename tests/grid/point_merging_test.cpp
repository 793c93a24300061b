#include "grid/point_merging.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <vector>

#include "grid/outlier_rejection.h"
#include "tests/support/points.h"

namespace quorvex::tests {
namespace {

// A mark of the grid: columns 100 pixels apart from x = 200, row 0 at y = 800 and rows upward.
// The id tells where a point came from.
CalibrationPoint GridMark(int id, int row, int col) {
  return MakePoint(id, row, col, 200.0f + 100.0f * static_cast<float>(col),
                   800.0f - 100.0f * static_cast<float>(row));
}

// The same place in an extra list; such lists carry numbers of their own.
CalibrationPoint ExtraMark(int id, int row, int col) {
  CalibrationPoint point = GridMark(id, row, col);
  point.row = 50;
  point.col = 60;
  return point;
}

PointList Grid(int rows, int cols) {
  PointList points;
  for (int row = 0; row < rows; ++row) {
    for (int col = 0; col < cols; ++col) {
      points.push_back(GridMark(row * cols + col + 1, row, col));
    }
  }
  return points;
}

struct Place {
  int id;
  int row;
  int col;
};

bool operator==(const Place& a, const Place& b) {
  return a.id == b.id && a.row == b.row && a.col == b.col;
}

void PrintTo(const Place& place, std::ostream* out) {
  *out << "{" << place.id << ", " << place.row << ", " << place.col << "}";
}

// What follows the first `count` points of a merged list.
std::vector<Place> PlacesBehind(const PointList& points, std::size_t count) {
  std::vector<Place> places;
  for (std::size_t i = count; i < points.size(); ++i) {
    places.push_back({points[i].id, points[i].row, points[i].col});
  }
  return places;
}

using Places = std::vector<Place>;

// Four marks of columns 1 to 4 and of one new row; the row is tilted, so that x is a straight line
// over y, too, and no mark is a stray in the column half.
PointList NewRow(int row, float tilt) {
  PointList points;
  for (int col = 1; col <= 4; ++col) {
    points.push_back(ExtraMark(70 + col, row, col));
    points.back().y += tilt * static_cast<float>(col);
  }
  return points;
}

TEST(MergePointSets, TwoEmptyListsLeaveTheResultAlone) {
  PointList merged = {GridMark(7, 0, 0)};
  MergePointSets({}, {}, merged);
  EXPECT_EQ(merged.size(), 1u);
}

TEST(MergePointSets, TheLongerListIsTheGrid) {
  const PointList longer = Grid(3, 3);
  const PointList shorter = {ExtraMark(70, 0, 0)};  // a duplicate
  for (const bool isFirst : {true, false}) {
    PointList merged = {GridMark(7, 0, 0)};
    MergePointSets(isFirst ? longer : shorter, isFirst ? shorter : longer, merged);
    EXPECT_EQ(PlacesBehind(merged, 0), PlacesBehind(longer, 0));
  }
}

TEST(MergePointSets, OfEquallyLongListsTheSecondIsTheGrid) {
  PointList second = Grid(2, 2);
  for (CalibrationPoint& point : second) {
    point.id += 100;
  }
  PointList merged;
  MergePointSets(Grid(2, 2), second, merged);
  EXPECT_EQ(PlacesBehind(merged, 0), PlacesBehind(second, 0));
}

TEST(MergeIntoGrid, DuplicatesLeaveTheGridAsItIs) {
  PointList extra;
  for (CalibrationPoint point : Grid(3, 3)) {
    point.x += 9.9f;
    point.y -= 9.9f;
    extra.push_back(point);
  }
  PointList merged;
  MergeIntoGrid(Grid(3, 3), extra, merged);
  EXPECT_EQ(PlacesBehind(merged, 0), PlacesBehind(Grid(3, 3), 0));
}

TEST(MergeIntoGrid, TenPixelsInEitherAxisAreNoDuplicate) {
  for (const float dx : {10.0f, -10.0f, 0.0f}) {
    CalibrationPoint point = ExtraMark(70, 1, 1);
    point.x += dx;
    point.y += dx == 0.0f ? -10.0f : 0.0f;
    PointList merged;
    MergeIntoGrid(Grid(3, 3), {point}, merged);
    EXPECT_EQ(PlacesBehind(merged, 9), (Places{{70, 1, 1}})) << dx;
  }
}

TEST(MergeIntoGrid, AnExtraPointOfIdMinusOneCountsAsADuplicate) {
  PointList grid = Grid(4, 4);
  grid.erase(grid.begin() + 5);
  PointList merged;
  MergeIntoGrid(grid, {ExtraMark(-1, 1, 1)}, merged);
  EXPECT_EQ(merged.size(), 15u);
}

TEST(MergeIntoGrid, AMissingMarkJoinsItsRowAndColumn) {
  PointList grid = Grid(4, 4);
  grid.erase(grid.begin() + 5);
  PointList merged;
  MergeIntoGrid(grid, {ExtraMark(70, 1, 1)}, merged);
  EXPECT_EQ(PlacesBehind(merged, 15), (Places{{70, 1, 1}}));
}

// The middle of five keeps 18/35 of its offset: 20 pixels leave more than 10.
TEST(MergeIntoGrid, APointTenPixelsOffARowDoesNotGetThatRow) {
  PointList grid = Grid(5, 5);
  grid.erase(grid.begin() + 12);
  CalibrationPoint near = ExtraMark(70, 2, 2);
  near.y += 19.0f;
  CalibrationPoint far = ExtraMark(71, 2, 2);
  far.y += 20.0f;
  PointList merged;
  MergeIntoGrid(grid, {near, far}, merged);
  EXPECT_EQ(PlacesBehind(merged, 24), (Places{{70, 2, 2}}));
}

// The stray of the line would bend the candidate's curve; it is thrown out first, and only there.
TEST(MergeIntoGrid, LinesAreCleanedOfStraysBeforeTheyAreAsked) {
  for (const bool isRow : {true, false}) {
    PointList grid = Grid(6, 6);
    CalibrationPoint& stray = isRow ? grid[2 * 6 + 4] : grid[4 * 6 + 2];
    (isRow ? stray.y : stray.x) += 40.0f;
    grid.erase(grid.begin() + 2 * 6 + 2);
    PointList merged;
    MergeIntoGrid(grid, {ExtraMark(70, 2, 2)}, merged);
    EXPECT_EQ(PlacesBehind(merged, 35), (Places{{70, 2, 2}})) << isRow;
  }
}

TEST(MergeIntoGrid, RowsAndColumnsOfOnePointAreNotAsked) {
  const PointList grid = {GridMark(1, 0, 0), GridMark(2, 1, 1)};
  PointList merged;
  MergeIntoGrid(grid, {ExtraMark(70, 0, 1)}, merged);
  EXPECT_EQ(merged.size(), 2u);
}

// Two points of a line and a third between or beyond them always lie on one curve, so that every
// row and every column accepts this point.
TEST(MergeIntoGrid, ALaterLineThatAcceptsOverwritesAnEarlierOne) {
  CalibrationPoint point = ExtraMark(70, 0, 0);
  point.x = 350.0f;
  point.y = 750.0f;
  PointList merged;
  MergeIntoGrid(Grid(2, 2), {point}, merged);
  EXPECT_EQ(PlacesBehind(merged, 4), (Places{{70, 1, 1}}));
}

TEST(MergeIntoGrid, MoreThanTwoMarksBehindTheLastColumnOpenANewOne) {
  PointList merged;
  MergeIntoGrid(Grid(4, 4), {ExtraMark(70, 0, 4), ExtraMark(71, 1, 4), ExtraMark(72, 2, 4)},
                merged);
  EXPECT_EQ(PlacesBehind(merged, 16), (Places{{70, 0, 4}, {71, 1, 4}, {72, 2, 4}}));
}

TEST(MergeIntoGrid, TheOrderOfTheGridDoesNotMatterForNewLines) {
  PointList grid = Grid(4, 5);
  std::reverse(grid.begin(), grid.end());
  PointList merged;
  MergeIntoGrid(grid, {ExtraMark(70, 0, 5), ExtraMark(71, 1, 5), ExtraMark(72, 2, 5)}, merged);
  EXPECT_EQ(PlacesBehind(merged, 20), (Places{{70, 0, 5}, {71, 1, 5}, {72, 2, 5}}));
  MergeIntoGrid(grid, NewRow(4, -5.0f), merged);
  EXPECT_EQ(PlacesBehind(merged, 20),
            (Places{{71, -101 - 3, -1}, {72, 4, 2}, {73, 4, 3}, {74, 4, 4}}));
}

TEST(MergeIntoGrid, TwoMarksOpenNoColumn) {
  PointList merged;
  MergeIntoGrid(Grid(4, 4), {ExtraMark(70, 0, 4), ExtraMark(71, 1, 4)}, merged);
  EXPECT_EQ(merged.size(), 16u);
}

// The new column before column 0 takes the number 0 beside the old one.
TEST(MergeIntoGrid, ANewColumnBeforeTheFirstSharesItsNumber) {
  PointList merged;
  MergeIntoGrid(Grid(4, 4), {ExtraMark(70, 0, -1), ExtraMark(71, 1, -1), ExtraMark(72, 2, -1)},
                merged);
  EXPECT_EQ(PlacesBehind(merged, 0)[0], (Place{1, 0, 0}));
  EXPECT_EQ(PlacesBehind(merged, 16), (Places{{70, 0, 0}, {71, 1, 0}, {72, 2, 0}}));
}

TEST(MergeIntoGrid, ANewColumnInTheMiddleTakesTheNumberAfterItsLeftNeighbour) {
  PointList grid;
  for (const CalibrationPoint& point : Grid(4, 6)) {
    if (point.col != 2) {
      grid.push_back(point);
      grid.back().col -= point.col > 2 ? 1 : 0;  // numbered 0 to 4 with a gap in the picture
    }
  }
  PointList merged;
  MergeIntoGrid(grid, {ExtraMark(70, 0, 2), ExtraMark(71, 1, 2), ExtraMark(72, 2, 2)}, merged);
  EXPECT_EQ(PlacesBehind(merged, 20), (Places{{70, 0, 2}, {71, 1, 2}, {72, 2, 2}}));
}

// The first survivor's number decides; a mark of another number that lies on the same curve stays
// out.
TEST(MergeIntoGrid, OnlyTheFirstSurvivorsNumberOpensAColumn) {
  PointList merged;
  MergeIntoGrid(Grid(4, 4), {ExtraMark(70, 0, -1), ExtraMark(71, 1, 4), ExtraMark(72, 2, 4)},
                merged);
  // Three marks always lie on one curve.
  EXPECT_EQ(PlacesBehind(merged, 16), (Places{{70, 0, 0}}));
}

// On one height x is no curve of y: nothing that could be a column survives the cleaning, and the
// row half gets all marks.
TEST(MergeIntoGrid, ALevelNewRowKeepsAllItsMarks) {
  const PointList row = NewRow(-1, 0.0f);
  PointList survivors = row;
  QuadraticCoefficients unusedCurve;
  RejectColumnOutliers(survivors, 10.0f, unusedCurve);
  ASSERT_LE(survivors.size(), 2u);
  PointList merged;
  MergeIntoGrid(Grid(4, 5), row, merged);
  EXPECT_EQ(PlacesBehind(merged, 20), (Places{{71, 0, 1}, {72, 0, 2}, {73, 0, 3}, {74, 0, 4}}));
}

// The column half comes first. It takes the first mark of the new row, whose column 1 is no code:
// minus that number.
TEST(MergeIntoGrid, ANewRowLosesItsFirstMarkToTheColumnHalf) {
  PointList merged;
  MergeIntoGrid(Grid(4, 5), NewRow(4, -5.0f), merged);
  EXPECT_EQ(PlacesBehind(merged, 20),
            (Places{{71, -101 - 3, -1}, {72, 4, 2}, {73, 4, 3}, {74, 4, 4}}));
}

TEST(MergeIntoGrid, ANewRowBelowTheFirstSharesItsNumber) {
  PointList merged;
  MergeIntoGrid(Grid(4, 5), NewRow(-1, 5.0f), merged);
  EXPECT_EQ(PlacesBehind(merged, 20), (Places{{71, -100, -1}, {72, 0, 2}, {73, 0, 3}, {74, 0, 4}}));
}

TEST(MergeIntoGrid, ExistingPointsKeepPlaceAndOrder) {
  PointList grid = Grid(4, 4);
  grid.erase(grid.begin() + 5);
  PointList merged = {GridMark(7, 0, 0)};
  MergeIntoGrid(
      grid, {ExtraMark(70, 0, 4), ExtraMark(71, 1, 1), ExtraMark(72, 1, 4), ExtraMark(73, 2, 4)},
      merged);
  const Places all = PlacesBehind(merged, 0);
  ASSERT_EQ(all.size(), 19u);
  EXPECT_EQ(Places(all.begin(), all.begin() + 15), PlacesBehind(grid, 0));
  // First the points with a place, then the new column.
  EXPECT_EQ(PlacesBehind(merged, 15), (Places{{71, 1, 1}, {70, 0, 4}, {72, 1, 4}, {73, 2, 4}}));
}

}  // namespace
}  // namespace quorvex::tests
