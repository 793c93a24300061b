// The noise of a picture, from the differences of neighbouring pixels that neither a gradient nor
// an edge along a row or a column changes (the mask 1 -2 1, -2 4 -2, 1 -2 1; Immerkaer, 1996).
#ifndef QUORVEX_PRECISE_NOISE_ESTIMATE_H_
#define QUORVEX_PRECISE_NOISE_ESTIMATE_H_

#include "precise/gray_picture.h"

namespace quorvex::precise {

// Standard deviation in grey levels, at least 0.3, which is what rounding to whole levels leaves.
double EstimateNoise(const GrayPicture& picture);

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_NOISE_ESTIMATE_H_
