#include "precise/block_fit.h"

#include <Eigen/Cholesky>
#include <Eigen/Core>
#include <algorithm>
#include <cmath>

namespace quorvex::precise {
namespace {

constexpr double kTailSigmas = 2.5;       // of blur and pixel: the stroke's flank
constexpr double kBackgroundReach = 2.5;  // px beyond the flank, for background and slope
constexpr int kFewestPixels = 8;          // twice the unknowns
constexpr double kMiddlePart = 0.5;       // of half the width and one sigma: the stroke's middle

using Vector4 = Eigen::Vector4d;
using Matrix4 = Eigen::Matrix4d;

using Pair = Eigen::Array2d;  // what processors compute at once

// Normal equations of a block: sums over its pixels of products of the unknowns' factors and the
// level. The factors are 1, the distance across, minus the covered part, and the shifted one (the
// covered part's derivative); the last two are a pair, the covered part with its own sign.
struct Sums {
  Pair pair = Pair::Zero();
  Pair pairByAcross = Pair::Zero();
  Pair pairByLevel = Pair::Zero();
  Pair pairSquares = Pair::Zero();
  double pairProduct = 0.0;
  double across = 0.0;
  double acrossSquare = 0.0;
  double level = 0.0;
  double levelByAcross = 0.0;
  double levelSquare = 0.0;
  double along = 0.0;
  double middle = 0.0;
  double sides[2] = {0.0, 0.0};
  int count = 0;
  int middleCount = 0;
  int sideCounts[2] = {0, 0};
};

// What a pixel adds to its block's sums; the level counts from a base so that squares stay small.
void Add(Sums& sums, double across, const Pair& pair, double level, double along) {
  sums.pair += pair;
  sums.pairByAcross += across * pair;
  sums.pairByLevel += level * pair;
  sums.pairSquares += pair * pair;
  sums.pairProduct += pair[0] * pair[1];
  sums.across += across;
  sums.acrossSquare += across * across;
  sums.level += level;
  sums.levelByAcross += level * across;
  sums.levelSquare += level * level;
  sums.along += along;
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
  const double dark = -sums.pair[0];
  const double shifted = sums.pair[1];
  const double darkAcross = -sums.pairByAcross[0];
  const double shiftedAcross = sums.pairByAcross[1];
  Matrix4 normal;
  normal << sums.count, sums.across, dark, shifted,               //
      sums.across, sums.acrossSquare, darkAcross, shiftedAcross,  //
      dark, darkAcross, sums.pairSquares[0], -sums.pairProduct,   //
      shifted, shiftedAcross, -sums.pairProduct, sums.pairSquares[1];
  const Vector4 right(sums.level, sums.levelByAcross, -sums.pairByLevel[0], sums.pairByLevel[1]);
  const Eigen::LDLT<Matrix4> solver(normal);
  if (solver.info() != Eigen::Success || solver.vectorD().minCoeff() <= 1e-9) {
    return false;
  }
  const Vector4 solution = solver.solve(right);
  const double variance = solver.solve(Vector4::UnitW()).w();
  block.along = sums.along / sums.count;
  block.darkness = solution[2];
  const double residual = sums.levelSquare - solution.dot(right);
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
        Pair pair = stroke.profile.PairAt(v);
        bool isClear = true;
        if (std::abs(u) <= clear) {
          const StrokeProfile::Value crossing = OtherAt(other, Eigen::Vector2d(x, y));
          const double both = pair[0] * crossing.dark + overlap * pair[1] * crossing.slope;
          pair = Pair(pair[0] + crossing.dark - both, pair[1] * (1.0 - crossing.dark));
          isClear = crossing.dark < 0.05;
        }
        const int index =
            std::min(static_cast<int>((u - span.from) * blocksPerPixel), span.count - 1);
        Sums& block = sums[static_cast<std::size_t>(index)];
        Add(block, v, pair, level - base, u);
        if (std::abs(v) <= middle) {
          block.middle += level;
          ++block.middleCount;
        } else if (std::abs(v) >= side && isClear) {
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
