#include <gtest/gtest.h>

#include <string>

#include "grid/row_tracing_pass.h"
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

// Near the places of the marks in the middle column, or anywhere.
PointList RandomSeeds(CaseRandom& random, const TestImage& image) {
  PointList seeds;
  for (int row = 0; row < 3; ++row) {
    CalibrationPoint seed = {};
    seed.row = row;
    seed.x = static_cast<float>(image.width / 2) + random.Fraction(-30, 30);
    seed.y = static_cast<float>(80 + 135 * row) + random.Fraction(-30, 30);
    if (random.OneIn(10)) {
      seed.x = random.OneOf({-100.0f, 1e30f, 0.0f});
    }
    seeds.push_back(seed);
  }
  return seeds;
}

std::string SameGridAndPictures(CaseRandom& random) {
  SideBySide& forms = SharedSideBySide();
  const Board board = RandomBoard(random);
  const TestImage& image = board.image;
  const PointList seeds = RandomSeeds(random, image);
  const int columnSpan = random.OneOf({20, 20, 1, 0});
  PointList plainGrid(2);
  PointList fastGrid = plainGrid;
  bool plainResult = false;
  bool fastResult = false;
  forms.RunMostlyBlocked(
      random,
      [&] {
        plainResult =
            plain::TraceRowsFromSeeds(image.Data(), image.width, image.height, 0, columnSpan, 300,
                                      seeds, board.rowSpans, board.columnSpans, plainGrid);
      },
      [&] {
        fastResult = TraceRowsFromSeeds(image.Data(), image.width, image.height, 0, columnSpan, 300,
                                        seeds, board.rowSpans, board.columnSpans, fastGrid);
      });
  if (plainResult != fastResult) {
    return std::string(fastResult ? "found" : "not found");
  }
  const std::string difference = ListDifference(plainGrid, fastGrid);
  return difference.empty() ? forms.FileDifference() : difference;
}
DIFFERENTIAL_TEST(RowTracingPassDifferentialTest, SameGridAndPictures, 60);

}  // namespace
}  // namespace quorvex::tests
