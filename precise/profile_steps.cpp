#include "precise/profile_steps.h"
#include "precise/median.h"

#include <Eigen/Cholesky>
#include <Eigen/LU>
#include <algorithm>
#include <cmath>

namespace quorvex::precise {
namespace {

constexpr int kSteps = 8;              // at most; five settle
constexpr double kSettled = 0.01;      // px, change of width and blur: steps converge quadratically
constexpr double kLeastWidth = 0.3;    // px
constexpr double kLeastSigma = 0.15;   // px
constexpr double kLargestSigma = 8.0;  // px
constexpr double kHoldsPart = 1e-4;    // of a block's information: thin strokes do not tell width
                                       // from darkness, and the step is then the smallest
constexpr double kBinsPerPixel = 2.0;
constexpr double kGuessReach = 0.3;  // pitches across, where a stroke's sides are

using Vector6 = Eigen::Matrix<double, 6, 1>;
using Matrix6 = Eigen::Matrix<double, 6, 6>;

double TypicalPitch(const std::vector<ProfilePiece>& pieces) {
  std::vector<double> pitches;
  pitches.reserve(pieces.size());
  for (const ProfilePiece& piece : pieces) {
    pitches.push_back(piece.pitch);
  }
  return MedianOf(pitches);
}

struct Totals {
  double squares = 0.0;
  Eigen::Matrix2d normal =
      Eigen::Matrix2d::Zero();  // by width in px of the typical pitch, and blur
  Eigen::Vector2d right = Eigen::Vector2d::Zero();
};

// How the darkness across a stroke changes with its width and with the blur, both per px.
class ProfileDerivatives {
 public:
  ProfileDerivatives(const EdgeTables& edges, const Eigen::Vector2d& normal, double width,
                     double reach) {
    // Two samples on either side: the blur changes the profile by its second derivative.
    constexpr int kStep = 2;
    const int samples = static_cast<int>(reach * kProfileSamples) + 2;
    const int count = samples + 2 * kStep;
    const int direction = EdgeTables::DirectionIndex(normal);
    const double before = kStep / kProfileSamples;
    const std::vector<EdgeTables::Value> near = edges.Along(direction, 0.5 * width - before, count);
    const std::vector<EdgeTables::Value> far = edges.Along(direction, -0.5 * width - before, count);
    const auto slope = [&](std::size_t i) { return near[i].spread - far[i].spread; };
    for (std::size_t i = kStep; i + kStep < near.size(); ++i) {
      const double bend = (slope(i + kStep) - slope(i - kStep)) / (2.0 * before);
      entries_.emplace_back(-0.5 * (near[i].spread + far[i].spread), -edges.Sigma() * bend);
    }
  }

  // By width and by blur; nothing beyond the reach.
  Eigen::Vector2d At(double across) const {
    const double position = std::abs(across) * kProfileSamples;
    const std::size_t sample = static_cast<std::size_t>(position);
    if (sample + 1 >= entries_.size()) {
      return Eigen::Vector2d::Zero();
    }
    const double part = position - static_cast<double>(sample);
    return (1.0 - part) * entries_[sample] + part * entries_[sample + 1];
  }

 private:
  std::vector<Eigen::Vector2d> entries_;  // from the middle outwards
};

// Adds one piece: its own four unknowns eliminated.
void AddPiece(const GrayPicture& picture, const ProfilePiece& piece, const EdgeTables& edges,
              double width, double widthScale, Totals& totals) {
  const Eigen::Vector2d normal = piece.line.Normal();
  const StrokeProfile profile(edges, normal, width);
  const double reach = BlockReach(profile);
  const ProfileDerivatives derivatives(edges, normal, width, reach);
  Matrix6 squares = Matrix6::Zero();
  Vector6 right = Vector6::Zero();
  double levels = 0.0;
  double base = -1.0;
  int count = 0;
  ForEachStrokePixel(picture, piece.line, piece.from, piece.to, reach,
                     [&](double level, int, int, double, double v) {
                       base = base < 0.0 ? level : base;
                       const StrokeProfile::Value value = profile.At(v);
                       const Eigen::Vector2d change = derivatives.At(v);
                       Vector6 row;
                       row << 1.0, v, -value.dark, value.slope, change[0] * widthScale, change[1];
                       squares.noalias() += row * row.transpose();
                       right += row * (level - base);
                       levels += (level - base) * (level - base);
                       ++count;
                     });
  const Eigen::LDLT<Eigen::Matrix4d> own(squares.topLeftCorner<4, 4>());
  if (count < 16 || own.info() != Eigen::Success || !(own.vectorD().minCoeff() > 1e-9)) {
    return;
  }
  const Eigen::Vector4d solution = own.solve(right.head<4>());
  const double darkness = solution[2];
  totals.squares += std::max(levels - solution.dot(right.head<4>()), 0.0);
  if (darkness > 0.0) {
    const Eigen::Matrix<double, 4, 2> mixed = squares.topRightCorner<4, 2>();
    const Eigen::Matrix2d left =
        squares.bottomRightCorner<2, 2>() - mixed.transpose() * own.solve(mixed);
    totals.normal += darkness * darkness * left;
    totals.right += darkness * (right.tail<2>() - mixed.transpose() * solution);
  }
}

Totals Evaluate(const GrayPicture& picture, const std::vector<ProfilePiece>& pieces,
                const WidthAndBlur& profile, double typicalPitch) {
  Totals totals;
  const EdgeTables edges(profile.sigma);
  for (const ProfilePiece& piece : pieces) {
    AddPiece(picture, piece, edges, profile.width * piece.pitch, piece.pitch / typicalPitch,
             totals);
  }
  return totals;
}

// Mean levels across a piece, from -reach to reach.
std::vector<double> AcrossLevels(const GrayPicture& picture, const ProfilePiece& piece,
                                 double reach) {
  const std::size_t bins = static_cast<std::size_t>(2.0 * reach * kBinsPerPixel) + 1;
  std::vector<double> sums(bins, 0.0);
  std::vector<double> counts(bins, 0.0);
  ForEachStrokePixel(picture, piece.line, piece.from, piece.to, reach,
                     [&](double level, int, int, double, double v) {
                       if (!(std::abs(v) <= reach)) {
                         return;
                       }
                       const std::size_t bin = std::min(
                           static_cast<std::size_t>((v + reach) * kBinsPerPixel), bins - 1);
                       sums[bin] += level;
                       counts[bin] += 1.0;
                     });
  // Across a stroke along a pixel row the pixels are a whole px apart, and bins between are empty.
  double last = 0.0;
  double lastCount = 0.0;
  for (std::size_t bin = 0; bin < bins; ++bin) {
    if (counts[bin] > 0.0) {
      last = sums[bin];
      lastCount = counts[bin];
    }
    sums[bin] = lastCount > 0.0 ? last / lastCount : 255.0;
  }
  return sums;
}

}  // namespace

bool GuessProfile(const GrayPicture& picture, const std::vector<ProfilePiece>& pieces,
                  WidthAndBlur& profile) {
  std::vector<double> widths;
  for (const ProfilePiece& piece : pieces) {
    const std::vector<double> levels =
        AcrossLevels(picture, piece, std::max(kGuessReach * piece.pitch, 4.0));
    if (levels.size() < 9) {
      continue;
    }
    // The three quarters' level is background also where a fifth of the bins is stroke.
    std::vector<double> sorted = levels;
    std::sort(sorted.begin(), sorted.end());
    const double background = sorted[sorted.size() * 3 / 4];
    const double depth = background - sorted[0];
    double area = 0.0;
    const std::size_t centre = levels.size() / 2;
    for (std::size_t i = centre; i < levels.size() && levels[i] < background - 0.1 * depth; ++i) {
      area += background - levels[i];
    }
    for (std::size_t i = centre; i-- > 0 && levels[i] < background - 0.1 * depth;) {
      area += background - levels[i];
    }
    if (depth > 0.0 && area > 0.0) {
      widths.push_back(area / depth / kBinsPerPixel / piece.pitch);
    }
  }
  if (widths.empty()) {
    return false;
  }
  const double equivalent = MedianOf(widths);
  profile.width = 0.9 * equivalent;
  profile.sigma = std::clamp(0.25 * equivalent * TypicalPitch(pieces), 0.4, 2.0);
  return true;
}

bool FitProfile(const GrayPicture& picture, const std::vector<ProfilePiece>& pieces,
                WidthAndBlur& profile) {
  if (pieces.empty()) {
    return false;
  }
  const double pitch = TypicalPitch(pieces);
  Totals totals = Evaluate(picture, pieces, profile, pitch);
  double damping = 1e-3;
  for (int step = 0; step < kSteps; ++step) {
    if (!(totals.normal.trace() > 0.0)) {
      return false;
    }
    Eigen::Matrix2d normal = totals.normal;
    normal.diagonal() *= 1.0 + damping;
    normal.diagonal().array() += kHoldsPart * totals.normal.trace();
    Eigen::Vector2d move = normal.inverse() * totals.right;
    move = move.cwiseMax(-1.0).cwiseMin(1.0);
    WidthAndBlur moved;
    moved.width = std::max(profile.width + move[0] / pitch, kLeastWidth / pitch);
    moved.sigma = std::clamp(profile.sigma + move[1], kLeastSigma, kLargestSigma);
    const Totals after = Evaluate(picture, pieces, moved, pitch);
    if (after.squares <= totals.squares) {
      profile = moved;
      totals = after;
      damping *= 0.1;
      if (move.cwiseAbs().maxCoeff() < kSettled) {
        break;
      }
    } else {
      damping = std::max(damping * 20.0, 0.01);
    }
  }
  return true;
}

}  // namespace quorvex::precise
