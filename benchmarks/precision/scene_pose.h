// The board of the measuring stick and its places before the camera.
#ifndef QUORVEX_BENCHMARKS_PRECISION_SCENE_POSE_H_
#define QUORVEX_BENCHMARKS_PRECISION_SCENE_POSE_H_

#include <cstdint>
#include <random>

#include "benchmarks/precision/scene.h"

namespace quorvex::benchmarks {

// The same numbers from every standard library.
class SceneRandom {
 public:
  explicit SceneRandom(std::uint64_t seed) : generator_(seed) { generator_.discard(16); }

  double Between(double low, double high) {
    return low + (high - low) * static_cast<double>(generator_() >> 11) / 9007199254740992.0;
  }
  int Whole(int low, int high) {  // both included
    return low + static_cast<int>(generator_() % static_cast<std::uint64_t>(high - low + 1));
  }

 private:
  std::mt19937_64 generator_;
};

// 2048 x 2048 pixels, equidistant with a focal length of 700 pixels, 13 x 13 marks of 40 mm; noise
// 2, blur 0.7, light within 5 % even. Turned by up to 8 degrees, the principal point up to 20
// pixels from the middle. No distance yet.
Scene StandardScene(SceneRandom& random);

// The largest angle between the axis and a mark, degrees; 180 when the board turns its back.
double LargestAngle(const tools::RenderSettings& target);

// Puts the board at the distance from which its marks reach an angle off the axis, degrees.
void PlaceWithinAngle(double angle, Scene& scene);

// Puts the board at the distance from which marks in the picture's middle are `pitch` pixels apart,
// and leaves as many marks as reach 61 degrees, 13 x 13 at the most.
void PlaceAtPitch(double pitch, Scene& scene);

// Pixels between marks on the axis of an upright board.
double PitchOnAxis(const tools::RenderSettings& target);

// Sets the strokes' width as it would be on the axis, pixels; of the pitch when not called:
// a thirtieth.
void SetStroke(double width, Scene& scene);

// Leaves each mark out with a probability.
void LeaveOut(double probability, SceneRandom& random, Scene& scene);

}  // namespace quorvex::benchmarks

#endif  // QUORVEX_BENCHMARKS_PRECISION_SCENE_POSE_H_
