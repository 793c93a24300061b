#include "benchmarks/precision/detection_score.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <map>
#include <optional>
#include <tuple>

namespace quorvex::benchmarks {
namespace {

constexpr double kManySigmas = 6;  // an error so large that its covariance is told as a failure

// Takes a true label to a found one: quarter turns, then a shift.
struct LabelMap {
  int quarterTurns = 0;
  int rowShift = 0;
  int columnShift = 0;
};

struct Label {
  int row;
  int column;
};

Label Turned(const SceneMark& mark, int quarterTurns) {
  Label label = {mark.row, mark.column};
  for (int i = 0; i < quarterTurns; ++i) {
    label = {label.column, -label.row};
  }
  return label;
}

bool Agrees(const LabelMap& map, const FoundMark& found, const SceneMark& mark) {
  const Label label = Turned(mark, map.quarterTurns);
  return found.row == label.row + map.rowShift && found.column == label.column + map.columnShift;
}

// For each point the index of its mark.
std::vector<std::optional<std::size_t>> MatchByPosition(const Detection& detection,
                                                        const std::vector<SceneMark>& marks) {
  std::vector<std::optional<std::size_t>> matches;
  std::vector<bool> isTaken(marks.size(), false);
  for (const FoundMark& found : detection.marks) {
    std::optional<std::size_t> nearest;
    double least = kMatchDistance;
    for (std::size_t i = 0; i < marks.size(); ++i) {
      const double distance = std::hypot(found.x - marks[i].x, found.y - marks[i].y);
      if (distance < least) {
        least = distance;
        nearest = i;
      }
    }
    if (nearest && isTaken[*nearest]) {
      nearest.reset();
    } else if (nearest) {
      isTaken[*nearest] = true;
    }
    matches.push_back(nearest);
  }
  return matches;
}

LabelMap MostAgreedMap(const Detection& detection, const std::vector<SceneMark>& marks,
                       const std::vector<std::optional<std::size_t>>& matches) {
  std::map<std::tuple<int, int, int>, int> votes;
  int most = 0;
  LabelMap map;
  for (std::size_t i = 0; i < matches.size(); ++i) {
    if (!matches[i]) {
      continue;
    }
    const FoundMark& found = detection.marks[i];
    for (int turns = 0; turns < 4; ++turns) {
      const Label label = Turned(marks[*matches[i]], turns);
      const LabelMap candidate = {turns, found.row - label.row, found.column - label.column};
      const int count = ++votes[{turns, candidate.rowShift, candidate.columnShift}];
      if (count > most) {
        most = count;
        map = candidate;
      }
    }
  }
  return map;
}

// Half of e' C^-1 e; nothing without a covariance.
std::optional<double> NormalisedError(const FoundMark& found, const SceneMark& mark) {
  const double x = found.x - mark.x;
  const double y = found.y - mark.y;
  const double determinant =
      found.covarianceXX * found.covarianceYY - found.covarianceXY * found.covarianceXY;
  if (!(determinant > 0)) {
    return std::nullopt;
  }
  return (x * x * found.covarianceYY - 2 * x * y * found.covarianceXY +
          y * y * found.covarianceXX) /
         determinant / 2;
}

void AddFound(const FoundMark& found, const SceneMark& mark, Score& score) {
  ++score.found;
  score.errors.push_back(std::hypot(found.x - mark.x, found.y - mark.y));
  const std::optional<double> normalised = NormalisedError(found, mark);
  if (!normalised) {
    return;
  }
  score.normalisedErrors.push_back(*normalised);
  if (*normalised > kManySigmas * kManySigmas / 2) {
    score.failures.push_back(
        fmt::format("mark {},{} at {:.2f},{:.2f} is {:.4f} px off with a sigma of {:.4f}", mark.row,
                    mark.column, mark.x, mark.y, score.errors.back(),
                    std::sqrt((found.covarianceXX + found.covarianceYY) / 2)));
  }
}

void TellMissing(const std::vector<SceneMark>& marks, const std::vector<bool>& isMet,
                 Score& score) {
  for (std::size_t i = 0; i < marks.size(); ++i) {
    if (!marks[i].isVisible) {
      continue;
    }
    ++score.visible;
    if (!isMet[i]) {
      score.failures.push_back(fmt::format("mark {},{} at {:.2f},{:.2f} was not found",
                                           marks[i].row, marks[i].column, marks[i].x, marks[i].y));
    }
  }
}

}  // namespace

Score ScoreDetection(const Detection& detection, const std::vector<SceneMark>& marks) {
  const std::vector<std::optional<std::size_t>> matches = MatchByPosition(detection, marks);
  const LabelMap map = MostAgreedMap(detection, marks, matches);
  Score score;
  std::vector<bool> isMet(marks.size(), false);
  for (std::size_t i = 0; i < matches.size(); ++i) {
    const FoundMark& found = detection.marks[i];
    score.doubtful += found.isDoubtful ? 1 : 0;
    if (!matches[i]) {
      ++score.falsePoints;
      score.failures.push_back(fmt::format("point {},{} at {:.2f},{:.2f} is no mark", found.row,
                                           found.column, found.x, found.y));
      continue;
    }
    const SceneMark& mark = marks[*matches[i]];
    isMet[*matches[i]] = true;
    if (!Agrees(map, found, mark)) {
      ++score.wrongLabels;
      score.failures.push_back(fmt::format("mark {},{} at {:.2f},{:.2f} is called {},{}", mark.row,
                                           mark.column, mark.x, mark.y, found.row, found.column));
    } else if (mark.isVisible) {
      AddFound(found, mark, score);
    }
  }
  TellMissing(marks, isMet, score);
  return score;
}

void AddScore(const Score& score, Score& sum) {
  sum.visible += score.visible;
  sum.found += score.found;
  sum.wrongLabels += score.wrongLabels;
  sum.falsePoints += score.falsePoints;
  sum.doubtful += score.doubtful;
  sum.seconds += score.seconds;
  sum.errors.insert(sum.errors.end(), score.errors.begin(), score.errors.end());
  sum.normalisedErrors.insert(sum.normalisedErrors.end(), score.normalisedErrors.begin(),
                              score.normalisedErrors.end());
  sum.failures.insert(sum.failures.end(), score.failures.begin(), score.failures.end());
}

double RootMeanSquare(const std::vector<double>& values) {
  double squares = 0;
  for (const double value : values) {
    squares += value * value;
  }
  return values.empty() ? 0 : std::sqrt(squares / static_cast<double>(values.size()));
}

double Mean(const std::vector<double>& values) {
  double sum = 0;
  for (const double value : values) {
    sum += value;
  }
  return values.empty() ? 0 : sum / static_cast<double>(values.size());
}

double Quantile(std::vector<double> values, double part) {
  if (values.empty()) {
    return 0;
  }
  std::sort(values.begin(), values.end());
  const double index = part * static_cast<double>(values.size() - 1);
  return values[static_cast<std::size_t>(index + 0.5)];
}

}  // namespace quorvex::benchmarks
