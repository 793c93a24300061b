// Writes the manifest of the presets to standard output.
#include <cstdio>

#include "tests/road/detection_road.h"
#include "tools/render/presets.h"

int main() {
  for (const quorvex::tools::Preset& preset : quorvex::tools::AllPresets()) {
    for (const std::string& line : quorvex::testing::RunDetectionRoad(preset.name).manifest) {
      std::printf("%s\n", line.c_str());
    }
  }
}
