// Thresholding of a whole image.
#ifndef QUORVEX_PREPROCESS_BINARIZE_H_
#define QUORVEX_PREPROCESS_BINARIZE_H_

namespace quorvex {

// Turns every pixel strictly below `level` into 0 and every other, the level itself included, into
// 255, in place. Rows are width bytes rounded up to a multiple of 4. Always true.
bool BinarizeImage(unsigned char* image, int width, int height, unsigned char level);

}  // namespace quorvex

#endif  // QUORVEX_PREPROCESS_BINARIZE_H_
