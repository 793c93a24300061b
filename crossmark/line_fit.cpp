#include "crossmark/line_fit.h"

#include <cmath>

namespace quorvex {
namespace {

constexpr double kVerticalSpread = 1.2;       // square pixels, mean squared deviation in x
constexpr float kVerticalAngle = 1.5707963f;  // radians

}  // namespace

bool FitLine(const PointFList& points, float& a, float& b, float& c, float& angle) {
  if (points.size() < 2) {
    return false;
  }
  const float count = static_cast<float>(points.size());
  float sumX = 0.0f;
  float sumY = 0.0f;
  for (const PointF& point : points) {
    sumX += point.x;
    sumY += point.y;
  }
  const float meanX = sumX / count;
  const float meanY = sumY / count;
  float sxx = 0.0f;
  float sxy = 0.0f;
  for (const PointF& point : points) {
    sxx += (point.x - meanX) * (point.x - meanX);
    sxy += (point.y - meanY) * (point.x - meanX);
  }
  if (static_cast<double>(sxx / count) < kVerticalSpread) {
    a = 1.0f;
    b = 0.0f;
    c = -meanX;
    angle = kVerticalAngle;
  } else {
    a = sxy / sxx;
    b = -1.0f;
    c = meanY - a * meanX;
    angle = static_cast<float>(std::atan(static_cast<double>(-a / b)));
  }
  const float norm = static_cast<float>(std::sqrt(static_cast<double>(a * a + b * b)));
  a /= norm;
  b /= norm;
  c /= norm;
  return true;
}

}  // namespace quorvex
