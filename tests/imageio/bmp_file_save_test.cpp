#include <gtest/gtest.h>

#include <filesystem>
#include <limits>

#include "imageio/bmp_file.h"
#include "platform/mfc.h"
#include "tests/support/bytes.h"
#include "tests/support/faults.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

namespace fs = std::filesystem;

constexpr char kName[] = "image.bmp";

class SaveImageTest : public ::testing::Test {
  TemporaryDirectory directory_;
};

// 1, 2, 3, ...
Bytes Counting(std::size_t count) {
  Bytes bytes;
  while (bytes.size() < count) {
    bytes.push_back(static_cast<unsigned char>(bytes.size() + 1));
  }
  return bytes;
}

// File and information header as they are to be written.
Bytes Headers(long width, long height, int bits, std::size_t tableSize, std::size_t imageSize) {
  return Concatenated({{'B', 'M'},
                       U32(14 + 40 + tableSize + imageSize),
                       U32(0),
                       U32(14 + 40 + tableSize),
                       U32(40),
                       U32(static_cast<std::uint64_t>(width)),
                       U32(static_cast<std::uint64_t>(height)),
                       U16(1),
                       U16(static_cast<std::uint64_t>(bits)),
                       U32(0),
                       U32(imageSize),
                       U32(2925),
                       U32(2925),
                       U32(0),
                       U32(0)});
}

// Blue, green, red of entry i are i, the fourth byte is 0.
Bytes GreyRamp(int entries) {
  Bytes table;
  for (int i = 0; i < entries; ++i) {
    const auto level = static_cast<unsigned char>(i);
    table.insert(table.end(), {level, level, level, 0});
  }
  return table;
}

Bytes Saved(const Bytes& pixels, long width, long height, int bits) {
  EXPECT_TRUE(Save_Image(pixels.data(), width, height, bits, kName));
  return ReadBytes(kName);
}

bool IsRefused(long width, long height, int bits) {
  const unsigned char pixel = 0;
  return !Save_Image(&pixel, width, height, bits, kName) && !fs::exists(kName);
}

TEST_F(SaveImageTest, EightBitsYieldHeadersGreyRampAndRows) {
  const Bytes pixels = Counting(32);
  const Bytes file = Saved(pixels, 8, 4, 8);
  EXPECT_EQ(file.size(), 1110u);
  EXPECT_EQ(Slice(file, 10, 14), U32(1078));
  EXPECT_EQ(Slice(file, 1078, 1086), Slice(pixels, 0, 8));  // row 0 comes first
  EXPECT_EQ(file, Concatenated({Headers(8, 4, 8, 1024, 32), GreyRamp(256), pixels}));
}

TEST_F(SaveImageTest, TwentyFourBitsHaveNoColourTable) {
  const Bytes pixels = Counting(4 * 2 * 3);
  const Bytes file = Saved(pixels, 4, 2, 24);
  EXPECT_EQ(Slice(file, 10, 14), U32(54));
  EXPECT_EQ(file, Concatenated({Headers(4, 2, 24, 0, 24), pixels}));
}

TEST_F(SaveImageTest, ThirtyTwoBitsHaveNoColourTable) {
  const Bytes pixels = Counting(3 * 2 * 4);
  EXPECT_EQ(Saved(pixels, 3, 2, 32), Concatenated({Headers(3, 2, 32, 0, 24), pixels}));
}

TEST_F(SaveImageTest, OneBitHasTwoTableEntriesThatRampToo) {
  const Bytes pixels = Counting(8);
  EXPECT_EQ(Saved(pixels, 32, 2, 1),
            Concatenated({Headers(32, 2, 1, 8, 8), {0, 0, 0, 0, 1, 1, 1, 0}, pixels}));
}

TEST_F(SaveImageTest, FourBitsHaveSixteenTableEntries) {
  const Bytes pixels = Counting(8);
  EXPECT_EQ(Saved(pixels, 8, 2, 4), Concatenated({Headers(8, 2, 4, 64, 8), GreyRamp(16), pixels}));
}

TEST_F(SaveImageTest, RowsAreCopiedInOnePieceWithoutPadding) {
  // Rows of 9 bytes in the buffer, of 12 in the file.
  const Bytes pixels = Counting(18);
  EXPECT_EQ(Saved(pixels, 3, 2, 24),
            Concatenated({Headers(3, 2, 24, 0, 24), pixels, Bytes(24 - 18, 0)}));
}

TEST_F(SaveImageTest, BitsThatEndWithinAByteAreCutFromTheCopy) {
  // 33 * 3 bits are 12 bytes and 3 bits; a row of 33 bits takes 8 bytes in the file.
  const Bytes file = Saved(Counting(13), 33, 3, 1);
  EXPECT_EQ(Slice(file, 14 + 40 + 8, file.size()),
            Concatenated({Counting(12), Bytes(3 * 8 - 12, 0)}));
}

TEST_F(SaveImageTest, RowShorterThanAByteStillTakesFourBytes) {
  const Bytes pixels = {0xFF};
  EXPECT_EQ(Saved(pixels, 4, 2, 1),
            Concatenated({Headers(4, 2, 1, 8, 8), GreyRamp(2), pixels, Bytes(7, 0)}));
}

TEST_F(SaveImageTest, ImageWithoutPixelsIsHeadersAndTable) {
  EXPECT_TRUE(Save_Image(nullptr, 0, 5, 8, kName));
  EXPECT_EQ(ReadBytes(kName), Concatenated({Headers(0, 5, 8, 1024, 0), GreyRamp(256)}));
  EXPECT_TRUE(Save_Image(nullptr, 7, 0, 24, kName));
  EXPECT_EQ(ReadBytes(kName), Headers(7, 0, 24, 0, 0));
}

TEST_F(SaveImageTest, LongerExistingFileIsReplaced) {
  WriteBytes(kName, Bytes(5000, 'x'));
  EXPECT_EQ(Saved(Counting(12), 1, 3, 32).size(), 14u + 40u + 12u);
}

TEST_F(SaveImageTest, SizesAndDepthsThatCannotBeStoredAreRefused) {
  constexpr long kLargest = std::numeric_limits<std::int32_t>::max();
  EXPECT_TRUE(IsRefused(-1, 1, 8));
  EXPECT_TRUE(IsRefused(1, -1, 8));
  EXPECT_TRUE(IsRefused(1, 1, 0));
  EXPECT_TRUE(IsRefused(1, 1, -8));
  EXPECT_TRUE(IsRefused(1, 1, 33));
  EXPECT_TRUE(IsRefused(65536, 65536, 8));
  EXPECT_TRUE(IsRefused(65536, 16384, 32));  // 4 GiB of pixels
  EXPECT_TRUE(IsRefused(kLargest, 2, 32));
  EXPECT_TRUE(IsRefused(2, kLargest, 32));
}

TEST_F(SaveImageTest, SizesWhoseProductExceeds64BitsAreRefused) {
  constexpr long kLargest = std::numeric_limits<std::int32_t>::max();
  EXPECT_TRUE(IsRefused(kLargest, kLargest, 32));
  EXPECT_TRUE(IsRefused(kLargest, kLargest / 2 + 1, 32));
}

TEST_F(SaveImageTest, SizesOutside32BitsAreRefused) {
  if (sizeof(long) > 4) {
    const long beyond = static_cast<long>(1ULL << 32);
    EXPECT_TRUE(IsRefused(beyond + 1, 1, 8));
    EXPECT_TRUE(IsRefused(1, beyond + 1, 8));
    EXPECT_TRUE(IsRefused(beyond / 2, 0, 8));
  }
}

TEST_F(SaveImageTest, NullPixelsAndNullPathAreRefused) {
  const unsigned char pixel = 0;
  EXPECT_FALSE(Save_Image(nullptr, 1, 1, 8, kName));
  EXPECT_FALSE(fs::exists(kName));
  EXPECT_FALSE(Save_Image(&pixel, 1, 1, 8, nullptr));
}

TEST_F(SaveImageTest, FileThatCannotBeCreatedGivesFalse) {
  const unsigned char pixel = 0;
  EXPECT_FALSE(Save_Image(&pixel, 1, 1, 8, "missing/image.bmp"));
  fs::create_directory(kName);
  EXPECT_FALSE(Save_Image(&pixel, 1, 1, 8, kName));
}

TEST_F(SaveImageTest, ReadOnlyFileIsNotReplaced) {
  const unsigned char pixel = 0;
  WriteBytes(kName, {'x'});
  fs::permissions(kName, fs::perms::owner_read);
  EXPECT_FALSE(Save_Image(&pixel, 1, 1, 8, kName));
  EXPECT_EQ(ReadBytes(kName), Bytes{'x'});
}

TEST_F(SaveImageTest, MissingMemoryGivesFalseAndLeavesTheFileAlone) {
  const unsigned char pixel = 0;
  WriteBytes(kName, {'x'});
  const FailNth fault(Fault::kGlobalAlloc, 1);
  EXPECT_FALSE(Save_Image(&pixel, 1, 1, 8, kName));
  EXPECT_TRUE(fault.HasHappened());
  EXPECT_EQ(ReadBytes(kName), Bytes{'x'});
}

TEST_F(SaveImageTest, FailingWriteRaisesTheFileExceptionAndReleasesTheFile) {
  const unsigned char pixel = 0;
  for (const int nthWrite : {1, 2}) {  // the file header, the bitmap
    const FailNth fault(Fault::kWrite, nthWrite);
    try {
      Save_Image(&pixel, 1, 1, 8, kName);
      ADD_FAILURE() << "no exception from write " << nthWrite;
    } catch (CFileException* exception) {
      EXPECT_EQ(exception->m_cause, CFileException::diskFull);
      exception->Delete();
    }
    CFile file;
    EXPECT_TRUE(file.Open(CA2T(kName), CFile::modeReadWrite));
  }
}

}  // namespace
}  // namespace quorvex::tests
