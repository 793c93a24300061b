#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <string>

#include "interface/grid_numbering.h"
#include "tests/reference/interface.h"
#include "tests/support/differential.h"
#include "tests/support/points.h"
#include "tests/support/reserved_bytes.h"

namespace quorvex::tests {
namespace {

std::string SameOrderById(CaseRandom& random) {
  const int kinds = random.OneOf({1, 2, 6, 300});
  PointList plainPoints;
  for (int i = random.Below(50); i > 0; --i) {
    const int id = random.Below(kinds) - 2;
    plainPoints.push_back(Marked(MakePoint(id, i, i, 1.0f, 2.0f), i));
  }
  PointList fastPoints = plainPoints;
  plain::SortPointsById(plainPoints);
  SortPointsById(fastPoints);
  for (std::size_t i = 0; i < plainPoints.size(); ++i) {
    if (std::memcmp(&plainPoints[i], &fastPoints[i], sizeof plainPoints[i]) != 0) {
      return "place " + std::to_string(i) + " of " + std::to_string(plainPoints.size()) +
             " has row " + std::to_string(fastPoints[i].row) + ", plain " +
             std::to_string(plainPoints[i].row);
    }
  }
  return std::string();
}
DIFFERENTIAL_TEST(GridNumberingDifferentialTest, SameOrderById, kCases);

}  // namespace
}  // namespace quorvex::tests
