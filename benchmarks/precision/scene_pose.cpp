#include "benchmarks/precision/scene_pose.h"

#include <algorithm>
#include <cmath>

#include "tools/errors.h"
#include "tools/render/board.h"

namespace quorvex::benchmarks {
namespace {

constexpr double kDegreesPerRadian = 180 / 3.14159265358979323846;
constexpr double kPitch = 40;  // millimetres
constexpr double kStrokePerPitch = 1.0 / 30;
constexpr double kArmPerPitch = 0.42;
constexpr double kMarginPerPitch = 0.7;
constexpr int kStandardMarks = 13;     // a side
constexpr double kStandardAngle = 61;  // degrees
constexpr double kNearest = 5;         // millimetres, where the search for a distance begins
constexpr double kFarthest = 50000;    // millimetres, where it ends
constexpr int kBisections = 60;

}  // namespace

Scene StandardScene(SceneRandom& random) {
  Scene scene;
  tools::RenderSettings& target = scene.target;
  target.width = 2048;
  target.height = 2048;
  target.focalLength = 700;
  target.principalX = 1023.5 + random.Between(-20, 20);
  target.principalY = 1023.5 + random.Between(-20, 20);
  target.rotation = random.Between(-8, 8);
  target.rows = kStandardMarks;
  target.columns = kStandardMarks;
  target.pitch = kPitch;
  target.armLength = kArmPerPitch * kPitch;
  target.strokeWidth = kStrokePerPitch * kPitch;
  target.margin = kMarginPerPitch * kPitch;
  target.boardLevel = 190;
  target.markLevel = 25;
  target.backgroundLevel = 60;
  target.gradientX = random.Between(-0.05, 0.05);
  target.gradientY = random.Between(-0.05, 0.05);
  target.blurSigma = 0.7;
  target.noiseSigma = 2;
  target.seed = static_cast<std::uint64_t>(random.Whole(1, 1 << 30));
  return scene;
}

double LargestAngle(const tools::RenderSettings& target) {
  double largest = 0;
  try {
    const tools::Board board(target);
    for (const int row : {0, target.rows - 1}) {
      for (const int column : {0, target.columns - 1}) {
        const tools::Vector3 corner = board.ToCamera(board.MarkCentre(row, column));
        const double angle = std::atan2(std::hypot(corner.x, corner.y), corner.z);
        largest = std::max(largest, angle * kDegreesPerRadian);
      }
    }
  } catch (const tools::InputError&) {
    return 180;
  }
  return largest;
}

void PlaceWithinAngle(double angle, Scene& scene) {
  double low = kNearest;
  double high = kFarthest;
  for (int i = 0; i < kBisections; ++i) {
    scene.target.distance = std::sqrt(low * high);
    (LargestAngle(scene.target) > angle ? low : high) = scene.target.distance;
  }
}

void PlaceAtPitch(double pitch, Scene& scene) {
  tools::RenderSettings& target = scene.target;
  target.distance = target.focalLength * target.pitch / pitch;
  const double reach = std::tan(kStandardAngle / kDegreesPerRadian) / std::sqrt(2.0);
  const int half = static_cast<int>(std::lround(reach * target.focalLength / pitch));
  target.rows = target.columns = std::min(kStandardMarks, 2 * half + 1);
}

double PitchOnAxis(const tools::RenderSettings& target) {
  return target.focalLength * target.pitch / target.distance;
}

void SetStroke(double width, Scene& scene) {
  scene.target.strokeWidth = width / PitchOnAxis(scene.target) * scene.target.pitch;
}

void LeaveOut(double probability, SceneRandom& random, Scene& scene) {
  for (int row = 0; row < scene.target.rows; ++row) {
    for (int column = 0; column < scene.target.columns; ++column) {
      if (random.Between(0, 1) < probability) {
        scene.target.missing.push_back({row, column});
      }
    }
  }
}

}  // namespace quorvex::benchmarks
