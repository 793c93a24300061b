#include "crossmark/thinning.h"

#include <gtest/gtest.h>

#include <random>

#include "crossmark/patch.h"
#include "tests/support/faults.h"
#include "tests/support/patches.h"
#include "tests/support/text_image.h"

namespace quorvex::tests {
namespace {

using Rows = std::vector<std::string>;

constexpr int kPlace = 50;  // where drawings are put into the patch, both ways

GrayImage WhitePatch() { return UniformImage(kPatchSize, kPatchSize, 255); }

// The drawing after thinning; everything around it must be white. North, the next row in memory,
// is the next line of the text.
Rows Thinned(const Rows& drawing) {
  GrayImage small = ImageOf(drawing);
  GrayImage patch = WhitePatch();
  for (int y = 0; y < small.Height(); ++y) {
    for (int x = 0; x < small.Width(); ++x) {
      PixelAt(patch, kPlace + x, kPlace + y) = PixelAt(small, x, y);
    }
  }
  EXPECT_TRUE(ThinImage(patch.Data(), kPatchSize, kPatchSize));
  for (int y = 0; y < small.Height(); ++y) {
    for (int x = 0; x < small.Width(); ++x) {
      PixelAt(small, x, y) = PixelAt(patch, kPlace + x, kPlace + y);
      PixelAt(patch, kPlace + x, kPlace + y) = 255;
    }
  }
  EXPECT_TRUE(BytesOf(patch) == BytesOf(WhitePatch()));
  return TextOf(small);
}

// Whether a patch with that one black pixel is white after thinning.
bool Vanishes(int x, int y) {
  GrayImage patch = WhitePatch();
  PixelAt(patch, x, y) = 0;
  EXPECT_TRUE(ThinImage(patch.Data(), kPatchSize, kPatchSize));
  return PixelAt(patch, x, y) == 255;
}

// The conditions one by one, with pixels addressed by column and row.
class PlainThinning {
 public:
  explicit PlainThinning(const GrayImage& patch) : now_(BytesOf(patch)) {}

  Bytes Run() {
    bool hasChanged = true;
    while (hasChanged) {
      hasChanged = false;
      Bytes next(now_.size(), 255);
      for (int j = 2; j <= 157; ++j) {
        for (int i = 2; i <= 157; ++i) {
          if (Black(i, j) && IsDeletable(i, j)) {
            hasChanged = true;
          } else if (Black(i, j)) {
            next[static_cast<std::size_t>(160 * j + i)] = 0;
          }
        }
      }
      now_ = next;
    }
    return now_;
  }

 private:
  bool Black(int i, int j) const { return now_[static_cast<std::size_t>(160 * j + i)] == 0; }

  int Crossings(int i, int j) const {
    const bool ring[9] = {Black(i, j + 1),     Black(i - 1, j + 1), Black(i - 1, j),
                          Black(i - 1, j - 1), Black(i, j - 1),     Black(i + 1, j - 1),
                          Black(i + 1, j),     Black(i + 1, j + 1), Black(i, j + 1)};
    int crossings = 0;
    for (int n = 0; n < 8; ++n) {
      crossings += !ring[n] && ring[n + 1];
    }
    return crossings;
  }

  bool IsDeletable(int i, int j) const {
    int neighbours = -1;  // the pixel itself is black
    for (int y = j - 1; y <= j + 1; ++y) {
      for (int x = i - 1; x <= i + 1; ++x) {
        neighbours += Black(x, y);
      }
    }
    const bool north = Black(i, j + 1);
    const bool west = Black(i - 1, j);
    return 2 <= neighbours && neighbours <= 6 && Crossings(i, j) == 1 &&
           (!(north && west && Black(i + 1, j)) || Crossings(i, j + 1) != 1) &&
           (!(north && west && Black(i, j - 1)) || Crossings(i - 1, j) != 1);
  }

  Bytes now_;
};

TEST(ThinImage, SinglePixelSurvives) {
  EXPECT_EQ(Thinned({"...", ".#.", "..."}), (Rows{"...", ".#.", "..."}));
}

TEST(ThinImage, TwoByTwoBlockVanishes) { EXPECT_EQ(Thinned({"##", "##"}), (Rows{"..", ".."})); }

TEST(ThinImage, LineOnePixelWideStays) {
  // An end has one black neighbour, an inner pixel is crossed twice.
  EXPECT_EQ(Thinned({"####"}), (Rows{"####"}));
  EXPECT_EQ(Thinned({"#..", ".#.", "..#"}), (Rows{"#..", ".#.", "..#"}));
}

TEST(ThinImage, BarTwoPixelsWideKeepsTheSideAwayFromNorthAndWest) {
  EXPECT_EQ(Thinned({"######",  //
                     "######"}),
            (Rows{".####.",  //
                  "......"}));
  EXPECT_EQ(Thinned({"##", "##", "##", "##", "##", "##"}),
            (Rows{"..", ".#", ".#", ".#", ".#", ".."}));
}

TEST(ThinImage, ThreeByThreeBlockShrinksToItsCentre) {
  // The centre has eight black neighbours in the one pass in which all others go.
  EXPECT_EQ(Thinned({"###", "###", "###"}), (Rows{"...", ".#.", "..."}));
}

TEST(ThinImage, OnlyZeroIsBlack) {
  // Grey levels around a black pixel are no neighbours, and come out white.
  EXPECT_EQ(Thinned({"oo-", "o#o", "-oo"}), (Rows{"...", ".#.", "..."}));
  GrayImage patch = UniformImage(kPatchSize, kPatchSize, 1);
  EXPECT_TRUE(ThinImage(patch.Data(), kPatchSize, kPatchSize));
  EXPECT_TRUE(BytesOf(patch) == BytesOf(WhitePatch()));
}

TEST(ThinImage, WhitePatchStaysWhite) {
  GrayImage patch = WhitePatch();
  EXPECT_TRUE(ThinImage(patch.Data(), kPatchSize, kPatchSize));
  EXPECT_TRUE(BytesOf(patch) == BytesOf(WhitePatch()));
}

TEST(ThinImage, BorderTwoPixelsWideTurnsWhite) {
  for (const int outer : {0, 1, 158, 159}) {
    EXPECT_TRUE(Vanishes(outer, 80)) << outer;
    EXPECT_TRUE(Vanishes(80, outer)) << outer;
  }
  for (const int inner : {2, 157}) {
    EXPECT_FALSE(Vanishes(inner, 80)) << inner;
    EXPECT_FALSE(Vanishes(80, inner)) << inner;
  }
}

TEST(ThinImage, BorderStillCountsInTheFirstPass) {
  // The pixel at column 2 is deleted for its two neighbours in the border. Alone it would stay.
  GrayImage patch = WhitePatch();
  PixelAt(patch, 2, 80) = 0;
  PixelAt(patch, 1, 80) = 0;
  PixelAt(patch, 1, 81) = 0;
  EXPECT_TRUE(ThinImage(patch.Data(), kPatchSize, kPatchSize));
  EXPECT_TRUE(BytesOf(patch) == BytesOf(WhitePatch()));
}

TEST(ThinImage, SizesAreNotRead) {
  GrayImage patch = WhitePatch();
  DrawRow(patch, 157, 100, 150, 0);
  DrawRow(patch, 156, 100, 150, 0);
  GrayImage same = patch;
  EXPECT_TRUE(ThinImage(patch.Data(), kPatchSize, kPatchSize));
  EXPECT_TRUE(ThinImage(same.Data(), -1, 0));
  EXPECT_TRUE(BytesOf(patch) == BytesOf(same));
}

TEST(ThinImage, WithoutMemoryFailsAndLeavesThePatch) {
  GrayImage patch(kPatchSize, kPatchSize);
  const FailNth failure(Fault::kLocalAlloc, 1);
  EXPECT_FALSE(ThinImage(patch.Data(), kPatchSize, kPatchSize));
  EXPECT_TRUE(failure.HasHappened());
  EXPECT_TRUE(BytesOf(patch) == Bytes(kPatchArea, 0));
}

TEST(ThinImage, TakesOneBufferHoweverManyPassesItNeeds) {
  GrayImage patch(kPatchSize, kPatchSize);
  const FailNth failure(Fault::kLocalAlloc, 2);
  EXPECT_TRUE(ThinImage(patch.Data(), kPatchSize, kPatchSize));
  EXPECT_FALSE(failure.HasHappened());
}

TEST(ThinImage, EqualsThePlainConditions) {
  // From all black over dense and sparse noise to strokes: equal shares of the listed levels.
  const Bytes levelSets[] = {{0}, {0, 0, 0, 0, 0, 255}, {0, 255}, {0, 1, 254, 255, 0}};
  for (unsigned seed = 0; seed < 24; ++seed) {
    std::mt19937 random(seed);
    GrayImage patch = RandomImage(kPatchSize, kPatchSize, levelSets[seed % 4], random);
    if (seed >= 12) {  // strokes up to six pixels wide, and some reach into the border
      patch = WhitePatch();
      for (int stroke = 0; stroke < 12; ++stroke) {
        const int place = static_cast<int>(random() % 154);
        const int width = static_cast<int>(random() % 6);
        for (int n = place; n <= place + width; ++n) {
          stroke % 2 == 0 ? DrawRow(patch, n, place / 2, 159 - place / 3, 0)
                          : DrawColumn(patch, n, place / 3, 159 - place / 2, 0);
        }
      }
    }
    const Bytes expected = PlainThinning(patch).Run();
    EXPECT_TRUE(ThinImage(patch.Data(), kPatchSize, kPatchSize));
    EXPECT_TRUE(BytesOf(patch) == expected) << "seed " << seed;
  }
}

}  // namespace
}  // namespace quorvex::tests
