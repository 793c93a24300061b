#include "crossmark/cross_location.h"

#include "crossmark/cross_mark_search.h"

namespace quorvex {

int LocateCrossMark(const unsigned char* image, int width, int height, int x, int y, int searchSize,
                    LineSegment& firstLine, LineSegment& secondLine, PointF& centre) {
  MarkPictures pictures;
  CrossMarkSearch search({image, width, height}, pictures);
  const CrossMark* mark = search.Locate(x, y, searchSize);
  if (mark == nullptr) {
    return 0;
  }
  firstLine = mark->firstLine;
  secondLine = mark->secondLine;
  centre = mark->centre;
  return 1;
}

}  // namespace quorvex
