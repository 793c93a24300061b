// A picture of grey levels on which straight strokes are drawn.
#ifndef QUORVEX_FUZZ_STROKE_CANVAS_H_
#define QUORVEX_FUZZ_STROKE_CANVAS_H_

#include <cstddef>
#include <vector>

#include "interface/quorvex_precise.h"

namespace quorvex::fuzz {

// Rows without gaps.
struct Canvas {
  int width = 0;
  int height = 0;
  std::vector<double> levels;

  double& At(int x, int y) {
    return levels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                  static_cast<std::size_t>(x)];
  }
};

struct Stroke {
  precise::Point from;
  precise::Point to;
  double width = 3.0;  // px
  double level = 0.0;
};

// With edges one pixel soft and blunt ends.
void Draw(const Stroke& stroke, Canvas& canvas);

}  // namespace quorvex::fuzz

#endif  // QUORVEX_FUZZ_STROKE_CANVAS_H_
