#include "tools/detect/precise_images.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/support/small_target.h"
#include "tests/support/test_files.h"
#include "tools/pictures/picture_file.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::ElementsAre;

// The target takes longer than the dark picture, and still comes first.
TEST(PreciseImages, ReportsInTheOrderOfTheImagesWhateverTheThreads) {
  const TemporaryFolder folder;
  WritePictureFile(RenderSmallTarget().picture, folder.Path("a.bmp"));
  WritePictureFile(FlatPicture(64, 48, 20), folder.Path("b.bmp"));
  for (const int parallel : {1, 2, 8}) {
    std::vector<int> progress;
    std::vector<int> reported;
    const std::vector<DetectionResult> results = DetectImagesPrecisely(
        {folder.Path("a.bmp"), folder.Path("b.bmp"), folder.Path("none.bmp")}, {}, parallel,
        {[&](int finished) { progress.push_back(finished); },
         [&](const DetectionResult& result) { reported.push_back(result.exitCode); }});
    EXPECT_THAT(progress, ElementsAre(1, 2, 3));
    EXPECT_THAT(reported, ElementsAre(kExitSuccess, kExitNothingFound, kExitBadInput));
    ASSERT_EQ(results.size(), 3u);
    EXPECT_EQ(results[0].found.points.size(), 19u);
  }
}

}  // namespace
}  // namespace quorvex::tests
