// Removal of outline points that dip far inward.
#ifndef QUORVEX_PREPROCESS_OUTLINE_FILTER_H_
#define QUORVEX_PREPROCESS_OUTLINE_FILTER_H_

#include "preprocess/outline.h"

namespace quorvex {

// Removes every point, but never the first or the last, that lies more than 100 pixels nearer to
// the centre than both of its neighbours, as the neighbours stood before any removal. False for
// fewer than 3 points.
bool FilterOutlinePoints(OutlineList& outline, int centreX, int centreY);

}  // namespace quorvex

#endif  // QUORVEX_PREPROCESS_OUTLINE_FILTER_H_
