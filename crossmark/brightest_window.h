// The densest stroke area near a position.
#ifndef QUORVEX_CROSSMARK_BRIGHTEST_WINDOW_H_
#define QUORVEX_CROSSMARK_BRIGHTEST_WINDOW_H_

namespace quorvex {

// Looks for the 20 x 20 window with the largest pixel sum whose centre lies in the area of
// (sizeX - 20) x (sizeY - 20) pixels around (x, y); the first in row order wins among equals,
// pixels outside the image (width * height bytes) are left out. Sets the found centre. False, the
// results untouched, when every window sums to 0 or the area has no rows.
bool FindBrightestWindow(const unsigned char* image, int width, int height, int x, int y, int sizeX,
                         int sizeY, int& foundX, int& foundY);

}  // namespace quorvex

#endif  // QUORVEX_CROSSMARK_BRIGHTEST_WINDOW_H_
