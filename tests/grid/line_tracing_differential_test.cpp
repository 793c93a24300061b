#include <gtest/gtest.h>

#include <string>

#include "grid/line_tracing.h"
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
  board.image = RandomStrokeBoard(random, {440, 420});
  board.rowSpans = RandomSpans(random, board.image.height, board.image.width);
  board.columnSpans = RandomSpans(random, board.image.width, board.image.height);
  return board;
}

// One of the two faces, in either form.
using TraceForm = decltype(&plain::TraceRow);

std::string CompareForms(SideBySide& forms, CaseRandom& random, TraceForm plainTrace,
                         TraceForm fastTrace) {
  const Board board = RandomBoard(random);
  const TestImage& image = board.image;
  const int x = random.OneIn(4) ? random.Between(-20, 460) : image.width / 2;
  const int y = random.OneIn(4) ? random.Between(-20, 440) : image.height / 2;
  const int steps = random.OneOf({300, 300, 300, 500, 140, 121, 0});
  PointList plainPoints(random.OneIn(4) ? 100 : 0);  // the limit counts what the list held
  PointList fastPoints = plainPoints;
  forms.RunMostlyBlocked(
      random,
      [&] {
        plainTrace(image.Data(), image.width, image.height, x, y, steps, board.rowSpans,
                   board.columnSpans, 7, plainPoints);
      },
      [&] {
        fastTrace(image.Data(), image.width, image.height, x, y, steps, board.rowSpans,
                  board.columnSpans, 7, fastPoints);
      });
  const std::string difference = ListDifference(plainPoints, fastPoints);
  return difference.empty() ? forms.FileDifference() : difference;
}

// A trace locates several marks; the stages below it are compared on more cases of their own.
std::string SameRowsAndPictures(CaseRandom& random) {
  SideBySide& forms = SharedSideBySide();
  return CompareForms(forms, random, plain::TraceRow, TraceRow);
}
DIFFERENTIAL_TEST(LineTracingDifferentialTest, SameRowsAndPictures, 250);

std::string SameColumnsAndPictures(CaseRandom& random) {
  SideBySide& forms = SharedSideBySide();
  return CompareForms(forms, random, plain::TraceColumn, TraceColumn);
}
DIFFERENTIAL_TEST(LineTracingDifferentialTest, SameColumnsAndPictures, 250);

}  // namespace
}  // namespace quorvex::tests
