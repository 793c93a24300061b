#include <gtest/gtest.h>

#include <string>

#include "crossmark/line_intersection.h"
#include "tests/reference/crossmark.h"
#include "tests/support/differential.h"
#include "tests/support/float_difference.h"

namespace quorvex::tests {
namespace {

LineSegment RandomLine(CaseRandom& random) {
  LineSegment line;
  line.a =
      random.OneIn(3) ? random.OneOf({0.0f, 1.0f, -1.0f, 1e30f, 1e-30f}) : random.Fraction(-1, 1);
  line.b =
      random.OneIn(3) ? random.OneOf({0.0f, 1.0f, -1.0f, 1e30f, 1e-30f}) : random.Fraction(-1, 1);
  line.c = random.OneIn(8) ? 1e30f : random.Fraction(-300, 300);
  return line;
}

std::string SameCrossing(CaseRandom& random) {
  const LineSegment first = RandomLine(random);
  const LineSegment second = random.OneIn(5) ? first : RandomLine(random);
  PointF plainCrossing{-1.0f, -1.0f};  // stays when there is none
  PointF fastCrossing = plainCrossing;
  const bool plainResult = plain::IntersectLines(first, second, plainCrossing.x, plainCrossing.y);
  const bool fastResult = IntersectLines(first, second, fastCrossing.x, fastCrossing.y);
  return plainResult != fastResult ? std::string(fastResult ? "found" : "not found")
                                   : PointDifference("crossing", plainCrossing, fastCrossing);
}
DIFFERENTIAL_TEST(LineIntersectionDifferentialTest, SameCrossing, kCases);

}  // namespace
}  // namespace quorvex::tests
