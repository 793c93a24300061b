#include "tools/system/file_name.h"

#include <gtest/gtest.h>

#include "tests/support/test_files.h"

namespace quorvex::tests {

using namespace tools;

namespace {

TEST(FileName, Utf8SurvivesTheWayToAPathAndBack) {
  for (const char* text : {"", "plain.bmp", "a b/c", "bild-\xC3\xA4.bmp",
                           "\xE6\x97\xA5\xE6\x9C\xAC", "\xF0\x9F\x93\xB7.png"}) {
    EXPECT_EQ(Utf8Name(PathFromUtf8(text)), text);
  }
}

TEST(FileName, EndingsComeInSmallLetters) {
  EXPECT_EQ(SmallEnding("Seen.PNG"), ".png");
  EXPECT_EQ(SmallEnding("folder.BMP/points.cSv"), ".csv");
  EXPECT_EQ(SmallEnding("points.csv.AZ@[`{"), ".az@[`{");
  EXPECT_EQ(SmallEnding(PathFromUtf8("x.\xC3\x84")), ".\xC3\x84");
  EXPECT_EQ(SmallEnding("none"), "");
}

TEST(FileName, IsTheNameThatTheSystemSees) {
  const TemporaryFolder folder;
  folder.File("\xC3\xA4.txt", "text");
  const std::filesystem::path parent = folder.Path();
  EXPECT_TRUE(std::filesystem::exists(parent / PathFromUtf8("\xC3\xA4.txt")));
}

}  // namespace
}  // namespace quorvex::tests
