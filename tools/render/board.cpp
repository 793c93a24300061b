#include "tools/render/board.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "tools/errors.h"

namespace quorvex::tools {
namespace {

constexpr double kRadiansPerDegree = 3.14159265358979323846 / 180;

double Dot(const Vector3& a, const Vector3& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }

// In the board's plane first, then about the camera's y axis, then about its x axis.
Vector3 Turn(const Vector3& vector, const RenderSettings& settings) {
  const double roll = settings.rotation * kRadiansPerDegree;
  const double aboutY = settings.tiltY * kRadiansPerDegree;
  const double aboutX = settings.tiltX * kRadiansPerDegree;
  const Vector3 rolled = {vector.x * std::cos(roll) - vector.y * std::sin(roll),
                          vector.x * std::sin(roll) + vector.y * std::cos(roll), vector.z};
  const Vector3 swung = {rolled.x * std::cos(aboutY) + rolled.z * std::sin(aboutY), rolled.y,
                         -rolled.x * std::sin(aboutY) + rolled.z * std::cos(aboutY)};
  return {swung.x, swung.y * std::cos(aboutX) - swung.z * std::sin(aboutX),
          swung.y * std::sin(aboutX) + swung.z * std::cos(aboutX)};
}

// From the outermost centres to the board's edge: the margin begins where a chessboard's outermost
// squares end.
double PatternReach(const RenderSettings& settings) {
  return settings.margin + (settings.pattern == Pattern::kChessboard ? settings.pitch : 0);
}

// In the margin the clamp takes the outermost mark; it also keeps the number within an int.
int NearestMark(double position, int count) {
  return static_cast<int>(std::clamp(position + 0.5, 0.0, count - 0.5));
}

}  // namespace

Board::Board(const RenderSettings& settings)
    : settings_(settings),
      axisX_(Turn({1, 0, 0}, settings_)),
      axisY_(Turn({0, 1, 0}, settings_)),
      normal_(Turn({0, 0, 1}, settings_)),
      origin_{settings_.shiftX, settings_.shiftY, settings_.distance},
      cameraInBoard_{-Dot(axisX_, origin_), -Dot(axisY_, origin_), -Dot(normal_, origin_)},
      firstMark_{-(settings_.columns - 1) * settings_.pitch / 2,
                 -(settings_.rows - 1) * settings_.pitch / 2},
      corner_{PatternReach(settings_) - firstMark_.x, PatternReach(settings_) - firstMark_.y},
      marksPerMillimetre_(1 / settings_.pitch),
      isShown_(
          static_cast<std::size_t>(settings_.rows) * static_cast<std::size_t>(settings_.columns),
          true) {
  if (cameraInBoard_.z >= 0) {
    throw InputError("the board turns its back to the camera; tilt or shift it less");
  }
  for (const GridPosition& mark : settings_.missing) {
    isShown_[static_cast<std::size_t>(mark.row) * static_cast<std::size_t>(settings_.columns) +
             static_cast<std::size_t>(mark.column)] = false;
  }
}

BoardPoint Board::MarkCentre(int row, int column) const {
  return {firstMark_.x + column * settings_.pitch, firstMark_.y + row * settings_.pitch};
}

Vector3 Board::ToCamera(const BoardPoint& point) const {
  return {origin_.x + axisX_.x * point.x + axisY_.x * point.y,
          origin_.y + axisX_.y * point.x + axisY_.y * point.y,
          origin_.z + axisX_.z * point.x + axisY_.z * point.y};
}

bool Board::Intersect(const Vector3& ray, BoardPoint& point) const {
  const double towardsBoard = Dot(normal_, ray);
  if (towardsBoard <= 0) {
    return false;
  }
  const double length = -cameraInBoard_.z / towardsBoard;
  point = {cameraInBoard_.x + length * Dot(axisX_, ray),
           cameraInBoard_.y + length * Dot(axisY_, ray)};
  return true;
}

double Board::LevelAt(const BoardPoint& point) const {
  if (!(std::abs(point.x) <= corner_.x && std::abs(point.y) <= corner_.y)) {
    return settings_.backgroundLevel;
  }
  const bool isDark =
      settings_.pattern == Pattern::kChessboard ? IsOnDarkSquare(point) : IsOnMark(point);
  return isDark ? settings_.markLevel : settings_.boardLevel;
}

// Squares stand between the inner corners and one more on each side; that at the top left is dark.
bool Board::IsOnDarkSquare(const BoardPoint& point) const {
  const double column = std::floor((point.x - firstMark_.x) * marksPerMillimetre_ + 1);
  const double row = std::floor((point.y - firstMark_.y) * marksPerMillimetre_ + 1);
  if (!(column >= 0 && column <= settings_.columns && row >= 0 && row <= settings_.rows)) {
    return false;
  }
  return (static_cast<int>(column) + static_cast<int>(row)) % 2 == 0;
}

bool Board::IsOnMark(const BoardPoint& point) const {
  const int column = NearestMark((point.x - firstMark_.x) * marksPerMillimetre_, settings_.columns);
  const int row = NearestMark((point.y - firstMark_.y) * marksPerMillimetre_, settings_.rows);
  const BoardPoint centre = MarkCentre(row, column);
  const double x = std::abs(point.x - centre.x);
  const double y = std::abs(point.y - centre.y);
  const bool isOnStroke = std::min(x, y) <= settings_.strokeWidth / 2;
  return isOnStroke && std::max(x, y) <= settings_.armLength &&
         isShown_[static_cast<std::size_t>(row) * static_cast<std::size_t>(settings_.columns) +
                  static_cast<std::size_t>(column)];
}

}  // namespace quorvex::tools
