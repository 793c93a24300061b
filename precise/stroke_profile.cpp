#include "precise/stroke_profile.h"

#include <algorithm>
#include <cmath>

namespace quorvex::precise {
namespace {

constexpr int kDirections = 17;         // from along a pixel row to the diagonal, 2.8 degrees
constexpr double kLeastSigma = 0.1;     // px; sharper is not told apart through the pixel
constexpr double kLeastShadow = 0.02;   // px; narrower boxes would only lose digits
constexpr double kTailSigmas = 4.5;     // beyond, a Gaussian edge is within 4e-6 of its end
constexpr double kPixelReach = 0.7072;  // px; half a pixel's diagonal
constexpr double kPixelVariance = 1.0 / 12.0;  // px^2, in any direction
constexpr double kQuarterTurn = 1.5707963267948966;

struct Integrals {
  double once;   // of the cumulated Gaussian
  double twice;  // the same integrated again
};

Integrals IntegratedGaussian(double t, double sigma) {
  const double ratio = t / sigma;
  const double density = std::exp(-0.5 * ratio * ratio) * 0.3989422804014327;
  const double cumulated = 0.5 * std::erfc(-ratio * 0.7071067811865476);
  return {t * cumulated + sigma * density,
          0.5 * ((t * t + sigma * sigma) * cumulated + t * sigma * density)};
}

// Convolving with both boxes is a second difference of the integrals.
EdgeTables::Value ThroughPixel(double t, double sigma, double wide, double narrow) {
  const double outer = 0.5 * (wide + narrow);
  const double inner = 0.5 * (wide - narrow);
  const Integrals a = IntegratedGaussian(t + outer, sigma);
  const Integrals b = IntegratedGaussian(t + inner, sigma);
  const Integrals c = IntegratedGaussian(t - inner, sigma);
  const Integrals d = IntegratedGaussian(t - outer, sigma);
  const double area = wide * narrow;
  return {(a.twice - b.twice - c.twice + d.twice) / area,
          (a.once - b.once - c.once + d.once) / area};
}

}  // namespace

EdgeTables::EdgeTables(double sigma)
    : sigma_(std::max(sigma, kLeastSigma)),
      reach_(kPixelReach + kTailSigmas * sigma_),
      half_(static_cast<int>(std::ceil(reach_ * kProfileSamples))),
      tables_(kDirections) {
  reach_ = half_ / kProfileSamples;
}

const EdgeTables::Table& EdgeTables::TableOf(int direction) const {
  Table& table = tables_[static_cast<std::size_t>(direction)];
  if (table.empty()) {
    const double angle = 0.5 * kQuarterTurn * direction / (kDirections - 1);
    const double wide = std::cos(angle);
    const double narrow = std::max(std::sin(angle), kLeastShadow);
    const std::size_t middle = static_cast<std::size_t>(half_);
    table.resize(2 * middle + 1);
    for (std::size_t sample = 0; sample <= middle; ++sample) {
      const double t = static_cast<double>(sample) / kProfileSamples;
      const Value value = ThroughPixel(t, sigma_, wide, narrow);
      table[middle + sample] = value;
      table[middle - sample] = {1.0 - value.edge, value.spread};
    }
  }
  return table;
}

double EdgeTables::TotalSigma() const { return std::sqrt(sigma_ * sigma_ + kPixelVariance); }

int EdgeTables::DirectionIndex(const Eigen::Vector2d& normal) {
  const double x = std::abs(normal.x());
  const double y = std::abs(normal.y());
  const double angle = std::atan2(std::min(x, y), std::max(x, y));
  return static_cast<int>(std::lround(angle / (0.5 * kQuarterTurn) * (kDirections - 1)));
}

// All places are the same part of a sample away from the table's.
std::vector<EdgeTables::Value> EdgeTables::Along(int direction, double inside, int count) const {
  const Table& table = TableOf(direction);
  const double position = (inside + reach_) * kProfileSamples;
  const double floor = std::floor(position);
  const double part = position - floor;
  const int first = static_cast<int>(floor);
  const int size = static_cast<int>(table.size());
  const int before = std::clamp(-first, 0, count);
  const int within = std::clamp(size - 1 - first, before, count);
  std::vector<Value> values(static_cast<std::size_t>(count), table.back());
  std::fill_n(values.begin(), before, table.front());
  for (int sample = before; sample < within; ++sample) {
    const std::ptrdiff_t index = std::ptrdiff_t{first} + sample;
    const Value& near = table[static_cast<std::size_t>(index)];
    const Value& far = table[static_cast<std::size_t>(index) + 1];
    values[static_cast<std::size_t>(sample)] = {near.edge + part * (far.edge - near.edge),
                                                near.spread + part * (far.spread - near.spread)};
  }
  return values;
}

StrokeProfile::StrokeProfile(const EdgeTables& edges, const Eigen::Vector2d& normal, double width)
    : width_(width), reach_(0.5 * width + edges.Reach()), totalSigma_(edges.TotalSigma()) {
  const int direction = EdgeTables::DirectionIndex(normal);
  const int samples = static_cast<int>(reach_ * kProfileSamples) + 2;
  const std::vector<EdgeTables::Value> near = edges.Along(direction, 0.5 * width, samples);
  const std::vector<EdgeTables::Value> far = edges.Along(direction, -0.5 * width, samples);
  entries_.resize(near.size() + 1);
  for (std::size_t sample = 0; sample + 1 < near.size(); ++sample) {
    entries_[sample] = {near[sample].edge - far[sample].edge,
                        near[sample].spread - far[sample].spread};
  }
  last_ = static_cast<double>(entries_.size() - 2);
}

}  // namespace quorvex::precise
