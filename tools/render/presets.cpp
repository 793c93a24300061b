#include "tools/render/presets.h"

#include <fmt/format.h>

#include "tools/errors.h"

namespace quorvex::tools {
namespace {

// All presets share the board's proportions and its light. In the picture the marks are more than
// 125 px apart, the arms 50 px and longer and the strokes at most 3.6 px dark; the board is moved
// so that the picture's middle lies off every stroke, and turned so that few strokes follow a pixel
// row.
RenderSettings Fisheye() {
  RenderSettings settings;
  settings.width = 2048;
  settings.height = 2048;
  settings.model = CameraModel::kEquidistant;
  settings.focalLength = 1080;
  settings.distance = 216;
  settings.shiftX = 11;
  settings.shiftY = 9;
  settings.rotation = 8;
  settings.rows = 9;
  settings.columns = 9;
  settings.pitch = 40;
  settings.armLength = 17;
  settings.strokeWidth = 0.66;
  settings.margin = 34;
  settings.boardLevel = 200;
  settings.markLevel = 0;
  settings.backgroundLevel = 30;
  settings.gradientX = 0.08;
  settings.gradientY = -0.05;
  settings.blurSigma = 0.8;
  settings.noiseSigma = 1.5;
  settings.seed = 1;
  return settings;
}

RenderSettings Easy() {
  RenderSettings settings = Fisheye();
  settings.width = 1600;
  settings.height = 1200;
  settings.focalLength = 1580;
  settings.distance = 420;
  settings.shiftX = 5;
  settings.shiftY = -4;
  settings.rotation = 12;
  settings.rows = 6;
  settings.columns = 8;
  settings.strokeWidth = 0.8;
  settings.noiseSigma = 1;
  settings.seed = 2;
  return settings;
}

RenderSettings Tilted() {
  RenderSettings settings = Fisheye();
  settings.width = 2048;
  settings.height = 1536;
  settings.model = CameraModel::kKannalaBrandt;
  settings.focalLength = 1270;
  settings.k1 = -0.03;
  settings.k2 = 0.004;
  settings.k3 = -0.002;
  settings.k4 = 0.0005;
  settings.distance = 262;
  settings.tiltX = 8;
  settings.tiltY = -6;
  settings.rotation = -8;
  settings.rows = 7;
  settings.columns = 9;
  settings.noiseSigma = 2;
  settings.seed = 3;
  return settings;
}

RenderSettings Dropped() {
  RenderSettings settings = Fisheye();
  settings.missing = {{1, 2}, {2, 6}, {4, 1}, {6, 7}, {7, 3}};
  settings.seed = 4;
  return settings;
}

RenderSettings Large() {
  RenderSettings settings = Fisheye();
  settings.width = 4000;
  settings.height = 3000;
  settings.focalLength = 3600;
  settings.distance = 720;
  settings.rotation = 9;
  settings.rows = 13;
  settings.columns = 19;
  settings.strokeWidth = 0.58;
  settings.margin = 30;
  settings.noiseSigma = 2;
  settings.seed = 5;
  return settings;
}

}  // namespace

std::vector<Preset> AllPresets() {
  return {
      {"fisheye", "2048 x 2048, equidistant, 9 x 9 marks", Fisheye()},
      {"easy", "1600 x 1200, equidistant with little distortion, 6 x 8 marks", Easy()},
      {"tilted", "2048 x 1536, Kannala-Brandt, tilted about both axes, 7 x 9 marks", Tilted()},
      {"dropped", "fisheye with five marks left out", Dropped()},
      {"large", "4000 x 3000, equidistant, 13 x 19 marks", Large()},
  };
}

RenderSettings PresetByName(const std::string& name) {
  std::string known;
  for (const Preset& preset : AllPresets()) {
    if (preset.name == name) {
      return preset.settings;
    }
    known += (known.empty() ? "" : ", ") + preset.name;
  }
  throw InputError(fmt::format("--preset: {} is not one of {}", name, known));
}

}  // namespace quorvex::tools
