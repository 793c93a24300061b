#include "tests/precise/mark_drawing.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <random>

namespace quorvex::tests {
namespace {

constexpr double kPi = 3.14159265358979323846;

double Softened(double inside) { return std::clamp(inside + 0.5, 0.0, 1.0); }

// How much of a pixel an arm covers, about.
double Coverage(const Eigen::Vector2d& from, const Eigen::Vector2d& direction,
                const DrawnMark& mark) {
  const double along = from.dot(direction);
  const double across = precise::Cross(direction, from);
  return Softened(mark.stroke / 2 - std::fabs(across)) * Softened(mark.length - along) *
         Softened(along + mark.stroke / 2);
}

std::uint8_t Rounded(double level) {
  return static_cast<std::uint8_t>(std::lround(std::clamp(level, 0.0, 255.0)));
}

}  // namespace

Eigen::Vector2d DirectionOf(double degrees) {
  return {std::cos(degrees * kPi / 180), std::sin(degrees * kPi / 180)};
}

void DrawMark(const DrawnMark& mark, precise::GrayPicture& picture) {
  const double reach = mark.length + mark.stroke + 1;
  const int top = std::max(0, static_cast<int>(mark.centre.y() - reach));
  const int left = std::max(0, static_cast<int>(mark.centre.x() - reach));
  for (int y = top; y < std::min<double>(picture.Height(), mark.centre.y() + reach); ++y) {
    for (int x = left; x < std::min<double>(picture.Width(), mark.centre.x() + reach); ++x) {
      double covered = 0;
      for (const double angle : mark.angles) {
        const Eigen::Vector2d from = Eigen::Vector2d(x, y) - mark.centre;
        covered = std::max(covered, Coverage(from, DirectionOf(angle), mark));
      }
      if (covered > 0) {
        std::uint8_t& pixel = picture.Row(y)[x];
        pixel = Rounded(pixel + covered * (mark.level - pixel));
      }
    }
  }
}

void AddNoise(double sigma, unsigned seed, precise::GrayPicture& picture) {
  std::mt19937 random(seed);
  const auto uniform = [&random] { return (static_cast<double>(random()) + 0.5) / 4294967296.0; };
  for (int y = 0; y < picture.Height(); ++y) {
    for (int x = 0; x < picture.Width(); ++x) {
      const double normal = std::sqrt(-2 * std::log(uniform())) * std::cos(2 * kPi * uniform());
      picture.Row(y)[x] = Rounded(picture.At(x, y) + sigma * normal);
    }
  }
}

std::vector<precise::MarkCandidate> BoardOfCandidates(int rows, int columns, double degrees) {
  constexpr double kPitch = 100;  // px
  constexpr double kArm = 40;     // px
  std::vector<precise::MarkCandidate> marks;
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      precise::MarkCandidate mark;
      mark.centre = Eigen::Vector2d(500, 500) + kPitch * column * DirectionOf(degrees) +
                    kPitch * row * DirectionOf(degrees + 90);
      for (std::size_t k = 0; k < 4; ++k) {
        mark.arms[k].isSeen = true;
        mark.arms[k].direction = DirectionOf(degrees + 90.0 * static_cast<double>(k));
        mark.arms[k].length = kArm;
        mark.arms[k].contrast = 100;
      }
      marks.push_back(mark);
    }
  }
  return marks;
}

}  // namespace quorvex::tests
