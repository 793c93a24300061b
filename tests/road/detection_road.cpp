#include "tests/road/detection_road.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/support/points.h"
#include "tests/support/temporary_directory.h"
#include "tools/render/presets.h"

namespace quorvex::testing {
namespace {

namespace fs = std::filesystem;

// FNV-1a, 64 bits.
std::uint64_t Hash(const std::string& bytes) {
  std::uint64_t hash = 0xcbf29ce484222325u;
  for (const char byte : bytes) {
    hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3u;
  }
  return hash;
}

std::string ReadFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// The picture as the library takes it, the bottom row first.
std::vector<unsigned char> BottomUp(const tools::Picture& picture) {
  std::vector<unsigned char> buffer;
  for (int y = picture.height - 1; y >= 0; --y) {
    const auto row = picture.pixels.begin() + static_cast<std::ptrdiff_t>(y) * picture.width;
    buffer.insert(buffer.end(), row, row + picture.width);
  }
  return buffer;
}

std::string PointBits(const PointList& points) {
  std::string text;
  for (const CalibrationPoint& point : points) {
    text += fmt::format("{} {} {} {:08x} {:08x}\n", point.id, point.row, point.col, Bits(point.x),
                        Bits(point.y));
  }
  return text;
}

}  // namespace

DetectionRoad RunDetectionRoad(const std::string& preset) {
  DetectionRoad road;
  road.target = tools::RenderTarget(tools::PresetByName(preset));
  const tools::Picture& picture = road.target.picture;
  std::vector<unsigned char> buffer = BottomUp(picture);
  const std::string input(buffer.begin(), buffer.end());

  const TemporaryDirectory directory;
  fs::create_directory("D:");
  road.hasSucceeded =
      SingleCamDetectCalibrationPoint(buffer.data(), picture.width, picture.height, 8, kRowSpan,
                                      kColumnSpan, 0.0f, 0.0f, kRowSteps, road.points);

  const auto addLine = [&](const std::string& output, const std::string& bytes) {
    road.manifest.push_back(fmt::format("{} {} {:016x}", preset, output, Hash(bytes)));
  };
  addLine("input", input);
  addLine(fmt::format("{}-points", road.points.size()), PointBits(road.points));
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(directory.Path())) {
    if (entry.is_regular_file()) {
      addLine(fs::relative(entry.path(), directory.Path()).string(), ReadFile(entry.path()));
    }
  }
  std::sort(road.manifest.begin(), road.manifest.end());
  return road;
}

}  // namespace quorvex::testing
