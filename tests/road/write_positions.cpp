// Writes the marks that the direct detector finds on the renderer's presets into a folder.
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "tests/road/direct_road.h"

int main(int argc, char** argv) {
  using namespace quorvex::tests;

  if (argc != 2) {
    std::fprintf(stderr, "usage: write_positions FOLDER\n");
    return 2;
  }
  const std::filesystem::path folder = argv[1];
  std::filesystem::create_directories(folder / "positions");
  for (const char* preset : kDirectPresets) {
    const DirectRoad road = RunDirectRoad(preset);
    if (road.result.marks.empty()) {
      std::fprintf(stderr, "write_positions: %s: %s\n", preset, road.result.reason.c_str());
      return 1;
    }
    std::ofstream file(folder / PositionsFileName(preset), std::ios::binary);
    file << PositionsText(road);
    file.flush();
    if (!file.good()) {
      std::fprintf(stderr, "write_positions: %s cannot be written\n",
                   PositionsFileName(preset).c_str());
      return 1;
    }
  }
  return 0;
}
