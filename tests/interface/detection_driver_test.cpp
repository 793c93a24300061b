#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <limits>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "base/gray_image.h"
#include "interface/quorvex.h"
#include "tests/support/faults.h"
#include "tests/support/message_box.h"
#include "tests/support/point_lists.h"
#include "tests/support/points.h"
#include "tests/support/stroke_image.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

const std::set<std::string> kImageStagePictures = {
    "ProImage.bmp", "Binarization.bmp", "Dilation.bmp", "Contour.bmp",  "SRegion.bmp",
    "Mask.bmp",     "Region.bmp",       "Sobel.bmp",    "Eliminate.bmp"};

std::set<std::string> FilesHere() {
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(".")) {
    names.insert(entry.path().filename().string());
  }
  return names;
}

class DetectionDriverTest : public ::testing::Test {
 protected:
  DetectionDriverTest() { TakeMessages(); }

  bool Detect(unsigned char* image, long width, long height, int bits = 8) {
    return SingleCamDetectCalibrationPoint(image, width, height, bits, 20, 20, 0.0f, 0.0f, 300,
                                           points);
  }

  void ExpectRefusedWithoutATrace(unsigned char* image, long width, long height, int bits = 8) {
    EXPECT_FALSE(Detect(image, width, height, bits));
    EXPECT_TRUE(FilesHere().empty());
    EXPECT_TRUE(TakeMessages().empty());
    EXPECT_EQ(points.size(), 1u);
  }

  TemporaryDirectory directory;
  PointList points = {MakePoint(7, 1, 2, 3.0f, 4.0f)};
};

TEST_F(DetectionDriverTest, ABlackImageOfTheSmallestSizeLeavesAllPicturesAndNoPoint) {
  unsigned char image[16] = {};
  EXPECT_FALSE(Detect(image, 4, 4));
  const std::set<std::string> files = FilesHere();
  for (const std::string& name : kImageStagePictures) {
    EXPECT_EQ(files.count(name), 1u) << name;
    // File header, information header, palette, 4 x 4 pixels.
    EXPECT_EQ(std::filesystem::file_size(name), 14u + 40u + 256u * 4u + 16u) << name;
  }
  EXPECT_TRUE(TakeMessages().empty());
  ASSERT_EQ(points.size(), 1u);
  EXPECT_EQ(points[0].y, 4.0f);
}

TEST_F(DetectionDriverTest, AnUnevenWidthIsSavedAndRefusedWithAMessage) {
  GrayImage image(641, 480);
  EXPECT_FALSE(Detect(image.Data(), 641, 480));
  EXPECT_EQ(FilesHere(), std::set<std::string>{"ProImage.bmp"});
  EXPECT_EQ(TakeMessages(), std::vector<std::string>{"图像宽度和高度必须是4的整数倍！"});
  EXPECT_EQ(points.size(), 1u);
}

TEST_F(DetectionDriverTest, AnUnevenHeightIsRefusedTheSameWay) {
  GrayImage image(8, 6);
  EXPECT_FALSE(Detect(image.Data(), 8, 6));
  EXPECT_EQ(FilesHere(), std::set<std::string>{"ProImage.bmp"});
  EXPECT_EQ(TakeMessages().size(), 1u);
}

TEST_F(DetectionDriverTest, OtherDepthsAreRefusedAtOnce) {
  std::vector<unsigned char> pixels(8 * 8 * 4);
  for (const int bits : {24, 32, 1, 0, -8}) {
    ExpectRefusedWithoutATrace(pixels.data(), 8, 8, bits);
  }
}

TEST_F(DetectionDriverTest, ANullImageIsRefusedAtOnce) {
  ExpectRefusedWithoutATrace(nullptr, 8, 8);
}

TEST_F(DetectionDriverTest, SizesBelowFourAreRefusedAtOnce) {
  std::vector<unsigned char> pixels(64);
  for (const long size : {3L, 0L, -4L, std::numeric_limits<long>::min()}) {
    ExpectRefusedWithoutATrace(pixels.data(), size, 8);
    ExpectRefusedWithoutATrace(pixels.data(), 8, size);
  }
}

TEST_F(DetectionDriverTest, SizesBeyond32BitsAreRefusedAtOnce) {
  if (sizeof(long) == 4) {
    GTEST_SKIP() << "long has 32 bits";
  }
  std::vector<unsigned char> pixels(64);
  const long wrapsToEight = static_cast<long>((1LL << 32) + 8);
  const long justBeyond = static_cast<long>(1LL << 31);
  for (const long size : {wrapsToEight, justBeyond}) {
    ExpectRefusedWithoutATrace(pixels.data(), size, 8);
    ExpectRefusedWithoutATrace(pixels.data(), 8, size);
  }
}

TEST_F(DetectionDriverTest, PicturesThatCannotBeWrittenDoNotMatter) {
  unsigned char image[16] = {};
  std::filesystem::create_directory("ProImage.bmp");  // cannot be created as a file
  const FailNth fault(Fault::kWrite, 1);
  EXPECT_FALSE(Detect(image, 4, 4));
  EXPECT_TRUE(fault.HasHappened());
  EXPECT_EQ(FilesHere().count("Eliminate.bmp"), 1u);
}

// A target whose stroke gradients stay below 128 and on which no mark's strokes point at the
// centre.
GrayImage Target() {
  GrayImage image(800, 800);
  DrawBox(image, 60, 60, 739, 739, 95);
  DrawCrosses(image, {175, 325, 475, 625}, {175, 325, 475, 625}, 70);
  return image;
}

class TargetDetectionTest : public DetectionDriverTest {
 protected:
  TargetDetectionTest() { points.clear(); }

  GrayImage image = Target();
};

TEST_F(TargetDetectionTest, FindsTheGridAndLeavesTheInputAlone) {
  EXPECT_TRUE(Detect(image.Data(), 800, 800));
  ExpectNumberedGrid(points, 4, 4);
  const GrayImage untouched = Target();
  EXPECT_EQ(std::memcmp(image.Data(), untouched.Data(), image.Size()), 0);
}

TEST_F(TargetDetectionTest, TheTwoFloatsHaveNoEffect) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  EXPECT_TRUE(Detect(image.Data(), 800, 800));
  PointList others;
  EXPECT_TRUE(
      SingleCamDetectCalibrationPoint(image.Data(), 800, 800, 8, 20, 20, nan, -1e30f, 300, others));
  ASSERT_FALSE(points.empty());
  ExpectSameBytes(others, points);
}

TEST_F(TargetDetectionTest, ASecondRunGivesTheSameAgain) {
  EXPECT_TRUE(Detect(image.Data(), 800, 800));
  const PointList first = points;
  points.clear();
  EXPECT_TRUE(Detect(image.Data(), 800, 800));
  ExpectSameBytes(points, first);
}

// They share the names of the pictures that they leave behind, and nothing else.
TEST_F(TargetDetectionTest, ThreadsGetWhatEachWouldGetAlone) {
  EXPECT_TRUE(Detect(image.Data(), 800, 800));
  ASSERT_FALSE(points.empty());
  PointList lists[3];
  std::vector<std::thread> threads;
  for (PointList& list : lists) {
    threads.emplace_back([this, &list] {
      SingleCamDetectCalibrationPoint(image.Data(), 800, 800, 8, 20, 20, 0.0f, 0.0f, 300, list);
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  for (const PointList& list : lists) {
    ExpectSameBytes(list, points);
  }
}

// Without memory of its own a stage leaves its image as it was; the run goes on to its end.
TEST_F(TargetDetectionTest, AStageWithoutMemoryIsPassedOver) {
  bool hasHappened = true;
  int n = 1;
  for (; hasHappened && n <= 12; ++n) {
    points.clear();
    const FailNth fault(Fault::kLocalAlloc, n);
    Detect(image.Data(), 800, 800);
    hasHappened = fault.HasHappened();
    EXPECT_EQ(FilesHere().count("Eliminate.bmp"), 1u) << n;
    std::filesystem::remove("Eliminate.bmp");
  }
  EXPECT_GT(n, 3);  // at least the rank filter, the dilation and the edge image ask for memory
}

}  // namespace
}  // namespace quorvex::tests
