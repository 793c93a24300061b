#include "tests/support/random_grid.h"

#include <cstddef>
#include <limits>
#include <utility>
#include <vector>

#include "tests/support/points.h"

namespace quorvex::tests {
namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kPitch = 100.0f;  // pixels

// A line of a grid from the middle outwards, where the gaps shrink, stay or, seldom, grow.
std::vector<float> LinePlaces(CaseRandom& random) {
  std::vector<float> places = {0.0f};
  float gap = random.Fraction(4, random.OneOf({6, 60, 300, 1010}));
  for (int n = random.Between(1, 14); n > 0; --n) {
    places.push_back(places.back() + gap);
    places.insert(places.begin(), places.front() - gap);
    gap += random.OneOf({-0.001f, -0.5f, -3.0f, 0.0f, 1.0f});
  }
  return places;
}

float Disturbance(CaseRandom& random) {
  return random.OneIn(4) ? random.Fraction(-12, 12) : random.Fraction(-1, 1) / 64.0f;
}

CalibrationPoint StrangePoint(CaseRandom& random) {
  const auto value = [&random] {
    return random.OneOf({kNan, kInfinity, -kInfinity, 3e38f, 1e20f, 0.0f, -0.0f, 5.0f, 1000.0f});
  };
  const float x = value();
  return At(x, value());
}

}  // namespace

PointList RandomGridPoints(CaseRandom& random) {
  PointList points;
  const bool isExact = random.OneIn(3);
  const std::vector<float> columns = LinePlaces(random);
  for (const float y : LinePlaces(random)) {
    for (const float x : columns) {
      const float dx = isExact ? 0.0f : Disturbance(random);
      const float dy = isExact ? 0.0f : Disturbance(random);
      points.push_back(MakePoint(static_cast<int>(points.size()), 0, 0, x + dx, y + dy));
    }
  }
  for (int n = random.OneIn(3) ? random.Below(6) : 0; n > 0; --n) {
    points.push_back(StrangePoint(random));
    const CalibrationPoint repeated = OneOfPoints(random, points);
    points.push_back(repeated);
  }
  return points;
}

PointList RandomLabelledGrid(CaseRandom& random) {
  const float bend = random.OneOf({0.0f, 1e-4f, -3e-4f});
  const int rows = random.Between(1, 6);
  const int columns = random.Between(1, 6);
  PointList points;
  for (int row = 0; row < rows; ++row) {
    for (int col = 0; col < columns; ++col) {
      const float x = kPitch * static_cast<float>(col) + random.Fraction(-1, 1);
      float y = kPitch * static_cast<float>(row) + bend * x * x + random.Fraction(-1, 1);
      y += random.OneIn(12) ? random.Fraction(-90, 90) : 0.0f;
      y = random.OneIn(80) ? kNan : y;
      const int label = random.OneIn(10) ? random.Between(-2, 2000) : col;
      points.push_back(MakePoint(static_cast<int>(points.size()), row, label, x, y));
    }
  }
  for (int n = random.OneIn(3) ? random.Below(4) : 0; n > 0; --n) {
    CalibrationPoint twin = OneOfPoints(random, points);
    twin.id = static_cast<int>(points.size());
    points.push_back(twin);
  }
  Shuffle(random, points);
  return points;
}

const CalibrationPoint& OneOfPoints(CaseRandom& random, const PointList& points) {
  return points[static_cast<std::size_t>(random.Below(static_cast<int>(points.size())))];
}

void Shuffle(CaseRandom& random, PointList& points) {
  for (std::size_t i = points.size(); i > 1; --i) {
    std::swap(points[i - 1], points[static_cast<std::size_t>(random.Below(static_cast<int>(i)))]);
  }
}

}  // namespace quorvex::tests
