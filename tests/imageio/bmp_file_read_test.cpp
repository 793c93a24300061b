#include <gtest/gtest.h>

#include <filesystem>
#include <numeric>

#include "platform/mfc.h"
#include "tests/support/bytes.h"
#include "tests/support/faults.h"
#include "tests/support/read_result.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

namespace fs = std::filesystem;

constexpr char kName[] = "image.bmp";

class ReadImageTest : public ::testing::Test {
  TemporaryDirectory directory_;
};

ReadResult ReadStored(const Bytes& bytes) {
  WriteBytes(kName, bytes);
  return Read(kName);
}

Bytes PixelsOf(const ReadResult& result, std::size_t count) {
  return result.isRead ? Bytes(result.pixels, result.pixels + count) : Bytes();
}

// Pixels 1 to 32 of an 8 x 4 image of 8 bits, saved.
Bytes SavedFile() {
  Bytes pixels(32);
  std::iota(pixels.begin(), pixels.end(), static_cast<unsigned char>(1));
  Save_Image(pixels.data(), 8, 4, 8, kName);
  return ReadBytes(kName);
}

void ExpectRefused(const char* path) {
  const ReadResult result = Read(path);
  EXPECT_FALSE(result.isRead);
  EXPECT_TRUE(result.IsUntouched());
}

TEST_F(ReadImageTest, SavedFileComesBack) {
  SavedFile();
  const ReadResult result = Read(kName);
  ASSERT_TRUE(result.isRead);
  EXPECT_EQ(result.width, 8);
  EXPECT_EQ(result.height, 4);
  EXPECT_EQ(result.bitsPerPixel, 8);
  Bytes expected(32);
  std::iota(expected.begin(), expected.end(), static_cast<unsigned char>(1));
  EXPECT_EQ(PixelsOf(result, 32), expected);
}

TEST_F(ReadImageTest, SavedColourFileComesBack) {
  const Bytes pixels = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
  for (const int bits : {24, 32}) {
    ASSERT_TRUE(Save_Image(pixels.data(), 2, 2, bits, kName));
    const ReadResult result = Read(kName);
    ASSERT_TRUE(result.isRead);
    EXPECT_EQ(result.width, 2);
    EXPECT_EQ(result.height, 2);
    EXPECT_EQ(result.bitsPerPixel, bits);
    EXPECT_EQ(PixelsOf(result, 12), Slice(pixels, 0, 12));
  }
}

TEST_F(ReadImageTest, FileIsReleasedAfterwards) {
  SavedFile();
  ASSERT_TRUE(Read(kName).isRead);
  CFile file;
  EXPECT_TRUE(file.Open(CA2T(kName), CFile::modeReadWrite));
}

TEST_F(ReadImageTest, FileIsLeftAsItWas) {
  const Bytes file = SavedFile();
  ASSERT_TRUE(Read(kName).isRead);
  EXPECT_EQ(ReadBytes(kName), file);
}

TEST_F(ReadImageTest, EveryCallHandsOutABlockOfItsOwn) {
  SavedFile();
  const ReadResult first = Read(kName);
  const ReadResult second = Read(kName);
  ASSERT_TRUE(first.isRead && second.isRead);
  second.pixels[0] = 99;
  EXPECT_EQ(first.pixels[0], 1);
}

TEST_F(ReadImageTest, ReadOnlyFileIsRefused) {
  SavedFile();
  fs::permissions(kName, fs::perms::owner_read);
  ExpectRefused(kName);
}

TEST_F(ReadImageTest, FileInUseIsRefused) {
  SavedFile();
  CFile file;
  ASSERT_TRUE(file.Open(CA2T(kName), CFile::modeReadWrite));
  ExpectRefused(kName);
}

TEST_F(ReadImageTest, MissingFileFolderAndNullPathAreRefused) {
  fs::create_directory("folder");
  ExpectRefused("missing.bmp");
  ExpectRefused("missing/image.bmp");
  ExpectRefused("folder");
  ExpectRefused(nullptr);
}

TEST_F(ReadImageTest, FileOfTwoBytesIsRefusedWithoutAllocating) {
  WriteBytes(kName, {'B', 'M'});
  const FailNth fault(Fault::kGlobalAlloc, 1);
  ExpectRefused(kName);
  EXPECT_FALSE(fault.HasHappened());
}

TEST_F(ReadImageTest, OtherFirstBytesAreRefusedWithoutAllocating) {
  for (const Bytes& type : {Bytes{'B', 'N'}, Bytes{'A', 'M'}, Bytes{'M', 'B'}, Bytes{'b', 'm'}}) {
    Bytes file = SavedFile();
    file[0] = type[0];
    file[1] = type[1];
    WriteBytes(kName, file);
    const FailNth fault(Fault::kGlobalAlloc, 1);
    ExpectRefused(kName);
    EXPECT_FALSE(fault.HasHappened());
  }
}

TEST_F(ReadImageTest, MissingMemoryIsRefused) {
  SavedFile();
  const FailNth fault(Fault::kGlobalAlloc, 1);
  ExpectRefused(kName);
  EXPECT_TRUE(fault.HasHappened());
}

TEST_F(ReadImageTest, RefusedFileIsReleased) {
  WriteBytes(kName, {'B', 'M'});
  ExpectRefused(kName);
  CFile file;
  EXPECT_TRUE(file.Open(CA2T(kName), CFile::modeReadWrite));
}

TEST_F(ReadImageTest, PixelOffsetOfTheFileHeaderIsNotUsed) {
  Bytes file = SavedFile();
  file[10] = file[11] = file[12] = file[13] = 0xFF;
  EXPECT_EQ(PixelsOf(ReadStored(file), 3), (Bytes{1, 2, 3}));
}

TEST_F(ReadImageTest, FileSizeOfTheFileHeaderIsNotUsed) {
  Bytes file = SavedFile();
  file[2] = file[3] = file[4] = file[5] = 0;
  EXPECT_EQ(PixelsOf(ReadStored(file), 3), (Bytes{1, 2, 3}));
}

TEST_F(ReadImageTest, PixelAreaIsNotCheckedAgainstTheSizes) {
  const ReadResult result = ReadStored(Slice(SavedFile(), 0, 1078));
  EXPECT_TRUE(result.isRead);
  EXPECT_EQ(result.width, 8);
  EXPECT_EQ(result.height, 4);
}

}  // namespace
}  // namespace quorvex::tests
