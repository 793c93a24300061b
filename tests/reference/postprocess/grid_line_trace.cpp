#include "tests/reference/postprocess.h"

#include <algorithm>
#include <cmath>

#include "base/point_geometry.h"

namespace quorvex::plain {
namespace {

constexpr int kMostSteps = 100;
constexpr double kSamePosition = 10.0;     // pixels in x and in y, inclusive
constexpr double kSmallestLength = 1e-10;  // pixels, which a step must exceed
constexpr double kDegreesPerRadian = 57.295780490442965;
constexpr double kAngleAbove = 150.0;  // degrees between the ways back and ahead
constexpr double kNearest = 5.0;       // pixels, which a step must exceed
constexpr float kFarthest = 1000.0f;   // pixels, which a step must fall below

bool IsSamePosition(const CalibrationPoint& point, const CalibrationPoint& other) {
  return static_cast<double>(std::fabs(point.x - other.x)) <= kSamePosition &&
         static_cast<double>(std::fabs(point.y - other.y)) <= kSamePosition;
}

// The angle at `at` between the ways back and ahead, whose lengths are given, in degrees.
double AngleInDegrees(const CalibrationPoint& at, const CalibrationPoint& back, float backDistance,
                      const CalibrationPoint& ahead, float aheadDistance) {
  const double backX = static_cast<double>(back.x - at.x);
  const double backY = static_cast<double>(back.y - at.y);
  const double aheadX = static_cast<double>(ahead.x - at.x);
  const double aheadY = static_cast<double>(ahead.y - at.y);
  const double cosine = (backX * aheadX + backY * aheadY) /
                        (static_cast<double>(backDistance) * static_cast<double>(aheadDistance));
  return std::acos(std::clamp(cosine, -1.0, 1.0)) * kDegreesPerRadian;
}

// The nearest point ahead and its distance; null when there is none.
struct NextPoint {
  const CalibrationPoint* point = nullptr;
  float distance = kFarthest;
};

NextPoint FindPointAhead(const PointList& points, const CalibrationPoint& previous,
                         const CalibrationPoint& current, float lastStep) {
  NextPoint next;
  for (const CalibrationPoint& point : points) {
    const float distance = PointDistance(current, point);
    if (IsSamePosition(point, previous) || IsSamePosition(point, current) ||
        static_cast<double>(lastStep) <= kSmallestLength ||
        static_cast<double>(distance) <= kSmallestLength) {
      continue;
    }
    const double angle = AngleInDegrees(current, previous, lastStep, point, distance);
    if (angle > kAngleAbove && static_cast<double>(distance) > kNearest &&
        distance < next.distance) {
      next = {&point, distance};
    }
  }
  return next;
}

}  // namespace

void TraceGridLine(const PointList& points, CalibrationPoint& previous, CalibrationPoint& current,
                   PointList& output) {
  for (int step = 0; step < kMostSteps; ++step) {
    const float lastStep = PointDistance(previous, current);
    const NextPoint next = FindPointAhead(points, previous, current, lastStep);
    if (next.point == nullptr || !(lastStep > next.distance)) {
      return;
    }
    output.push_back(*next.point);
    previous = current;
    current = *next.point;
  }
}

}  // namespace quorvex::plain
