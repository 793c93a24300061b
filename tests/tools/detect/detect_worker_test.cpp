#include "tools/detect/detect_worker.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/test_files.h"
#include "tools/pictures/picture_file.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

TEST(WorkerArguments, OfTheDefaults) {
  EXPECT_THAT(WorkerArguments("a.bmp", "/work", {}),
              ElementsAre("detect-worker", "--row-span", "20", "--column-span", "20", "--row-steps",
                          "300", "--", "a.bmp", "/work"));
}

TEST(WorkerArguments, CarryEveryParameter) {
  DetectParameters parameters;
  parameters.rowSpan = 3;
  parameters.columnSpan = 4;
  parameters.rowSteps = 150;
  parameters.pad = false;
  parameters.check = false;
  parameters.stageCharacters = 9000;
  parameters.renumber = GridSize{9, 7};
  parameters.rearrange = CameraSide::kRight;
  EXPECT_THAT(WorkerArguments("-a.bmp", "/work", parameters),
              ElementsAre("detect-worker", "--row-span", "3", "--column-span", "4", "--row-steps",
                          "150", "--no-pad", "--no-check", "--stage-characters", "9000",
                          "--renumber", "9x7", "--rearrange", "right", "--", "-a.bmp", "/work"));
}

// The detection makes the worker's directory the current one.
class DetectWorker : public testing::Test {
 protected:
  ~DetectWorker() override { std::filesystem::current_path(before); }

  TemporaryFolder folder;
  TemporaryFolder work;
  const std::filesystem::path before = std::filesystem::current_path();
};

TEST_F(DetectWorker, LeavesThePicturesInItsDirectory) {
  WritePictureFile(FlatPicture(64, 48, 20), folder.Path("dark.bmp"));
  const DetectionResult result = DetectInDirectory(folder.Path("dark.bmp"), work.Path(), {});
  EXPECT_EQ(result.exitCode, kExitNothingFound);
  EXPECT_EQ(result.found.width, 64);
  EXPECT_EQ(result.found.height, 48);
  EXPECT_TRUE(work.Has("ProImage.bmp"));
}

TEST_F(DetectWorker, HandsItsPicturesOverWhenAsked) {
  WritePictureFile(FlatPicture(64, 48, 20), folder.Path("dark.bmp"));
  DetectParameters parameters;
  EXPECT_TRUE(
      DetectInDirectory(folder.Path("dark.bmp"), work.Path(), parameters).stagePictures.empty());
  parameters.stageCharacters = 9000;
  const DetectionResult result =
      DetectInDirectory(folder.Path("dark.bmp"), work.Path(), parameters);
  ASSERT_FALSE(result.stagePictures.empty());
  EXPECT_EQ(result.stagePictures[0].name, "ProImage.bmp");
}

TEST_F(DetectWorker, TellsWhatIsWrongWithTheInput) {
  DetectionResult result = DetectInDirectory(folder.Path("none.bmp"), work.Path(), {});
  EXPECT_EQ(result.exitCode, kExitBadInput);
  EXPECT_THAT(result.message, HasSubstr("none.bmp"));
  WritePictureFile(FlatPicture(63, 48, 20), folder.Path("odd.bmp"));
  DetectParameters unpadded;
  unpadded.pad = false;
  result = DetectInDirectory(folder.Path("odd.bmp"), work.Path(), unpadded);
  EXPECT_EQ(result.exitCode, kExitBadInput);
  EXPECT_THAT(result.message, HasSubstr("multiples of 4"));
}

TEST_F(DetectWorker, SaysThatItsDirectoryIsGone) {
  WritePictureFile(FlatPicture(64, 48, 20), folder.Path("dark.bmp"));
  const DetectionResult result = DetectInDirectory(folder.Path("dark.bmp"), work.Path("none"), {});
  EXPECT_EQ(result.exitCode, kExitNothingFound);
  EXPECT_THAT(result.message, HasSubstr("dark.bmp: the detection failed"));
}

}  // namespace
}  // namespace quorvex::tests
