#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "grid/cross_probe.h"
#include "tests/reference/grid.h"
#include "tests/support/float_difference.h"
#include "tests/support/random_board.h"

namespace quorvex::tests {
namespace {

struct Probe {
  PointF start;
  ProbeMode mode;
  float dx;
  float dy;
  int steps;
};

PointF RandomDirection(CaseRandom& random) {
  constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
  switch (random.Below(12)) {
    case 0:
      return {0.0f, 0.0f};
    case 1: {
      const float x = random.OneOf({kNaN, 1e30f, -1e30f, 1e9f, 0.5f});
      return {x, random.OneOf({kNaN, 1e30f, 0.0f, -3e9f, 1.0f})};
    }
    case 2:
    case 3:
    case 4:
      return random.OneOf<PointF>({{1.0f, 0.0f},
                                   {-1.0f, 0.0f},
                                   {0.0f, 1.0f},
                                   {0.0f, -1.0f},
                                   {-0.0f, 1.0f},
                                   {0.70710677f, 0.70710677f}});
    default: {
      // Near an axis, as the strokes of marks are, or anywhere.
      const float angle = random.OneIn(2) ? random.Fraction(-4, 4) : random.Fraction(-1, 1) * 0.25f;
      return {std::cos(angle), std::sin(angle)};
    }
  }
}

float RandomCoordinate(CaseRandom& random, int length) {
  constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
  const float near = random.Fraction(-60, length + 60);
  const float border =
      static_cast<float>(random.OneOf({-1, 0, 1, 49, 50, length - 2, length - 1, length}));
  return random.OneIn(30)  ? random.OneOf({kNaN, 1e30f, -3e9f, 2147483648.0f})
         : random.OneIn(4) ? border
                           : near;
}

Probe RandomProbe(CaseRandom& random, const TestImage& image) {
  const PointF direction = RandomDirection(random);
  Probe probe{};
  probe.start.x = RandomCoordinate(random, image.width);
  probe.start.y = RandomCoordinate(random, image.height);
  probe.mode = random.OneOf({kProbeRight, kProbeLeft, kProbeDown, kProbeUp});
  probe.dx = direction.x;
  probe.dy = direction.y;
  probe.steps = random.OneOf({-1, 0, 1, 121, 122, 123, 124, 125, 150, 300, 300, 500, 500});
  return probe;
}

std::string CompareForms(const TestImage& image, const Probe& probe, const PixelSpanList& rowSpans,
                         const PixelSpanList& columnSpans) {
  PointF plainNext{-5.0f, -5.0f};
  PointF fastNext = plainNext;
  const bool plainResult =
      plain::ProbeNextCross(image.Data(), image.width, image.height, probe.start, probe.mode,
                            probe.dx, probe.dy, probe.steps, rowSpans, columnSpans, plainNext);
  const bool fastResult =
      ProbeNextCross(image.Data(), image.width, image.height, probe.start, probe.mode, probe.dx,
                     probe.dy, probe.steps, rowSpans, columnSpans, fastNext);
  const std::string difference = PointDifference("next", plainNext, fastNext);
  if (plainResult == fastResult && difference.empty()) {
    return "";
  }
  return std::to_string(image.width) + " x " + std::to_string(image.height) + ", " +
         std::to_string(probe.steps) + " steps: " + (fastResult ? "found" : "not found") + ", " +
         difference;
}

std::string SameNextCross(CaseRandom& random) {
  const ImageSize size = RandomSize(random, random.OneIn(4) ? 320 : 130);
  const TestImage image = RandomImage(random, size, {0, 255, 254});
  const PixelSpanList rowSpans = RandomSpans(random, size.height, size.width);
  const PixelSpanList columnSpans = RandomSpans(random, size.width, size.height);
  const Probe probe = RandomProbe(random, image);
  return CompareForms(image, probe, rowSpans, columnSpans);
}
DIFFERENTIAL_TEST(CrossProbeDifferentialTest, SameNextCross, kCases);

std::string SameNextCrossOnBoards(CaseRandom& random) {
  const TestImage image = RandomStrokeBoard(random, {420, 400});
  const PixelSpanList rowSpans = RandomSpans(random, 400, 420);
  const PixelSpanList columnSpans = RandomSpans(random, 420, 400);
  std::string difference;
  for (int i = 0; i < 8 && difference.empty(); ++i) {
    const Probe probe = RandomProbe(random, image);
    difference = CompareForms(image, probe, rowSpans, columnSpans);
  }
  return difference;
}
DIFFERENTIAL_TEST(CrossProbeDifferentialTest, SameNextCrossOnBoards, 1'000);

}  // namespace
}  // namespace quorvex::tests
