#include "postprocess/grid_line_trace.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include "base/point_geometry.h"

namespace quorvex {
namespace {

constexpr int kMostSteps = 100;
constexpr double kSamePosition = 10.0;  // pixels in x and in y, inclusive
constexpr double kDegreesPerRadian = 57.295780490442965;
constexpr double kAngleAbove = 150.0;  // degrees between the ways back and ahead
constexpr double kNearest = 5.0;      // pixels, which a step must exceed; so none is without length
constexpr float kFarthest = 1000.0f;  // pixels, which a step must fall below

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

// The places of a list's points in blocks that are passed over as a whole where no point is near.
class PlaceBlocks {
 public:
  explicit PlaceBlocks(const PointList& points)
      : blocks_((points.size() + kBlockSize - 1) / kBlockSize) {
    for (Block& block : blocks_) {
      std::fill_n(block.x, kBlockSize, std::numeric_limits<float>::quiet_NaN());
    }
    for (std::size_t i = 0; i < points.size(); ++i) {
      blocks_[i / kBlockSize].x[i % kBlockSize] = points[i].x;
      blocks_[i / kBlockSize].y[i % kBlockSize] = points[i].y;
    }
  }

  // Calls `look(index)` in list order for every point of a block that holds one less than
  // `distance` pixels from `from`, which `look` may lower.
  template <typename Look>
  void ForPointsAround(const CalibrationPoint& from, const float& distance, Look look) const {
    for (std::size_t b = 0; b < blocks_.size(); ++b) {
      if (HoldsPointNear(blocks_[b], from, distance)) {
        for (std::size_t i = 0; i < kBlockSize; ++i) {
          look(b * kBlockSize + i);
        }
      }
    }
  }

 private:
  static constexpr std::size_t kBlockSize = 64;

  struct Block {
    float x[kBlockSize];
    float y[kBlockSize];
  };

  // Without roots; a little farther than `distance`, for what rounding takes away.
  static bool HoldsPointNear(const Block& block, const CalibrationPoint& from, float distance) {
    const float limit = distance * distance * 1.001f;
    int isNear = 0;
    for (std::size_t i = 0; i < kBlockSize; ++i) {
      const float dx = block.x[i] - from.x;
      const float dy = block.y[i] - from.y;
      isNear |= dx * dx + dy * dy < limit ? 1 : 0;
    }
    return isNear != 0;
  }

  std::vector<Block> blocks_;  // filled up with NaN
};

// The nearest point ahead that is less than `distance` away; null when there is none.
struct NextPoint {
  const CalibrationPoint* point;
  float distance;
};

NextPoint FindPointAhead(const PointList& points, const PlaceBlocks& places,
                         const CalibrationPoint& previous, const CalibrationPoint& current,
                         float lastStep) {
  // What is as far as the last step ends the trace as well as nothing does.
  NextPoint next = {nullptr, std::min(kFarthest, lastStep)};
  places.ForPointsAround(current, next.distance, [&](std::size_t index) {
    if (index >= points.size()) {
      return;
    }
    const CalibrationPoint& point = points[index];
    const float distance = PointDistance(current, point);
    if (static_cast<double>(distance) > kNearest && distance < next.distance &&
        !IsSamePosition(point, previous) && !IsSamePosition(point, current) &&
        AngleInDegrees(current, previous, lastStep, point, distance) > kAngleAbove) {
      next = {&point, distance};
    }
  });
  return next;
}

}  // namespace

void TraceGridLine(const PointList& points, CalibrationPoint& previous, CalibrationPoint& current,
                   PointList& output) {
  const PlaceBlocks places(points);
  for (int step = 0; step < kMostSteps; ++step) {
    const float lastStep = PointDistance(previous, current);
    const NextPoint next = FindPointAhead(points, places, previous, current, lastStep);
    if (next.point == nullptr) {
      return;
    }
    output.push_back(*next.point);
    previous = current;
    current = *next.point;
  }
}

}  // namespace quorvex
