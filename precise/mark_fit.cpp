#include "precise/mark_fit.h"

#include <Eigen/LU>
#include <algorithm>
#include <cmath>
#include <vector>

#include "precise/block_fit.h"

namespace quorvex::precise {
namespace {

constexpr double kBlockLength = 3.0;     // px; shorter ones hold too few pixels
constexpr int kFewestBlocks = 3;         // of an arm
constexpr int kMostBlocks = 12;          // of an arm
constexpr double kCrossingMargin = 1.5;  // px beyond the other stroke's flank
constexpr double kFarthestStep = 0.25;   // of the arms' length; a fit that leaves is no fit

using Index = std::size_t;

struct StrokeState {
  Stroke stroke;
  std::array<ArmSpan, 2> spans;
  std::vector<Block> blocks;
  CentreLine line;
};

ArmSpan SpanOf(const MarkFrame& frame, const MarkFitSettings& settings, Index stroke, int arm) {
  const Eigen::Vector2d& own = frame.direction[stroke];
  const Eigen::Vector2d& other = frame.direction[1 - stroke];
  const double sine = std::max(std::abs(own.x() * other.y() - own.y() * other.x()), 0.2);
  const double begin = 0.5 * frame.width[1 - stroke] / sine + kCrossingMargin;
  const double blur = settings.edges[stroke]->TotalSigma();
  const double full = frame.armLength[stroke][static_cast<Index>(arm)] - 1.5 * blur;
  const double end = begin + settings.armPart * (full - begin);
  ArmSpan span;
  if (!(end > begin + 2.0)) {
    return span;
  }
  span.from = arm == 0 ? begin : -end;
  span.to = arm == 0 ? end : -begin;
  span.count =
      std::clamp(static_cast<int>((end - begin) / kBlockLength), kFewestBlocks, kMostBlocks);
  return span;
}

// Where two lines cross that pass near each other's origin.
bool Cross(const StrokeLine& first, const StrokeLine& second, Eigen::Vector2d& crossing) {
  crossing = first.origin;
  for (int round = 0; round < 4; ++round) {
    Eigen::Matrix2d normals;
    Eigen::Vector2d away;
    int row = 0;
    for (const StrokeLine* line : {&first, &second}) {
      const Eigen::Vector2d rest = crossing - line->origin;
      const double u = line->direction.dot(rest);
      normals.row(row) = (line->Normal() - line->Slope(u) * line->direction).transpose();
      away[row] = line->Normal().dot(rest) - line->Offset(u);
      ++row;
    }
    if (!(std::abs(normals.determinant()) > 0.05)) {
      return false;
    }
    crossing -= normals.inverse() * away;
  }
  return crossing.allFinite();
}

StrokeLine Moved(const StrokeLine& line, const std::array<double, 4>& shift) {
  StrokeLine moved = line;
  for (Index term = 0; term < 4; ++term) {
    moved.shape[term] += shift[term];
  }
  return moved;
}

// The same line, described from a point on it.
StrokeLine Recentred(const StrokeLine& line, const Eigen::Vector2d& point) {
  const double u = line.direction.dot(point - line.origin);
  StrokeLine result;
  result.origin = point;
  result.direction = (line.direction + line.Slope(u) * line.Normal()).normalized();
  result.shape = {0.0, 0.0, line.shape[2] + 3.0 * u * line.shape[3], line.shape[3]};
  return result;
}

void FillResult(const std::array<StrokeState, 2>& states, const MarkFrame& frame,
                const std::array<StrokeLine, 2>& lines, MarkFit& fit) {
  Eigen::Matrix2d normals;
  Eigen::Vector2d variances;
  Eigen::Vector2d aside;
  fit.squares = 0.0;
  fit.freedom = 0.0;
  for (Index stroke = 0; stroke < 2; ++stroke) {
    const StrokeState& state = states[stroke];
    const StrokeLine& before = state.stroke.line;
    const double u = before.direction.dot(lines[stroke].origin - before.origin);
    const int row = static_cast<int>(stroke);
    normals.row(row) = lines[stroke].Normal().transpose();
    variances[row] = state.line.Variance(u);
    aside[row] = frame.aside[stroke];
    fit.direction[stroke] = lines[stroke].direction;
    fit.bend[stroke] = {lines[stroke].shape[2], lines[stroke].shape[3]};
    fit.bendVariance[stroke] = {state.line.covariance(2, 2), state.line.covariance(3, 3)};
    fit.squares += state.line.squares;
    fit.freedom += state.line.freedom;
  }
  const Eigen::Matrix2d inverse = normals.inverse();
  fit.centre = lines[0].origin - inverse * aside;
  fit.covariance = inverse * variances.asDiagonal() * inverse.transpose();
  fit.isMeasured = fit.centre.allFinite() && fit.covariance.allFinite();
}

// One round: blocks of all arms, lines, crossing. False where a stroke is not seen.
bool FitRound(const GrayPicture& picture, const MarkFrame& frame, const MarkFitSettings& settings,
              std::array<StrokeState, 2>& states, std::array<StrokeLine, 2>& lines, bool isNear,
              MarkFit& fit) {
  for (Index stroke = 0; stroke < 2; ++stroke) {
    StrokeState& state = states[stroke];
    state.blocks.clear();
    for (int arm = 0; arm < 2; ++arm) {
      const ArmSpan span = SpanOf(frame, settings, stroke, arm);
      state.spans[static_cast<Index>(arm)] = span;
      FitBlocks(picture, state.stroke, states[1 - stroke].stroke, span, arm, state.blocks);
    }
  }
  fit.darkness = 0.0;
  for (Index stroke = 0; stroke < 2; ++stroke) {
    StrokeState& state = states[stroke];
    const double darkness = TypicalDarkness(state.blocks);
    if (!(darkness > 0.0)) {
      return false;
    }
    fit.darkness += 0.5 * darkness * state.stroke.profile.Peak();
    fit.arms[stroke] = JudgeArms({darkness, state.stroke.profile.Peak(), settings.noise, isNear},
                                 state.spans, state.blocks);
    BendPrior prior;
    prior.expected = frame.bend[stroke];
    prior.sigma = settings.bendSigma;
    prior.length = std::max(frame.armLength[stroke][0], frame.armLength[stroke][1]);
    state.line = FitCentreLine(state.blocks, settings.noise, state.stroke.line.shape, prior);
    if (!state.line.isFitted) {
      return false;
    }
    lines[stroke] = Moved(state.stroke.line, state.line.shift);
  }
  Eigen::Vector2d crossing;
  if (!Cross(lines[0], lines[1], crossing)) {
    return false;
  }
  for (StrokeLine& line : lines) {
    line = Recentred(line, crossing);
  }
  return true;
}

}  // namespace

int MarkFit::SeenArms() const {
  int count = 0;
  for (const std::array<ArmFit, 2>& stroke : arms) {
    count += (stroke[0].isSeen ? 1 : 0) + (stroke[1].isSeen ? 1 : 0);
  }
  return count;
}

bool MarkFit::SeesBothStrokes() const {
  return (arms[0][0].isSeen || arms[0][1].isSeen) && (arms[1][0].isSeen || arms[1][1].isSeen);
}

MarkFit FitMark(const GrayPicture& picture, const MarkFrame& frame,
                const MarkFitSettings& settings) {
  MarkFit fit;
  std::array<StrokeState, 2> states;
  Eigen::Matrix2d frameNormals;
  for (Index stroke = 0; stroke < 2; ++stroke) {
    StrokeLine& line = states[stroke].stroke.line;
    line.direction = frame.direction[stroke];
    line.shape = {0.0, 0.0, frame.bend[stroke][0], frame.bend[stroke][1]};
    line.origin = frame.centre;
    frameNormals.row(static_cast<int>(stroke)) = line.Normal().transpose();
    states[stroke].stroke.profile =
        StrokeProfile(*settings.edges[stroke], line.Normal(), frame.width[stroke]);
  }
  if (!(std::abs(frameNormals.determinant()) > 0.05)) {
    return fit;
  }
  for (Index stroke = 0; stroke < 2; ++stroke) {
    const Eigen::Vector2d asides(frame.aside[0], frame.aside[1]);
    states[stroke].stroke.line.origin += frameNormals.inverse() * asides;
  }
  const double farthest = kFarthestStep * std::max({frame.armLength[0][0], frame.armLength[0][1],
                                                    frame.armLength[1][0], frame.armLength[1][1]});
  bool isNear = settings.isNear;
  for (int round = 0; round < settings.rounds; ++round) {
    std::array<StrokeLine, 2> lines;
    if (!FitRound(picture, frame, settings, states, lines, isNear, fit)) {
      fit.isMeasured = false;
      return fit;
    }
    isNear = true;
    const double step = (lines[0].origin - states[0].stroke.line.origin).norm();
    FillResult(states, frame, lines, fit);
    for (Index stroke = 0; stroke < 2; ++stroke) {
      states[stroke].stroke.line = lines[stroke];
    }
    if ((fit.centre - frame.centre).norm() > farthest) {
      fit.isMeasured = false;
      return fit;
    }
    if (step < settings.settled) {
      break;
    }
  }
  return fit;
}

}  // namespace quorvex::precise
