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

struct EdgeValue {
  double edge;
  double spread;
};

// Convolving with both boxes is a second difference of the integrals.
EdgeValue ThroughPixel(double t, double sigma, double wide, double narrow) {
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
  if (table.edge.empty()) {
    const double angle = 0.5 * kQuarterTurn * direction / (kDirections - 1);
    const double wide = std::cos(angle);
    const double narrow = std::max(std::sin(angle), kLeastShadow);
    const std::size_t middle = static_cast<std::size_t>(half_);
    table.edge.resize(2 * middle + 1);
    table.spread.resize(2 * middle + 1);
    for (std::size_t sample = 0; sample <= middle; ++sample) {
      const double t = static_cast<double>(sample) / kProfileSamples;
      const EdgeValue value = ThroughPixel(t, sigma_, wide, narrow);
      table.edge[middle + sample] = value.edge;
      table.edge[middle - sample] = 1.0 - value.edge;
      table.spread[middle + sample] = value.spread;
      table.spread[middle - sample] = value.spread;
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

double EdgeTables::Lookup(const std::vector<double>& table, double inside) const {
  const double position = (inside + reach_) * kProfileSamples;
  if (position <= 0.0) {
    return table.front();
  }
  const std::size_t sample = static_cast<std::size_t>(position);
  if (sample + 1 >= table.size()) {
    return table.back();
  }
  const double part = position - static_cast<double>(sample);
  return table[sample] + part * (table[sample + 1] - table[sample]);
}

StrokeProfile::StrokeProfile(const EdgeTables& edges, const Eigen::Vector2d& normal, double width)
    : width_(width), reach_(0.5 * width + edges.Reach()), totalSigma_(edges.TotalSigma()) {
  const int direction = EdgeTables::DirectionIndex(normal);
  const int samples = static_cast<int>(reach_ * kProfileSamples) + 2;
  entries_.reserve(static_cast<std::size_t>(samples));
  const double half = 0.5 * width;
  for (int sample = 0; sample < samples; ++sample) {
    const double across = sample / kProfileSamples;
    entries_.push_back(
        {edges.Edge(direction, half + across) - edges.Edge(direction, across - half),
         edges.Spread(direction, across + half) - edges.Spread(direction, across - half)});
  }
  entries_.back() = {0.0, 0.0};
  last_ = static_cast<double>(entries_.size() - 1);
}

}  // namespace quorvex::precise
