// The edge image of the target region: Sobel gradients in two directions, combined.
#ifndef QUORVEX_PREPROCESS_SOBEL_EDGES_H_
#define QUORVEX_PREPROCESS_SOBEL_EDGES_H_

namespace quorvex {

// Replaces the image by its edge image, in place; the width is a multiple of 4. Of the two
// gradients at a pixel the greater one as a signed byte is taken: 128 and above count as negative,
// so that a strong gradient gives way to a weak one. The thresholds after this stage were set with
// it. The last column holds the vertical gradient alone. False, the image unchanged, when working
// memory cannot be had.
bool SobelEdges(unsigned char* image, int width, int height);

}  // namespace quorvex

#endif  // QUORVEX_PREPROCESS_SOBEL_EDGES_H_
