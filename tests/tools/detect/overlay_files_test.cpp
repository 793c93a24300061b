#include "tools/detect/overlay_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/test_files.h"
#include "tools/errors.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::ElementsAre;
using Paths = std::vector<std::filesystem::path>;

const Paths kTwoImages{"x/left.bmp", "right.png"};

TEST(OverlayFiles, OneImageTakesTheFileItself) {
  EXPECT_THAT(OverlayFiles("seen.png", {"left.bmp"}), ElementsAre("seen.png"));
  EXPECT_THAT(OverlayFiles("seen.PNG", {"left.bmp"}), ElementsAre("seen.PNG"));
}

TEST(OverlayFiles, OneFileDoesNotServeTwoImages) {
  EXPECT_THROW(OverlayFiles("seen.png", kTwoImages), InputError);
}

TEST(OverlayFiles, AFolderHoldsOneFilePerImage) {
  EXPECT_EQ(OverlayFiles("out/", kTwoImages), Paths({"out/left.png", "out/right.png"}));
  EXPECT_EQ(OverlayFiles("out/", {"left.bmp"}), Paths({"out/left.png"}));
  const TemporaryFolder folder;
  EXPECT_EQ(OverlayFiles(folder.Path(), {"a.bmp"}), Paths({folder.Path("a.png")}));
}

TEST(OverlayFiles, APatternTakesTheNames) {
  EXPECT_EQ(OverlayFiles("o/{name}-seen.png", kTwoImages),
            Paths({"o/left-seen.png", "o/right-seen.png"}));
  EXPECT_EQ(OverlayFiles("{name}/{name}.PNG", {"{name}.bmp", "a.bmp", "b/a.bmp"}),
            Paths({"{name}/{name}.PNG", "a/a.PNG", "a-2/a-2.PNG"}));
}

TEST(OverlayFiles, RefusesOtherEndings) {
  for (const char* target : {"seen.jpg", "seen", "{name}", "{name}.bmp"}) {
    EXPECT_THROW(OverlayFiles(target, {"left.bmp"}), InputError) << target;
  }
}

TEST(PrepareOverlayFiles, MakesFolders) {
  const TemporaryFolder folder;
  PrepareOverlayFiles(folder.Path("new/deep/"), {folder.Path("new/deep/a.png")});
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path("new/deep")));
  PrepareOverlayFiles(folder.Path("{name}/a.png"), {folder.Path("b/a.png")});
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path("b")));
  folder.File("file", "text");
  EXPECT_THROW(PrepareOverlayFiles(folder.Path("file/"), {folder.Path("file/a.png")}), InputError);
}

TEST(PrepareOverlayFiles, MakesNoFolderForOneFile) {
  const TemporaryFolder folder;
  const std::string file = folder.Path("mistyped/a.png");
  EXPECT_THROW(PrepareOverlayFiles(file, {file}), InputError);
  EXPECT_EQ(folder.FileCount(), 0u);
}

}  // namespace
}  // namespace quorvex::tests
