// One detection from end to end: a rendered target goes through the exported detection in a
// directory of its own, and everything that comes out is kept.
#ifndef QUORVEX_TESTS_ROAD_DETECTION_ROAD_H_
#define QUORVEX_TESTS_ROAD_DETECTION_ROAD_H_

#include <string>
#include <vector>

#include "interface/quorvex.h"
#include "tools/render/render_target.h"

namespace quorvex::tests {

// What the host passes for the targets of the tests.
constexpr int kRowSpan = 20;
constexpr int kColumnSpan = 20;
constexpr int kRowSteps = 300;  // pixels

// The input, a picture or a list that the detection left, or the points.
struct RoadOutput {
  std::string name;
  std::string bytes;  // lists and points as text with '\n' after each line
  bool isNumbers;     // a list of numbers, which may differ in the last places between C libraries
};

struct DetectionRoad {
  tools::RenderedTarget target;
  bool hasSucceeded = false;
  PointList points;
  std::vector<RoadOutput> outputs;  // by name
};

// Renders the preset of that name and detects its points.
DetectionRoad RunDetectionRoad(const std::string& preset);

// "preset output exact|close hash".
std::string ManifestLine(const std::string& preset, const RoadOutput& output);

// The name of the file beside the manifest that holds the numbers of an output.
std::string NumbersFileName(const std::string& preset, const RoadOutput& output);

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_ROAD_DETECTION_ROAD_H_
