#include "crossmark/cross_location.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <limits>

#include "crossmark/brightest_window.h"
#include "crossmark/image_patch.h"
#include "tests/support/faults.h"
#include "tests/support/patches.h"
#include "tests/support/points.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

constexpr int kWidth = 400;
constexpr int kHeight = 320;
constexpr int kPatch = 200;
constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();

// Strokes of 65 pixels to each side, interrupted around the crossing: their lines are exact.
void DrawCross(GrayImage& image, int x, int y) {
  DrawRow(image, y, x - 65, x - 5, 255);
  DrawRow(image, y, x + 5, x + 65, 255);
  DrawColumn(image, x, y - 65, y - 5, 255);
  DrawColumn(image, x, y + 5, y + 65, 255);
}

GrayImage CrossImage(int x, int y) {
  GrayImage image(kWidth, kHeight);
  DrawCross(image, x, y);
  return image;
}

struct Location {
  int result = -1;
  PointF centre = {0.0f, 0.0f};
  LineSegment first;
  LineSegment second;
};

class LocateCrossMarkTest : public ::testing::Test {
 protected:
  Location Locate(const GrayImage& image, int x, int y, int searchSize = 100) {
    Location location;
    location.result = LocateCrossMark(image.Data(), image.Width(), image.Height(), x, y, searchSize,
                                      location.first, location.second, location.centre);
    return location;
  }

  void ExpectAt(const Location& location, float x, float y) {
    EXPECT_EQ(location.result, 1);
    EXPECT_EQ(Bits(location.centre.x), Bits(x));
    EXPECT_EQ(Bits(location.centre.y), Bits(y));
  }

  TemporaryDirectory directory_;
};

TEST_F(LocateCrossMarkTest, CentreIsInImageCoordinates) {
  ExpectAt(Locate(CrossImage(200, 160), 205, 152), 200.0f, 160.0f);
}

TEST_F(LocateCrossMarkTest, PatchNearTheLeftAndTopBorderStartsAtZero) {
  ExpectAt(Locate(CrossImage(70, 66), 74, 64), 70.0f, 66.0f);
}

TEST_F(LocateCrossMarkTest, LinesAreInPatchCoordinates) {
  const GrayImage image = CrossImage(200, 160);
  const Location location = Locate(image, 205, 152);
  int brightX = 0;
  int brightY = 0;
  ASSERT_TRUE(
      FindBrightestWindow(image.Data(), kWidth, kHeight, 205, 152, 100, 100, brightX, brightY));
  ASSERT_GT(brightX, 100);
  ASSERT_GT(brightY, 100);
  const float column = static_cast<float>(200 - (brightX - 100));
  const float row = static_cast<float>(160 - (brightY - 100));
  // Degree 0 is searched before degree 90, and both strokes have as many points.
  EXPECT_EQ(location.first.angle, 1.5707963f);
  EXPECT_EQ(Bits(location.first.c), Bits(-column));
  EXPECT_EQ(location.second.angle, 0.0f);
  EXPECT_EQ(Bits(location.second.c), Bits(row));
}

TEST_F(LocateCrossMarkTest, RegionPictureShowsThePatchAroundTheBrightestWindow) {
  const GrayImage image = CrossImage(200, 160);
  Locate(image, 205, 152);
  int brightX = 0;
  int brightY = 0;
  FindBrightestWindow(image.Data(), kWidth, kHeight, 205, 152, 100, 100, brightX, brightY);
  const Picture picture = ReadPicture("./CrossMarkRegion.bmp");
  EXPECT_EQ(picture.width, kPatch);
  EXPECT_EQ(picture.height, kPatch);
  EXPECT_TRUE(picture.pixels == BytesOf(CutPatch(image.Data(), kWidth, kHeight, brightX - 100,
                                                 brightY - 100, kPatch)));
}

TEST_F(LocateCrossMarkTest, LinePicturesAreOfImageSizeAndInPatchCoordinates) {
  GrayImage image = CrossImage(240, 180);
  DrawRow(image, 180, 160, 162, 255);  // on a line, but too short for a segment
  ASSERT_EQ(Locate(image, 240, 180).result, 1);
  // The region picture is the patch; the short run stands to the left of all else in it.
  const GrayImage region(ReadPicture("./CrossMarkRegion.bmp").pixels.data(), kPatch, kPatch);
  GrayImage lines(kWidth, kHeight);
  GrayImage segments(kWidth, kHeight);
  int shortRunPixels = 0;
  for (int y = 0; y < kPatch; ++y) {
    for (int x = 0; x < kPatch; ++x) {
      const unsigned char level = region.Data()[PixelOffset(x, y, kPatch)];
      PixelAt(lines, x, y) = level;
      const bool isShortRun = level == 255 && x < 38;
      PixelAt(segments, x, y) = isShortRun ? 0 : level;
      shortRunPixels += isShortRun;
    }
  }
  EXPECT_EQ(shortRunPixels, 3);
  for (const char* name : {"./Lines.bmp", "./LineSegment.bmp"}) {
    EXPECT_EQ(ReadPicture(name).width, kWidth);
    EXPECT_EQ(ReadPicture(name).height, kHeight);
  }
  EXPECT_TRUE(ReadPicture("./Lines.bmp").pixels == BytesOf(lines));
  EXPECT_TRUE(ReadPicture("./LineSegment.bmp").pixels == BytesOf(segments));
}

TEST_F(LocateCrossMarkTest, WithoutABrightWindowTheGivenPositionServes) {
  // The windows reach 50 pixels from (150, 130), the patch a hundred.
  GrayImage image(kWidth, kHeight);
  DrawRow(image, 200, 201, 248, 255);
  DrawColumn(image, 225, 181, 225, 255);
  EXPECT_EQ(Locate(image, 150, 130).result, 1);
  EXPECT_TRUE(ReadPicture("./CrossMarkRegion.bmp").pixels ==
              BytesOf(CutPatch(image.Data(), kWidth, kHeight, 50, 30, kPatch)));
}

TEST_F(LocateCrossMarkTest, LargerSearchSizeFindsTheDistantCross) {
  const GrayImage image = CrossImage(300, 200);
  EXPECT_EQ(Locate(image, 120, 80, 100).result, 0);
  ExpectAt(Locate(image, 120, 80, 500), 300.0f, 200.0f);
}

TEST_F(LocateCrossMarkTest, EmptyPatchLeavesOnlyItsOwnPicture) {
  EXPECT_EQ(Locate(GrayImage(kWidth, kHeight), 200, 160).result, 0);
  EXPECT_TRUE(std::filesystem::exists("CrossMarkRegion.bmp"));
  EXPECT_FALSE(std::filesystem::exists("Lines.bmp"));
  EXPECT_FALSE(std::filesystem::exists("LineSegment.bmp"));
}

TEST_F(LocateCrossMarkTest, ShortRunsLeaveNoSegmentPicture) {
  GrayImage image(kWidth, kHeight);
  DrawRow(image, 160, 170, 195, 255);
  DrawRow(image, 160, 210, 235, 255);
  EXPECT_EQ(Locate(image, 200, 160).result, 0);
  EXPECT_TRUE(std::filesystem::exists("Lines.bmp"));
  EXPECT_FALSE(std::filesystem::exists("LineSegment.bmp"));
}

TEST_F(LocateCrossMarkTest, SingleStrokeGivesNoCentre) {
  GrayImage image(kWidth, kHeight);
  DrawRow(image, 160, 140, 260, 255);
  EXPECT_EQ(Locate(image, 200, 160).result, 0);
  EXPECT_TRUE(std::filesystem::exists("LineSegment.bmp"));
}

TEST_F(LocateCrossMarkTest, OnlyWhitePixelsAreStrokes) {
  GrayImage image = CrossImage(200, 160);
  for (std::size_t i = 0; i < image.Size(); ++i) {
    image.Data()[i] = image.Data()[i] == 255 ? 254 : 0;
  }
  EXPECT_EQ(Locate(image, 200, 160).result, 0);
}

TEST_F(LocateCrossMarkTest, PatchIsWhiteBeyondTheImage) {
  const GrayImage image(kWidth, kHeight);
  Locate(image, 350, 250);
  const Picture picture = ReadPicture("./CrossMarkRegion.bmp");
  ASSERT_EQ(picture.pixels.size(), static_cast<std::size_t>(kPatch * kPatch));
  // The patch starts at (250, 150).
  EXPECT_EQ(picture.pixels[PixelOffset(149, 169, kPatch)], 0);
  EXPECT_EQ(picture.pixels[PixelOffset(150, 169, kPatch)], 255);
  EXPECT_EQ(picture.pixels[PixelOffset(149, 170, kPatch)], 255);
}

TEST_F(LocateCrossMarkTest, EveryPositionIsSafe) {
  const GrayImage image = CrossImage(200, 160);
  for (const int x : {kLowest, -1, kHighest}) {
    for (const int y : {kLowest, -1, kHighest}) {
      const int result = Locate(image, x, y).result;
      EXPECT_TRUE(result == 0 || result == 1);
    }
  }
}

TEST_F(LocateCrossMarkTest, PicturesThatCannotBeWrittenAreSkipped) {
  const FailNth failure(Fault::kWrite, 1);
  ExpectAt(Locate(CrossImage(200, 160), 200, 160), 200.0f, 160.0f);
  EXPECT_TRUE(failure.HasHappened());
}

}  // namespace
}  // namespace quorvex::tests
