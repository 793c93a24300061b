#include <algorithm>
#include <cmath>

#include "interface/quorvex_precise.h"
#include "precise/image_input.h"
#include "precise/mark_acceptance.h"
#include "precise/mark_candidates.h"
#include "precise/mark_fit.h"
#include "precise/noise_estimate.h"
#include "precise/profile_steps.h"
#include "precise/pyramid.h"

namespace quorvex::precise {
namespace {

constexpr double kNearestCandidate = 4.0;  // px; points are placed by hand that well
constexpr double kLeastTolerance = 1.0;    // px, from the candidate's middle to the fitted one
constexpr double kBend = 0.3;              // px at the end of the arms
constexpr double kPieceFrom = 0.35;        // of an arm: clear of the crossing
constexpr double kPieceTo = 0.85;          // of an arm: clear of its end

using Index = std::size_t;

// The strokes of a candidate; an arm that is not seen is taken to be as long as the opposite one.
MarkFrame FrameOf(const MarkCandidate& candidate) {
  MarkFrame frame;
  frame.centre = candidate.centre;
  for (Index stroke = 0; stroke < 2; ++stroke) {
    const MarkArm& first = candidate.arms[stroke];
    const MarkArm& second = candidate.arms[stroke + 2];
    Eigen::Vector2d direction = Eigen::Vector2d::Zero();
    direction += first.isSeen ? first.direction : Eigen::Vector2d::Zero();
    direction -= second.isSeen ? second.direction : Eigen::Vector2d::Zero();
    frame.direction[stroke] = direction.normalized();
    frame.armLength[stroke] = {first.isSeen ? first.length : second.length,
                               second.isSeen ? second.length : first.length};
  }
  return frame;
}

// Width and blur of one stroke of the frame, from its own arms.
bool MeasureStroke(const GrayPicture& picture, const MarkCandidate& candidate, Index stroke,
                   MarkFrame& frame, double& sigma) {
  std::vector<ProfilePiece> pieces;
  for (Index arm = 0; arm < 2; ++arm) {
    if (candidate.arms[stroke + 2 * arm].isSeen) {
      ProfilePiece piece;
      const double length = frame.armLength[stroke][arm];
      piece.line.origin = frame.centre;
      piece.line.direction = frame.direction[stroke];
      piece.from = arm == 0 ? kPieceFrom * length : -kPieceTo * length;
      piece.to = arm == 0 ? kPieceTo * length : -kPieceFrom * length;
      piece.pitch = 2.0 * length;
      pieces.push_back(piece);
    }
  }
  WidthAndBlur profile;
  if (pieces.empty() || !GuessProfile(picture, pieces, profile) ||
      !FitProfile(picture, pieces, profile)) {
    return false;
  }
  frame.width[stroke] = profile.width * pieces[0].pitch;
  sigma = profile.sigma;
  return true;
}

bool Refine(const GrayPicture& picture, const MarkCandidate& candidate, double noise,
            RefinedPoint& point) {
  MarkFrame frame = FrameOf(candidate);
  std::array<double, 2> sigma = {};
  if (!MeasureStroke(picture, candidate, 0, frame, sigma[0]) ||
      !MeasureStroke(picture, candidate, 1, frame, sigma[1])) {
    point.reason = "no strokes could be measured";
    return false;
  }
  const EdgeTables first(sigma[0]);
  const EdgeTables second(sigma[1]);
  MarkFitSettings settings;
  settings.edges = {&first, &second};
  settings.noise = noise;
  settings.bendSigma = {kBend, 0.5 * kBend};
  const MarkFit fit = FitMark(picture, frame, settings);
  Expectation expected;
  expected.tolerance = kLeastTolerance;
  expected.isWellPredicted = true;
  if (!IsMark(picture, frame, fit, expected)) {
    point.reason = "the strokes do not cross as those of a mark";
    return false;
  }
  point.x = fit.centre.x();
  point.y = fit.centre.y();
  point.cxx = fit.covariance(0, 0);
  point.cxy = fit.covariance(0, 1);
  point.cyy = fit.covariance(1, 1);
  return true;
}

}  // namespace

std::vector<RefinedPoint> RefineMarks(const ImageView& image, const std::vector<Point>& points,
                                      const Options& options) {
  std::vector<RefinedPoint> refined(points.size());
  for (Index i = 0; i < points.size(); ++i) {
    refined[i].x = points[i].x;
    refined[i].y = points[i].y;
    refined[i].reason = WrongInput(image);
  }
  if (!WrongInput(image).empty() || points.empty()) {
    return refined;
  }
  const GrayPicture picture = CopyPicture(
      image.pixels, image.width, image.height, image.stride,
      options.colour == MarkColour::kLight ? Polarity::kLightMarks : Polarity::kDarkMarks);
  const double noise = EstimateNoise(picture);
  const std::vector<MarkCandidate> candidates = FindMarkCandidates(BuildPyramid(picture), noise);
  for (RefinedPoint& point : refined) {
    const MarkCandidate* nearest = nullptr;
    double distance = kNearestCandidate;
    for (const MarkCandidate& candidate : candidates) {
      const double away =
          std::hypot(candidate.centre.x() - point.x, candidate.centre.y() - point.y);
      if (away <= distance) {
        nearest = &candidate;
        distance = away;
      }
    }
    if (nearest == nullptr) {
      point.reason = "no strokes cross within 4 px";
    } else {
      point.isRefined = Refine(picture, *nearest, noise, point);
    }
  }
  return refined;
}

}  // namespace quorvex::precise
