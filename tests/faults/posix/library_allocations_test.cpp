// The library when one allocation fails, any of them: each step of the road from a picture's file
// to a numbered list.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <string>

#include "interface/quorvex.h"
#include "tests/faults/allocation_faults.h"
#include "tests/faults/road_target.h"
#include "tests/support/bytes.h"
#include "tests/support/differential.h"
#include "tests/support/kept_memory.h"
#include "tests/support/list_drive.h"
#include "tests/support/point_lists.h"
#include "tests/support/points.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

constexpr int kSamples = 60 / QUORVEX_CASES_DIVISOR;
constexpr const char* kPicture = "a-picture-with-a-longer-name.bmp";

class LibraryAllocations : public testing::Test {
 protected:
  GrayImage image = RoadTarget();

 private:
  TemporaryDirectory directory_;
  ListDrive lists_;
};

bool HasId(const PointList& points, int id) {
  return std::any_of(points.begin(), points.end(),
                     [id](const CalibrationPoint& point) { return point.id == id; });
}

TEST_F(LibraryAllocations, ADetectionThrowsOrPassesOverAStage) {
  PointList expected;
  ASSERT_TRUE(DetectRoadTarget(image, expected));
  ExpectNumberedGrid(expected, 4, 4);
  int thrown = 0;
  int passedOver = 0;
  const auto detect = [&](PointList& points) { return DetectRoadTarget(image, points); };
  ForFaults(
      kSamples,
      [&] {
        PointList points;
        detect(points);
      },
      [&](int n) {
        PointList points = {MakePoint(99, -1, -1, 200.0f, 200.0f)};
        const FaultedCall call = CallWithFault(n, [&] { detect(points); });
        thrown += call.threw ? 1 : 0;
        passedOver += call.failed == Asked::kMalloc ? 1 : 0;
        // A heap that refuses is a stage that is passed over; what cannot be thrown is a picture.
        EXPECT_FALSE(call.threw && call.failed != Asked::kNew);
        EXPECT_TRUE(!call.threw || HasId(points, 99));
        EXPECT_LE(points.size(), expected.size() + 1);
        PointList next;
        EXPECT_TRUE(detect(next));
        ExpectSameBytes(next, expected);
      });
  EXPECT_GT(thrown, 0);
  EXPECT_GT(passedOver, 0);
}

// The pictures of the last mark are drawn on every way out; without memory there are fewer, and the
// result is that of any other detection.
TEST_F(LibraryAllocations, WhatIsNotThrownChangesNothing) {
  PointList expected;
  ASSERT_TRUE(DetectRoadTarget(image, expected));
  const int before = AllocationCount();
  PointList again;
  DetectRoadTarget(image, again);
  const int count = AllocationCount() - before;
  int ignored = 0;
  for (int n = count; n > count - 10; --n) {
    PointList points;
    const FaultedCall call = CallWithFault(n, [&] { DetectRoadTarget(image, points); });
    if (!call.threw && call.failed != Asked::kMalloc) {
      ++ignored;
      ExpectSameBytes(points, expected);
    }
  }
  EXPECT_GT(ignored, 0);
}

TEST_F(LibraryAllocations, SavingThrowsOrIsFalseAndThenSucceeds) {
  ASSERT_TRUE(Save_Image(image.Data(), kRoadSize, kRoadSize, 8, kPicture));
  const Bytes expected = ReadBytes(kPicture);
  const auto save = [&] { return Save_Image(image.Data(), kRoadSize, kRoadSize, 8, kPicture); };
  ForFaults(
      kSamples, [&] { save(); },
      [&](int n) {
        bool saved = false;
        const FaultedCall call = CallWithFault(n, [&] { saved = save(); });
        EXPECT_FALSE(saved);
        EXPECT_EQ(call.threw, call.failed == Asked::kNew);
        EXPECT_TRUE(ReadBytes(kPicture) == expected);  // nothing was begun
        EXPECT_TRUE(save());
      });
  EXPECT_TRUE(ReadBytes(kPicture) == expected);
}

struct ReadImage {
  unsigned char* pixels = nullptr;
  long width = -1;
  long height = -1;
  int bits = -1;

  bool Read() { return Read_Image(pixels, width, height, bits, kPicture); }
};

TEST_F(LibraryAllocations, ReadingThrowsOrIsFalseAndTouchesNothing) {
  ASSERT_TRUE(Save_Image(image.Data(), kRoadSize, kRoadSize, 8, kPicture));
  ReadImage first;
  const int before = AllocationCount();
  ASSERT_TRUE(first.Read());
  const int count = AllocationCount() - before;
  KeepForever(first.pixels);
  for (int n = 1; n <= count; ++n) {
    ReadImage read;
    bool isRead = false;
    const int held = HeldBlocks();
    const int files = OpenFileCount();
    const FaultedCall call = CallWithFault(n, [&] { isRead = read.Read(); });
    EXPECT_FALSE(isRead);
    EXPECT_EQ(call.threw, call.failed == Asked::kNew);
    EXPECT_EQ(read.pixels, nullptr);
    EXPECT_EQ(read.width, -1);
    EXPECT_EQ(read.bits, -1);
    EXPECT_EQ(HeldBlocks(), held);
    EXPECT_EQ(OpenFileCount(), files);
  }
  ReadImage last;
  ASSERT_TRUE(last.Read());
  KeepForever(last.pixels);
  EXPECT_EQ(last.width, kRoadSize);
  EXPECT_TRUE(std::equal(last.pixels, last.pixels + image.Size(), image.Data()));
}

TEST_F(LibraryAllocations, GreyConversionAsksForNoMemory) {
  const Bytes colours(kRoadSize * 3, 100);
  Bytes grey(kRoadSize);
  const int before = AllocationCount();
  ConvertRGBToGray(const_cast<unsigned char*>(colours.data()), kRoadSize, 1, 24, grey.data());
  EXPECT_EQ(AllocationCount(), before);
  EXPECT_EQ(grey.back(), 100);
}

// Seen through a fisheye: the spacing shrinks outwards.
PointList ShrinkingGrid() {
  constexpr float kPlaces[5] = {30.0f, 110.0f, 200.0f, 290.0f, 370.0f};
  PointList points;
  for (const float y : kPlaces) {
    for (const float x : kPlaces) {
      points.push_back(MakePoint(-1, -1, -1, x, y));
    }
  }
  return points;
}

// The list is as it was, or finished.
template <typename Edit>
void ExpectWholeOrUntouched(const PointList& given, const Edit& edit) {
  PointList expected = given;
  edit(expected);
  int thrown = 0;
  ForFaults(
      kSamples,
      [&] {
        PointList points = given;
        edit(points);
      },
      [&](int n) {
        PointList points = given;
        const FaultedCall call = CallWithFault(n, [&] { edit(points); });
        thrown += call.threw ? 1 : 0;
        ExpectSameBytes(points, call.threw ? given : expected);
        if (call.threw) {
          edit(points);
          ExpectSameBytes(points, expected);
        }
      });
  EXPECT_GT(thrown, 0);
}

TEST_F(LibraryAllocations, RenumberingLeavesTheListAsItWas) {
  PointList numbered = ShrinkingGrid();
  ASSERT_TRUE(ReAssignmentID(5, 5, numbered));
  ExpectWholeOrUntouched(ShrinkingGrid(), [](PointList& list) { ReAssignmentID(5, 5, list); });
}

TEST_F(LibraryAllocations, RearrangingLeavesTheListAsItWas) {
  PointList numbered = ShrinkingGrid();
  ASSERT_TRUE(ReAssignmentID(5, 5, numbered));
  ExpectWholeOrUntouched(numbered, [](PointList& list) { LeftPtsRearrange(list, 0, 5); });
  ExpectWholeOrUntouched(numbered, [](PointList& list) { RightPtsRearrange(list, 0, 5); });
}

TEST_F(LibraryAllocations, AddingAPointLeavesTheListAsItWas) {
  ExpectWholeOrUntouched(ShrinkingGrid(), [](PointList& list) {
    list.shrink_to_fit();
    AddCalibrationPt_Coordinate(1.0f, 2.0f, list);
  });
}

}  // namespace
}  // namespace quorvex::tests
