// Drawing on a picture of levels with soft edges.
#ifndef QUORVEX_BENCHMARKS_PRECISION_CANVAS_H_
#define QUORVEX_BENCHMARKS_PRECISION_CANVAS_H_

#include <cstdint>

#include "tools/pictures/picture.h"
#include "tools/render/picture_effects.h"

namespace quorvex::benchmarks {

class Canvas {
 public:
  Canvas(int width, int height, double level);

  int Width() const { return levels_.width; }
  int Height() const { return levels_.height; }

  // A straight stroke with square ends; pixels and grey levels.
  void DrawStroke(double fromX, double fromY, double toX, double toY, double width, double level);

  // A filled ellipse with axes along the picture's.
  void DrawEllipse(double x, double y, double radiusX, double radiusY, double level);

  // Fills a rectangle, sides included.
  void FillRectangle(double left, double top, double right, double bottom, double level);

  // With noise (grey levels) of a seed, rounded.
  tools::Picture Finish(double noise, std::uint64_t seed) const;

 private:
  void Mix(int x, int y, double part, double level);

  tools::LevelPicture levels_;
};

}  // namespace quorvex::benchmarks

#endif  // QUORVEX_BENCHMARKS_PRECISION_CANVAS_H_
