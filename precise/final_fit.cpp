#include "precise/final_fit.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <utility>
#include <vector>

#include "precise/grid_check.h"
#include "precise/mark_acceptance.h"
#include "precise/median.h"

namespace quorvex::precise {
namespace {

constexpr double kLeastBend = 0.0005;  // px at the end of the arms: no map is better
constexpr double kLargestBend = 0.3;   // px
constexpr double kDoubtful = 4.5;      // times the usual distance from what the others predict
constexpr double kLeastFreedom = 6.0;  // blocks over the lines' unknowns, to judge their scatter
constexpr double kOwnScatter = 2.5;    // times the board's, from which a mark's own scatter counts
constexpr double kGaussMedian = 0.4549;  // median of a squared standard Gaussian
constexpr double kMedianError = 2.3;     // standard error of that median over its value, for one

constexpr double kSharedErrors = 1.8;  // differences share marks, which makes medians less sure
constexpr double kSurely = 2.0;        // standard errors

using Index = std::size_t;

// Where marks of the grid are expected by all of them together.
struct ExpectedMark {
  bool isSeen = false;
  MarkFrame frame;
};

std::vector<ExpectedMark> ExpectedMarks(const Grid& grid, const BoardMap& map) {
  std::vector<ExpectedMark> expected(grid.marks.size());
  for (Index i = 0; i < expected.size(); ++i) {
    const GridMark& mark = grid.marks[i];
    expected[i].isSeen = map.Frame(mark.row, mark.column, grid.facts, expected[i].frame);
  }
  return expected;
}

// How far strokes are from the bend that the map gives them, px at the end of the arms, beyond what
// their own errors explain; for the quadratic and the cubic term.
std::array<double, 2> BendSigma(const std::vector<GridMark>& marks,
                                const std::vector<ExpectedMark>& expected) {
  std::array<double, 2> sigma = {kLargestBend, kLargestBend};
  for (Index term = 0; term < 2; ++term) {
    std::vector<double> squares;
    std::vector<double> variances;
    for (Index i = 0; i < marks.size(); ++i) {
      if (!expected[i].isSeen) {
        continue;
      }
      const MarkFit& fit = marks[i].fit;
      const MarkFrame& frame = expected[i].frame;
      for (Index stroke = 0; stroke < 2; ++stroke) {
        const double length = std::max(frame.armLength[stroke][0], frame.armLength[stroke][1]);
        const double scale = term == 0 ? length * length : length * length * length;
        const double away = (fit.bend[stroke][term] - frame.bend[stroke][term]) * scale;
        squares.push_back(away * away);
        variances.push_back(fit.bendVariance[stroke][term] * scale * scale);
      }
    }
    if (!squares.empty()) {
      // An excess within the medians' own error is none.
      const double explained = MedianOf(variances);
      const double error =
          kMedianError * explained / std::sqrt(static_cast<double>(squares.size()));
      double excess = MedianOf(squares) / kGaussMedian - explained;
      excess = excess > 2.0 * error ? excess : 0.0;
      sigma[term] = std::clamp(std::sqrt(std::max(excess, 0.0)), kLeastBend, kLargestBend);
    }
  }
  return sigma;
}

// The board's scatter of blocks about their lines, in their variances; then each mark's own.
void EnlargeCovariances(std::vector<GridMark>& marks) {
  std::vector<double> scatters;
  for (const GridMark& mark : marks) {
    if (mark.fit.freedom >= kLeastFreedom) {
      scatters.push_back(mark.fit.squares / mark.fit.freedom);
    }
  }
  const double board = scatters.empty() ? 1.0 : std::max(MedianOf(scatters), 1.0);
  for (GridMark& mark : marks) {
    double scatter = board;
    if (mark.fit.freedom >= kLeastFreedom &&
        mark.fit.squares / mark.fit.freedom > kOwnScatter * board) {
      scatter = mark.fit.squares / mark.fit.freedom;
    }
    mark.fit.covariance *= scatter;
  }
}

// Neighbours in a row or column differ from the camera smoothly; what is left of a third difference
// of four is their own errors. The median of its square over what the covariances say: above 1
// where errors are larger, as when noise goes the same way over many pixels.
double NeighbourScatter(const std::vector<GridMark>& marks, const CameraModel& camera) {
  std::map<std::pair<int, int>, std::pair<Eigen::Vector2d, double>> residuals;
  for (const GridMark& mark : marks) {
    Eigen::Vector2d pixel;
    if (camera.Project({mark.column, mark.row}, pixel)) {
      residuals[{mark.row, mark.column}] = {mark.fit.centre - pixel,
                                            0.5 * mark.fit.covariance.trace()};
    }
  }
  std::vector<double> ratios;
  for (const auto& entry : residuals) {
    for (int stroke = 0; stroke < 2; ++stroke) {
      Eigen::Vector2d difference = Eigen::Vector2d::Zero();
      double variance = 0.0;
      bool isWhole = true;
      for (int i = 0; i < 4 && isWhole; ++i) {
        constexpr std::array<double, 4> kFactors = {1.0, -3.0, 3.0, -1.0};
        const auto found = residuals.find({entry.first.first + (stroke == 1 ? i : 0),
                                           entry.first.second + (stroke == 0 ? i : 0)});
        isWhole = found != residuals.end();
        if (isWhole) {
          const double factor = kFactors[static_cast<Index>(i)];
          difference += factor * found->second.first;
          variance += factor * factor * found->second.second;
        }
      }
      if (isWhole) {
        ratios.push_back(difference.x() * difference.x() / variance);
        ratios.push_back(difference.y() * difference.y() / variance);
      }
    }
  }
  if (ratios.empty()) {
    return 1.0;
  }
  const double error = kMedianError * kSharedErrors / std::sqrt(static_cast<double>(ratios.size()));
  const double scatter = MedianOf(ratios) / kGaussMedian;
  return scatter > 1.0 + kSurely * error ? scatter : 1.0;
}

}  // namespace

std::vector<MarkVerdict> MeasureFinally(const GrayPicture& picture, double noise, Grid& grid) {
  const EdgeTables first(grid.facts.sigma[0]);
  const EdgeTables second(grid.facts.sigma[1]);
  MarkFitSettings settings;
  settings.edges = {&first, &second};
  settings.noise = noise;
  settings.isNear = true;
  const std::vector<ExpectedMark> marks = ExpectedMarks(grid, BoardMap(grid.marks, grid.camera));
  settings.bendSigma = BendSigma(grid.marks, marks);
  std::vector<GridMark> measured;
  for (Index i = 0; i < marks.size(); ++i) {
    if (!marks[i].isSeen) {
      continue;
    }
    const GridMark& mark = grid.marks[i];
    MarkFrame frame = marks[i].frame;
    frame.centre = mark.fit.centre;
    GridMark again = mark;
    again.fit = FitMark(picture, frame, settings);
    Expectation expected;
    expected.darkness = mark.fit.darkness;
    expected.tolerance = 1.0;
    expected.isWellPredicted = true;
    if (IsMark(picture, frame, again.fit, expected)) {
      measured.push_back(again);
    }
  }
  grid.marks = measured;
  EnlargeCovariances(grid.marks);
  const double neighbours = NeighbourScatter(grid.marks, grid.camera.model);
  for (GridMark& mark : grid.marks) {
    mark.fit.covariance *= neighbours;
  }
  const BoardMap after =
      DropContradicted(grid.marks, grid.camera, picture.Width(), picture.Height());
  const double scatter = UsualScatter(grid.marks, after);
  std::vector<MarkVerdict> verdicts;
  for (const GridMark& mark : grid.marks) {
    MarkVerdict verdict;
    verdict.isDoubtful = mark.fit.SeenArms() < 3 || Contradiction(mark, after, scatter) > kDoubtful;
    verdicts.push_back(verdict);
  }
  return verdicts;
}

}  // namespace quorvex::precise
