#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "crossmark/patch.h"
#include "crossmark/profile_refinement.h"
#include "tests/reference/crossmark.h"
#include "tests/support/float_difference.h"
#include "tests/support/random_image.h"

namespace quorvex::tests {
namespace {

LineSegment RandomLine(CaseRandom& random) {
  constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
  const float angle =
      random.OneIn(4) ? random.OneOf({0.0f, 1.5707963f, 0.7853982f}) : random.Fraction(-2, 2);
  LineSegment line;
  line.a = random.OneIn(30) ? random.OneOf({kNaN, 1e30f, 0.0f}) : std::sin(angle);
  line.b = random.OneIn(30) ? random.OneOf({kNaN, -1e30f, 0.0f}) : -std::cos(angle);
  line.c = random.Fraction(-200, 200);
  line.angle = angle;
  line.points = {{1.0f, 2.0f}};
  return line;
}

float RandomPosition(CaseRandom& random) {
  constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
  const float near = random.Fraction(-70, kPatchSize + 70);
  const float whole = static_cast<float>(random.Between(-60, kPatchSize + 60)) * 0.5f;
  return random.OneIn(40)  ? random.OneOf({kNaN, 1e30f, -1e30f, 3e9f})
         : random.OneIn(3) ? whole
                           : near;
}

std::string SameLine(CaseRandom& random) {
  const LevelList levels = random.OneIn(2) ? LevelList{200, 70, 71, 199} : LevelList{255, 0};
  const TestImage patch = RandomImage(random, {kPatchSize, kPatchSize}, levels);
  LineSegment plainLine = RandomLine(random);
  LineSegment fastLine = plainLine;
  const float x = RandomPosition(random);
  const float y = RandomPosition(random);
  plain::RefineLineByProfile(patch.Data(), x, y, plainLine);
  RefineLineByProfile(patch.Data(), x, y, fastLine);
  return LineDifference("line", plainLine, fastLine);
}
DIFFERENTIAL_TEST(ProfileRefinementDifferentialTest, SameLine, kCases);

}  // namespace
}  // namespace quorvex::tests
