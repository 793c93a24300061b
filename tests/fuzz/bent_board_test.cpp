#include "fuzz/bent_board.h"

#include <gtest/gtest.h>

#include <cstdint>

#include "interface/quorvex.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::fuzz {
namespace {

// Without grids in their pictures, the detection would be left early.
TEST(BentBoard, ManyAreFound) {
  const tests::TemporaryDirectory directory;
  int found = 0;
  for (std::uint32_t seed = 1; seed <= 24; ++seed) {
    tests::CaseRandom random(seed);
    tests::TestImage image = RandomBentBoard(random);
    PointList points;
    const bool isFound = ::SingleCamDetectCalibrationPoint(image.Data(), image.width, image.height,
                                                           8, 20, 20, 0.0f, 0.0f, 300, points);
    found += isFound && points.size() >= 4 ? 1 : 0;
  }
  EXPECT_GE(found, 3);
}

}  // namespace
}  // namespace quorvex::fuzz
