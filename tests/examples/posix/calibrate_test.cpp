// The calibration example from its pictures to the camera, and its stereo pair.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/run_program.h"
#include "tests/support/temporary_folder.h"

namespace quorvex::tests {
namespace {

#ifdef QUORVEX_HAS_OPENCV

constexpr double kFocalLength = 1000;  // pixels
constexpr double kCentreX = 1032.5;    // pixels
constexpr double kCentreY = 1017.5;    // pixels

struct Camera {
  int marks = 0;
  double fx = 0;
  double fy = 0;
  double cx = 0;
  double cy = 0;
  std::array<double, 4> k = {};
  double rms = -1;  // pixels; -1 for a row that is not there
};

std::vector<std::string> LinesOf(const std::string& path) {
  std::ifstream file(path);
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) lines.push_back(line);
  return lines;
}

Camera CameraOf(const std::string& name, const std::vector<std::string>& lines) {
  Camera camera;
  for (const std::string& line : lines) {
    std::istringstream words(line);
    std::string first;
    words >> first;
    if (first == name) {
      words >> camera.marks >> camera.fx >> camera.fy >> camera.cx >> camera.cy;
      for (double& coefficient : camera.k) words >> coefficient;
      words >> camera.rms;
    }
  }
  return camera;
}

struct IdCounts {
  int left = 0;
  int right = 0;
  int inBoth = 0;
  int same = 0;
};

std::vector<IdCounts> RowsNamed(const char* format, const std::vector<std::string>& lines) {
  std::vector<IdCounts> rows;
  for (const std::string& line : lines) {
    IdCounts row;
    // NOLINTNEXTLINE(cert-err34-c): the number of fields tells
    if (std::sscanf(line.c_str(), format, &row.left, &row.right, &row.inBoth, &row.same) == 4) {
      rows.push_back(row);
    }
  }
  return rows;
}

void ExpectArrows(const std::string& path) {
  const Bytes bytes = ReadBytes(path);
  ASSERT_GT(bytes.size(), 5000u) << path;
  EXPECT_EQ(std::string(bytes.begin() + 1, bytes.begin() + 4), "PNG") << path;
}

void ExpectTheCamera(const Camera& camera) {
  EXPECT_EQ(camera.marks, 12 * 64);
  EXPECT_NEAR(camera.fx, kFocalLength, 5e-5 * kFocalLength);
  EXPECT_NEAR(camera.fy, kFocalLength, 5e-5 * kFocalLength);
  EXPECT_NEAR(camera.cx, kCentreX, 0.02);
  EXPECT_NEAR(camera.cy, kCentreY, 0.02);
  EXPECT_NEAR(camera.k[0], -0.02, 0.0005);
  EXPECT_GT(camera.rms, 0);
  EXPECT_LT(camera.rms, 0.01);
}

// Equal ids of the whole board meet without rearrangement, too; those of a part do not.
void ExpectMeetingIds(const std::vector<std::string>& lines) {
  const auto detected = RowsNamed("as detected %d %d %d %d", lines);
  const auto rearranged = RowsNamed("rearranged %d %d %d %d", lines);
  ASSERT_EQ(detected.size(), 2u);
  ASSERT_EQ(rearranged.size(), 2u);
  EXPECT_EQ(rearranged[0].inBoth, 49);
  EXPECT_EQ(rearranged[0].same, 49);
  EXPECT_EQ(detected[1].inBoth, 42);
  EXPECT_EQ(detected[1].same, 0);
  EXPECT_EQ(rearranged[1].left, 42);
  EXPECT_EQ(rearranged[1].right, 42);
  EXPECT_EQ(rearranged[1].inBoth, 35);
  EXPECT_EQ(rearranged[1].same, 35);
}

void FollowTheExample() {
  const TemporaryFolder folder;
  const int code = RunProgram({"/bin/bash",
                               {QUORVEX_CALIBRATE_FOLDER "/run.sh", QUORVEX_BUILD_FOLDER, "."},
                               folder.Path()});
  std::vector<std::string> lines = LinesOf(folder.Path("out.txt"));
  for (const std::string& line : lines) std::printf("%s\n", line.c_str());
  ASSERT_EQ(code, 0) << ::testing::PrintToString(LinesOf(folder.Path("err.txt")));
  ExpectTheCamera(CameraOf("precise", lines));
  // The other detection's camera is printed for comparison; it is near, and not as good.
  const Camera plain = CameraOf("plain", lines);
  EXPECT_GT(plain.marks, 11 * 64);
  EXPECT_NEAR(plain.fx, kFocalLength, 0.02 * kFocalLength);
  EXPECT_GT(std::abs(plain.fx - kFocalLength), 1e-3 * kFocalLength);
  ExpectArrows(folder.Path("residuals-precise.png"));
  ExpectArrows(folder.Path("residuals-plain.png"));
  ExpectMeetingIds(lines);
}

#else

void FollowTheExample() { GTEST_SKIP() << "built without OpenCV (Debian: libopencv-dev)"; }

#endif

TEST(CalibrateExample, GivesTheCameraAndMeetingIds) { FollowTheExample(); }

}  // namespace
}  // namespace quorvex::tests
