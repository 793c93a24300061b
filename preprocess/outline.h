// The outline of the target as a list of pixel positions, in the order of the rays that found them.
#ifndef QUORVEX_PREPROCESS_OUTLINE_H_
#define QUORVEX_PREPROCESS_OUTLINE_H_

#include <vector>

#include "base/pixel_position.h"

namespace quorvex {

using OutlineList = std::vector<PixelPosition>;

}  // namespace quorvex

#endif  // QUORVEX_PREPROCESS_OUTLINE_H_
