#include "precise/final_fit.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "precise/grid_check.h"
#include "precise/mark_acceptance.h"

namespace quorvex::precise {
namespace {

constexpr double kLeastBend = 0.003;   // px at the end of the arms: the map is no better
constexpr double kLargestBend = 0.3;   // px
constexpr double kDoubtful = 4.5;      // times the usual distance from what the others predict
constexpr double kLeastFreedom = 6.0;  // blocks over the lines' unknowns, to judge their scatter
constexpr double kOwnScatter = 2.5;    // times the board's, from which a mark's own scatter counts
constexpr double kGaussMedian = 0.4549;  // median of a squared standard Gaussian
constexpr double kMedianError = 2.3;     // standard error of that median over its value, for one

using Index = std::size_t;

double Median(std::vector<double>& values) {
  const std::ptrdiff_t middle = static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), values.begin() + middle, values.end());
  return values[static_cast<Index>(middle)];
}

// How far strokes are from the bend that the map gives them, px at the end of the arms, beyond what
// their own errors explain; for the quadratic and the cubic term.
std::array<double, 2> BendSigma(const Grid& grid, const BoardMap& map) {
  std::array<double, 2> sigma = {kLargestBend, kLargestBend};
  for (Index term = 0; term < 2; ++term) {
    std::vector<double> squares;
    std::vector<double> variances;
    for (const GridMark& mark : grid.marks) {
      MarkFrame frame;
      if (!map.Frame(mark.row, mark.column, grid.facts, frame)) {
        continue;
      }
      for (Index stroke = 0; stroke < 2; ++stroke) {
        const double length = std::max(frame.armLength[stroke][0], frame.armLength[stroke][1]);
        const double scale = term == 0 ? length * length : length * length * length;
        const double away = (mark.fit.bend[stroke][term] - frame.bend[stroke][term]) * scale;
        squares.push_back(away * away);
        variances.push_back(mark.fit.bendVariance[stroke][term] * scale * scale);
      }
    }
    if (!squares.empty()) {
      // An excess within the medians' own error is none.
      const double explained = Median(variances);
      const double error =
          kMedianError * explained / std::sqrt(static_cast<double>(squares.size()));
      double excess = Median(squares) / kGaussMedian - explained;
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
  const double board = scatters.empty() ? 1.0 : std::max(Median(scatters), 1.0);
  for (GridMark& mark : marks) {
    double scatter = board;
    if (mark.fit.freedom >= kLeastFreedom &&
        mark.fit.squares / mark.fit.freedom > kOwnScatter * board) {
      scatter = mark.fit.squares / mark.fit.freedom;
    }
    mark.fit.covariance *= scatter;
  }
}

}  // namespace

std::vector<MarkVerdict> MeasureFinally(const GrayPicture& picture, double noise, Grid& grid) {
  const EdgeTables first(grid.facts.sigma[0]);
  const EdgeTables second(grid.facts.sigma[1]);
  MarkFitSettings settings;
  settings.edges = {&first, &second};
  settings.noise = noise;
  settings.isNear = true;
  const BoardMap map(grid.marks, grid.camera);
  settings.bendSigma = BendSigma(grid, map);
  std::vector<GridMark> measured;
  for (const GridMark& mark : grid.marks) {
    MarkFrame frame;
    if (!map.Frame(mark.row, mark.column, grid.facts, frame)) {
      continue;
    }
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
  DropContradicted(grid.marks, grid.camera, picture.Width(), picture.Height());
  const BoardMap after(grid.marks, grid.camera);
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
