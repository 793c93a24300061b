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

std::vector<DetectionJob> Jobs(const TemporaryFolder& folder) {
  return {{folder.Path("a.bmp"), {}}, {folder.Path("b.bmp"), {}}, {folder.Path("none.bmp"), {}}};
}

// The target takes longer than the dark picture, and still comes first.
TEST(PreciseImages, ReportsInTheOrderOfTheImagesWhateverTheThreads) {
  const TemporaryFolder folder;
  WritePictureFile(RenderSmallTarget().picture, folder.Path("a.bmp"));
  WritePictureFile(FlatPicture(64, 48, 20), folder.Path("b.bmp"));
  for (const int parallel : {1, 2, 8}) {
    std::vector<int> progress;
    std::vector<int> reported;
    std::vector<std::size_t> points;
    DetectImagesPrecisely(Jobs(folder), {}, std::nullopt, parallel,
                          {[&](int finished) { progress.push_back(finished); },
                           [&](const DetectionResult& result) {
                             reported.push_back(result.exitCode);
                             points.push_back(result.found.points.size());
                           }});
    EXPECT_THAT(progress, ElementsAre(1, 2, 3));
    EXPECT_THAT(reported, ElementsAre(kExitSuccess, kExitNothingFound, kExitBadInput));
    EXPECT_THAT(points, ElementsAre(19u, 0u, 0u));
  }
}

TEST(PreciseImages, ThrowsOnWhatTheObserverThrows) {
  const TemporaryFolder folder;
  WritePictureFile(FlatPicture(64, 48, 20), folder.Path("b.bmp"));
  for (const int parallel : {1, 3}) {
    EXPECT_THROW(
        DetectImagesPrecisely(Jobs(folder), {}, std::nullopt, parallel,
                              {[](int) {}, [](DetectionResult&) { throw InputError("full"); }}),
        InputError);
  }
}

}  // namespace
}  // namespace quorvex::tests
