// The choice of the seed points: the longest traced column.
#ifndef QUORVEX_GRID_DOMINANT_GROUP_H_
#define QUORVEX_GRID_DOMINANT_GROUP_H_

#include "base/calibration_point.h"

namespace quorvex {

// Appends the candidates of the most frequent column label, in their order, to `selection`; of
// equally frequent labels, that of the candidate nearest to the centroid of all. Negative labels
// are no group. False when no candidate has a label.
bool SelectDominantGroup(const PointList& candidates, PointList& selection);

}  // namespace quorvex

#endif  // QUORVEX_GRID_DOMINANT_GROUP_H_
