#include "tools/detect/overlay.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <map>
#include <string>
#include <utility>

#include "tools/detect/digit_font.h"

namespace quorvex::tools {
namespace {

struct Color {
  std::uint8_t red, green, blue;
};

constexpr Color kRowLine{60, 200, 80};
constexpr Color kColumnLine{80, 150, 255};
constexpr Color kMark{240, 40, 40};
constexpr Color kFilledMark{255, 150, 0};
constexpr Color kEllipse{0, 220, 220};
constexpr Color kLabel{255, 225, 0};
constexpr Color kLabelEdge{0, 0, 0};

// Of the picture's shorter side; one more pixel of stroke each.
constexpr int kPixelsPerScale = 800;
constexpr int kRingRadius = 7;          // pixels, times the scale
constexpr int kRingDashes = 4;          // of the ring around a position that was filled in
constexpr int kDash = 6;                // pixels, times the scale; of the lines to it
constexpr double kEllipseScale = 1000;  // a pixel drawn is a thousandth of a pixel
constexpr double kLongestAxis = 40;     // pixels drawn
constexpr double kPi = 3.14159265358979323846;

class Canvas {
 public:
  explicit Canvas(const Picture& grey) {
    picture_.width = grey.width;
    picture_.height = grey.height;
    picture_.rgb.reserve(grey.pixels.size() * 3);
    for (const std::uint8_t level : grey.pixels) {
      picture_.rgb.insert(picture_.rgb.end(), 3, level);
    }
  }

  ColorPicture Take() { return std::move(picture_); }

  void Square(int x0, int y0, int size, Color color) {
    for (int y = std::max(y0, 0); y < std::min(y0 + size, picture_.height); ++y) {
      for (int x = std::max(x0, 0); x < std::min(x0 + size, picture_.width); ++x) {
        const std::size_t first = (static_cast<std::size_t>(y) * picture_.width + x) * 3;
        picture_.rgb[first] = color.red;
        picture_.rgb[first + 1] = color.green;
        picture_.rgb[first + 2] = color.blue;
      }
    }
  }

  // `dash`: pixels drawn and left out in turn; 0 draws all.
  void Line(double x0, double y0, double x1, double y1, int thickness, int dash, Color color) {
    const int steps = static_cast<int>(std::ceil(std::max(std::abs(x1 - x0), std::abs(y1 - y0))));
    for (int i = 0; i <= steps; ++i) {
      if (dash > 0 && i / dash % 2 == 1) {
        continue;
      }
      const double t = steps == 0 ? 0.0 : static_cast<double>(i) / steps;
      Dot(x0 + t * (x1 - x0), y0 + t * (y1 - y0), thickness, color);
    }
  }

  // `dashes`: into how many the ring is broken; 0 leaves it whole.
  void Ring(double x, double y, int radius, int thickness, int dashes, Color color) {
    const int steps = radius * 8;  // a little more than one per pixel of the circumference
    for (int i = 0; i < steps; ++i) {
      if (i * 2 * dashes / steps % 2 == 1) {
        continue;
      }
      const double angle = 2 * kPi * i / steps;
      Dot(x + radius * std::cos(angle), y + radius * std::sin(angle), thickness, color);
    }
  }

  // Axes in pixels; the first one lies at `angle` from x to y.
  void Ellipse(double x, double y, double first, double second, double angle, Color color) {
    const int steps = 8 + static_cast<int>(8 * std::max(first, second));
    for (int i = 0; i < steps; ++i) {
      const double along = first * std::cos(2 * kPi * i / steps);
      const double across = second * std::sin(2 * kPi * i / steps);
      Dot(x + along * std::cos(angle) - across * std::sin(angle),
          y + along * std::sin(angle) + across * std::cos(angle), 1, color);
    }
  }

  void Text(const std::string& text, int x0, int y0, int scale, Color color) {
    for (std::size_t i = 0; i < text.size(); ++i) {
      const int left = x0 + static_cast<int>(i) * (kGlyphWidth + 1) * scale;
      for (int row = 0; row < kGlyphHeight; ++row) {
        for (int column = 0; column < kGlyphWidth; ++column) {
          if (!IsGlyphPixelSet(text[i], column, row)) {
            continue;
          }
          Square(left + column * scale, y0 + row * scale, scale, color);
        }
      }
    }
  }

 private:
  void Dot(double x, double y, int size, Color color) {
    Square(static_cast<int>(std::lround(x - (size - 1) / 2.0)),
           static_cast<int>(std::lround(y - (size - 1) / 2.0)), size, color);
  }

  ColorPicture picture_;
};

using GridPosition = std::pair<int, int>;  // row, column

// Lines end at the rings, so that nothing hides the marks themselves.
void DrawGridLines(Canvas& canvas, const std::vector<ListedPoint>& points, int scale) {
  std::map<GridPosition, const ListedPoint*> grid;
  for (const ListedPoint& p : points) {
    grid[{p.row, p.col}] = &p;
  }
  const double ring = kRingRadius * scale;
  const auto join = [&](const ListedPoint& from, GridPosition position, Color color) {
    const auto neighbour = grid.find(position);
    if (neighbour == grid.end()) {
      return;
    }
    const ListedPoint& to = *neighbour->second;
    const double distance = std::hypot(to.x - from.x, to.y - from.y);
    if (distance <= 2 * ring) {
      return;
    }
    const double dx = (to.x - from.x) * ring / distance;
    const double dy = (to.y - from.y) * ring / distance;
    const bool isSure = !IsComputed(from.kind) && !IsComputed(to.kind);
    canvas.Line(from.x + dx, from.y + dy, to.x - dx, to.y - dy, (scale + 1) / 2,
                isSure ? 0 : kDash * scale, color);
  };
  for (const ListedPoint& p : points) {
    join(p, {p.row, p.col + 1}, kRowLine);
    join(p, {p.row + 1, p.col}, kColumnLine);
  }
}

// The ellipse of one standard deviation, enlarged.
void DrawCovariance(Canvas& canvas, const ListedPoint& p, const Covariance& covariance) {
  const double mean = (covariance.xx + covariance.yy) / 2;
  const double half = std::hypot((covariance.xx - covariance.yy) / 2, covariance.xy);
  const auto drawn = [](double variance) {
    return std::min(kEllipseScale * std::sqrt(std::max(variance, 0.0)), kLongestAxis);
  };
  canvas.Ellipse(p.x, p.y, drawn(mean + half), drawn(mean - half),
                 std::atan2(2 * covariance.xy, covariance.xx - covariance.yy) / 2, kEllipse);
}

void DrawMark(Canvas& canvas, const ListedPoint& p, int scale) {
  const int radius = kRingRadius * scale;
  const double arm = radius / 2.0;
  const bool isFilled = IsComputed(p.kind);
  const Color color = isFilled ? kFilledMark : kMark;
  canvas.Ring(p.x, p.y, radius, isFilled ? scale : (scale + 1) / 2, isFilled ? kRingDashes : 0,
              color);
  // Always one pixel wide, so that the position itself can be judged.
  canvas.Line(p.x - arm, p.y, p.x + arm, p.y, 1, 0, color);
  canvas.Line(p.x, p.y - arm, p.x, p.y + arm, 1, 0, color);
}

// Right below the mark, where neither grid line runs; the edge keeps it legible on white.
void DrawLabel(Canvas& canvas, const ListedPoint& p, int scale, int width, int height) {
  const std::string text = std::to_string(p.id);
  const int gap = kRingRadius * scale;
  const int textWidth = static_cast<int>(text.size()) * (kGlyphWidth + 1) * scale;
  const int x = std::min(static_cast<int>(p.x) + gap, width - textWidth);
  const int y = std::min(static_cast<int>(p.y) + gap, height - (kGlyphHeight + 1) * scale);
  for (const auto& [dx, dy] : {GridPosition{-1, 0}, {1, 0}, {0, -1}, {0, 1}}) {
    canvas.Text(text, x + dx, y + dy, scale, kLabelEdge);
  }
  canvas.Text(text, x, y, scale, kLabel);
}

}  // namespace

ColorPicture DrawOverlay(const Picture& picture, const std::vector<ListedPoint>& points) {
  std::vector<ListedPoint> inside;
  std::copy_if(points.begin(), points.end(), std::back_inserter(inside), [&](const ListedPoint& p) {
    return p.x >= 0 && p.x <= picture.width - 1 && p.y >= 0 && p.y <= picture.height - 1;
  });
  const int scale = 1 + std::min(picture.width, picture.height) / kPixelsPerScale;
  Canvas canvas(picture);
  DrawGridLines(canvas, inside, scale);
  for (const ListedPoint& p : inside) {
    DrawMark(canvas, p, scale);
    if (p.covariance) {
      DrawCovariance(canvas, p, *p.covariance);
    }
  }
  for (const ListedPoint& p : inside) {
    DrawLabel(canvas, p, scale, picture.width, picture.height);
  }
  return canvas.Take();
}

}  // namespace quorvex::tools
