// The exported image and numbering functions as a host calls them, through the public header alone.
#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

#include "interface/quorvex.h"
#include "platform/mfc.h"
#include "tests/support/bytes.h"
#include "tests/support/faults.h"
#include "tests/support/kept_memory.h"
#include "tests/support/message_box.h"
#include "tests/support/points.h"
#include "tests/support/reserved_bytes.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

namespace fs = std::filesystem;

constexpr char kName[] = "image.bmp";

class ImageExportsTest : public ::testing::Test {
  TemporaryDirectory directory_;
};

TEST_F(ImageExportsTest, SavedImageIsReadBack) {
  Bytes pixels = {1, 2, 3, 4, 5, 6, 7, 8};
  ASSERT_TRUE(::Save_Image(pixels.data(), 4, 2, 8, kName));
  EXPECT_EQ(fs::file_size(kName), 14u + 40u + 1024u + 8u);
  unsigned char* read = nullptr;
  long width = 0;
  long height = 0;
  int bits = 0;
  ASSERT_TRUE(::Read_Image(read, width, height, bits, kName));
  KeepForever(read);
  EXPECT_EQ(width, 4);
  EXPECT_EQ(height, 2);
  EXPECT_EQ(bits, 8);
  EXPECT_EQ(Bytes(read, read + 8), pixels);
}

TEST_F(ImageExportsTest, ReadOnlyFileIsUnreadableAndChangesNothing) {
  Bytes pixels = {1, 2, 3, 4};
  ASSERT_TRUE(::Save_Image(pixels.data(), 4, 1, 8, kName));
  fs::permissions(kName, fs::perms::owner_read);
  unsigned char* read = pixels.data();
  long width = -1;
  long height = -2;
  int bits = -3;
  EXPECT_FALSE(::Read_Image(read, width, height, bits, kName));
  EXPECT_EQ(read, pixels.data());
  EXPECT_EQ(width, -1);
  EXPECT_EQ(height, -2);
  EXPECT_EQ(bits, -3);
}

TEST_F(ImageExportsTest, UnstorableImageIsRefused) {
  unsigned char pixel = 0;
  EXPECT_FALSE(::Save_Image(&pixel, -1, 1, 8, kName));
  EXPECT_FALSE(::Save_Image(&pixel, 1, 1, 8, "missing/image.bmp"));
}

TEST_F(ImageExportsTest, FailingWriteRaisesTheFileException) {
  unsigned char pixel = 0;
  const FailNth fault(Fault::kWrite, 1);
  try {
    ::Save_Image(&pixel, 1, 1, 8, kName);
    FAIL() << "no exception";
  } catch (CFileException* exception) {
    EXPECT_EQ(exception->m_cause, CFileException::diskFull);
    exception->Delete();
  }
}

TEST_F(ImageExportsTest, ColourIsConvertedToGrey) {
  Bytes pixels = {10, 20, 30, 255, 255, 255};
  Bytes grey(2, 0);
  ::ConvertRGBToGray(pixels.data(), 2, 1, 24, grey.data());
  EXPECT_EQ(grey, (Bytes{21, 255}));
}

TEST_F(ImageExportsTest, OtherDepthShowsTheMessage) {
  TakeMessages();
  Bytes pixels(4, 200);
  Bytes grey(4, 77);
  ::ConvertRGBToGray(pixels.data(), 2, 2, 8, grey.data());
  EXPECT_EQ(grey, Bytes(4, 77));
  EXPECT_EQ(TakeMessages(), std::vector<std::string>{"图像数据应为8位、24位或32位！"});
}

// Two columns of three points, the larger y first; their reserved bytes count from 1, 2, ...
PointList TwoColumns() {
  PointList points;
  for (int i = 0; i < 6; ++i) {
    const CalibrationPoint point =
        MakePoint(-1, -1, i / 3, 100.0f + 50.0f * static_cast<float>(i / 3),
                  300.0f - 50.0f * static_cast<float>(i % 3));
    points.push_back(Marked(point, i + 1));
  }
  return points;
}

// The ids in order; `marks` are the records expected there.
std::vector<int> Ids(const PointList& points, const std::vector<int>& marks) {
  std::vector<int> ids;
  for (std::size_t i = 0; i < points.size(); ++i) {
    ids.push_back(points[i].id);
    EXPECT_TRUE(i < marks.size() && IsMarked(points[i], marks[i])) << i;
  }
  return ids;
}

TEST(NumberingExportsTest, ReAssignmentTakesRowsThenColumns) {
  PointList points = TwoColumns();
  ASSERT_TRUE(::ReAssignmentID(3, 2, points));
  EXPECT_EQ(Ids(points, {3, 2, 1, 6, 5, 4}), (std::vector<int>{1, 3, 5, 2, 4, 6}));
}

TEST(NumberingExportsTest, LeftAndRightCountFromOppositeEnds) {
  PointList left = TwoColumns();
  ::LeftPtsRearrange(left, 7, 4);
  EXPECT_EQ(Ids(left, {1, 2, 3, 4, 5, 6}), (std::vector<int>{1, 2, 3, 5, 6, 7}));
  PointList right = TwoColumns();
  ::RightPtsRearrange(right, 7, 4);
  EXPECT_EQ(Ids(right, {3, 2, 1, 6, 5, 4}), (std::vector<int>{4, 3, 2, 8, 7, 6}));
}

}  // namespace
}  // namespace quorvex::tests
