// Dilation of the black parts of a black-and-white image.
#ifndef QUORVEX_PREPROCESS_DILATION_H_
#define QUORVEX_PREPROCESS_DILATION_H_

namespace quorvex {

// Makes every pixel black that has a black pixel among its examined neighbours, in place; rows are
// exactly width bytes. `element` holds nine values for the neighbours: 0 to 2 the row y + 1
// (columns x - 1, x, x + 1), 3 to 5 the row y, 6 to 8 the row y - 1; -1 leaves the neighbour out,
// every other value, 0 included, examines it. The first and the last row come out white. The fourth
// parameter is ignored. False, the image unchanged, when working memory cannot be had or an
// interior row holds a value other than 0 and 255.
bool DilateImage(unsigned char* image, int width, int height, int unused, const int* element);

}  // namespace quorvex

#endif  // QUORVEX_PREPROCESS_DILATION_H_
