// Writes the manifest of the presets, and the numbers that go with it, into a folder.
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "tests/road/detection_road.h"
#include "tools/render/presets.h"

namespace {

constexpr const char* kLegend =
    "# Preset, output, how it is compared, hash.\n"
    "# exact: the same bytes on every system.\n"
    "# close: the same bytes with glibc; with another C library the same counts and labels, and\n"
    "# positions within 0.001 pixels of those in numbers/ (sdf.txt: coefficients within two "
    "millionths).\n";

}  // namespace

int main(int argc, char** argv) {
  using namespace quorvex;
  using namespace quorvex::tests;

  if (argc != 2) {
    std::fprintf(stderr, "usage: write_manifest FOLDER\n");
    return 2;
  }
  const std::filesystem::path folder = std::filesystem::absolute(argv[1]);
  std::filesystem::create_directories(folder / "numbers");
  std::ofstream manifest(folder / "manifest.txt", std::ios::binary);
  manifest << kLegend;
  for (const tools::Preset& preset : tools::AllPresets()) {
    for (const RoadOutput& output : RunDetectionRoad(preset.name).outputs) {
      manifest << ManifestLine(preset.name, output) << '\n';
      if (output.isNumbers) {
        std::ofstream(folder / NumbersFileName(preset.name, output), std::ios::binary)
            << output.bytes;
      }
    }
  }
  manifest.flush();
  return manifest.good() ? 0 : 1;
}
