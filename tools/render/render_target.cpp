#include "tools/render/render_target.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>

#include "tools/errors.h"
#include "tools/render/board.h"
#include "tools/render/camera.h"
#include "tools/render/picture_effects.h"

namespace quorvex::tools {
namespace {

// Samples stand on a turned grid: all sixteen of a pixel have an x and a y of their own, so that an
// edge along a pixel row is placed to a sixteenth of a pixel and not to a quarter only. A sample is
// moved along the row by its row's place in the pixel, and across it by its column's.
constexpr double kTurnStep = 1.0 / (kSamplesPerPixelSide * kSamplesPerPixelSide);  // pixels

double SamplePosition(int index) { return (index + 0.5) / kSamplesPerPixelSide - 0.5; }

double TurnedBy(int index) {
  return (index % kSamplesPerPixelSide - (kSamplesPerPixelSide - 1) / 2.0) * kTurnStep;
}

// Reaches every sample of the picture.
double LargestRadius(const RenderSettings& settings, const PixelPoint& principalPoint) {
  const double x =
      std::max(std::abs(principalPoint.x + 0.5), std::abs(settings.width - 0.5 - principalPoint.x));
  const double y = std::max(std::abs(principalPoint.y + 0.5),
                            std::abs(settings.height - 0.5 - principalPoint.y));
  return std::sqrt(x * x + y * y);
}

class Scene {
 public:
  explicit Scene(const RenderSettings& settings)
      : settings_(settings),
        board_(settings_),
        principalPoint_(Camera(settings_).PrincipalPoint()),
        rays_(Camera(settings_), LargestRadius(settings_, principalPoint_)) {}

  void SampleRow(int row, std::vector<double>& samples) const {
    const double y = SamplePosition(row);
    const double moveX = TurnedBy(row);
    for (int column = 0; column < static_cast<int>(samples.size()); ++column) {
      samples[static_cast<std::size_t>(column)] =
          SampleLevel(SamplePosition(column) + moveX, y - TurnedBy(column));
    }
  }

 private:
  double SampleLevel(double x, double y) const {
    Vector3 ray;
    BoardPoint point;
    if (!rays_.Lookup(x - principalPoint_.x, y - principalPoint_.y, ray) ||
        !board_.Intersect(ray, point)) {
      return settings_.backgroundLevel;
    }
    return board_.LevelAt(point);
  }

  const RenderSettings& settings_;  // outlives the scene
  Board board_;
  PixelPoint principalPoint_;
  RayTable rays_;
};

void ApplyLight(LevelPicture& picture, const RenderSettings& settings) {
  std::size_t index = 0;
  for (int y = 0; y < picture.height; ++y) {
    const double down = 2.0 * y / (picture.height - 1) - 1;
    for (int x = 0; x < picture.width; ++x, ++index) {
      const double right = 2.0 * x / (picture.width - 1) - 1;
      const double light = 1 + settings.gradientX * right + settings.gradientY * down;
      picture.levels[index] = static_cast<float>(picture.levels[index] * std::max(0.0, light));
    }
  }
}

TruthMark ProjectMark(const RenderSettings& settings, const Camera& camera, const Board& board,
                      int row, int column) {
  const std::optional<PixelPoint> pixel =
      camera.Project(board.ToCamera(board.MarkCentre(row, column)));
  if (!pixel) {
    throw InputError(fmt::format(
        "mark {},{} is out of the camera's sight; move the board away or make it smaller", row,
        column));
  }
  if (!(pixel->x >= 0 && pixel->x <= settings.width - 1 && pixel->y >= 0 &&
        pixel->y <= settings.height - 1)) {
    throw InputError(
        fmt::format("mark {},{} would be at {:.1f}, {:.1f}, outside the picture of {} x {} pixels",
                    row, column, pixel->x, pixel->y, settings.width, settings.height));
  }
  return {row, column, pixel->x, pixel->y, false};
}

}  // namespace

std::vector<TruthMark> ProjectMarks(const RenderSettings& settings) {
  CheckSettings(settings);
  const Camera camera(settings);
  const Board board(settings);
  std::vector<TruthMark> marks;
  for (int row = 0; row < settings.rows; ++row) {
    for (int column = 0; column < settings.columns; ++column) {
      marks.push_back(ProjectMark(settings, camera, board, row, column));
    }
  }
  if (settings.pattern == Pattern::kChessboard) {
    return marks;  // every corner is there
  }
  for (const GridPosition& mark : settings.missing) {
    const int index = mark.row * settings.columns + mark.column;
    marks[static_cast<std::size_t>(index)].isMissing = true;
  }
  return marks;
}

RenderedTarget RenderTarget(const RenderSettings& settings) {
  RenderedTarget target;
  target.marks = ProjectMarks(settings);  // first: it refuses bad settings before the long work
  const Scene scene(settings);
  LevelPicture levels = FilterSamples(
      settings.width, settings.height, settings.blurSigma,
      [&scene](int row, std::vector<double>& samples) { scene.SampleRow(row, samples); });
  ApplyLight(levels, settings);
  target.picture = AddNoiseAndRound(levels, settings.noiseSigma, settings.seed);
  return target;
}

}  // namespace quorvex::tools
