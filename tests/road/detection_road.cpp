#include "tests/road/detection_road.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>

#include "tests/support/bytes.h"
#include "tests/support/fnv_hash.h"
#include "tests/support/list_drive.h"
#include "tests/support/temporary_directory.h"
#include "tools/render/presets.h"

namespace quorvex::tests {
namespace {

namespace fs = std::filesystem;

// The picture as the library takes it, the bottom row first.
std::vector<unsigned char> BottomUp(const tools::Picture& picture) {
  std::vector<unsigned char> buffer;
  for (int y = picture.height - 1; y >= 0; --y) {
    const auto row = picture.pixels.begin() + static_cast<std::ptrdiff_t>(y) * picture.width;
    buffer.insert(buffer.end(), row, row + picture.width);
  }
  return buffer;
}

// Nine digits tell every float from its neighbours.
std::string PointText(const PointList& points) {
  std::string text;
  for (const CalibrationPoint& point : points) {
    text +=
        fmt::format("{} {} {} {:.9g} {:.9g}\n", point.id, point.row, point.col, point.x, point.y);
  }
  return text;
}

}  // namespace

DetectionRoad RunDetectionRoad(const std::string& preset) {
  DetectionRoad road;
  road.target = tools::RenderTarget(tools::PresetByName(preset));
  const tools::Picture& picture = road.target.picture;
  std::vector<unsigned char> buffer = BottomUp(picture);
  road.outputs.push_back({"input", {buffer.begin(), buffer.end()}, false});

  const TemporaryDirectory directory;
  const ListDrive drive;
  road.hasSucceeded =
      SingleCamDetectCalibrationPoint(buffer.data(), picture.width, picture.height, 8, kRowSpan,
                                      kColumnSpan, 0.0f, 0.0f, kRowSteps, road.points);

  road.outputs.push_back({"points", PointText(road.points), true});
  for (const fs::directory_entry& entry : fs::directory_iterator(directory.Path())) {
    if (entry.is_regular_file()) {
      road.outputs.push_back(
          {entry.path().filename().string(), ReadWhole(entry.path().u8string()), false});
    }
  }
  for (const char* name : kListNames) {
    if (drive.HasList(name)) {
      road.outputs.push_back({name, ReadText(drive.ListPath(name).u8string()), true});
    }
  }
  std::sort(road.outputs.begin(), road.outputs.end(),
            [](const RoadOutput& a, const RoadOutput& b) { return a.name < b.name; });
  return road;
}

std::string ManifestLine(const std::string& preset, const RoadOutput& output) {
  return fmt::format("{} {} {} {:016x}", preset, output.name, output.isNumbers ? "close" : "exact",
                     FnvHash(output.bytes));
}

std::string NumbersFileName(const std::string& preset, const RoadOutput& output) {
  const std::string stem = output.name.substr(0, output.name.find('.'));
  return fmt::format("numbers/{}-{}.txt", preset, stem);
}

}  // namespace quorvex::tests
