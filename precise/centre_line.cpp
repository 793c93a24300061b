#include "precise/centre_line.h"
#include "precise/median.h"

#include <Eigen/Cholesky>
#include <algorithm>
#include <cmath>

namespace quorvex::precise {
namespace {

constexpr int kRounds = 4;           // of weights; they settle after three
constexpr double kFullWeight = 2.5;  // standard deviations; less weight beyond
constexpr double kNoWeight = 6.0;    // standard deviations; a block this far off is not the stroke
constexpr double kHeld = 1e12;       // 1 / px^2, information that holds a term in place
constexpr double kLeastScatter = 0.0004;  // px^2: a fiftieth of a pixel between blocks is not noise
constexpr double kNoisyBlock = 2.0;       // misfit over the noise from which a block is noisier

using Vector4 = Eigen::Vector4d;

Vector4 Powers(double t) { return {1.0, t, t * t, t * t * t}; }

double BlockInformation(const Block& block, double noise) {
  const double variance = noise * noise;
  return block.information / (block.misfit > kNoisyBlock * variance ? block.misfit : variance);
}

double RobustWeight(double deviation) {
  if (deviation > kNoWeight) {
    return 0.0;
  }
  return deviation > kFullWeight ? kFullWeight / deviation : 1.0;
}

// Unknowns in px at t = u / length = 1.
struct System {
  Eigen::Matrix4d normal = Eigen::Matrix4d::Zero();
  Vector4 right = Vector4::Zero();
};

System WithPrior(const std::array<double, 4>& current, const BendPrior& prior) {
  System system;
  double scale = prior.length * prior.length;
  for (int term = 0; term < 2; ++term) {
    const std::size_t i = static_cast<std::size_t>(term);
    const double sigma = prior.sigma[i];
    const double information = sigma > 0.0 ? 1.0 / (sigma * sigma) : kHeld;
    system.normal(2 + term, 2 + term) = information;
    system.right[2 + term] = information * (prior.expected[i] - current[2 + i]) * scale;
    scale *= prior.length;
  }
  return system;
}

// The scale of the deviations: 1 where they are as large as their variances say.
double ScatterScale(const std::vector<Block>& blocks, const std::vector<double>& deviations) {
  std::vector<double> sizes;
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    sizes.push_back(std::abs(deviations[i]));
  }
  return std::max(1.0, 1.4826 * MedianOf(sizes));
}

}  // namespace

double CentreLine::Variance(double u) const {
  const Vector4 powers = Powers(u);
  return powers.dot(covariance * powers);
}

CentreLine FitCentreLine(const std::vector<Block>& blocks, double noise,
                         const std::array<double, 4>& current, const BendPrior& prior) {
  CentreLine line;
  if (blocks.size() < 2) {
    return line;
  }
  std::vector<double> weights(blocks.size(), 1.0);
  std::vector<double> deviations(blocks.size(), 0.0);
  Vector4 solution = Vector4::Zero();
  Eigen::Matrix4d covariance = Eigen::Matrix4d::Zero();
  double scale = 1.0;
  for (int round = 0; round < kRounds; ++round) {
    System system = WithPrior(current, prior);
    for (std::size_t i = 0; i < blocks.size(); ++i) {
      const Vector4 powers = Powers(blocks[i].along / prior.length);
      const double information = weights[i] * BlockInformation(blocks[i], noise);
      system.normal.noalias() += information * powers * powers.transpose();
      system.right += information * blocks[i].shift * powers;
    }
    const Eigen::LDLT<Eigen::Matrix4d> solver(system.normal);
    if (solver.info() != Eigen::Success || !(solver.vectorD().minCoeff() > 0.0)) {
      return line;
    }
    solution = solver.solve(system.right);
    covariance = solver.solve(Eigen::Matrix4d::Identity());
    line.squares = 0.0;
    line.freedom = -2.0;
    for (std::size_t i = 0; i < blocks.size(); ++i) {
      const double away = blocks[i].shift - Powers(blocks[i].along / prior.length).dot(solution);
      deviations[i] = away * std::sqrt(BlockInformation(blocks[i], noise));
      line.squares += weights[i] * deviations[i] * deviations[i];
      line.freedom += weights[i];
    }
    scale = ScatterScale(blocks, deviations);
    for (std::size_t i = 0; i < blocks.size(); ++i) {
      const double information = BlockInformation(blocks[i], noise);
      const double limit = std::sqrt(scale * scale + kLeastScatter * information);
      weights[i] = RobustWeight(std::abs(deviations[i]) / limit);
    }
  }
  Vector4 unscale;
  for (int term = 0; term < 4; ++term) {
    unscale[term] = std::pow(prior.length, -term);
    line.shift[static_cast<std::size_t>(term)] = solution[term] * unscale[term];
  }
  line.covariance = unscale.asDiagonal() * covariance * unscale.asDiagonal();
  line.isFitted = solution.allFinite() && line.covariance.allFinite();
  return line;
}

}  // namespace quorvex::precise
