#include "imageio/diagnostic_picture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <vector>

#include "imageio/bmp_file.h"
#include "tests/support/bytes.h"
#include "tests/support/faults.h"
#include "tests/support/message_box.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

namespace fs = std::filesystem;

constexpr char kName[] = "./Mask.bmp";
constexpr unsigned char kPixels[8] = {1, 2, 3, 4, 5, 6, 7, 8};

class DiagnosticPictureTest : public ::testing::Test {
  TemporaryDirectory directory_;
};

TEST_F(DiagnosticPictureTest, IsAnEightBitBitmapInTheCurrentDirectory) {
  SaveDiagnosticPicture(kPixels, 4, 2, kName);
  const Bytes picture = ReadBytes(kName);
  ASSERT_TRUE(Save_Image(kPixels, 4, 2, 8, "same.bmp"));
  EXPECT_EQ(picture.size(), 1078u + 8u);
  EXPECT_EQ(picture, ReadBytes("same.bmp"));
}

TEST_F(DiagnosticPictureTest, ReplacesThePictureOfTheDetectionBefore) {
  SaveDiagnosticPicture(kPixels, 4, 2, kName);
  SaveDiagnosticPicture(kPixels, 4, 1, kName);
  EXPECT_EQ(ReadBytes(kName).size(), 1078u + 4u);
}

TEST_F(DiagnosticPictureTest, FailingWriteIsIgnored) {
  for (const int nthWrite : {1, 2}) {
    const FailNth fault(Fault::kWrite, nthWrite);
    EXPECT_NO_THROW(SaveDiagnosticPicture(kPixels, 4, 2, kName));
    EXPECT_TRUE(fault.HasHappened());
  }
  EXPECT_TRUE(TakeMessages().empty());
}

TEST_F(DiagnosticPictureTest, FileThatCannotBeCreatedIsIgnored) {
  fs::create_directory(kName);
  EXPECT_NO_THROW(SaveDiagnosticPicture(kPixels, 4, 2, kName));
  EXPECT_TRUE(TakeMessages().empty());
}

TEST_F(DiagnosticPictureTest, TakesNoBlockOfMemory) {
  const FailNth fault(Fault::kGlobalAlloc, 1);
  SaveDiagnosticPicture(kPixels, 4, 2, kName);
  EXPECT_FALSE(fault.HasHappened());
  EXPECT_EQ(ReadBytes(kName).size(), 1078u + 8u);
}

TEST_F(DiagnosticPictureTest, AFailedWriteLeavesNothingOfAnEarlierPicture) {
  SaveDiagnosticPicture(kPixels, 4, 2, kName);
  const FailNth fault(Fault::kWrite, 2);
  SaveDiagnosticPicture(kPixels, 4, 2, kName);
  EXPECT_TRUE(ReadBytes(kName).empty());
}

TEST_F(DiagnosticPictureTest, RowsThatAreNotGivenAreBlackOverAnyEarlierPicture) {
  const std::vector<unsigned char> white(64 * 50, 255);
  SaveDiagnosticPicture(white.data(), 64, 50, kName);
  for (const int height : {2, 3, 40, 200}) {
    SaveTopOfDiagnosticPicture(kPixels, 2, 4, height, kName);
    Bytes expected(static_cast<std::size_t>(4 * height));
    std::copy(kPixels, kPixels + 8, expected.begin());
    ASSERT_TRUE(Save_Image(expected.data(), 4, height, 8, "same.bmp"));
    EXPECT_EQ(ReadBytes(kName), ReadBytes("same.bmp")) << height;
  }
}

TEST_F(DiagnosticPictureTest, RowsOfAnyWidthAreStoredAsSaveImageDoes) {
  for (const int width : {1, 2, 3, 5, 6, 7}) {
    const std::vector<unsigned char> pixels(static_cast<std::size_t>(width) * 5, 200);
    SaveDiagnosticPicture(pixels.data(), width, 5, kName);
    ASSERT_TRUE(Save_Image(pixels.data(), width, 5, 8, "same.bmp"));
    EXPECT_EQ(ReadBytes(kName), ReadBytes("same.bmp")) << width;
  }
}

}  // namespace
}  // namespace quorvex::tests
