// Convolution of an image with a 3 x 3 kernel.
#ifndef QUORVEX_PREPROCESS_CONVOLUTION_H_
#define QUORVEX_PREPROCESS_CONVOLUTION_H_

namespace quorvex {

// Replaces every interior pixel by the magnitude of the scaled sum of kernel times neighbour,
// rounded and at most 255, in place; border rows and columns keep their values. The kernel's nine
// weights: 0 to 2 for the row y + 1 (columns x - 1, x, x + 1), 3 to 5 for the row y, 6 to 8 for the
// row y - 1. Rows are width bytes rounded up to a multiple of 4. The last four parameters are
// ignored. False, the image unchanged, when working memory cannot be had.
bool Convolve3x3(unsigned char* image, int width, int height, const float* kernel, float scale,
                 int unused1, int unused2, int unused3, int unused4);

}  // namespace quorvex

#endif  // QUORVEX_PREPROCESS_CONVOLUTION_H_
