// The detection of several images at once, through the command, since the workers are its own.
#include "tools/detect/detect_images.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/command_test.h"
#include "tools/pictures/picture_file.h"

namespace quorvex::tests {

using namespace tools;

namespace {

class DetectImagesTogether : public CommandTest {
 protected:
  DetectImagesTogether() {
    WritePictureFile(FlatPicture(64, 48, 20), folder.Path("dark.bmp"));
    WritePictureFile(FlatPicture(63, 46, 20), folder.Path("odd.bmp"));
  }
};

TEST_F(DetectImagesTogether, GoesOnWithOtherImagesAndExitsWithTheWorstCode) {
  EXPECT_EQ(Run("detect dark.bmp dark.bmp -j 2"), 1);
  EXPECT_EQ(Run("detect dark.bmp none.bmp odd.bmp -j 2"), 2);
  // In the order of the command line, whichever was done first.
  const std::size_t dark = errors.find("dark.bmp");
  const std::size_t none = errors.find("none.bmp");
  const std::size_t odd = errors.find("odd.bmp");
  ASSERT_NE(odd, std::string::npos);
  EXPECT_LT(dark, none);
  EXPECT_LT(none, odd);
  EXPECT_TRUE(LeftNothingTemporary());
}

}  // namespace
}  // namespace quorvex::tests
