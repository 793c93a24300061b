// Thinning of the strokes of a binary patch to lines one pixel wide.
#ifndef QUORVEX_CROSSMARK_THINNING_H_
#define QUORVEX_CROSSMARK_THINNING_H_

namespace quorvex {

// Thins the black strokes of a 160 x 160 patch in place; the patch's border, two pixels wide, comes
// out white. Width and height are not read. False, the patch unchanged, when working memory cannot
// be had. Method: parallel thinning in the manner of Hilditch, 1969, on a 5 x 5 neighbourhood.
bool ThinImage(unsigned char* patch, int width, int height);

}  // namespace quorvex

#endif  // QUORVEX_CROSSMARK_THINNING_H_
