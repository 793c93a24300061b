#include "benchmarks/precision/scene_levels.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace quorvex::benchmarks {

using tools::BoardPoint;
using tools::Pattern;
using tools::PixelPoint;
using tools::Vector3;

namespace {

constexpr double kPixelRadius = 0.8;  // pixels; half a pixel's diagonal and some for the curvature
constexpr double kNoWidth = 1e-9;     // pixels; a cell seen edge on

double LargestRadius(const Scene& scene, const PixelPoint& principalPoint, double reach) {
  const double x = std::max(std::abs(principalPoint.x + 0.5),
                            std::abs(scene.target.width - 0.5 - principalPoint.x));
  const double y = std::max(std::abs(principalPoint.y + 0.5),
                            std::abs(scene.target.height - 0.5 - principalPoint.y));
  return std::hypot(x + reach, y + reach);
}

double PatternReach(const tools::RenderSettings& target) {
  return target.margin + (target.pattern == Pattern::kChessboard ? target.pitch : 0);
}

// The mark whose square a place belongs to; in the margin the outermost.
int NearestMark(double position, int count) {
  return static_cast<int>(std::clamp(position + 0.5, 0.0, count - 0.5));
}

double DistanceIntoBand(const Band& band, double x, double y) {
  const double across = (y - band.y) * std::cos(band.angle) - (x - band.x) * std::sin(band.angle);
  return band.width / 2 - std::abs(across);
}

double DistanceIntoDisc(const Disc& disc, double x, double y) {
  return disc.radius - std::hypot(x - disc.x, y - disc.y);
}

}  // namespace

EdgeShape::EdgeShape(double gradientX, double gradientY, double cell)
    : pixelsPerUnit_(1 / std::hypot(gradientX, gradientY)),
      wide_(std::max(std::abs(gradientX), std::abs(gradientY)) * pixelsPerUnit_ * cell),
      narrow_(std::min(std::abs(gradientX), std::abs(gradientY)) * pixelsPerUnit_ * cell) {}

double EdgeShape::Coverage(double distance) const {
  const double pixels = std::abs(distance) * pixelsPerUnit_;
  const double reach = (wide_ + narrow_) / 2;
  double covered = 1;
  if (pixels < (wide_ - narrow_) / 2 || (pixels < reach && narrow_ < kNoWidth)) {
    covered = 0.5 + pixels / wide_;
  } else if (pixels < reach) {
    covered = 1 - (reach - pixels) * (reach - pixels) / (2 * wide_ * narrow_);
  }
  return distance < 0 ? 1 - covered : covered;
}

SceneLevels::SceneLevels(const Scene& scene, double reach)
    : scene_(scene),
      target_(scene.target),
      board_(target_),
      camera_(target_),
      rays_(camera_, LargestRadius(scene, camera_.PrincipalPoint(), reach)),
      firstMark_(board_.MarkCentre(0, 0)),
      cornerX_(PatternReach(target_) - firstMark_.x),
      cornerY_(PatternReach(target_) - firstMark_.y),
      hasLines_(2 * target_.armLength >= target_.pitch),
      isMissing_(static_cast<std::size_t>(target_.rows) * static_cast<std::size_t>(target_.columns),
                 false) {
  for (const tools::GridPosition& mark : target_.missing) {
    isMissing_[static_cast<std::size_t>(mark.row) * static_cast<std::size_t>(target_.columns) +
               static_cast<std::size_t>(mark.column)] = true;
  }
}

bool SceneLevels::Find(double x, double y, BoardPoint& point) const {
  const PixelPoint middle = camera_.PrincipalPoint();
  Vector3 ray;
  return rays_.Lookup(x - middle.x, y - middle.y, ray) && board_.Intersect(ray, point);
}

bool SceneLevels::FindPlace(double x, double y, Place& place) const {
  BoardPoint right;
  BoardPoint below;
  if (!Find(x, y, place.point) || !Find(x + 0.5, y, right) || !Find(x, y + 0.5, below)) {
    return false;
  }
  place.stretchXX = (right.x - place.point.x) * 2;
  place.stretchXY = (below.x - place.point.x) * 2;
  place.stretchYX = (right.y - place.point.y) * 2;
  place.stretchYY = (below.y - place.point.y) * 2;
  return true;
}

bool SceneLevels::IsMissing(int row, int column) const {
  return isMissing_[static_cast<std::size_t>(row) * static_cast<std::size_t>(target_.columns) +
                    static_cast<std::size_t>(column)];
}

// The one level within `radius` millimetres of a point; nothing if there may be two.
std::optional<float> SceneLevels::BoardLevel(const BoardPoint& point, double radius) const {
  const double outside = std::max(std::abs(point.x) - cornerX_, std::abs(point.y) - cornerY_);
  if (outside > radius) {
    return static_cast<float>(target_.backgroundLevel);
  }
  return outside > -radius ? std::nullopt : MarkLevel(point, radius);
}

std::optional<float> SceneLevels::MarkLevel(const BoardPoint& point, double radius) const {
  const double columnPlace = (point.x - firstMark_.x) / target_.pitch;
  const double rowPlace = (point.y - firstMark_.y) / target_.pitch;
  const int column = NearestMark(columnPlace, target_.columns);
  const int row = NearestMark(rowPlace, target_.rows);
  const double x = std::abs(columnPlace - column) * target_.pitch;
  const double y = std::abs(rowPlace - row) * target_.pitch;
  const double half = target_.strokeWidth / 2;
  const double arm = target_.armLength;
  if (target_.pattern == Pattern::kChessboard) {
    const double toSide = std::min(std::abs(x - target_.pitch), std::abs(y - target_.pitch));
    return std::min({x, y, toSide}) < radius
               ? std::nullopt
               : std::optional<float>(static_cast<float>(board_.LevelAt(point)));
  }
  const double farther = std::max(x, y);
  const bool isBesideStrokes = std::min(x, y) > half + radius;
  const bool isBetweenMarks =
      !hasLines_ && farther > arm + radius && target_.pitch - farther > arm + radius;
  const bool isInGap = IsMissing(row, column) && target_.pitch - farther > arm + radius;
  if (isBesideStrokes || isBetweenMarks || isInGap) {
    return static_cast<float>(target_.boardLevel);
  }
  const bool isOnStroke = std::min(x, y) < half - radius && farther < arm - radius;
  return isOnStroke && !IsMissing(row, column)
             ? std::optional<float>(static_cast<float>(target_.markLevel))
             : std::nullopt;
}

std::optional<float> SceneLevels::OccluderLevel(double x, double y, bool& isNearEdge) const {
  std::optional<float> level;
  isNearEdge = false;
  for (const Disc& disc : scene_.discs) {
    const double distance = DistanceIntoDisc(disc, x, y);
    isNearEdge = isNearEdge || std::abs(distance) < kPixelRadius;
    level = distance > 0 ? static_cast<float>(disc.level) : level;
  }
  for (const Band& band : scene_.bands) {
    const double distance = DistanceIntoBand(band, x, y);
    isNearEdge = isNearEdge || std::abs(distance) < kPixelRadius;
    level = distance > 0 ? static_cast<float>(band.level) : level;
  }
  return level;
}

void SceneLevels::FindUniform(int firstX, int y, std::vector<std::optional<float>>& uniform) const {
  int x = firstX;
  for (std::optional<float>& level : uniform) {
    bool isNearEdge = false;
    level = OccluderLevel(x, y, isNearEdge);
    Place place;
    if (isNearEdge) {
      level.reset();
    } else if (!level && !FindPlace(x, y, place)) {
      level = static_cast<float>(target_.backgroundLevel);  // the board ends before the horizon
    } else if (!level) {
      const double stretch = std::max(std::hypot(place.stretchXX, place.stretchXY),
                                      std::hypot(place.stretchYX, place.stretchYY));
      level = BoardLevel(place.point, stretch * std::sqrt(2.0) * kPixelRadius);
    }
    ++x;
  }
}

// The part of a cell that is dark, of a board without an edge.
double SceneLevels::Darkness(const BoardPoint& point, const EdgeShape& across,
                             const EdgeShape& down) const {
  const int column = NearestMark((point.x - firstMark_.x) / target_.pitch, target_.columns);
  const int row = NearestMark((point.y - firstMark_.y) / target_.pitch, target_.rows);
  const double x = point.x - firstMark_.x - column * target_.pitch;
  const double y = point.y - firstMark_.y - row * target_.pitch;
  if (target_.pattern == Pattern::kChessboard) {
    const double sign = (row + column) % 2 == 0 ? 1 : -1;
    const double inside =
        across.Coverage(target_.pitch - std::abs(x)) * down.Coverage(target_.pitch - std::abs(y));
    return inside * (0.5 + sign * 0.5 * (2 * across.Coverage(x) - 1) * (2 * down.Coverage(y) - 1));
  }
  if (IsMissing(row, column)) {
    return 0;
  }
  const double half = target_.strokeWidth / 2;
  const double upright = across.Coverage(half - std::abs(x));
  const double level = down.Coverage(half - std::abs(y));
  if (hasLines_) {
    return upright + level - upright * level;
  }
  const double farX = across.Coverage(target_.armLength - std::abs(x));
  const double farY = down.Coverage(target_.armLength - std::abs(y));
  return upright * farY + level * farX - upright * level;
}

double SceneLevels::CellLevel(const BoardPoint& point, const EdgeShape& across,
                              const EdgeShape& down) const {
  const double board =
      across.Coverage(cornerX_ - std::abs(point.x)) * down.Coverage(cornerY_ - std::abs(point.y));
  if (board == 0) {
    return target_.backgroundLevel;
  }
  const double printed =
      target_.boardLevel + Darkness(point, across, down) * (target_.markLevel - target_.boardLevel);
  return target_.backgroundLevel + board * (printed - target_.backgroundLevel);
}

double SceneLevels::Occlude(double level, double x, double y, double cell) const {
  for (const Disc& disc : scene_.discs) {
    const EdgeShape edge(x - disc.x, y - disc.y, cell);
    const double scale = std::hypot(x - disc.x, y - disc.y);
    const double covered = scale == 0 ? 1 : edge.Coverage(DistanceIntoDisc(disc, x, y) * scale);
    level += covered * (disc.level - level);
  }
  for (const Band& band : scene_.bands) {
    const EdgeShape edge(std::sin(band.angle), std::cos(band.angle), cell);
    level += edge.Coverage(DistanceIntoBand(band, x, y)) * (band.level - level);
  }
  return level;
}

void SceneLevels::SampleCells(int x, int y, int cellRow, int side, float* cells) const {
  const double cell = 1.0 / side;
  Place place;
  const bool isBoardBehind = FindPlace(x, y, place);
  const EdgeShape across(isBoardBehind ? place.stretchXX : 1, place.stretchXY, cell);
  const EdgeShape down(isBoardBehind ? place.stretchYX : 1, place.stretchYY, cell);
  const double cellY = y + (cellRow + 0.5) * cell - 0.5;
  const bool isOpen = scene_.discs.empty() && scene_.bands.empty();
  for (int i = 0; i < side; ++i) {
    const double cellX = x + (i + 0.5) * cell - 0.5;
    BoardPoint point;
    double level = target_.backgroundLevel;
    if (isBoardBehind && Find(cellX, cellY, point)) {
      level = CellLevel(point, across, down);
    }
    cells[i] = static_cast<float>(isOpen ? level : Occlude(level, cellX, cellY, cell));
  }
}

}  // namespace quorvex::benchmarks
