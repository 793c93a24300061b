// What the examples make of files that are not as they need them: they say why, and end in order.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <iterator>
#include <string>

#include "tests/support/run_program.h"
#include "tests/support/test_files.h"
#include "tools/pictures/picture_file.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::HasSubstr;

constexpr std::size_t kWidthAt = 18;   // in the file, lowest byte first
constexpr std::size_t kHeightAt = 22;  // bytes
constexpr std::size_t kBitsAt = 28;
constexpr std::size_t kColorsAt = 46;

class CheckedPicture : public testing::Test {
 protected:
  CheckedPicture() {
    WritePictureFile(FlatPicture(64, 48, 20), folder.Path("p.bmp"));
    bytes = ReadBytes(folder.Path("p.bmp"));
  }

  // Both examples say the same.
  void ExpectReason(const std::string& reason) {
    WriteBytes(folder.Path("p.bmp"), bytes);
    EXPECT_EQ(Run(QUORVEX_DETECT_POINTS, "p.bmp"), "detect_points: " + reason + "\n");
    EXPECT_EQ(Run(QUORVEX_OPERATOR_ROAD, "p.bmp 9 9"), "operator_road: " + reason + "\n");
  }

  std::string Run(const std::string& program, const std::string& arguments) {
    EXPECT_EQ(RunProgram({program,
                          SplitAtBlanks(arguments),
                          folder.Path(),
                          {{"LSAN_OPTIONS", "print_suppressions=0:suppressions=" QUORVEX_LEAKS}}}),
              1);
    std::ifstream errors(folder.Path("err.txt"));  // as text: Windows ends its lines otherwise
    return {std::istreambuf_iterator<char>(errors), {}};
  }

  TemporaryFolder folder;
  Bytes bytes;
};

TEST_F(CheckedPicture, OfTheRightKindIsDetected) { ExpectReason("no points were found"); }

TEST_F(CheckedPicture, MustBeThere) {
  EXPECT_EQ(Run(QUORVEX_DETECT_POINTS, "none.bmp"),
            "detect_points: the picture cannot be opened\n");
  EXPECT_EQ(Run(QUORVEX_DETECT_POINTS, ""), "detect_points: usage: detect_points BOARD.bmp\n");
}

TEST_F(CheckedPicture, MustBeABmpFile) {
  bytes[0] = 'P';
  ExpectReason("the picture cannot be read; it must be an uncompressed BMP file");
  bytes.clear();
  ExpectReason("the picture cannot be read; it must be an uncompressed BMP file");
}

TEST_F(CheckedPicture, MustHoldAllPixels) {
  bytes.pop_back();
  ExpectReason("the picture's file ends before its last pixel");
  bytes.resize(14 + 40 + 256 * 4 + 1);
  ExpectReason("the picture's file ends before its last pixel");
}

TEST_F(CheckedPicture, MustNotPromiseMorePixelsThanItHolds) {
  bytes[kHeightAt + 2] = 1;  // 65536 rows more
  ExpectReason("the picture's file ends before its last pixel");
  bytes[kHeightAt + 3] = bytes[kWidthAt + 3] = 0x7f;
  ExpectReason("the picture's file ends before its last pixel");
}

TEST_F(CheckedPicture, MustHaveThePlainHeader) {
  bytes[kColorsAt + 1] = 2;  // 512 colours
  ExpectReason("the picture's header is not the plain one of 40 bytes");
}

TEST_F(CheckedPicture, MustHaveEightBits) {
  bytes[kBitsAt] = 24;
  ExpectReason("the picture does not have 8 bits a pixel");
}

TEST_F(CheckedPicture, MustHaveSizesThatAreMultiplesOfFour) {
  bytes[kWidthAt] = 63;
  ExpectReason("the picture's width and height are not multiples of 4");
  bytes[kWidthAt] = 64;
  bytes[kHeightAt] = 46;
  ExpectReason("the picture's width and height are not multiples of 4");
  bytes[kHeightAt + 3] = 0xff;  // a negative height
  ExpectReason("the picture's width and height are not multiples of 4");
}

TEST_F(CheckedPicture, RowsAndColumnsAreNumbers) {
  EXPECT_EQ(Run(QUORVEX_OPERATOR_ROAD, "p.bmp nine 9"),
            "operator_road: ROWS and COLUMNS are numbers above 0\n");
}

}  // namespace
}  // namespace quorvex::tests
