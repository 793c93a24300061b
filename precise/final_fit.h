// Measures the marks of a grid once more, each with what all of them tell: the bend of its strokes
// near the bend that the map of the board has there, as near as strokes are found to follow it.
#ifndef QUORVEX_PRECISE_FINAL_FIT_H_
#define QUORVEX_PRECISE_FINAL_FIT_H_

#include "precise/grid_growth.h"

namespace quorvex::precise {

struct MarkVerdict {
  bool isDoubtful = false;  // two arms only, or away from what the others predict
};

// The marks' covariances are enlarged where blocks scatter more than the noise explains. Marks that
// cannot be measured any more leave the grid. noise: grey levels. One verdict for each mark that is
// left.
std::vector<MarkVerdict> MeasureFinally(const GrayPicture& picture, double noise, Grid& grid);

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_FINAL_FIT_H_
