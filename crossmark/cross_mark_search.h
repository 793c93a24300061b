// The search for cross marks on one stroke image. The walks over the grid come by the same mark
// many times; what was examined once is remembered for as long as the search lives.
#ifndef QUORVEX_CROSSMARK_CROSS_MARK_SEARCH_H_
#define QUORVEX_CROSSMARK_CROSS_MARK_SEARCH_H_

#include <map>
#include <utility>

#include "base/gray_image.h"
#include "crossmark/cross_strokes.h"
#include "crossmark/hough_lines.h"
#include "crossmark/line_segment.h"
#include "crossmark/mark_pictures.h"

namespace quorvex {

struct CrossMark {
  PointF centre = {0.0f, 0.0f};  // image coordinates
  LineSegment firstLine;         // patch coordinates
  LineSegment secondLine;
};

class CrossMarkSearch {
 public:
  // Strokes are 255. Image and pictures must outlive the search.
  CrossMarkSearch(const GrayView& image, MarkPictures& pictures);

  // Looks for the densest stroke area within `searchSize` pixels around (x, y) and for two crossing
  // strokes in the 200 x 200 patch there. Null when there are none; else valid as long as the
  // search. The pictures show the patch, its lines and its segments.
  const CrossMark* Locate(int x, int y, int searchSize);

  const GrayView& Image() const { return image_; }

 private:
  struct Examination {
    StrokeFinding finding;
    CrossMark mark;  // when the finding is a cross
  };

  Examination Examine(const StrokePatch& patch, int x0, int y0);

  GrayView image_;
  MarkPictures& pictures_;
  HoughTransform hough_;
  std::map<std::pair<int, int>, Examination> examined_;  // by the patch's first column and row
};

}  // namespace quorvex

#endif  // QUORVEX_CROSSMARK_CROSS_MARK_SEARCH_H_
