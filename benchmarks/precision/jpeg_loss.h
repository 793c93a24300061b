// What an 8-bit picture loses on its way through a JPEG file.
#ifndef QUORVEX_BENCHMARKS_PRECISION_JPEG_LOSS_H_
#define QUORVEX_BENCHMARKS_PRECISION_JPEG_LOSS_H_

#include "tools/pictures/picture.h"

namespace quorvex::benchmarks {

// The cosine transform of each block of 8 x 8 is rounded to the luminance table of the standard's
// annex K, scaled by a quality from 1 to 100 as the Independent JPEG Group does. Quality 0 leaves
// the picture alone.
void Compress(tools::Picture& picture, int quality);

}  // namespace quorvex::benchmarks

#endif  // QUORVEX_BENCHMARKS_PRECISION_JPEG_LOSS_H_
