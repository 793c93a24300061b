#include "precise/arm_trace.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "precise/stroke_section.h"

namespace quorvex::precise {
namespace {

constexpr double kFarthestEnd = 170.0;   // px; half of the largest pitch and some
constexpr double kEndDepth = 0.5;        // of the arm's contrast, where it ends
constexpr double kFollow = 0.4;          // of a cut's offset, that the trace moves aside
constexpr double kTurn = 0.04;           // radians that a cut turns for an offset of one sample
constexpr double kLargestOffset = 1.5;   // samples; a cut that is farther off hit something else
constexpr double kClearContrast = 10.0;  // times the noise of a cut: one pale cut is the arm's end
constexpr double kCrossingDepth =
    0.4;                           // of the contrast, that both sides darken where strokes cross
constexpr double kAdapting = 0.1;  // of a cut, to the light that changes along an arm
constexpr double kFading = 4.0;    // samples before the end, in which the arm fades
constexpr int kPaleCuts = 3;       // one after another, that end a noisy arm

// Sigma of a single value over that of a pixel, by level.
constexpr double kNoiseOfLevel[kLevels] = {0.375, 0.137, 0.068};

struct Walk {
  Eigen::Vector2d point;  // px of the level
  Eigen::Vector2d direction;
};

StrokeSection Cut(const PyramidLevel& level, const Walk& walk, double spacing) {
  return CutStroke(level, walk.point, {-walk.direction.y(), walk.direction.x()}, spacing);
}

// Follows the stroke at the walk's point.
void Follow(const StrokeSection& section, double spacing, Walk& walk) {
  const Eigen::Vector2d normal(-walk.direction.y(), walk.direction.x());
  const double offset =
      std::clamp(section.offset, -kLargestOffset * spacing, kLargestOffset * spacing);
  walk.point += kFollow * offset * normal;
  walk.direction = (walk.direction + kTurn * offset / spacing * normal).normalized();
}

// Depths of the cuts up to the end of the arm, its last `tail` cuts left out: there it fades.
double Palest(const std::vector<double>& depths, std::size_t tail, double contrast) {
  double palest = contrast;
  for (std::size_t k = 0; k + tail < depths.size(); ++k) {
    palest = std::min(palest, depths[k]);
  }
  return contrast > 0 ? palest / contrast : 0.0;
}

}  // namespace

MarkArm TraceArm(const PyramidLevel& level, const ArmStart& start, double spacing, double noise) {
  const double scale = level.Scale();
  const double ofValue = noise * kNoiseOfLevel[level.index];
  const Eigen::Vector2d centre = level.FromPicture(start.centre);
  Walk walk{centre + start.direction * (start.nearest / scale), start.direction};
  Eigen::Vector2d end = walk.point;
  std::vector<double> depths;
  std::size_t cutsToEnd = 0;
  double depthSum = 0.0;
  int depthCount = 0;
  int pale = 0;
  bool isCrossed = false;
  const int steps = static_cast<int>((kFarthestEnd - start.nearest) / scale);
  const int settled = static_cast<int>((start.farthest - start.nearest) / scale);
  double background = 0.0;  // grey levels, of the brighter side
  for (int k = 0; k < steps; ++k) {
    const double contrast = depthCount > 0 ? depthSum / depthCount : 0.0;
    const bool isClear = contrast > kClearContrast * ofValue;
    const StrokeSection section = Cut(level, walk, spacing / scale);
    isCrossed =
        section.isInside && k > 0 && section.brightest < background - kCrossingDepth * contrast;
    if (!section.isInside || isCrossed) {
      break;
    }
    background += (k > 0 ? kAdapting : 1.0) * (section.brightest - background);
    depths.push_back(section.depth);
    if (section.depth > 0 && section.depth >= kEndDepth * contrast) {
      Follow(section, spacing / scale, walk);
      end = walk.point;
      cutsToEnd = depths.size();
      pale = 0;
      if (k <= settled) {
        depthSum += section.depth;
        ++depthCount;
      }
    } else if (++pale >= (isClear ? 1 : kPaleCuts)) {
      break;
    }
    walk.point += walk.direction;
  }
  MarkArm arm;
  arm.direction = start.direction;
  if (depthCount > 0 && (end - centre).norm() > 0) {
    arm.isSeen = true;
    arm.isCrossed = isCrossed;
    arm.direction = (end - centre).normalized();
    arm.length = (end - centre).norm() * scale;
    arm.contrast = depthSum / depthCount;
    depths.resize(cutsToEnd);
    arm.palest = Palest(depths, static_cast<std::size_t>(kFading * spacing / scale), arm.contrast);
  }
  return arm;
}

}  // namespace quorvex::precise
