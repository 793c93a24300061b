#include "precise/block_fit.h"

#include <Eigen/Cholesky>
#include <Eigen/Core>
#include <algorithm>
#include <array>
#include <cmath>

namespace quorvex::precise {
namespace {

constexpr double kTailSigmas = 2.5;       // of blur and pixel: the stroke's flank
constexpr double kBackgroundReach = 2.5;  // px beyond the flank, for background and slope
constexpr int kFewestPixels = 8;          // twice the unknowns
constexpr double kMiddlePart = 0.5;       // of half the width and one sigma: the stroke's middle

using Vector4 = Eigen::Vector4d;
using Matrix4 = Eigen::Matrix4d;

// Normal equations; of the symmetric matrix the upper half, row by row. The first unknown's row is
// 1, so that its sums are counts and plain sums.
struct Sums {
  std::array<double, 9> normal = {};  // 01 02 03 11 12 13 22 23 33
  std::array<double, 4> right = {};
  double square = 0.0;
  double along = 0.0;
  int count = 0;
  double middle = 0.0;
  double sides[2] = {0.0, 0.0};
  int middleCount = 0;
  int sideCounts[2] = {0, 0};
};

// What a pixel adds to its block's sums; the level counts from a base so that squares stay small.
void Add(Sums& sums, double slope, double dark, double shifted, double level, double u) {
  sums.normal[0] += slope;
  sums.normal[1] += dark;
  sums.normal[2] += shifted;
  sums.normal[3] += slope * slope;
  sums.normal[4] += slope * dark;
  sums.normal[5] += slope * shifted;
  sums.normal[6] += dark * dark;
  sums.normal[7] += dark * shifted;
  sums.normal[8] += shifted * shifted;
  sums.right[0] += level;
  sums.right[1] += slope * level;
  sums.right[2] += dark * level;
  sums.right[3] += shifted * level;
  sums.square += level * level;
  sums.along += u;
  ++sums.count;
}

// The coverage of the other stroke at a pixel, with its derivative.
StrokeProfile::Value OtherAt(const Stroke& other, const Eigen::Vector2d& pixel) {
  const Eigen::Vector2d away = pixel - other.line.origin;
  const double straight = other.line.Normal().dot(away);
  if (std::abs(straight) > other.profile.Reach() + 1.0) {
    return {0.0, 0.0};
  }
  return other.profile.At(straight - other.line.Offset(other.line.direction.dot(away)));
}

// The distance along the stroke from which the other one covers nothing of its pixels, px.
double ClearDistance(const Stroke& stroke, const Stroke& other, double reach) {
  const double cosine = stroke.line.direction.dot(other.line.direction);
  const double sine = std::sqrt(std::max(1.0 - cosine * cosine, 0.01));
  return (other.profile.Reach() + 2.0 + reach * std::abs(cosine)) / sine +
         (other.line.origin - stroke.line.origin).norm();
}

bool Solve(const Sums& sums, double peak, Block& block) {
  if (sums.count < kFewestPixels || sums.middleCount == 0) {
    return false;
  }
  const std::array<double, 9>& n = sums.normal;
  Matrix4 normal;
  normal << sums.count, n[0], n[1], n[2], n[0], n[3], n[4], n[5], n[1], n[4], n[6], n[7], n[2],
      n[5], n[7], n[8];
  const Vector4 right(sums.right[0], sums.right[1], sums.right[2], sums.right[3]);
  const Eigen::LDLT<Matrix4> solver(normal);
  if (solver.info() != Eigen::Success || solver.vectorD().minCoeff() <= 1e-9) {
    return false;
  }
  const Vector4 solution = solver.solve(right);
  const double variance = solver.solve(Vector4::UnitW()).w();
  block.along = sums.along / sums.count;
  block.darkness = solution[2];
  const double residual = sums.square - solution.dot(right);
  block.misfit = std::max(residual, 0.0) / (sums.count - 4);
  // Beside the other stroke there may be no clear side; the fit's own word then stands.
  block.contrast = solution[2] * peak;
  if (sums.sideCounts[0] > 0 && sums.sideCounts[1] > 0) {
    const double weaker =
        std::min(sums.sides[0] / sums.sideCounts[0], sums.sides[1] / sums.sideCounts[1]);
    block.contrast = weaker - sums.middle / sums.middleCount;
  }
  if (block.darkness > 0.0 && variance > 0.0) {
    block.shift = solution[3] / solution[2];
    block.information = solution[2] * solution[2] / variance;
  }
  return true;
}

}  // namespace

double BlockReach(const StrokeProfile& profile) {
  return 0.5 * profile.Width() + kTailSigmas * profile.TotalSigma() + kBackgroundReach;
}

void FitBlocks(const GrayPicture& picture, const Stroke& stroke, const Stroke& other,
               const ArmSpan& span, int arm, std::vector<Block>& blocks) {
  if (span.count <= 0 || !(span.to > span.from)) {
    return;
  }
  std::vector<Sums> sums(static_cast<std::size_t>(span.count));
  const double blocksPerPixel = span.count / (span.to - span.from);
  const double reach = BlockReach(stroke.profile);
  const double sigma = stroke.profile.TotalSigma();
  const double middle = std::max(0.5, kMiddlePart * (0.5 * stroke.profile.Width() + sigma));
  const double side = 0.5 * stroke.profile.Width() + 2.0 * sigma;
  // Where blurs overlap at the crossing, the covered part is not the product of both.
  const double overlap = sigma * sigma * stroke.line.direction.dot(other.line.direction);
  const double clear = ClearDistance(stroke, other, reach);
  double base = -1.0;
  ForEachStrokePixel(
      picture, stroke.line, span.from, span.to, reach,
      [&](double level, int x, int y, double u, double v) {
        if (base < 0.0) {
          base = level;
        }
        const StrokeProfile::Value own = stroke.profile.At(v);
        const StrokeProfile::Value crossing = std::abs(u) > clear
                                                  ? StrokeProfile::Value{0.0, 0.0}
                                                  : OtherAt(other, Eigen::Vector2d(x, y));
        const double open = 1.0 - crossing.dark;
        const double both = own.dark * crossing.dark + overlap * own.slope * crossing.slope;
        const int index =
            std::min(static_cast<int>((u - span.from) * blocksPerPixel), span.count - 1);
        Sums& block = sums[static_cast<std::size_t>(index)];
        Add(block, v, both - own.dark - crossing.dark, own.slope * open, level - base, u);
        if (std::abs(v) <= middle) {
          block.middle += level;
          ++block.middleCount;
        } else if (std::abs(v) >= side && crossing.dark < 0.05) {
          block.sides[v > 0.0 ? 1 : 0] += level;
          ++block.sideCounts[v > 0.0 ? 1 : 0];
        }
      });
  for (const Sums& sum : sums) {
    Block block;
    block.arm = arm;
    if (Solve(sum, stroke.profile.Peak(), block)) {
      blocks.push_back(block);
    }
  }
}

}  // namespace quorvex::precise
