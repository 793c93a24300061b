#include "preprocess/outline_tracing.h"

#include <cmath>

#include "base/gray_image.h"
#include "base/rounding.h"

namespace quorvex {
namespace {

constexpr int kRayCount = 720;
constexpr float kRayStep = 0.008726646f;  // radians, half a degree in single precision
constexpr int kDarkRun = 16;      // pixels from the first black to the last that end the target
constexpr int kAcrossReach = 3;   // pixels to either side of a ray
constexpr int kWhiteAbove = 254;  // grey level

// A ray from the centre. The offsets along it are made a stretch at a time, as far as the ray is
// followed: a loop without calls is vectorised.
class Ray {
 public:
  Ray(double cosine, double sine) : cosine_(cosine), sine_(sine) {}

  // The pixel offset at a radius from 1 on; as RayOffset, whose careful cut no radius within an
  // image needs.
  PixelPosition OffsetAt(int radius) {
    if (radius < first_ || radius >= first_ + kStretch) {
      first_ = radius;
      for (int i = 0; i < kStretch; ++i) {
        const double r = static_cast<double>(radius) + i;
        x_[i] = static_cast<int>(static_cast<double>(static_cast<float>(r * cosine_)) + kHalf);
        y_[i] = static_cast<int>(static_cast<double>(static_cast<float>(r * sine_)) + kHalf);
      }
    }
    return {x_[radius - first_], y_[radius - first_]};
  }

 private:
  static constexpr int kStretch = 64;   // pixels
  static constexpr double kHalf = 0.5;  // added before the cut, as RoundHalfUp does

  double cosine_;
  double sine_;
  int first_ = -kStretch;  // radius of the first offset that is there
  int x_[kStretch];
  int y_[kStretch];
};

// Whether white lies within reach across the ray at `offset`, `distance` pixels from the centre:
// the black there then belongs to a thin dark line that the ray meets or runs along.
bool HasWhiteAcross(const GrayView& image, PixelPosition centre, PixelPosition offset,
                    float distance) {
  const float stepX = static_cast<float>(-offset.y) / distance;
  const float stepY = static_cast<float>(offset.x) / distance;
  for (int t = -kAcrossReach; t <= kAcrossReach; ++t) {
    const int x = centre.x + offset.x + RoundHalfUp(static_cast<float>(t) * stepX);
    const int y = centre.y + offset.y + RoundHalfUp(static_cast<float>(t) * stepY);
    if (image.Holds(x, y) && image.At(x, y) > kWhiteAbove) {
      return true;
    }
  }
  return false;
}

float DistanceFromCentre(PixelPosition offset) {
  const float x = static_cast<float>(offset.x);
  const float y = static_cast<float>(offset.y);
  return static_cast<float>(std::sqrt(static_cast<double>(x * x + y * y)));
}

// The radius at which the target ends along the ray. The dark run is counted from the last radius
// at which black followed white (0 at first), also across the skipped white of thin lines.
int FindOutlineRadius(const GrayView& image, PixelPosition centre, Ray& ray, int rayLength) {
  bool isWhite = false;
  int darkStart = 0;
  for (int radius = 1; radius <= rayLength - 1; ++radius) {
    const PixelPosition offset = ray.OffsetAt(radius);
    const PixelPosition position{centre.x + offset.x, centre.y + offset.y};
    if (!image.Holds(position.x, position.y)) {
      return radius - 1;
    }
    if (image.At(position.x, position.y) != 0) {
      isWhite = true;
      continue;
    }
    if (!isWhite) {
      if (radius - darkStart >= kDarkRun) {
        return darkStart;
      }
      continue;
    }
    // Never 0: a ray leaves the centre's pixel once, and white before this black was elsewhere.
    const float distance = DistanceFromCentre(offset);
    if (!HasWhiteAcross(image, centre, offset, distance)) {
      darkStart = radius;
      isWhite = false;
    }
  }
  return rayLength > 1 ? rayLength - 1 : 0;
}

}  // namespace

PixelPosition ImageCentre(int width, int height) {
  return {TruncateToInt(width * 0.5), TruncateToInt(height * 0.5)};
}

PixelPosition RayOffset(int radius, double cosine, double sine) {
  return {RoundHalfUp(static_cast<float>(radius * cosine)),
          RoundHalfUp(static_cast<float>(radius * sine))};
}

bool TraceTargetOutline(const unsigned char* image, int width, int height, OutlineList& outline) {
  const GrayView view{image, width, height};
  const PixelPosition centre = ImageCentre(width, height);
  const double cx = centre.x;
  const double cy = centre.y;
  const int rayLength = TruncateToInt(std::sqrt(cx * cx + cy * cy));
  for (int k = 0; k < kRayCount; ++k) {
    const float angle = static_cast<float>(k) * kRayStep;
    const double cosine = std::cos(static_cast<double>(angle));
    const double sine = std::sin(static_cast<double>(angle));
    Ray ray(cosine, sine);
    const int radius = FindOutlineRadius(view, centre, ray, rayLength);
    const PixelPosition offset = RayOffset(radius, cosine, sine);
    outline.push_back({centre.x + offset.x, centre.y + offset.y});
  }
  return true;
}

}  // namespace quorvex
