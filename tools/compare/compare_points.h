// How well a list of detected points agrees with the known marks of the target.
#ifndef QUORVEX_TOOLS_COMPARE_COMPARE_POINTS_H_
#define QUORVEX_TOOLS_COMPARE_COMPARE_POINTS_H_

#include <cstdint>
#include <vector>

#include "tools/lists/listed_points.h"
#include "tools/lists/truth_file.h"

namespace quorvex::tools {

// Distances between points and their marks, in pixels; all 0 when there are none.
struct ErrorStatistics {
  int count = 0;
  double rms = 0;
  double median = 0;
  double max = 0;
};

enum class Labels {
  kAgree,       // every matched point has its mark's row and column, or nothing was matched
  kOffset,      // all differ from their marks by the same rows and columns
  kTransposed,  // every point's row is its mark's column and the other way round
  kDisagree,
};

// A point with another row or column than its mark.
struct Mislabelled {
  ListedPoint point;
  TruthMark mark;
};

struct Comparison {
  int visibleMarks = 0;      // marks on the board
  int leftOutMarks = 0;      // marks left out of it
  int missed = 0;            // visible marks without a point
  int extra = 0;             // points without a mark
  ErrorStatistics found;     // points at visible marks
  ErrorStatistics filledIn;  // points at marks that were left out

  Labels labels = Labels::kAgree;
  int wrongLabels = 0;         // matched points with another row or column than their mark
  std::int64_t rowOffset = 0;  // point minus mark, for kOffset
  std::int64_t columnOffset = 0;

  // In the order of the marks and of the points.
  std::vector<TruthMark> missedMarks;
  std::vector<ListedPoint> extraPoints;
  std::vector<Mislabelled> mislabelled;

  // Every visible mark was found, no point is extra, and all labels agree.
  bool IsComplete() const { return missed == 0 && extra == 0 && labels == Labels::kAgree; }
};

// Matches points and marks one to one, the nearest pair first, no pair further apart than
// `tolerance` (pixels, inclusive). Of equally near pairs the earlier point, then the earlier mark,
// goes first.
Comparison ComparePoints(const std::vector<ListedPoint>& points,
                         const std::vector<TruthMark>& truth, double tolerance);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_COMPARE_COMPARE_POINTS_H_
