#include "crossmark/cross_refinement.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <limits>

#include "crossmark/image_patch.h"
#include "crossmark/patch.h"
#include "crossmark/patch_binarization.h"
#include "crossmark/thinning.h"
#include "tests/support/faults.h"
#include "tests/support/patches.h"
#include "tests/support/points.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

constexpr int kSize = 400;  // pixels, width and height of the image
constexpr unsigned char kGround = 200;

// Dark strokes of 90 pixels to each side whose middle is too pale for the binarisation, but still
// the darkest there: no pixel of one stroke disturbs the line fitted to the other.
void DrawCross(GrayImage& image, int x, int y) {
  const auto before = [](int position) { return position > 90 ? position - 90 : 0; };
  DrawRow(image, y, before(x), x + 90, 50);
  DrawColumn(image, x, before(y), y + 90, 50);
  DrawRow(image, y, x - 12, x + 12, 196);
  DrawColumn(image, x, y - 12, y + 12, 196);
  PixelAt(image, x, y) = 195;
}

GrayImage CrossImage(int x, int y) {
  GrayImage image = UniformImage(kSize, kSize, kGround);
  DrawCross(image, x, y);
  return image;
}

GrayImage FullMask() { return UniformImage(kSize, kSize, 255); }

class RefineCrossMarksTest : public ::testing::Test {
 protected:
  CalibrationPoint Refined(const GrayImage& image, const GrayImage& mask,
                           const CalibrationPoint& point) {
    PointList points = {point};
    EXPECT_TRUE(RefineCrossMarks(image.Data(), image.Width(), image.Height(), mask.Data(), points));
    EXPECT_EQ(points.size(), 1u);
    return points[0];
  }

  void ExpectAt(const CalibrationPoint& point, float x, float y) {
    EXPECT_EQ(Bits(point.x), Bits(x));
    EXPECT_EQ(Bits(point.y), Bits(y));
  }

  TemporaryDirectory directory_;
};

TEST_F(RefineCrossMarksTest, PointMovesToTheCrossing) {
  ExpectAt(Refined(CrossImage(200, 150), FullMask(), At(204.0f, 147.0f)), 200.0f, 150.0f);
}

TEST_F(RefineCrossMarksTest, OtherFieldsStay) {
  CalibrationPoint point;
  std::memset(&point, 0xA5, sizeof point);
  point.x = 204.0f;
  point.y = 147.0f;
  CalibrationPoint expected = point;
  expected.x = 200.0f;
  expected.y = 150.0f;
  const CalibrationPoint refined = Refined(CrossImage(200, 150), FullMask(), point);
  EXPECT_EQ(std::memcmp(&refined, &expected, sizeof expected), 0);
}

TEST_F(RefineCrossMarksTest, EmptyListSucceedsWithoutPictures) {
  PointList points;
  EXPECT_TRUE(RefineCrossMarks(FullMask().Data(), kSize, kSize, FullMask().Data(), points));
  EXPECT_TRUE(std::filesystem::is_empty(directory_.Path()));
}

TEST_F(RefineCrossMarksTest, PatchNearTheLeftAndTopBorderStartsAtZero) {
  const GrayImage image = CrossImage(60, 50);
  ExpectAt(Refined(image, FullMask(), At(63.0f, 49.0f)), 60.0f, 50.0f);
  EXPECT_TRUE(ReadPicture("./CrossMarkRegion.bmp").pixels ==
              BytesOf(CutPatch(image.Data(), kSize, kSize, 0, 0, kPatchSize)));
}

TEST_F(RefineCrossMarksTest, CoordinatesAreCutTowardsZero) {
  const GrayImage image = CrossImage(200, 150);
  Refined(image, FullMask(), At(204.9f, 147.9f));
  EXPECT_TRUE(ReadPicture("./CrossMarkRegion.bmp").pixels ==
              BytesOf(CutPatch(image.Data(), kSize, kSize, 124, 67, kPatchSize)));
}

TEST_F(RefineCrossMarksTest, PatchIsWhiteBeyondTheImage) {
  Refined(UniformImage(kSize, kSize, kGround), FullMask(), At(360.0f, 350.0f));
  const Picture region = ReadPicture("./CrossMarkRegion.bmp");
  ASSERT_EQ(region.pixels.size(), static_cast<std::size_t>(kPatchArea));
  // The patch starts at (280, 270).
  EXPECT_EQ(region.pixels[PixelOffset(119, 129, kPatchSize)], kGround);
  EXPECT_EQ(region.pixels[PixelOffset(120, 129, kPatchSize)], 255);
  EXPECT_EQ(region.pixels[PixelOffset(119, 130, kPatchSize)], 255);
}

TEST_F(RefineCrossMarksTest, WithoutMaskThePointStays) {
  const GrayImage mask(kSize, kSize);
  ExpectAt(Refined(CrossImage(200, 150), mask, At(204.0f, 147.0f)), 204.0f, 147.0f);
  EXPECT_TRUE(ReadPicture("./Sauvola.bmp").pixels == Bytes(kPatchArea, 255));
  EXPECT_TRUE(ReadPicture("./Thining.bmp").pixels == Bytes(kPatchArea, 255));
  EXPECT_FALSE(std::filesystem::exists("Lines.bmp"));
}

TEST_F(RefineCrossMarksTest, AnyMaskValueButZeroCounts) {
  const GrayImage mask = UniformImage(kSize, kSize, 1);
  ExpectAt(Refined(CrossImage(200, 150), mask, At(204.0f, 147.0f)), 200.0f, 150.0f);
}

TEST_F(RefineCrossMarksTest, OneStrokeAloneKeepsThePoint) {
  GrayImage image = UniformImage(kSize, kSize, kGround);
  DrawRow(image, 150, 100, 300, 50);
  ExpectAt(Refined(image, FullMask(), At(204.0f, 147.0f)), 204.0f, 147.0f);
  EXPECT_TRUE(std::filesystem::exists("LineSegment.bmp"));
}

TEST_F(RefineCrossMarksTest, PicturesShowEachStage) {
  GrayImage image = CrossImage(200, 150);
  // Dots of every level around the threshold of the ground, which lies near 188.
  for (int level = 180; level < kGround; ++level) {
    PixelAt(image, 140 + 5 * (level - 180), 100) = static_cast<unsigned char>(level);
    PixelAt(image, 140 + 5 * (level - 180), 180) = static_cast<unsigned char>(level);
  }
  GrayImage mask = FullMask();
  DrawColumn(mask, 220, 0, kSize - 1, 0);
  Refined(image, mask, At(204.0f, 147.0f));

  GrayImage expected = CutPatch(image.Data(), kSize, kSize, 124, 67, kPatchSize);
  EXPECT_TRUE(ReadPicture("./CrossMarkRegion.bmp").pixels == BytesOf(expected));
  GrayImage binary(kPatchSize, kPatchSize);
  SauvolaBinarize(expected.Data(), binary.Data(), 0.06f);
  EXPECT_EQ(PixelAt(binary, 220 - 124, 150 - 67), 0);
  DrawColumn(binary, 220 - 124, 0, kPatchSize - 1, 255);
  EXPECT_TRUE(ReadPicture("./Sauvola.bmp").pixels == BytesOf(binary));
  ThinImage(binary.Data(), kPatchSize, kPatchSize);
  EXPECT_TRUE(ReadPicture("./Thining.bmp").pixels == BytesOf(binary));
  for (const char* name : {"./CrossMarkRegion.bmp", "./Sauvola.bmp", "./Thining.bmp", "./Lines.bmp",
                           "./LineSegment.bmp"}) {
    EXPECT_EQ(ReadPicture(name).width, kPatchSize) << name;
    EXPECT_EQ(ReadPicture(name).height, kPatchSize) << name;
    EXPECT_EQ(ReadPicture(name).pixels.size(), static_cast<std::size_t>(kPatchArea)) << name;
  }
}

TEST_F(RefineCrossMarksTest, MaskIsReadAtThePlaceOfThePatch) {
  // Only the lower half of the mask is set: the patch around (200, 150) starts at row 70.
  GrayImage mask(kSize, kSize);
  for (int y = 150; y < kSize; ++y) {
    DrawRow(mask, y, 0, kSize - 1, 255);
  }
  Refined(CrossImage(200, 150), mask, At(200.0f, 150.0f));
  const Bytes binary = ReadPicture("./Sauvola.bmp").pixels;
  ASSERT_EQ(binary.size(), static_cast<std::size_t>(kPatchArea));
  EXPECT_EQ(binary[PixelOffset(80, 40, kPatchSize)], 255);
  EXPECT_EQ(binary[PixelOffset(80, 120, kPatchSize)], 0);
  EXPECT_EQ(binary[PixelOffset(40, 80, kPatchSize)], 0);
}

TEST_F(RefineCrossMarksTest, EveryPointIsHandledAndThePicturesShowTheLast) {
  GrayImage image = CrossImage(100, 100);
  DrawCross(image, 300, 300);
  PointList points = {At(103.0f, 98.0f), At(299.0f, 305.0f)};
  EXPECT_TRUE(RefineCrossMarks(image.Data(), kSize, kSize, FullMask().Data(), points));
  ExpectAt(points[0], 100.0f, 100.0f);
  ExpectAt(points[1], 300.0f, 300.0f);
  EXPECT_TRUE(ReadPicture("./CrossMarkRegion.bmp").pixels ==
              BytesOf(CutPatch(image.Data(), kSize, kSize, 219, 225, kPatchSize)));
}

TEST_F(RefineCrossMarksTest, FailureToThinIsIgnored) {
  const FailNth failure(Fault::kLocalAlloc, 1);
  ExpectAt(Refined(CrossImage(200, 150), FullMask(), At(204.0f, 147.0f)), 200.0f, 150.0f);
  EXPECT_TRUE(failure.HasHappened());
  EXPECT_TRUE(ReadPicture("./Thining.bmp").pixels == ReadPicture("./Sauvola.bmp").pixels);
}

TEST_F(RefineCrossMarksTest, PicturesThatCannotBeWrittenAreSkipped) {
  const FailNth failure(Fault::kWrite, 1);
  ExpectAt(Refined(CrossImage(200, 150), FullMask(), At(204.0f, 147.0f)), 200.0f, 150.0f);
  EXPECT_TRUE(failure.HasHappened());
}

TEST_F(RefineCrossMarksTest, PointsFarOutsideStay) {
  const GrayImage image = CrossImage(200, 150);
  for (const float position : {1e30f, 5000.0f, 2147483648.0f}) {
    ExpectAt(Refined(image, FullMask(), At(position, position)), position, position);
  }
}

TEST_F(RefineCrossMarksTest, NotANumberIsLookedForAtTheOrigin) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  ExpectAt(Refined(CrossImage(60, 50), FullMask(), At(nan, nan)), 60.0f, 50.0f);
  ExpectAt(Refined(CrossImage(60, 50), FullMask(), At(-1e30f, -3.5f)), 60.0f, 50.0f);
}

}  // namespace
}  // namespace quorvex::tests
