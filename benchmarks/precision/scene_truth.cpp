#include "benchmarks/precision/scene_truth.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "tools/render/board.h"
#include "tools/render/camera.h"

namespace quorvex::benchmarks {
namespace {

constexpr double kBlurRims = 2;  // sigmas by which the blur widens what stands before the board

bool IsHidden(const Scene& scene, const tools::PixelPoint& place, double rim) {
  for (const Disc& disc : scene.discs) {
    if (std::hypot(place.x - disc.x, place.y - disc.y) < disc.radius + rim) {
      return true;
    }
  }
  for (const Band& band : scene.bands) {
    const double across =
        (place.y - band.y) * std::cos(band.angle) - (place.x - band.x) * std::sin(band.angle);
    if (std::abs(across) < band.width / 2 + rim) {
      return true;
    }
  }
  return false;
}

bool IsInside(const tools::RenderSettings& target, const tools::PixelPoint& place) {
  return place.x >= kVisibleRim - 0.5 && place.x <= target.width - 0.5 - kVisibleRim &&
         place.y >= kVisibleRim - 0.5 && place.y <= target.height - 0.5 - kVisibleRim;
}

bool IsMissing(const tools::RenderSettings& target, int row, int column) {
  return target.pattern == tools::Pattern::kCrosses &&
         std::any_of(target.missing.begin(), target.missing.end(),
                     [&](const tools::GridPosition& mark) {
                       return mark.row == row && mark.column == column;
                     });
}

// The board as the camera sees it.
class BoardView {
 public:
  explicit BoardView(const Scene& scene)
      : scene_(scene), camera_(scene.target), board_(scene.target) {}

  std::optional<tools::PixelPoint> MarkAt(int row, int column) const {
    return At(board_.MarkCentre(row, column));
  }

  bool IsVisible(int row, int column, const tools::PixelPoint& centre) const {
    const double softness = kBlurRims * scene_.target.blurSigma;
    return IsInside(scene_.target, centre) && !IsHidden(scene_, centre, kVisibleRim + softness) &&
           (IsArmFree(row, column, 1, 0) || IsArmFree(row, column, -1, 0)) &&
           (IsArmFree(row, column, 0, 1) || IsArmFree(row, column, 0, -1));
  }

 private:
  std::optional<tools::PixelPoint> At(const tools::BoardPoint& point) const {
    return camera_.Project(board_.ToCamera(point));
  }

  // Whether nothing stands before half of an arm; the frame may cut it.
  bool IsArmFree(int row, int column, int towardsX, int towardsY) const {
    constexpr int kPlaces = 10;
    constexpr double kRim = 1;  // pixels beyond the stroke's edge
    const double half =
        HalfStrokeInPicture(row, column, towardsX, towardsY) + kBlurRims * scene_.target.blurSigma;
    for (int i = 1; i <= kPlaces; ++i) {
      const double along = 0.5 * scene_.target.armLength * i / kPlaces;
      tools::BoardPoint point = board_.MarkCentre(row, column);
      point.x += along * towardsX;
      point.y += along * towardsY;
      const std::optional<tools::PixelPoint> place = At(point);
      if (!place || IsHidden(scene_, *place, half + kRim)) {
        return false;
      }
    }
    return true;
  }

  double HalfStrokeInPicture(int row, int column, int towardsX, int towardsY) const {
    tools::BoardPoint point = board_.MarkCentre(row, column);
    const std::optional<tools::PixelPoint> centre = At(point);
    point.x += scene_.target.strokeWidth / 2 * towardsY;
    point.y += scene_.target.strokeWidth / 2 * towardsX;
    const std::optional<tools::PixelPoint> side = At(point);
    return centre && side ? std::hypot(side->x - centre->x, side->y - centre->y) : 0;
  }

  const Scene& scene_;  // outlives this
  tools::Camera camera_;
  tools::Board board_;
};

}  // namespace

std::vector<SceneMark> TrueMarks(const Scene& scene) {
  const tools::RenderSettings& target = scene.target;
  const BoardView view(scene);
  std::vector<SceneMark> marks;
  for (int row = 0; row < target.rows; ++row) {
    for (int column = 0; column < target.columns; ++column) {
      const std::optional<tools::PixelPoint> pixel = view.MarkAt(row, column);
      if (pixel && !IsMissing(target, row, column)) {
        marks.push_back({row, column, pixel->x, pixel->y, view.IsVisible(row, column, *pixel)});
      }
    }
  }
  return marks;
}

}  // namespace quorvex::benchmarks
