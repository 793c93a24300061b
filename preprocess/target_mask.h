// Mask and region of the target, read off the working image in which the outside is marked.
#ifndef QUORVEX_PREPROCESS_TARGET_MASK_H_
#define QUORVEX_PREPROCESS_TARGET_MASK_H_

#include "base/gray_image.h"

namespace quorvex {

// An image that is 255 where the working image is 0 (inside the target) and 0 elsewhere.
GrayImage MakeTargetMask(const GrayImage& working);

// A copy of the input (of the working image's size) that is 0 where the working image is not.
GrayImage MakeTargetRegion(const unsigned char* input, const GrayImage& working);

}  // namespace quorvex

#endif  // QUORVEX_PREPROCESS_TARGET_MASK_H_
