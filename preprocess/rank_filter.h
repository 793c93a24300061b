// A 3 x 3 rank filter that removes isolated dark specks.
#ifndef QUORVEX_PREPROCESS_RANK_FILTER_H_
#define QUORVEX_PREPROCESS_RANK_FILTER_H_

namespace quorvex {

// Replaces every interior pixel by the sixth-smallest value of its 3 x 3 neighbourhood, in place;
// border rows and columns keep their values. Rows are width bytes rounded up to a multiple of 4.
// The last parameter is ignored. False, the image unchanged, when working memory cannot be had.
bool RankFilter3x3(unsigned char* image, int width, int height, int unused);

}  // namespace quorvex

#endif  // QUORVEX_PREPROCESS_RANK_FILTER_H_
