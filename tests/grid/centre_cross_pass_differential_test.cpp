#include <gtest/gtest.h>

#include <string>

#include "grid/centre_cross_pass.h"
#include "tests/reference/grid.h"
#include "tests/support/list_difference.h"
#include "tests/support/random_board.h"
#include "tests/support/side_by_side.h"

namespace quorvex::tests {
namespace {

struct Board {
  TestImage image;
  PixelSpanList rowSpans;
  PixelSpanList columnSpans;
};

Board RandomBoard(CaseRandom& random) {
  Board board;
  board.image = RandomStrokeBoard(random, {440, 440});
  board.rowSpans = RandomSpans(random, board.image.height, board.image.width);
  board.columnSpans = RandomSpans(random, board.image.width, board.image.height);
  return board;
}

std::string SameGridAndPictures(CaseRandom& random) {
  SideBySide& forms = SharedSideBySide();
  const Board board = RandomBoard(random);
  const TestImage& image = board.image;
  const int rowSpan = random.OneOf({20, 20, 1, 0});
  const int rowSteps = random.OneOf({300, 300, 500, 100});
  PointList plainGrid(2);
  PointList fastGrid = plainGrid;
  bool plainResult = false;
  bool fastResult = false;
  forms.RunMostlyBlocked(
      random,
      [&] {
        plainResult =
            plain::BuildGridFromCentreCross(image.Data(), image.width, image.height, rowSpan, 0,
                                            rowSteps, board.rowSpans, board.columnSpans, plainGrid);
      },
      [&] {
        fastResult =
            BuildGridFromCentreCross(image.Data(), image.width, image.height, rowSpan, 0, rowSteps,
                                     board.rowSpans, board.columnSpans, fastGrid);
      });
  if (plainResult != fastResult) {
    return std::string(fastResult ? "found" : "not found");
  }
  const std::string difference = ListDifference(plainGrid, fastGrid);
  return difference.empty() ? forms.FileDifference() : difference;
}
DIFFERENTIAL_TEST(CentreCrossPassDifferentialTest, SameGridAndPictures, 40);

}  // namespace
}  // namespace quorvex::tests
