#include "tools/detect/image_names.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::ElementsAre;

TEST(NamesOfImages, AreThoseOfTheFilesWithoutFolderAndEnding) {
  EXPECT_THAT(NamesOfImages({"x/left.bmp", "right.v2.png"}), ElementsAre("left", "right.v2"));
}

TEST(NamesOfImages, AllDiffer) {
  EXPECT_THAT(NamesOfImages({"x/a.bmp", "b.png", "y/a.bmp", "a-2.bmp", "a.png"}),
              ElementsAre("a", "b", "a-2", "a-2-2", "a-3"));
}

}  // namespace
}  // namespace quorvex::tests
