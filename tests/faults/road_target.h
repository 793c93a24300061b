// A target that is detected in no time, for tests that detect it again and again.
#ifndef QUORVEX_TESTS_FAULTS_ROAD_TARGET_H_
#define QUORVEX_TESTS_FAULTS_ROAD_TARGET_H_

#include "base/gray_image.h"
#include "interface/quorvex.h"
#include "tests/support/stroke_image.h"

namespace quorvex::tests {

constexpr int kRoadSize = 800;  // pixels, width and height
constexpr int kRoadMarks = 16;  // 4 x 4

// Dark marks on a bright board; the one in a corner is missing, and predicted.
inline GrayImage RoadTarget() {
  GrayImage image(kRoadSize, kRoadSize);
  DrawBox(image, 60, 60, kRoadSize - 61, kRoadSize - 61, 95);
  DrawCrosses(image, {175, 325, 475, 625}, {325, 475, 625}, 70);
  DrawCrosses(image, {325, 475, 625}, {175}, 70);
  return image;
}

inline bool DetectRoadTarget(GrayImage& image, PointList& points) {
  return SingleCamDetectCalibrationPoint(image.Data(), image.Width(), image.Height(), 8, 20, 20,
                                         0.0f, 0.0f, 300, points);
}

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_FAULTS_ROAD_TARGET_H_
