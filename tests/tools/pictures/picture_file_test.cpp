#include "tools/pictures/picture_file.h"

#include <gtest/gtest.h>

#include "tests/support/grey_pictures.h"
#include "tests/support/temporary_folder.h"
#include "tools/errors.h"

namespace quorvex::tests {

using namespace tools;

namespace {

Picture Ramp(int width, int height) {
  Picture picture;
  picture.width = width;
  picture.height = height;
  for (int i = 0; i < width * height; ++i) {
    picture.pixels.push_back(static_cast<std::uint8_t>(i * 7));
  }
  return picture;
}

class PictureRoundTrip : public testing::TestWithParam<const char*> {};

TEST_P(PictureRoundTrip, KeepsEveryPixelAtEveryRowPadding) {
  const TemporaryFolder folder;
  for (int width = 1; width <= 5; ++width) {
    const Picture picture = Ramp(width, 3);
    WritePictureFile(picture, folder.Path(GetParam()));
    const Picture read = ReadPictureFile(folder.Path(GetParam()));
    EXPECT_EQ(read.width, width);
    EXPECT_EQ(read.height, 3);
    EXPECT_EQ(read.pixels, picture.pixels);
  }
  EXPECT_EQ(folder.FileCount(), 1u);
}

INSTANTIATE_TEST_SUITE_P(Endings, PictureRoundTrip, testing::Values("a.bmp", "a.png", "a.BMP"));

TEST(WriteColorPng, KeepsTheOrderOfTheColours) {
  const TemporaryFolder folder;
  WriteColorPng({2, 1, {230, 20, 10, 40, 30, 200}}, folder.Path("color.png"));
  EXPECT_EQ(ReadPictureFile(folder.Path("color.png")).pixels,
            LibraryGrey({10, 20, 230, 200, 30, 40}));
}

TEST(WritePicture, ReplacesAnExistingFile) {
  const TemporaryFolder folder;
  WriteBytes(folder.Path("a.bmp"), Bytes(5000, 1));
  WritePictureFile(Ramp(4, 4), folder.Path("a.bmp"));
  EXPECT_EQ(ReadBytes(folder.Path("a.bmp")).size(), 14u + 40 + 256 * 4 + 4 * 4);
}

void ExpectWriteFailure(const std::string& path, const std::string& fragment) {
  try {
    WritePictureFile(Ramp(4, 4), path);
    ADD_FAILURE() << "wrote " << path;
  } catch (const InputError& error) {
    EXPECT_NE(std::string(error.what()).find(path), std::string::npos) << error.what();
    EXPECT_NE(std::string(error.what()).find(fragment), std::string::npos) << error.what();
  }
}

TEST(WritePicture, FailuresNameTheFileAndLeaveNothingBehind) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder.Path("folder.bmp"));
  ExpectWriteFailure(folder.Path("a.gif"), "must end in .bmp or .png");
  ExpectWriteFailure(folder.Path("bmp"), "must end in .bmp or .png");
  ExpectWriteFailure(folder.Path("absent/a.bmp"), "No such file or directory");
  ExpectWriteFailure(folder.Path("folder.bmp"), "it is a directory");
  EXPECT_EQ(folder.FileCount(), 1u);
}

}  // namespace
}  // namespace quorvex::tests
