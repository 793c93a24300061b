#include "benchmarks/precision/canvas.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace quorvex::benchmarks {
namespace {

// The part of a pixel that is covered, `distance` pixels inside an edge.
double Covered(double distance) { return std::clamp(distance + 0.5, 0.0, 1.0); }

int FirstPixel(double position) { return std::max(0, static_cast<int>(std::floor(position)) - 1); }

int LastPixel(double position, int count) {
  return std::min(count - 1, static_cast<int>(std::ceil(position)) + 1);
}

}  // namespace

Canvas::Canvas(int width, int height, double level) {
  levels_.width = width;
  levels_.height = height;
  levels_.levels.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height),
                        static_cast<float>(level));
}

void Canvas::Mix(int x, int y, double part, double level) {
  float& old = levels_.levels[static_cast<std::size_t>(y) * static_cast<std::size_t>(Width()) +
                              static_cast<std::size_t>(x)];
  old = static_cast<float>(static_cast<double>(old) + part * (level - static_cast<double>(old)));
}

void Canvas::DrawStroke(double fromX, double fromY, double toX, double toY, double width,
                        double level) {
  const double length = std::hypot(toX - fromX, toY - fromY);
  const double alongX = (toX - fromX) / length;
  const double alongY = (toY - fromY) / length;
  const double reach = width / 2 + 1;
  for (int y = FirstPixel(std::min(fromY, toY) - reach);
       y <= LastPixel(std::max(fromY, toY) + reach, Height()); ++y) {
    for (int x = FirstPixel(std::min(fromX, toX) - reach);
         x <= LastPixel(std::max(fromX, toX) + reach, Width()); ++x) {
      const double along = (x - fromX) * alongX + (y - fromY) * alongY;
      const double across = (y - fromY) * alongX - (x - fromX) * alongY;
      const double part =
          Covered(width / 2 - std::abs(across)) * Covered(along) * Covered(length - along);
      if (part > 0) {
        Mix(x, y, part, level);
      }
    }
  }
}

void Canvas::DrawEllipse(double x, double y, double radiusX, double radiusY, double level) {
  for (int row = FirstPixel(y - radiusY); row <= LastPixel(y + radiusY, Height()); ++row) {
    for (int column = FirstPixel(x - radiusX); column <= LastPixel(x + radiusX, Width());
         ++column) {
      const double radius = std::hypot((column - x) / radiusX, (row - y) / radiusY);
      Mix(column, row, Covered((1 - radius) * std::min(radiusX, radiusY)), level);
    }
  }
}

void Canvas::FillRectangle(double left, double top, double right, double bottom, double level) {
  DrawStroke(left, (top + bottom) / 2, right, (top + bottom) / 2, bottom - top, level);
}

tools::Picture Canvas::Finish(double noise, std::uint64_t seed) const {
  return tools::AddNoiseAndRound(levels_, noise, seed);
}

}  // namespace quorvex::benchmarks
