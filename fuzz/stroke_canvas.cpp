#include "fuzz/stroke_canvas.h"

#include <algorithm>
#include <cmath>

namespace quorvex::fuzz {

void Draw(const Stroke& stroke, Canvas& canvas) {
  const double dx = stroke.to.x - stroke.from.x;
  const double dy = stroke.to.y - stroke.from.y;
  const double length = std::hypot(dx, dy);
  if (!(length > 0.0)) {
    return;
  }
  const double reach = 0.5 * stroke.width + 1.0;
  const auto first = [reach](double a, double b) {
    return static_cast<int>(std::max(std::floor(std::min(a, b) - reach), 0.0));
  };
  const auto last = [reach](double a, double b, int size) {
    return static_cast<int>(std::min(std::ceil(std::max(a, b) + reach), size - 1.0));
  };
  for (int y = first(stroke.from.y, stroke.to.y);
       y <= last(stroke.from.y, stroke.to.y, canvas.height); ++y) {
    for (int x = first(stroke.from.x, stroke.to.x);
         x <= last(stroke.from.x, stroke.to.x, canvas.width); ++x) {
      const double along = ((x - stroke.from.x) * dx + (y - stroke.from.y) * dy) / length;
      const double across = ((y - stroke.from.y) * dx - (x - stroke.from.x) * dy) / length;
      const double inside =
          std::min({along, length - along, 0.5 * stroke.width - std::abs(across)});
      const double part = std::clamp(inside + 0.5, 0.0, 1.0);
      canvas.At(x, y) += part * (stroke.level - canvas.At(x, y));
    }
  }
}

}  // namespace quorvex::fuzz
