// The square patch of the grey image on which one cross mark is examined.
#ifndef QUORVEX_CROSSMARK_PATCH_H_
#define QUORVEX_CROSSMARK_PATCH_H_

namespace quorvex {

constexpr int kPatchSize = 160;                      // pixels, width and height
constexpr int kPatchArea = kPatchSize * kPatchSize;  // bytes
constexpr int kPatchReach = kPatchSize / 2;          // pixels from the left edge to the point

}  // namespace quorvex

#endif  // QUORVEX_CROSSMARK_PATCH_H_
