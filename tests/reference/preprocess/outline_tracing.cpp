#include "tests/reference/preprocess.h"

#include <cmath>
#include <vector>

#include "base/gray_image.h"
#include "base/rounding.h"

namespace quorvex::plain {
namespace {

constexpr int kRayCount = 720;
constexpr float kRayStep = 0.008726646f;  // radians, half a degree in single precision
constexpr int kDarkRun = 16;      // pixels from the first black to the last that end the target
constexpr int kAcrossReach = 3;   // pixels to either side of a ray
constexpr int kWhiteAbove = 254;  // grey level

struct RaySample {
  int radius;  // pixels
  int value;   // grey level
};

struct Ray {
  double cosine;
  double sine;
  std::vector<RaySample> samples;
};

void SampleRay(const unsigned char* image, int width, int height, PixelPosition centre,
               int rayLength, Ray& ray) {
  ray.samples.clear();
  for (int radius = 1; radius <= rayLength - 1; ++radius) {
    const PixelPosition offset = plain::RayOffset(radius, ray.cosine, ray.sine);
    const int x = centre.x + offset.x;
    const int y = centre.y + offset.y;
    if (!IsInside(x, y, width, height)) {
      break;
    }
    ray.samples.push_back({radius, image[PixelOffset(x, y, width)]});
  }
}

// Whether white lies within reach across the ray at `offset`, `distance` pixels from the centre:
// the black there then belongs to a thin dark line that the ray meets or runs along.
bool HasWhiteAcross(const unsigned char* image, int width, int height, PixelPosition centre,
                    PixelPosition offset, float distance) {
  const float stepX = static_cast<float>(-offset.y) / distance;
  const float stepY = static_cast<float>(offset.x) / distance;
  for (int t = -kAcrossReach; t <= kAcrossReach; ++t) {
    const int x = centre.x + offset.x + RoundHalfUp(static_cast<float>(t) * stepX);
    const int y = centre.y + offset.y + RoundHalfUp(static_cast<float>(t) * stepY);
    if (IsInside(x, y, width, height) && image[PixelOffset(x, y, width)] > kWhiteAbove) {
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
int FindOutlineRadius(const unsigned char* image, int width, int height, PixelPosition centre,
                      const Ray& ray) {
  bool isWhite = false;
  int darkStart = 0;
  for (const RaySample& sample : ray.samples) {
    if (sample.value != 0) {
      isWhite = true;
      continue;
    }
    if (!isWhite) {
      if (sample.radius - darkStart >= kDarkRun) {
        return darkStart;
      }
      continue;
    }
    const PixelPosition offset = plain::RayOffset(sample.radius, ray.cosine, ray.sine);
    const float distance = DistanceFromCentre(offset);
    if (distance == 0.0f) {
      break;
    }
    if (!HasWhiteAcross(image, width, height, centre, offset, distance)) {
      darkStart = sample.radius;
      isWhite = false;
    }
  }
  return ray.samples.empty() ? 0 : ray.samples.back().radius;
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
  const PixelPosition centre = plain::ImageCentre(width, height);
  const double cx = centre.x;
  const double cy = centre.y;
  const int rayLength = TruncateToInt(std::sqrt(cx * cx + cy * cy));
  Ray ray;
  for (int k = 0; k < kRayCount; ++k) {
    const float angle = static_cast<float>(k) * kRayStep;
    ray.cosine = std::cos(static_cast<double>(angle));
    ray.sine = std::sin(static_cast<double>(angle));
    SampleRay(image, width, height, centre, rayLength, ray);
    const int radius = FindOutlineRadius(image, width, height, centre, ray);
    const PixelPosition offset = plain::RayOffset(radius, ray.cosine, ray.sine);
    outline.push_back({centre.x + offset.x, centre.y + offset.y});
  }
  return true;
}

}  // namespace quorvex::plain
