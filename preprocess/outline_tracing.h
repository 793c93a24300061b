// The target's outline, found by rays from the image centre.
#ifndef QUORVEX_PREPROCESS_OUTLINE_TRACING_H_
#define QUORVEX_PREPROCESS_OUTLINE_TRACING_H_

#include "preprocess/outline.h"

namespace quorvex {

// The centre that the rays start from: half the width and half the height, truncated.
PixelPosition ImageCentre(int width, int height);

// The pixel offset from the centre at a distance along a ray.
PixelPosition RayOffset(int radius, double cosine, double sine);

// Casts 720 rays, half a degree apart, from the centre of a black-and-white image (rows of exactly
// width bytes) and appends one point for each to `outline`, in ray order: where the bright target
// ends in a dark run that reaches at least 16 pixels beyond its first pixel, or where the ray
// leaves the image. Dark lines narrower than about 6 pixels do not end a ray, neither across it nor
// along it. Always true.
bool TraceTargetOutline(const unsigned char* image, int width, int height, OutlineList& outline);

}  // namespace quorvex

#endif  // QUORVEX_PREPROCESS_OUTLINE_TRACING_H_
