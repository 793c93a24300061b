// What the lens and the sensor do to a rendered picture: blur and noise. The results are the same
// bytes from every compiler: plain arithmetic in a fixed order and a random generator of our own.
#ifndef QUORVEX_TOOLS_RENDER_PICTURE_EFFECTS_H_
#define QUORVEX_TOOLS_RENDER_PICTURE_EFFECTS_H_

#include <cstdint>
#include <functional>
#include <vector>

#include "tools/pictures/picture.h"

namespace quorvex::tools {

// Grey levels before they are rounded; rows from the top, no gaps.
struct LevelPicture {
  int width = 0;   // pixels
  int height = 0;  // pixels
  std::vector<float> levels;
};

constexpr int kSamplesPerPixelSide = 4;

// Fills a row of width * kSamplesPerPixelSide samples; rows are height * kSamplesPerPixelSide.
using SampleRow = std::function<void(int row, std::vector<double>& samples)>;

// Blurs the scene by a Gaussian (sigma in pixels, 0 for none, cut off at four sigma), then
// integrates it over the pixels, as lens and sensor do. The blur works on the samples: applied to
// the finished pixels it would come too late, and strokes along the pixel rows would be shifted by
// up to 0.05 pixels. Border samples are continued outwards.
LevelPicture FilterSamples(int width, int height, double sigma, const SampleRow& sampleRow);

// Adds independent Gaussian noise (sigma in grey levels, 0 for none), rounds to the nearest grey
// level and clamps to 0..255. The same seed gives the same picture.
Picture AddNoiseAndRound(const LevelPicture& picture, double sigma, std::uint64_t seed);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_RENDER_PICTURE_EFFECTS_H_
