#include "crossmark/cross_center.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "crossmark/patch.h"
#include "tests/support/patches.h"
#include "tests/support/points.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

constexpr unsigned char kGround = 200;
constexpr unsigned char kDark = 50;

GrayImage WhitePatch() { return UniformImage(kPatchSize, kPatchSize, 255); }

GrayImage GreyPatch() { return UniformImage(kPatchSize, kPatchSize, kGround); }

// The strokes in row and column 80, interrupted around their crossing (short enough to stay one
// run), so that no pixel of one stroke disturbs the line fitted to the other.
GrayImage ThinnedCross() {
  GrayImage thinned = WhitePatch();
  DrawRow(thinned, 80, 15, 145, 0);
  DrawRow(thinned, 80, 76, 84, 255);
  DrawColumn(thinned, 80, 15, 75, 0);
  DrawColumn(thinned, 80, 85, 145, 0);
  return thinned;
}

// A stroke in the row and one in the column. Near their crossing they are paler, the crossing
// itself least so: the darkest pixel across a stroke never belongs to the other one.
GrayImage GreyCross(int column, int row) {
  GrayImage grey = GreyPatch();
  DrawRow(grey, row, 0, kPatchSize - 1, kDark);
  DrawColumn(grey, column, 0, kPatchSize - 1, kDark);
  DrawRow(grey, row, column - 20, column + 20, 100);
  DrawColumn(grey, column, row - 20, row + 20, 100);
  PixelAt(grey, column, row) = 90;
  return grey;
}

struct Centre {
  bool isFound = false;
  float x = 0.0f;
  float y = 0.0f;
};

class LocateCrossCenterTest : public ::testing::Test {
 protected:
  Centre Locate(const GrayImage& grey, const GrayImage& thinned) {
    Centre centre;
    centre.isFound = LocateCrossCenter(grey.Data(), thinned.Data(), centre.x, centre.y);
    return centre;
  }

  bool HasLinesPicture() { return std::filesystem::exists("Lines.bmp"); }
  bool HasSegmentsPicture() { return std::filesystem::exists("LineSegment.bmp"); }

  TemporaryDirectory directory_;
};

// Stroke pixels as the line pictures show them: white on black.
Bytes Inverted(const GrayImage& thinned) {
  Bytes bytes = BytesOf(thinned);
  for (unsigned char& byte : bytes) {
    byte = static_cast<unsigned char>(255 - byte);
  }
  return bytes;
}

TEST_F(LocateCrossCenterTest, CentreIsTheCrossingOfTheDarkestGreyPixels) {
  // The thinned strokes cross at (80, 80), the grey ones elsewhere.
  const Centre centre = Locate(GreyCross(77, 83), ThinnedCross());
  EXPECT_TRUE(centre.isFound);
  EXPECT_EQ(Bits(centre.x), Bits(77.0f));
  EXPECT_EQ(Bits(centre.y), Bits(83.0f));
}

TEST_F(LocateCrossCenterTest, BothStrokesAreRefinedAroundTheFirstCentre) {
  // The stations run from 30 to 129 for both. Around the crossing of the first refined stroke with
  // the other one, or of both, they would meet the blots.
  GrayImage grey = GreyCross(70, 90);
  DrawRow(grey, 85, 20, 29, 0);
  DrawColumn(grey, 75, 130, 139, 0);
  const Centre centre = Locate(grey, ThinnedCross());
  EXPECT_TRUE(centre.isFound);
  EXPECT_EQ(Bits(centre.x), Bits(70.0f));
  EXPECT_EQ(Bits(centre.y), Bits(90.0f));
}

TEST_F(LocateCrossCenterTest, EmptyPatchFailsWithoutPictures) {
  EXPECT_FALSE(Locate(GreyCross(80, 80), WhitePatch()).isFound);
  EXPECT_FALSE(HasLinesPicture());
  EXPECT_FALSE(HasSegmentsPicture());
}

TEST_F(LocateCrossCenterTest, OnlyBlackPixelsAreStrokes) {
  GrayImage thinned = ThinnedCross();
  for (std::size_t i = 0; i < thinned.Size(); ++i) {
    thinned.Data()[i] = thinned.Data()[i] == 0 ? 1 : 255;
  }
  EXPECT_FALSE(Locate(GreyCross(80, 80), thinned).isFound);
  EXPECT_FALSE(HasLinesPicture());
}

TEST_F(LocateCrossCenterTest, ShortRunsFailAfterTheFirstPicture) {
  GrayImage thinned = WhitePatch();
  DrawRow(thinned, 80, 10, 39, 0);
  DrawRow(thinned, 80, 60, 89, 0);
  EXPECT_FALSE(Locate(GreyCross(80, 80), thinned).isFound);
  EXPECT_EQ(ReadPicture("./Lines.bmp").pixels, Inverted(thinned));
  EXPECT_FALSE(HasSegmentsPicture());
}

TEST_F(LocateCrossCenterTest, SingleStrokeFailsAfterBothPictures) {
  GrayImage thinned = WhitePatch();
  DrawRow(thinned, 80, 15, 145, 0);
  EXPECT_FALSE(Locate(GreyCross(80, 80), thinned).isFound);
  EXPECT_TRUE(HasLinesPicture());
  EXPECT_TRUE(HasSegmentsPicture());
}

TEST_F(LocateCrossCenterTest, StrokesOfOneDirectionFail) {
  GrayImage thinned = WhitePatch();
  DrawRow(thinned, 20, 15, 145, 0);
  DrawRow(thinned, 120, 15, 145, 0);
  EXPECT_FALSE(Locate(GreyCross(80, 80), thinned).isFound);
}

TEST_F(LocateCrossCenterTest, PicturesShowThePointsOfLinesAndOfSegments) {
  GrayImage thinned = ThinnedCross();
  const Bytes segments = Inverted(thinned);
  // A run of its own on the row's line, too short for a segment.
  DrawRow(thinned, 80, 2, 4, 0);
  EXPECT_TRUE(Locate(GreyCross(80, 80), thinned).isFound);
  for (const char* name : {"./Lines.bmp", "./LineSegment.bmp"}) {
    EXPECT_EQ(ReadPicture(name).width, kPatchSize);
    EXPECT_EQ(ReadPicture(name).height, kPatchSize);
  }
  EXPECT_TRUE(ReadPicture("./Lines.bmp").pixels == Inverted(thinned));
  EXPECT_TRUE(ReadPicture("./LineSegment.bmp").pixels == segments);
}

TEST_F(LocateCrossCenterTest, CentreMayLieOutsideThePatch) {
  // A row and a falling stroke that would meet it left of the patch, around (-5, 80).
  GrayImage thinned = WhitePatch();
  GrayImage grey = GreyPatch();
  DrawRow(thinned, 80, 20, 75, 0);
  DrawRow(grey, 80, 0, 75, kDark);
  for (int n = 15; n <= 60; ++n) {
    PixelAt(thinned, n, 85 + n) = 0;
    PixelAt(grey, n, 85 + n) = 60;
  }
  const Centre centre = Locate(grey, thinned);
  EXPECT_TRUE(centre.isFound);
  EXPECT_LT(centre.x, 0.0f);
}

TEST_F(LocateCrossCenterTest, RefinedLinesThatAreParallelFail) {
  // Two strokes that would meet at the left border, 32 degrees apart and steep. The darkest pixels
  // of both profiles stand so near to column 2 that both lines come out vertical.
  GrayImage thinned = WhitePatch();
  for (int n = 10; n <= 70; ++n) {
    const int x = (n * 285 + 500) / 1000;
    PixelAt(thinned, x, 80 - n) = 0;
    PixelAt(thinned, x, 80 + n) = 0;
  }
  GrayImage grey = GreyPatch();
  for (int x = 0; x <= 10; ++x) {
    DrawColumn(grey, x, 0, kPatchSize - 1, static_cast<unsigned char>(100 + 10 * std::abs(x - 2)));
  }
  EXPECT_FALSE(Locate(grey, thinned).isFound);
  EXPECT_TRUE(Locate(GreyPatch(), thinned).isFound);  // not for want of strokes
}

}  // namespace
}  // namespace quorvex::tests
