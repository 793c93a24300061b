#include "grid/dominant_group.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "base/largest_field.h"
#include "base/point_geometry.h"
#include "base/rounding.h"
#include "grid/point_selection.h"

namespace quorvex {
namespace {

constexpr int kFarthestDistance = 10000;  // pixels

// The labels from 0 to `largestLabel` that most candidates carry, ascending.
std::vector<int> MostFrequentLabels(const PointList& candidates, int largestLabel) {
  std::vector<std::size_t> counts(static_cast<std::size_t>(largestLabel) + 1);
  for (const CalibrationPoint& candidate : candidates) {
    if (candidate.col >= 0) {
      ++counts[static_cast<std::size_t>(candidate.col)];
    }
  }
  const std::size_t largestCount = *std::max_element(counts.begin(), counts.end());
  std::vector<int> labels;
  for (std::size_t label = 0; label < counts.size(); ++label) {
    if (counts[label] == largestCount) {
      labels.push_back(static_cast<int>(label));
    }
  }
  return labels;
}

// The label of the tied candidate nearest to the centroid. The best distance is kept as an integer,
// so that a later candidate wins only when it is nearer by its whole pixels. Without any candidate
// within reach it is the first candidate's label, whatever that is.
int NearestLabel(const PointList& candidates, const std::vector<int>& tiedLabels) {
  const CalibrationPoint centroid = CentreOfGravity(candidates);
  int bestDistance = kFarthestDistance;
  int bestLabel = candidates.front().col;
  for (const int label : tiedLabels) {
    for (const CalibrationPoint& candidate : candidates) {
      if (candidate.col != label) {
        continue;
      }
      const float distance = PointDistance(centroid, candidate);
      if (static_cast<float>(bestDistance) > distance) {
        bestDistance = TruncateToInt(distance);
        bestLabel = label;
      }
    }
  }
  return bestLabel;
}

}  // namespace

bool SelectDominantGroup(const PointList& candidates, PointList& selection) {
  const int largestLabel = LargestField(candidates, &CalibrationPoint::col, -1);
  if (largestLabel < 0) {
    return false;
  }
  const std::vector<int> labels = MostFrequentLabels(candidates, largestLabel);
  const int label = labels.size() == 1 ? labels.front() : NearestLabel(candidates, labels);
  const PointList group = PointsWith(candidates, &CalibrationPoint::col, label);
  selection.insert(selection.end(), group.begin(), group.end());
  return true;
}

}  // namespace quorvex
