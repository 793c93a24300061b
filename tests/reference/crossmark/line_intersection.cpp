#include "tests/reference/crossmark.h"

namespace quorvex::plain {

bool IntersectLines(LineSegment first, LineSegment second, float& x, float& y) {
  const float determinant = first.a * second.b - second.a * first.b;
  if (determinant == 0.0f) {
    return false;
  }
  x = (second.c * first.b - second.b * first.c) / determinant;
  y = (second.a * first.c - second.c * first.a) / determinant;
  return true;
}

}  // namespace quorvex::plain
