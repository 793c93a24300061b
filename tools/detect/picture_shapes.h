// The separate shapes in a picture and what they look like: crosses, dots, rings, squares.
#ifndef QUORVEX_TOOLS_DETECT_PICTURE_SHAPES_H_
#define QUORVEX_TOOLS_DETECT_PICTURE_SHAPES_H_

#include <cstdint>
#include <vector>

#include "tools/pictures/picture.h"

namespace quorvex::tools {

enum class ShapeKind { kCross, kDot, kRing, kSquare, kOther };

// One connected piece of foreground; pixels are neighbours when they share a side.
struct PictureShape {
  ShapeKind kind = ShapeKind::kOther;
  std::int64_t area = 0;                         // pixels
  int left = 0, right = 0, top = 0, bottom = 0;  // of the bounding box, both ends included
  double x = 0, y = 0;                           // the middle of its pixels

  int Extent() const;  // pixels; the longer side of the bounding box
};

enum class Foreground { kDark, kBright };  // below the level; or the level and above

// The shapes of at least `smallestArea` pixels. What they look like is judged by moments that do
// not change when a shape is turned, stretched or slanted, as a lens and a tilt do to it.
std::vector<PictureShape> FindShapes(const Picture& picture, Foreground foreground,
                                     std::uint8_t level, std::int64_t smallestArea);

// How many shapes look like marks of each kind. Those that reach the picture's border are not
// counted, nor dots and squares that fill too little of the box around all of their kind: they are
// what blur leaves of other marks.
struct ShapeCounts {
  int crosses = 0;
  int dots = 0;  // rings too
  int squares = 0;
};

// Of several grey levels, 40 apart, the one that brings out second most: neither the exposure nor
// the ink is known, but what can be seen at one level only is blur and not a printed pattern.
ShapeCounts CountShapes(const Picture& picture, Foreground foreground);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_DETECT_PICTURE_SHAPES_H_
