// Two pictures whose detections write to one folder.
#ifndef QUORVEX_TESTS_FAULTS_SHARED_FOLDER_H_
#define QUORVEX_TESTS_FAULTS_SHARED_FOLDER_H_

#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <string>

#include "tests/faults/left_files.h"
#include "tests/faults/road_target.h"
#include "tests/support/list_drive.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {

struct AloneDetected {
  GrayImage image;
  PointList points;
  std::map<std::string, Bytes> files;

  // Whether another detection, whatever goes on beside it, gives the same points.
  bool IsSameAgain() {
    PointList again;
    return DetectRoadTarget(image, again) && again.size() == points.size() &&
           std::memcmp(again.data(), points.data(), points.size() * sizeof points[0]) == 0;
  }
};

inline AloneDetected DetectAlone(GrayImage image) {
  AloneDetected alone{std::move(image), {}, {}};
  EXPECT_TRUE(DetectRoadTarget(alone.image, alone.points));
  alone.files = ReadLeftFiles();
  return alone;
}

// The target, and the same turned by 180 degrees.
class SharedFolder : public testing::Test {
 protected:
  static GrayImage Other() {
    const GrayImage target = RoadTarget();
    GrayImage turned(kRoadSize, kRoadSize);
    for (std::size_t i = 0; i < target.Size(); ++i) {
      turned.Data()[i] = target.Data()[target.Size() - 1 - i];
    }
    return turned;
  }

  // Each file is whole: that of one detection or of the other.
  void ExpectWholeFiles() {
    for (const auto& [name, bytes] : ReadLeftFiles()) {
      EXPECT_TRUE(bytes == one.files[name] || bytes == other.files[name]) << name;
    }
  }

  TemporaryDirectory directory;
  ListDrive lists;
  AloneDetected one = DetectAlone(RoadTarget());
  AloneDetected other = DetectAlone(Other());
};

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_FAULTS_SHARED_FOLDER_H_
