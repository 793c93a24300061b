#include "crossmark/line_intersection.h"

namespace quorvex {

bool IntersectLines(const LineSegment& first, const LineSegment& second, float& x, float& y) {
  const float determinant = first.a * second.b - second.a * first.b;
  if (determinant == 0.0f) {
    return false;
  }
  x = (second.c * first.b - second.b * first.c) / determinant;
  y = (second.a * first.c - second.c * first.a) / determinant;
  return true;
}

}  // namespace quorvex
