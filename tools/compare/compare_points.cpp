#include "tools/compare/compare_points.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <tuple>

namespace quorvex::tools {
namespace {

struct Pair {
  double distance;  // pixels
  std::size_t point;
  std::size_t mark;
};

// All pairs within the tolerance. Marks are looked up by x, so that long lists stay affordable.
std::vector<Pair> PairsWithin(const std::vector<ListedPoint>& points,
                              const std::vector<TruthMark>& truth, double tolerance) {
  std::vector<std::size_t> marksByX(truth.size());
  std::iota(marksByX.begin(), marksByX.end(), std::size_t{0});
  std::sort(marksByX.begin(), marksByX.end(),
            [&](std::size_t a, std::size_t b) { return truth[a].x < truth[b].x; });

  std::vector<Pair> pairs;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const ListedPoint& point = points[i];
    auto mark = std::lower_bound(marksByX.begin(), marksByX.end(), point.x - tolerance,
                                 [&](std::size_t m, double x) { return truth[m].x < x; });
    for (; mark != marksByX.end() && truth[*mark].x <= point.x + tolerance; ++mark) {
      const double distance = std::hypot(point.x - truth[*mark].x, point.y - truth[*mark].y);
      if (distance <= tolerance) {
        pairs.push_back({distance, i, *mark});
      }
    }
  }
  return pairs;
}

std::vector<Pair> MatchNearestFirst(std::vector<Pair> pairs, std::size_t pointCount,
                                    std::size_t markCount) {
  std::sort(pairs.begin(), pairs.end(), [](const Pair& a, const Pair& b) {
    return std::tie(a.distance, a.point, a.mark) < std::tie(b.distance, b.point, b.mark);
  });
  std::vector<bool> pointTaken(pointCount);
  std::vector<bool> markTaken(markCount);
  std::vector<Pair> matches;
  for (const Pair& pair : pairs) {
    if (pointTaken[pair.point] || markTaken[pair.mark]) {
      continue;
    }
    pointTaken[pair.point] = true;
    markTaken[pair.mark] = true;
    matches.push_back(pair);
  }
  return matches;
}

// `distances` ascending.
ErrorStatistics Summarize(const std::vector<double>& distances) {
  ErrorStatistics statistics;
  if (distances.empty()) {
    return statistics;
  }
  double squares = 0;
  for (const double distance : distances) {
    squares += distance * distance;
  }
  const std::size_t count = distances.size();
  statistics.count = static_cast<int>(count);
  statistics.rms = std::sqrt(squares / static_cast<double>(count));
  statistics.median = (distances[(count - 1) / 2] + distances[count / 2]) / 2;
  statistics.max = distances.back();
  return statistics;
}

void CompareLabels(const std::vector<ListedPoint>& points, const std::vector<TruthMark>& truth,
                   const std::vector<Pair>& matches, Comparison& result) {
  if (matches.empty()) {
    return;
  }
  // In 64 bits: labels come from a file and may be anywhere in the range of an int.
  const auto rowOffset = [&](const Pair& m) {
    return std::int64_t{points[m.point].row} - truth[m.mark].row;
  };
  const auto columnOffset = [&](const Pair& m) {
    return std::int64_t{points[m.point].col} - truth[m.mark].column;
  };
  const Pair& first = matches.front();
  bool sameOffset = true;
  bool transposed = true;
  for (const Pair& m : matches) {
    if (rowOffset(m) != 0 || columnOffset(m) != 0) {
      ++result.wrongLabels;
    }
    sameOffset &= rowOffset(m) == rowOffset(first) && columnOffset(m) == columnOffset(first);
    transposed &=
        points[m.point].row == truth[m.mark].column && points[m.point].col == truth[m.mark].row;
  }
  if (result.wrongLabels == 0) {
    return;
  }
  if (transposed) {
    result.labels = Labels::kTransposed;
  } else if (sameOffset) {
    result.labels = Labels::kOffset;
    result.rowOffset = rowOffset(first);
    result.columnOffset = columnOffset(first);
  } else {
    result.labels = Labels::kDisagree;
  }
}

void CollectDetails(const std::vector<ListedPoint>& points, const std::vector<TruthMark>& truth,
                    const std::vector<Pair>& matches, Comparison& result) {
  constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  std::vector<std::size_t> markOf(points.size(), kNone);
  std::vector<bool> isFound(truth.size());
  for (const Pair& m : matches) {
    markOf[m.point] = m.mark;
    isFound[m.mark] = true;
  }
  for (std::size_t i = 0; i < truth.size(); ++i) {
    if (!isFound[i] && !truth[i].isMissing) {
      result.missedMarks.push_back(truth[i]);
    }
  }
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (markOf[i] == kNone) {
      result.extraPoints.push_back(points[i]);
    } else if (points[i].row != truth[markOf[i]].row || points[i].col != truth[markOf[i]].column) {
      result.mislabelled.push_back({points[i], truth[markOf[i]]});
    }
  }
}

}  // namespace

Comparison ComparePoints(const std::vector<ListedPoint>& points,
                         const std::vector<TruthMark>& truth, double tolerance) {
  const std::vector<Pair> matches =
      MatchNearestFirst(PairsWithin(points, truth, tolerance), points.size(), truth.size());
  std::vector<double> found;
  std::vector<double> filledIn;
  for (const Pair& m : matches) {
    (truth[m.mark].isMissing ? filledIn : found).push_back(m.distance);
  }

  Comparison result;
  for (const TruthMark& mark : truth) {
    ++(mark.isMissing ? result.leftOutMarks : result.visibleMarks);
  }
  result.found = Summarize(found);
  result.filledIn = Summarize(filledIn);
  result.missed = result.visibleMarks - result.found.count;
  result.extra = static_cast<int>(points.size() - matches.size());
  CompareLabels(points, truth, matches, result);
  CollectDetails(points, truth, matches, result);
  return result;
}

}  // namespace quorvex::tools
