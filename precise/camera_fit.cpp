#include "precise/camera_fit.h"
#include "precise/median.h"

#include <Eigen/Cholesky>
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace quorvex::precise {
namespace {

using Step = CameraModel::Step;
using Information = Eigen::Matrix<double, CameraModel::kParameters, CameraModel::kParameters>;

// Radians seen at the picture's corner, for the five starts.
constexpr std::array<double, 5> kCornerAngles = {0.35, 0.7, 1.05, 1.4, 1.8};
constexpr std::size_t kStartPoints = 50;  // enough to tell the starts apart
constexpr int kStartSteps = 10;
constexpr int kSteps = 30;
constexpr double kLeastResidual = 0.003;  // px; marks are not measured better than that
constexpr double kFullWeight = 2.0;       // residuals; less weight beyond
constexpr double kNoWeight = 8.0;  // residuals; a point this far off is no mark of this label
constexpr double kSettled = 0.1;   // of the cost, which changes by 1 for one standard deviation
constexpr double kSteady = 0.98;   // of the residual, by which the cost is scaled

// What is taken for likely before any mark is seen, so that few marks do not give absurd lenses.
constexpr double kBendSigma = 0.3;       // of k1 and k2
constexpr double kLastBendSigma = 0.02;  // of k3
constexpr double kCentreSigma = 0.25;    // of the picture's diagonal, around its middle
constexpr double kAspectSigma = 0.1;     // of the logarithm; most boards have square cells
constexpr double kFocalSigma = 1.0;      // of the logarithm

struct Problem {
  const std::vector<LabelledPoint>& points;
  Eigen::Vector2d middle;  // px, of the picture
  double diagonal;         // px
};

// Distances of all points, px; false when one is not seen.
bool Distances(const Problem& problem, const CameraModel& model, std::vector<double>& distances) {
  distances.clear();
  for (const LabelledPoint& point : problem.points) {
    Eigen::Vector2d pixel;
    if (!model.Project(point.label, pixel)) {
      return false;
    }
    distances.push_back((pixel - point.pixel).norm());
  }
  return true;
}

// The standard deviation of one coordinate, from the median distance: for Gaussian errors the
// median distance is 1.1774 of it.
double RobustResidual(const std::vector<double>& distances) {
  std::vector<double> sorted = distances;
  return std::max(MedianOf(sorted) / 1.1774, kLeastResidual);
}

double Cost(double distance, double residual) {
  const double far = distance / residual;
  if (far >= kNoWeight) {
    return kFullWeight * (2.0 * kNoWeight - kFullWeight);
  }
  return far <= kFullWeight ? far * far : kFullWeight * (2.0 * far - kFullWeight);
}

double Weight(double distance, double residual) {
  const double far = distance / residual;
  if (far >= kNoWeight) {
    return 0.0;
  }
  return far <= kFullWeight ? 1.0 : kFullWeight / far;
}

// Squares of what differs from the likely, in its standard deviations, by the parameters.
struct Likely {
  Step difference = Step::Zero();
  Step information = Step::Zero();
};

Likely LikelyOf(const Problem& problem, const CameraModel& model, double startFocalLength) {
  Likely likely;
  likely.difference[6] = std::log(model.focalLength / startFocalLength);
  likely.information[6] = 1.0 / (kFocalSigma * kFocalSigma);
  likely.difference[7] = model.k1;
  likely.difference[8] = model.k2;
  likely.difference[12] = model.k3;
  likely.information[7] = likely.information[8] = 1.0 / (kBendSigma * kBendSigma);
  likely.information[12] = 1.0 / (kLastBendSigma * kLastBendSigma);
  const double centreSigma = kCentreSigma * problem.diagonal;
  likely.difference.segment<2>(9) = model.centre - problem.middle;
  likely.information[9] = likely.information[10] = 1.0 / (centreSigma * centreSigma);
  likely.difference[11] = std::log(model.aspect);
  likely.information[11] = 1.0 / (kAspectSigma * kAspectSigma);
  return likely;
}

double TotalCost(const Problem& problem, const CameraModel& model, double startFocalLength,
                 double residual, std::vector<double>& distances) {
  if (!Distances(problem, model, distances)) {
    return std::numeric_limits<double>::infinity();
  }
  const Likely likely = LikelyOf(problem, model, startFocalLength);
  double cost = likely.difference.cwiseAbs2().dot(likely.information);
  for (double distance : distances) {
    cost += Cost(distance, residual);
  }
  return cost;
}

void Normal(const Problem& problem, const CameraModel& model, double startFocalLength,
            double residual, Information& information, Step& gradient) {
  const Likely likely = LikelyOf(problem, model, startFocalLength);
  information = likely.information.asDiagonal();
  gradient = -likely.information.cwiseProduct(likely.difference);
  CameraModel::Jacobian jacobian;
  for (const LabelledPoint& point : problem.points) {
    Eigen::Vector2d pixel;
    if (!model.Project(point.label, pixel, &jacobian)) {
      continue;
    }
    const Eigen::Vector2d away = point.pixel - pixel;
    const double weight = Weight(away.norm(), residual) / (residual * residual);
    information.noalias() += weight * jacobian.transpose() * jacobian;
    gradient.noalias() += weight * jacobian.transpose() * away;
  }
}

CameraFit Follow(const Problem& problem, const CameraModel& start, int steps) {
  CameraFit fit;
  fit.model = start;
  std::vector<double> distances;
  if (!Distances(problem, start, distances)) {
    return fit;
  }
  fit.residual = RobustResidual(distances);
  double damping = 1e-3;
  Information information;
  Step gradient;
  for (int step = 0; step < steps; ++step) {
    Normal(problem, fit.model, start.focalLength, fit.residual, information, gradient);
    const double before = TotalCost(problem, fit.model, start.focalLength, fit.residual, distances);
    double after = before;
    for (int attempt = 0; attempt < 6; ++attempt) {
      Information damped = information;
      damped.diagonal() *= 1.0 + damping;
      const CameraModel moved = fit.model.Moved(damped.ldlt().solve(gradient));
      after = TotalCost(problem, moved, start.focalLength, fit.residual, distances);
      if (after < before) {
        fit.model = moved;
        damping = std::max(damping * 0.1, 1e-9);
        break;
      }
      damping *= 10.0;
    }
    if (!Distances(problem, fit.model, distances)) {
      return fit;
    }
    const double residual = RobustResidual(distances);
    const bool isSettled = !(after < before - kSettled) && residual > kSteady * fit.residual;
    fit.residual = residual;
    if (isSettled) {
      break;
    }
  }
  Normal(problem, fit.model, start.focalLength, fit.residual, information, gradient);
  const Eigen::LDLT<Information> solver(information);
  fit.covariance = solver.solve(Information::Identity());
  fit.isFitted = solver.info() == Eigen::Success && fit.covariance.allFinite();
  return fit;
}

Problem ProblemOf(const std::vector<LabelledPoint>& points, int width, int height) {
  return {points, Eigen::Vector2d(0.5 * (width - 1), 0.5 * (height - 1)),
          std::hypot(static_cast<double>(width), static_cast<double>(height))};
}

}  // namespace

CameraFit FitCamera(const std::vector<LabelledPoint>& points, int width, int height) {
  CameraFit best;
  if (points.size() < 4) {
    return best;
  }
  std::vector<LabelledPoint> some;
  const std::size_t stride = 1 + (points.size() - 1) / kStartPoints;
  for (std::size_t i = 0; i < points.size(); i += stride) {
    some.push_back(points[i]);
  }
  const Problem small = ProblemOf(some, width, height);
  for (double cornerAngle : kCornerAngles) {
    CameraModel start;
    if (!StartCamera(some, small.middle, 0.5 * small.diagonal / cornerAngle, start)) {
      continue;
    }
    const CameraFit fit = Follow(small, start, kStartSteps);
    if (fit.isFitted && (!best.isFitted || fit.residual < best.residual)) {
      best = fit;
    }
  }
  return best.isFitted ? RefineCamera(points, best.model, width, height) : best;
}

CameraFit RefineCamera(const std::vector<LabelledPoint>& points, const CameraModel& start,
                       int width, int height) {
  return Follow(ProblemOf(points, width, height), start, kSteps);
}

}  // namespace quorvex::precise
