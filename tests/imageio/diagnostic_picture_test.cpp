#include "imageio/diagnostic_picture.h"

#include <gtest/gtest.h>

#include <filesystem>

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

TEST_F(DiagnosticPictureTest, MissingMemoryIsIgnored) {
  const FailNth fault(Fault::kGlobalAlloc, 1);
  EXPECT_NO_THROW(SaveDiagnosticPicture(kPixels, 4, 2, kName));
  EXPECT_TRUE(fault.HasHappened());
  EXPECT_FALSE(fs::exists(kName));
}

}  // namespace
}  // namespace quorvex::tests
