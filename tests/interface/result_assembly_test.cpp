#include "interface/result_assembly.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <string>
#include <vector>

#include "tests/support/list_drive.h"
#include "tests/support/point_lists.h"
#include "tests/support/points.h"
#include "tests/support/stroke_image.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

constexpr int kSize = 800;  // pixels

// Crosses 150 pixels apart from (100, 100) on. A mask of zeros lets the refinement leave every
// point where the grid passes found it.
class AssembleResultTest : public ::testing::Test {
 protected:
  AssembleResultTest() {
    DrawCrosses(strokes, {100, 250, 400, 550, 700}, {100, 250, 400, 550, 700});
  }

  bool Assemble(PointList& points, int rowSteps = 300) {
    return AssembleResult(input.Data(),
                          {strokes, mask, FullSpans(kSize, kSize), FullSpans(kSize, kSize)},
                          {20, 20, rowSteps}, points);
  }

  void EraseCross(int x, int y) { DrawBox(strokes, x - 50, y - 50, x + 50, y + 50, 0); }

  TemporaryDirectory directory;
  ListDrive drive;
  GrayImage input{kSize, kSize};
  GrayImage strokes{kSize, kSize};
  GrayImage mask{kSize, kSize};
};

int LinesOf(const char* path) {
  std::ifstream file(path);
  int lines = 0;
  for (std::string line; std::getline(file, line);) {
    ++lines;
  }
  return lines;
}

void ExpectFullGrid(const PointList& points) {
  ExpectNumberedGrid(points, 5, 5);
  for (std::size_t k = 0; k < points.size(); ++k) {
    const CalibrationPoint& point = points[k];
    const int i = static_cast<int>(k);
    EXPECT_LT(std::fabs(point.x - static_cast<float>(100 + 150 * (i % 5))), 1.0f) << i;
    // The rows of the buffer are counted from its end.
    EXPECT_LT(std::fabs(point.y - static_cast<float>(99 + 150 * (i / 5))), 1.0f) << i;
  }
}

TEST_F(AssembleResultTest, NumbersTheWholeGridFromItsLastBufferRow) {
  PointList points;
  EXPECT_TRUE(Assemble(points));
  ExpectFullGrid(points);
}

TEST_F(AssembleResultTest, AFullGridIsNotPredicted) {
  PointList points;
  EXPECT_TRUE(Assemble(points));
  EXPECT_FALSE(drive.HasList("sdf.txt"));
  EXPECT_EQ(LinesOf("D:/Col.txt"), 25);
  EXPECT_EQ(LinesOf("D:/Row.txt"), 25);
}

TEST_F(AssembleResultTest, AMissingMarkIsPredictedInItsPlace) {
  EraseCross(700, 100);
  PointList points;
  EXPECT_TRUE(Assemble(points));
  ExpectFullGrid(points);
  EXPECT_TRUE(drive.HasList("sdf.txt"));
  EXPECT_EQ(LinesOf("D:/Col.txt"), 24);
}

TEST_F(AssembleResultTest, TextFilesThatCannotBeOpenedAreSkipped) {
  EraseCross(700, 100);  // for the list of predictions
  drive.BlockLists();
  PointList points;
  EXPECT_TRUE(Assemble(points));
  EXPECT_EQ(points.size(), 25u);
}

TEST_F(AssembleResultTest, WithoutAFirstGridNothingHappensToTheList) {
  for (const bool isEmptyImage : {true, false}) {
    strokes.Fill(0);
    if (!isEmptyImage) {
      DrawCrosses(strokes, {400}, {400});  // one cross is no row
    }
    PointList points = {MakePoint(9, 1, 1, -50.0f, 20.0f)};
    EXPECT_FALSE(Assemble(points));
    ASSERT_EQ(points.size(), 1u);
    EXPECT_EQ(points[0].y, 20.0f);
    EXPECT_FALSE(drive.HasLists());
  }
}

TEST_F(AssembleResultTest, PointsHeldBeforeTakePartInOrderFilterAndTurn) {
  PointList points = {
      MakePoint(12, 7, 7, 30.0f, 10.0f),    // far from all: stays, after the found 12th
      MakePoint(-4, 8, 8, 40.0f, 20.0f),    // a negative id is no reason to go here
      MakePoint(99, 8, 8, 100.0f, 100.0f),  // near a found point of a lower id
      MakePoint(0, 9, 9, 700.0f, 700.0f),   // near a found point of a higher id
      MakePoint(50, 8, 8, 799.5f, 20.0f),   // outside
      MakePoint(51, 8, 8, 799.0f, 799.0f),  // the last pixel is inside
  };
  EXPECT_TRUE(Assemble(points));
  std::vector<int> ids;
  for (const CalibrationPoint& point : points) {
    ids.push_back(point.id);
  }
  // The mark at (700, 700) is number 5 and gives way to the 0; that at (100, 100), number 21,
  // stays.
  EXPECT_EQ(ids, (std::vector<int>{-4, 0,  1,  2,  3,  4,  6,  7,  8,  9,  10, 11, 12, 12,
                                   13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 51}));
  EXPECT_EQ(points[0].y, 779.0f);
  EXPECT_EQ(points[1].row, 9);
  EXPECT_EQ(points[12].row, 7);  // the one held before stood in front: it stays in front
  EXPECT_EQ(points.back().y, 0.0f);
}

// On the grey image every mark lies 20 pixels further on; how exactly such coarse strokes are found
// is not the question here.
TEST_F(AssembleResultTest, TheRefinementMovesThePointsWithinTheMask) {
  input.Fill(200);
  for (int y = 100; y <= 700; y += 150) {
    for (int x = 100; x <= 700; x += 150) {
      for (int t = -40; t <= 40; ++t) {  // tilted strokes, two pixels wide
        const int across = t / 5;
        DrawBox(input, x + 20 + t, y + across, x + 20 + t, y + across + 1, 20);
        DrawBox(input, x + 20 - across, y + t, x + 21 - across, y + t, 20);
      }
    }
  }
  mask.Fill(255);
  PointList points;
  EXPECT_TRUE(Assemble(points));
  ASSERT_EQ(points.size(), 25u);
  for (int i = 0; i < 25; ++i) {
    const CalibrationPoint& point = points[static_cast<std::size_t>(i)];
    EXPECT_NEAR(point.x, 120.0f + 150.0f * static_cast<float>(i % 5), 5.0f) << i;
    EXPECT_NEAR(point.y, 99.0f + 150.0f * static_cast<float>(i / 5), 5.0f) << i;
  }
}

TEST_F(AssembleResultTest, RowStepsReachTheFirstPass) {
  PointList points;
  EXPECT_FALSE(Assemble(points, 121));
  EXPECT_TRUE(points.empty());
}

}  // namespace
}  // namespace quorvex::tests
