// Measures of a picture, or of a part of it, that tell why a detection failed.
#ifndef QUORVEX_TOOLS_DETECT_PICTURE_MEASURES_H_
#define QUORVEX_TOOLS_DETECT_PICTURE_MEASURES_H_

#include <cstdint>

#include "tools/pictures/picture.h"

namespace quorvex::tools {

// Number, extent, and first and second moments of the white pixels (128 and above).
struct WhitePixels {
  std::int64_t count = 0;
  int left = 0, right = 0, top = 0, bottom = 0;  // bounding box; meaningless when count is 0
  double sumX = 0, sumY = 0, sumXX = 0, sumXY = 0, sumYY = 0;
};

// From x0 and y0 up to but without x1 and y1; the part outside the picture does not count.
WhitePixels FindWhite(const Picture& picture, int x0, int y0, int x1, int y1);
WhitePixels FindWhite(const Picture& picture);

// The variance of the white pixels along their main direction over that across it.
double Elongation(const WhitePixels& white);

// The grey level that all but one in a thousand pixels do not exceed.
int BrightestLevel(const Picture& picture);

// Sigma of the noise, in grey levels. What changes evenly, and the edges of few shapes, do not
// count: the median is taken of how far each pixel is from what its eight neighbours foretell.
// Where black or white cut the noise off it is not measured; 0 when that is everywhere.
double NoiseLevel(const Picture& picture);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_DETECT_PICTURE_MEASURES_H_
