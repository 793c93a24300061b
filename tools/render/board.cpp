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

// In the margin the clamp takes the outermost mark; it also keeps the number within an int.
int NearestMark(double position, int count) {
  return static_cast<int>(std::clamp(position + 0.5, 0.0, count - 0.5));
}

}  // namespace

Board::Board(const RenderSettings& renderSettings)
    : settings(renderSettings),
      axisX(Turn({1, 0, 0}, settings)),
      axisY(Turn({0, 1, 0}, settings)),
      normal(Turn({0, 0, 1}, settings)),
      origin{settings.shiftX, settings.shiftY, settings.distance},
      cameraInBoard{-Dot(axisX, origin), -Dot(axisY, origin), -Dot(normal, origin)},
      firstMark{-(settings.columns - 1) * settings.pitch / 2,
                -(settings.rows - 1) * settings.pitch / 2},
      corner{settings.margin - firstMark.x, settings.margin - firstMark.y},
      marksPerMillimetre(1 / settings.pitch),
      isShown(static_cast<std::size_t>(settings.rows) * static_cast<std::size_t>(settings.columns),
              true) {
  if (cameraInBoard.z >= 0) {
    throw InputError("the board turns its back to the camera; tilt or shift it less");
  }
  for (const GridPosition& mark : settings.missing) {
    isShown[static_cast<std::size_t>(mark.row) * static_cast<std::size_t>(settings.columns) +
            static_cast<std::size_t>(mark.column)] = false;
  }
}

BoardPoint Board::MarkCentre(int row, int column) const {
  return {firstMark.x + column * settings.pitch, firstMark.y + row * settings.pitch};
}

Vector3 Board::ToCamera(const BoardPoint& point) const {
  return {origin.x + axisX.x * point.x + axisY.x * point.y,
          origin.y + axisX.y * point.x + axisY.y * point.y,
          origin.z + axisX.z * point.x + axisY.z * point.y};
}

bool Board::Intersect(const Vector3& ray, BoardPoint& point) const {
  const double towardsBoard = Dot(normal, ray);
  if (towardsBoard <= 0) {
    return false;
  }
  const double length = -cameraInBoard.z / towardsBoard;
  point = {cameraInBoard.x + length * Dot(axisX, ray), cameraInBoard.y + length * Dot(axisY, ray)};
  return true;
}

double Board::LevelAt(const BoardPoint& point) const {
  if (!(std::abs(point.x) <= corner.x && std::abs(point.y) <= corner.y)) {
    return settings.backgroundLevel;
  }
  return IsOnMark(point) ? settings.markLevel : settings.boardLevel;
}

bool Board::IsOnMark(const BoardPoint& point) const {
  const int column = NearestMark((point.x - firstMark.x) * marksPerMillimetre, settings.columns);
  const int row = NearestMark((point.y - firstMark.y) * marksPerMillimetre, settings.rows);
  const BoardPoint centre = MarkCentre(row, column);
  const double x = std::abs(point.x - centre.x);
  const double y = std::abs(point.y - centre.y);
  const bool isOnStroke = std::min(x, y) <= settings.strokeWidth / 2;
  return isOnStroke && std::max(x, y) <= settings.armLength &&
         isShown[static_cast<std::size_t>(row) * static_cast<std::size_t>(settings.columns) +
                 static_cast<std::size_t>(column)];
}

}  // namespace quorvex::tools
