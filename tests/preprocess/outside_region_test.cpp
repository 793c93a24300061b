#include "preprocess/outside_region.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/text_image.h"

namespace quorvex::tests {
namespace {

using Rows = std::vector<std::string>;

Rows Marked(const Rows& rows) {
  GrayImage image = ImageOf(rows);
  EXPECT_TRUE(MarkOutsideRegion(image.Data(), image.Width(), image.Height()));
  return TextOf(image);
}

TEST(OutsideRegion, IsPaintedUpToTheOutline) {
  EXPECT_EQ(Marked({"########",  //
                    "#oooo###",  //
                    "#o##o###",  //
                    "#o##o###",  //
                    "#oooo###",  //
                    "########"}),
            (Rows{"--------",  //
                  "-oooo---",  //
                  "-o##o---",  //
                  "-o##o---",  //
                  "-oooo---",  //
                  "--------"}));
}

TEST(OutsideRegion, OutlineAtTheBorderStopsAtOnce) {
  const Rows closed = {"oooo",  //
                       "o##o",  //
                       "o##o",  //
                       "oooo"};
  EXPECT_EQ(Marked(closed), closed);
}

TEST(OutsideRegion, LinesWithoutOutlineArePaintedThroughout) {
  EXPECT_EQ(Marked(Rows(4, "####")), Rows(4, "----"));
}

TEST(OutsideRegion, OutlineThatIsOnePointStaysAlone) {
  EXPECT_EQ(Marked({"####",  //
                    "##o#",  //
                    "####"}),
            (Rows{"----",  //
                  "--o-",  //
                  "----"}));
}

TEST(OutsideRegion, PocketThatNoStraightWalkReachesStays) {
  // The gap in the first row opens the outline; only its own column is walked through it.
  EXPECT_EQ(Marked({"ooo#ooo",  //
                    "o#####o",  //
                    "o#####o",  //
                    "ooooooo"}),
            (Rows{"ooo-ooo",  //
                  "o##-##o",  //
                  "o##-##o",  //
                  "ooooooo"}));
}

TEST(OutsideRegion, WalksFromBothEndsOfRowsAndColumns) {
  // Each of the four gaps lets one walk in.
  EXPECT_EQ(Marked({"oo#oooo",  //
                    "###o##o",  //
                    "o##o##o",  //
                    "ooooooo",  //
                    "o##o##o",  //
                    "o##o###",  //
                    "oooo#oo"}),
            (Rows{"oo-oooo",  //
                  "---o##o",  //
                  "o#-o##o",  //
                  "ooooooo",  //
                  "o##o-#o",  //
                  "o##o---",  //
                  "oooo-oo"}));
}

TEST(OutsideRegion, OnlyTheOutlineLevelStopsAWalk) {
  EXPECT_EQ(Marked({".#-.",  //
                    "----",  //
                    "...."}),
            Rows(3, "----"));
  GrayImage image(4, 1);
  image.Fill(127);
  EXPECT_TRUE(MarkOutsideRegion(image.Data(), 4, 1));
  EXPECT_EQ(TextOf(image), Rows{"----"});
}

TEST(OutsideRegion, ImageWithoutPixelsIsNoWork) {
  unsigned char pixel = 7;
  EXPECT_TRUE(MarkOutsideRegion(&pixel, 0, 4));
  EXPECT_TRUE(MarkOutsideRegion(&pixel, 4, 0));
  EXPECT_EQ(pixel, 7);
}

}  // namespace
}  // namespace quorvex::tests
