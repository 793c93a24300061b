#include "interface/grid_numbering.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/support/list_drive.h"
#include "tests/support/points.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

CalibrationPoint GridMark(int id, int row, int col) {
  return MakePoint(id, row, col, 50.0f + 50.0f * static_cast<float>(col),
                   50.0f + 50.0f * static_cast<float>(row));
}

TEST(NumberGrid, CountsRowByRowFromOne) {
  PointList grid = {GridMark(0, 0, 0), GridMark(0, 0, 2), GridMark(0, 1, 0), GridMark(0, 2, 1)};
  NumberGrid(grid);
  EXPECT_EQ(Ids(grid), (std::vector<int>{1, 3, 4, 8}));
}

TEST(NumberGrid, PointsWithoutAPlaceGetSmallIds) {
  PointList grid = {GridMark(0, 0, 2), GridMark(0, -1, 0), GridMark(0, 0, -1),
                    GridMark(0, -104, -1)};
  NumberGrid(grid);
  EXPECT_EQ(Ids(grid), (std::vector<int>{3, -3 + 1, 0, -312}));
}

TEST(NumberGrid, ASingleColumnGivesIdZeroToRowMinusOne) {
  PointList grid = {GridMark(7, 0, 0), GridMark(7, -1, 0)};
  NumberGrid(grid);
  EXPECT_EQ(Ids(grid), (std::vector<int>{1, 0}));
  PointList points;
  AppendNumberedPoints(grid, points);
  EXPECT_EQ(Ids(points), (std::vector<int>{1, 0}));
}

TEST(NumberGrid, WithoutAnyColumnIdsStayDefined) {
  PointList grid = {GridMark(7, 3, -1)};
  NumberGrid(grid);
  EXPECT_EQ(Ids(grid), std::vector<int>{0});
  PointList empty;
  NumberGrid(empty);
  EXPECT_TRUE(empty.empty());
}

class CompleteGridTest : public ::testing::Test {
 protected:
  bool HasPredicted() const { return drive.HasList("sdf.txt"); }

  TemporaryDirectory directory;
  ListDrive drive;
};

PointList Grid(int rows, int cols) {
  PointList points;
  for (int cell = 0; cell < rows * cols; ++cell) {
    points.push_back(GridMark(cell + 1, cell / cols, cell % cols));
  }
  return points;
}

TEST_F(CompleteGridTest, AFullGridIsNotPredicted) {
  PointList grid = Grid(3, 3);
  CompleteGrid(400, 400, grid);
  EXPECT_EQ(grid.size(), 9u);
  EXPECT_FALSE(HasPredicted());
}

TEST_F(CompleteGridTest, AMissingMarkIsAppended) {
  PointList grid = Grid(3, 3);
  grid.erase(grid.begin() + 4);
  CompleteGrid(400, 400, grid);
  EXPECT_EQ(Ids(grid), (std::vector<int>{1, 2, 3, 4, 6, 7, 8, 9, 5}));
  EXPECT_TRUE(HasPredicted());
}

// The points are counted, not the cells: a double hides an empty cell.
TEST_F(CompleteGridTest, AsManyPointsAsCellsAreEnough) {
  PointList grid = Grid(3, 3);
  grid[4] = GridMark(1, 0, 0);
  CompleteGrid(400, 400, grid);
  EXPECT_EQ(grid.size(), 9u);
  EXPECT_FALSE(HasPredicted());
}

TEST_F(CompleteGridTest, AnEmptyGridIsLeftAlone) {
  PointList grid;
  CompleteGrid(400, 400, grid);
  EXPECT_TRUE(grid.empty());
}

TEST(AppendNumberedPoints, DropsNegativeIdsAndKeepsWhatIsThere) {
  PointList points = {GridMark(-9, 0, 0)};
  AppendNumberedPoints({GridMark(4, 0, 0), GridMark(-1, 0, 0), GridMark(0, 0, 0)}, points);
  EXPECT_EQ(Ids(points), (std::vector<int>{-9, 4, 0}));
}

TEST(SortPointsById, AscendsAndKeepsTheOrderOfEquals) {
  PointList points = {GridMark(3, 1, 0), GridMark(-5, 2, 0), GridMark(3, 3, 0), GridMark(1, 4, 0)};
  SortPointsById(points);
  EXPECT_EQ(Ids(points), (std::vector<int>{-5, 1, 3, 3}));
  EXPECT_EQ(points[2].row, 1);
  EXPECT_EQ(points[3].row, 3);
}

}  // namespace
}  // namespace quorvex::tests
