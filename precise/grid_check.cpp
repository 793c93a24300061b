#include "precise/grid_check.h"
#include "precise/median.h"

#include <Eigen/LU>
#include <algorithm>
#include <cmath>

namespace quorvex::precise {
namespace {

constexpr double kDropped = 8.0;        // times the usual distance
constexpr double kLeastScatter = 0.01;  // px; smaller distances are no contradiction
constexpr int kRounds = 40;  // of dropping; a round drops a twentieth of the marks at most

}  // namespace

double UsualScatter(const std::vector<GridMark>& marks, const BoardMap& map) {
  std::vector<double> squares;
  for (const GridMark& mark : marks) {
    const Predicted predicted = map.At(mark.row, mark.column, true);
    if (predicted.isSeen) {
      squares.push_back((mark.fit.centre - predicted.pixel).squaredNorm());
    }
  }
  if (squares.empty()) {
    return kLeastScatter;
  }
  return std::max(std::sqrt(MedianOf(squares) / 1.3863), kLeastScatter);
}

double Contradiction(const GridMark& mark, const BoardMap& map, double scatter) {
  const Predicted predicted = map.At(mark.row, mark.column, true);
  if (!predicted.isSeen) {
    return 1e9;
  }
  const Eigen::Matrix2d expected =
      predicted.covariance + mark.fit.covariance + scatter * scatter * Eigen::Matrix2d::Identity();
  const Eigen::Vector2d away = mark.fit.centre - predicted.pixel;
  return std::sqrt(std::max(away.dot(expected.inverse() * away), 0.0));
}

std::vector<LabelledPoint> PointsOf(const std::vector<GridMark>& marks) {
  std::vector<LabelledPoint> points;
  for (const GridMark& mark : marks) {
    if (mark.fit.isMeasured) {
      points.push_back({Eigen::Vector2d(mark.column, mark.row), mark.fit.centre});
    }
  }
  return points;
}

BoardMap DropContradicted(std::vector<GridMark>& marks, CameraFit& camera, int width, int height) {
  for (int round = 0; round < kRounds; ++round) {
    BoardMap map(marks, camera);
    const double scatter = UsualScatter(marks, map);
    std::vector<std::pair<double, std::size_t>> worst;
    for (std::size_t i = 0; i < marks.size(); ++i) {
      const double contradiction = Contradiction(marks[i], map, scatter);
      if (contradiction > kDropped) {
        worst.emplace_back(-contradiction, i);
      }
    }
    if (worst.empty()) {
      return map;
    }
    // Neighbours of a wrong mark look wrong, too: only the worst go before the rest is looked at
    // again.
    std::sort(worst.begin(), worst.end());
    const std::size_t most = std::max<std::size_t>(1, marks.size() / 20);
    std::vector<std::size_t> going;
    for (const std::pair<double, std::size_t>& mark : worst) {
      if (going.size() < most && mark.first <= 0.5 * worst.front().first) {
        going.push_back(mark.second);
      }
    }
    std::sort(going.rbegin(), going.rend());
    for (std::size_t index : going) {
      marks.erase(marks.begin() + static_cast<std::ptrdiff_t>(index));
    }
    const CameraFit refined = RefineCamera(PointsOf(marks), camera.model, width, height);
    if (refined.isFitted) {
      camera = refined;
    }
  }
  return BoardMap(marks, camera);
}

}  // namespace quorvex::precise
