// One detection from end to end: a rendered target goes through the exported detection in a
// directory of its own, and everything that comes out is kept or hashed.
#ifndef QUORVEX_TESTS_ROAD_DETECTION_ROAD_H_
#define QUORVEX_TESTS_ROAD_DETECTION_ROAD_H_

#include <string>
#include <vector>

#include "interface/quorvex.h"
#include "tools/render/render_target.h"

namespace quorvex::testing {

// What the host passes for the targets of the tests.
constexpr int kRowSpan = 20;
constexpr int kColumnSpan = 20;
constexpr int kRowSteps = 300;  // pixels

struct DetectionRoad {
  tools::RenderedTarget target;
  bool hasSucceeded = false;
  PointList points;

  // One line each, sorted: "image output hash" for the input, every file that the detection left,
  // and the points to the bit.
  std::vector<std::string> manifest;
};

// Renders the preset of that name and detects its points.
DetectionRoad RunDetectionRoad(const std::string& preset);

}  // namespace quorvex::testing

#endif  // QUORVEX_TESTS_ROAD_DETECTION_ROAD_H_
