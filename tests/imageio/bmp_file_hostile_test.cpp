// Files with unusual, broken and malicious headers.
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>

#include "tests/support/bytes.h"
#include "tests/support/read_result.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

constexpr char kName[] = "image.bmp";
constexpr std::int64_t kRefused = -1;

// The fields of the headers up to the bit count; 40-byte and longer headers share the layout.
Bytes InfoHeader(std::uint32_t headerSize, std::int64_t width, std::int64_t height, int bits,
                 std::uint32_t colorsUsed = 0) {
  return Concatenated({U32(headerSize), U32(static_cast<std::uint64_t>(width)),
                       U32(static_cast<std::uint64_t>(height)), U16(1),
                       U16(static_cast<std::uint64_t>(bits)), Bytes(16, 0), U32(colorsUsed),
                       U32(0)});
}

Bytes CoreHeader(std::uint32_t headerSize, int width, int height, int bits) {
  return Concatenated({U32(headerSize), U16(static_cast<std::uint64_t>(width)),
                       U16(static_cast<std::uint64_t>(height)), U16(1),
                       U16(static_cast<std::uint64_t>(bits))});
}

// A file header and the bitmap, filled up to `size` bytes after the file header with bytes that
// tell their position.
Bytes FileOf(Bytes dib, std::size_t size) {
  while (dib.size() < size) {
    dib.push_back(static_cast<unsigned char>(dib.size() % 251 + 1));
  }
  return Concatenated({{'B', 'M'}, Bytes(12, 0), dib});
}

struct HeaderCase {
  const char* name;
  Bytes header;
  std::size_t size;          // bytes after the file header
  std::int64_t pixelOffset;  // expected, from the start of the information header, or kRefused
  long width;
  long height;
  int bits;
};

void PrintTo(const HeaderCase& headerCase, std::ostream* stream) { *stream << headerCase.name; }

constexpr std::uint32_t kMost = 0xFFFFFFFF;

// A header of 108 or 124 bytes has its sizes read from the long header but its pixels located by
// the rule of the 12-byte header, to which the upper half of the height is the bit count.
const HeaderCase kCases[] = {
    // Depths of the 40-byte header.
    {"Info1Bit", InfoHeader(40, 5, 6, 1), 500, 40 + 8, 5, 6, 1},
    {"Info2Bits", InfoHeader(40, 5, 6, 2), 500, 40, 5, 6, 2},
    {"Info4Bits", InfoHeader(40, 5, 6, 4), 500, 40 + 64, 5, 6, 4},
    {"Info8Bits", InfoHeader(40, 5, 6, 8), 2000, 40 + 1024, 5, 6, 8},
    {"Info16Bits", InfoHeader(40, 5, 6, 16), 500, 40, 5, 6, 16},
    {"Info24Bits", InfoHeader(40, 5, 6, 24), 500, 40, 5, 6, 24},
    {"Info65535Bits", InfoHeader(40, 5, 6, 65535), 500, 40, 5, 6, 65535},
    // Colours in use.
    {"TwoColoursOf8Bits", InfoHeader(40, 5, 6, 8, 2), 500, 40 + 8, 5, 6, 8},
    {"ColoursOf24Bits", InfoHeader(40, 5, 6, 24, 3), 500, 40 + 12, 5, 6, 24},
    {"ColoursUpToTheEnd", InfoHeader(40, 5, 6, 8, 115), 500, 500, 5, 6, 8},
    {"ColoursBeyondTheEnd", InfoHeader(40, 5, 6, 8, 116), 500, kRefused, 0, 0, 0},
    {"MostColours", InfoHeader(40, 5, 6, 8, kMost), 500, kRefused, 0, 0, 0},
    {"ColoursWhoseSizeWrapsTo4", InfoHeader(40, 5, 6, 8, 0x40000001), 500, kRefused, 0, 0, 0},
    // Sizes as they are, whatever they mean.
    {"NegativeHeight", InfoHeader(40, 5, -6, 24), 500, 40, 5, -6, 24},
    {"LargestSizes", InfoHeader(40, INT32_MAX, INT32_MIN, 24), 500, 40, INT32_MAX, INT32_MIN, 24},
    {"NoSizes", InfoHeader(40, 0, 0, 0), 500, 40, 0, 0, 0},
    // The 12-byte header.
    {"Core1Bit", CoreHeader(12, 5, 6, 1), 1000, 12 + 6, 5, 6, 1},
    {"Core4Bits", CoreHeader(12, 5, 6, 4), 1000, 12 + 48, 5, 6, 4},
    {"Core8Bits", CoreHeader(12, 5, 6, 8), 1000, 12 + 768, 5, 6, 8},
    {"Core24Bits", CoreHeader(12, 5, 6, 24), 1000, 12, 5, 6, 24},
    {"CoreSizesAreUnsigned", CoreHeader(12, 65535, 32768, 24), 1000, 12, 65535, 32768, 24},
    {"Core8BitsWithoutTable", CoreHeader(12, 5, 6, 8), 12 + 767, kRefused, 0, 0, 0},
    // Other header sizes count as the 12-byte header.
    {"Header64", CoreHeader(64, 5, 6, 8), 1000, 64 + 768, 5, 6, 8},
    {"Header0", CoreHeader(0, 5, 6, 24), 1000, 0, 5, 6, 24},
    {"Header41", CoreHeader(41, 5, 6, 24), 1000, 41, 5, 6, 24},
    {"HeaderBeyondTheEnd", CoreHeader(1001, 5, 6, 24), 1000, kRefused, 0, 0, 0},
    {"LargestHeader", CoreHeader(kMost, 5, 6, 8), 1000, kRefused, 0, 0, 0},
    // 108 and 124 bytes.
    {"Header108At8Bits", InfoHeader(108, 5, 6, 8), 1000, 108, 5, 6, 8},
    {"Header124At8Bits", InfoHeader(124, 5, 6, 8), 1000, 124, 5, 6, 8},
    {"Header124At24Bits", InfoHeader(124, 5, 6, 24), 1000, 124, 5, 6, 24},
    {"Header108IgnoresColoursUsed", InfoHeader(108, 5, 6, 8, 3), 1000, 108, 5, 6, 8},
    {"Header108WithAHeightOf1High", InfoHeader(108, 5, 0x10007, 8), 1000, 108 + 6, 5, 0x10007, 8},
    {"Header124WithAHeightOf4High", InfoHeader(124, 5, 0x40007, 8), 1000, 124 + 48, 5, 0x40007, 8},
    {"Header124WithAHeightOf8High", InfoHeader(124, 5, 0x80007, 24), 1000, 124 + 768, 5, 0x80007,
     24},
    {"Header124WithANegativeHeight", InfoHeader(124, 5, -6, 8), 1000, 124, 5, -6, 8},
};

class ReadImageHeaderTest : public ::testing::TestWithParam<HeaderCase> {
  TemporaryDirectory directory_;
};

TEST_P(ReadImageHeaderTest, IsReadAsItStandsOrRefused) {
  const HeaderCase& expected = GetParam();
  const Bytes file = FileOf(expected.header, expected.size);
  WriteBytes(kName, file);
  const ReadResult result = Read(kName);
  if (expected.pixelOffset == kRefused) {
    EXPECT_FALSE(result.isRead);
    EXPECT_TRUE(result.IsUntouched());
    return;
  }
  ASSERT_TRUE(result.isRead);
  EXPECT_EQ(result.width, expected.width);
  EXPECT_EQ(result.height, expected.height);
  EXPECT_EQ(result.bitsPerPixel, expected.bits);
  // What follows at the pixel pointer is what follows in the file up to its end.
  const Bytes stored =
      Slice(file, 14 + static_cast<std::size_t>(expected.pixelOffset), file.size());
  EXPECT_EQ(Bytes(result.pixels, result.pixels + stored.size()), stored);
}

INSTANTIATE_TEST_SUITE_P(Headers, ReadImageHeaderTest, ::testing::ValuesIn(kCases),
                         [](const auto& test) { return std::string(test.param.name); });

struct TruncationCase {
  const char* name;
  Bytes file;
  std::size_t shortestRead;  // bytes, the shortest beginning of the file that can be read
};

void PrintTo(const TruncationCase& truncation, std::ostream* stream) { *stream << truncation.name; }

class ReadImageTruncationTest : public ::testing::TestWithParam<TruncationCase> {
  TemporaryDirectory directory_;
};

// Also where the bytes that are missing would have been zero: the fields must not be taken from
// after the end.
TEST_P(ReadImageTruncationTest, IsRefusedUntilThePixelsCanBeLocated) {
  const TruncationCase& truncation = GetParam();
  ASSERT_LT(truncation.shortestRead, truncation.file.size());
  WriteBytes(kName, truncation.file);
  for (std::size_t cut = 0; cut <= truncation.file.size(); ++cut) {
    const std::size_t length = truncation.file.size() - cut;
    std::filesystem::resize_file(kName, length);
    const ReadResult result = Read(kName);
    ASSERT_EQ(result.isRead, length >= truncation.shortestRead) << length;
    ASSERT_EQ(result.isRead, !result.IsUntouched()) << length;
  }
}

INSTANTIATE_TEST_SUITE_P(
    Truncations, ReadImageTruncationTest,
    ::testing::Values(
        TruncationCase{"Info24Bits", FileOf(InfoHeader(40, 2, 2, 24), 40 + 16), 14 + 40},
        TruncationCase{"Info8Bits", FileOf(InfoHeader(40, 1, 1, 8), 40 + 1024 + 4), 14 + 40 + 1024},
        TruncationCase{"Info1Bit", FileOf(InfoHeader(40, 1, 1, 1), 40 + 8 + 4), 14 + 40 + 8},
        TruncationCase{"Core24Bits", FileOf(CoreHeader(12, 2, 2, 24), 12 + 16), 14 + 12},
        TruncationCase{"CoreOfNoSize", FileOf(CoreHeader(0, 2, 2, 24), 30), 14 + 12},
        TruncationCase{"Header124", FileOf(InfoHeader(124, 2, 2, 24), 124 + 16), 14 + 124}),
    [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace quorvex::tests
