#include "tools/detect/picture_shapes.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace quorvex::tools {
namespace {

constexpr std::uint8_t kLevels[] = {40, 80, 120, 160, 200};
constexpr std::int64_t kSmallestMark = 60;  // pixels; a dot of 9 across, two strokes of 15 x 2

// Measures of a shape in units in which its pixels have the variance 1 along every axis.
// - Solidity: its area over that of the ellipse with its variances. A filled ellipse has 1, a
//   filled parallelogram 0.95, a cross 1.9 stroke widths over its arm's length.
// - Reach: the largest squared distance from the middle. An ellipse has 4, a parallelogram 6.
// - Tail: the mean of the squares of the squared distances. A thin ring has 4, a filled ellipse
//   5.3, a thin cross 7.2.
constexpr double kLeastSolid = 0.85;
constexpr double kMostSolidCross = 0.7;
constexpr double kReachBetweenDotAndSquare = 4.9;
constexpr double kMostRingTail = 4.7;
constexpr double kLeastCrossTail = 6;
// Variance along the longest axis over that along the shortest: the squared ratio of a mark's
// length to its width, as seen at the rim of a fisheye picture.
constexpr double kMostStretched = 6;

// Of the box around all shapes of a kind. A chessboard fills half of it, a quarter or more when it
// is turned; dots of a fifth of their spacing fill a thirtieth.
constexpr double kLeastSquareShare = 0.2;
constexpr double kLeastDotShare = 0.02;

constexpr double kPi = 3.14159265358979323846;

struct PixelPlace {
  int x;
  int y;
};

struct Moments {
  double xx, xy, yy;  // square pixels
};

Moments MeasureMoments(const std::vector<PixelPlace>& pixels, const PictureShape& shape) {
  // A pixel is a square of its own, with a variance of 1/12.
  Moments sum = {0, 0, 0};
  for (const PixelPlace& p : pixels) {
    sum.xx += (p.x - shape.x) * (p.x - shape.x);
    sum.xy += (p.x - shape.x) * (p.y - shape.y);
    sum.yy += (p.y - shape.y) * (p.y - shape.y);
  }
  const double n = static_cast<double>(pixels.size());
  return {sum.xx / n + 1.0 / 12, sum.xy / n, sum.yy / n + 1.0 / 12};
}

ShapeKind Classify(const std::vector<PixelPlace>& pixels, const PictureShape& shape) {
  const Moments m = MeasureMoments(pixels, shape);
  const double determinant = m.xx * m.yy - m.xy * m.xy;
  const double mean = (m.xx + m.yy) / 2;
  const double half = std::hypot((m.xx - m.yy) / 2, m.xy);
  if (mean + half > kMostStretched * (mean - half)) {
    return ShapeKind::kOther;
  }

  double reach = 0;
  double tail = 0;
  for (const PixelPlace& p : pixels) {
    const double x = p.x - shape.x;
    const double y = p.y - shape.y;
    const double squared = (m.yy * x * x - 2 * m.xy * x * y + m.xx * y * y) / determinant;
    reach = std::max(reach, squared);
    tail += squared * squared;
  }
  const double area = static_cast<double>(shape.area);
  tail /= area;
  const double solidity = area / (4 * kPi * std::sqrt(determinant));
  if (solidity >= kLeastSolid) {
    return reach < kReachBetweenDotAndSquare ? ShapeKind::kDot : ShapeKind::kSquare;
  }
  if (tail <= kMostRingTail) {
    return ShapeKind::kRing;
  }
  if (solidity <= kMostSolidCross && tail >= kLeastCrossTail) {
    return ShapeKind::kCross;
  }
  return ShapeKind::kOther;
}

PictureShape MeasureShape(const std::vector<PixelPlace>& pixels) {
  PictureShape shape;
  shape.area = static_cast<std::int64_t>(pixels.size());
  shape.left = shape.right = pixels.front().x;
  shape.top = shape.bottom = pixels.front().y;
  for (const PixelPlace& p : pixels) {
    shape.left = std::min(shape.left, p.x);
    shape.right = std::max(shape.right, p.x);
    shape.top = std::min(shape.top, p.y);
    shape.bottom = std::max(shape.bottom, p.y);
    shape.x += p.x;
    shape.y += p.y;
  }
  shape.x /= static_cast<double>(shape.area);
  shape.y /= static_cast<double>(shape.area);
  shape.kind = Classify(pixels, shape);
  return shape;
}

// The foreground that has not been visited yet.
class Unvisited {
 public:
  Unvisited(const Picture& picture, Foreground foreground, std::uint8_t level)
      : width_(picture.width), height_(picture.height), isLeft_(picture.pixels.size()) {
    for (std::size_t i = 0; i < isLeft_.size(); ++i) {
      isLeft_[i] = (picture.pixels[i] < level) == (foreground == Foreground::kDark);
    }
  }

  // The piece of foreground around a pixel; empty when the pixel is none.
  std::vector<PixelPlace> TakePiece(int x, int y) {
    std::vector<PixelPlace> piece;
    Take({x, y}, piece);
    for (std::size_t i = 0; i < piece.size(); ++i) {
      const PixelPlace p = piece[i];
      Take({p.x - 1, p.y}, piece);
      Take({p.x + 1, p.y}, piece);
      Take({p.x, p.y - 1}, piece);
      Take({p.x, p.y + 1}, piece);
    }
    return piece;
  }

 private:
  void Take(PixelPlace p, std::vector<PixelPlace>& piece) {
    if (p.x < 0 || p.x >= width_ || p.y < 0 || p.y >= height_) {
      return;
    }
    const std::size_t index = static_cast<std::size_t>(p.y) * static_cast<std::size_t>(width_) +
                              static_cast<std::size_t>(p.x);
    if (!isLeft_[index]) {
      return;
    }
    isLeft_[index] = false;
    piece.push_back(p);
  }

  int width_;
  int height_;
  std::vector<bool> isLeft_;
};

bool ReachesBorder(const PictureShape& shape, const Picture& picture) {
  return shape.left == 0 || shape.top == 0 || shape.right == picture.width - 1 ||
         shape.bottom == picture.height - 1;
}

// The shapes of one kind.
struct Pattern {
  int count = 0;
  PictureShape around;  // its box is that of all, its area their sum

  void Add(const PictureShape& shape) {
    if (count++ == 0) {
      around = shape;
      return;
    }
    around.area += shape.area;
    around.left = std::min(around.left, shape.left);
    around.right = std::max(around.right, shape.right);
    around.top = std::min(around.top, shape.top);
    around.bottom = std::max(around.bottom, shape.bottom);
  }

  double FilledShare() const {
    const double width = around.right - around.left + 1;
    const double height = around.bottom - around.top + 1;
    return static_cast<double>(around.area) / (width * height);
  }
};

int Sum(const ShapeCounts& counts) { return counts.crosses + counts.dots + counts.squares; }

}  // namespace

int PictureShape::Extent() const { return std::max(right - left, bottom - top) + 1; }

std::vector<PictureShape> FindShapes(const Picture& picture, Foreground foreground,
                                     std::uint8_t level, std::int64_t smallestArea) {
  std::vector<PictureShape> shapes;
  Unvisited unvisited(picture, foreground, level);
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      const std::vector<PixelPlace> pixels = unvisited.TakePiece(x, y);
      if (pixels.empty() || static_cast<std::int64_t>(pixels.size()) < smallestArea) {
        continue;
      }
      shapes.push_back(MeasureShape(pixels));
    }
  }
  return shapes;
}

ShapeCounts CountShapes(const Picture& picture, Foreground foreground) {
  ShapeCounts most;
  ShapeCounts secondMost;
  for (const std::uint8_t level : kLevels) {
    Pattern crosses;
    Pattern dots;
    Pattern squares;
    for (const PictureShape& shape : FindShapes(picture, foreground, level, kSmallestMark)) {
      if (ReachesBorder(shape, picture)) {
        continue;
      }
      if (shape.kind == ShapeKind::kCross) {
        crosses.Add(shape);
      }
      if (shape.kind == ShapeKind::kDot || shape.kind == ShapeKind::kRing) {
        dots.Add(shape);
      }
      if (shape.kind == ShapeKind::kSquare) {
        squares.Add(shape);
      }
    }
    ShapeCounts counts{crosses.count, 0, 0};
    if (dots.FilledShare() >= kLeastDotShare) {
      counts.dots = dots.count;
    }
    if (squares.FilledShare() >= kLeastSquareShare) {
      counts.squares = squares.count;
    }
    if (Sum(counts) > Sum(most)) {
      std::swap(counts, most);
    }
    if (Sum(counts) > Sum(secondMost)) {
      secondMost = counts;
    }
  }
  return secondMost;
}

}  // namespace quorvex::tools
