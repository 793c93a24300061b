// The exports as a Visual C++ host finds them: by their decorated names, in both spellings of the
// record (struct and class). Every function is called through the address behind each of its names.
#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "interface/quorvex.h"
#include "tests/support/bytes.h"
#include "tests/support/points.h"
#include "tests/support/temporary_directory.h"
#include "tests/support/turned_target.h"
#include "tests/windows/host_names.h"

namespace quorvex::tests {
namespace {

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

// The twelve functions through the names of one spelling: 'U' for struct, 'V' for class. A name
// without the record has one spelling only and stands in both tables.
struct Exports {
  explicit Exports(char recordSpelling) : spelling(recordSpelling) {}

  char spelling;
  std::set<std::string> names;  // those found

#define QUORVEX_EXPORT(function) \
  decltype(&::function) function = Find<decltype(&::function)>(#function)
  QUORVEX_EXPORT(SingleCamDetectCalibrationPoint);
  QUORVEX_EXPORT(Save_Image);
  QUORVEX_EXPORT(Read_Image);
  QUORVEX_EXPORT(ConvertRGBToGray);
  QUORVEX_EXPORT(QueryCalibrationPt_ID);
  QUORVEX_EXPORT(DeleteCalibrationPt_ID);
  QUORVEX_EXPORT(DeleteCalibrationPt_Coordinate);
  QUORVEX_EXPORT(AddCalibrationPt_Coordinate);
  QUORVEX_EXPORT(AlterCalibrationPt_Coordinate);
  QUORVEX_EXPORT(ReAssignmentID);
  QUORVEX_EXPORT(LeftPtsRearrange);
  QUORVEX_EXPORT(RightPtsRearrange);
#undef QUORVEX_EXPORT

 private:
  bool IsSpelling(const std::string& name, const std::string& function) const {
    return name.rfind("?" + function + "@@", 0) == 0 &&
           (!Contains(name, "?$vector@") ||
            Contains(name, std::string("?$vector@") + spelling + "CalibrationPoint@@"));
  }

  template <typename Function>
  Function Find(const std::string& function) {
    static const HMODULE library = LoadLibraryW(TheDll().c_str());
    for (const std::string& name : HostNames()) {
      if (IsSpelling(name, function)) {
        names.insert(name);
        return reinterpret_cast<Function>(
            reinterpret_cast<void*>(GetProcAddress(library, name.c_str())));
      }
    }
    return nullptr;
  }
};

class ExportsByNameTest : public ::testing::TestWithParam<char> {
 protected:
  const Exports dll{GetParam()};
  TemporaryDirectory directory;
};

INSTANTIATE_TEST_SUITE_P(, ExportsByNameTest, ::testing::Values('U', 'V'),
                         [](const auto& spelling) {
                           return std::string(spelling.param == 'U' ? "struct" : "class");
                         });

// Nothing is listed that the tests below would not call.
TEST(ExportNames, AreThoseOfTheTwoSpellings) {
  const std::set<std::string> listed = HostNames();
  std::set<std::string> found = Exports('U').names;
  found.merge(Exports('V').names);
  EXPECT_EQ(listed.size(), 21u);
  EXPECT_EQ(found, listed);
}

TEST_P(ExportsByNameTest, SavedImageIsReadBack) {
  ASSERT_TRUE(dll.Save_Image && dll.Read_Image);
  Bytes pixels = {1, 2, 3, 4, 5, 6, 7, 8};
  ASSERT_TRUE(dll.Save_Image(pixels.data(), 4, 2, 8, "image.bmp"));
  unsigned char* read = nullptr;
  long width = 0;
  long height = 0;
  int bits = 0;
  ASSERT_TRUE(dll.Read_Image(read, width, height, bits, "image.bmp"));
  EXPECT_EQ(width, 4);
  EXPECT_EQ(height, 2);
  EXPECT_EQ(bits, 8);
  EXPECT_EQ(Bytes(read, read + 8), pixels);
  EXPECT_FALSE(dll.Read_Image(read, width, height, bits, "none.bmp"));
}

TEST_P(ExportsByNameTest, ColourIsConvertedToGrey) {
  ASSERT_TRUE(dll.ConvertRGBToGray);
  Bytes pixels = {10, 20, 30, 255, 255, 255};
  Bytes grey(2, 0);
  dll.ConvertRGBToGray(pixels.data(), 2, 1, 24, grey.data());
  EXPECT_EQ(grey, (Bytes{21, 255}));
}

TEST_P(ExportsByNameTest, PointsAreEdited) {
  ASSERT_TRUE(dll.AddCalibrationPt_Coordinate && dll.AlterCalibrationPt_Coordinate &&
              dll.QueryCalibrationPt_ID && dll.DeleteCalibrationPt_ID &&
              dll.DeleteCalibrationPt_Coordinate);
  PointList points = {MakePoint(7, 1, 2, 10.0f, 20.0f), MakePoint(8, 1, 3, 30.0f, 40.0f)};
  EXPECT_TRUE(dll.AddCalibrationPt_Coordinate(50.0f, 60.0f, points));
  EXPECT_EQ(Ids(points), (std::vector<int>{7, 8, -1}));
  EXPECT_TRUE(dll.AlterCalibrationPt_Coordinate(8, 5, 6, 70.0f, 80.0f, points));
  int row = 0;
  int col = 0;
  float x = 0.0f;
  float y = 0.0f;
  EXPECT_TRUE(dll.QueryCalibrationPt_ID(8, row, col, x, y, points));
  EXPECT_EQ(row, 5);
  EXPECT_EQ(col, 6);
  EXPECT_EQ(Bits(x), Bits(70.0f));
  EXPECT_EQ(Bits(y), Bits(80.0f));
  EXPECT_TRUE(dll.DeleteCalibrationPt_ID(7, points));
  EXPECT_FALSE(dll.DeleteCalibrationPt_ID(7, points));
  EXPECT_EQ(Ids(points), (std::vector<int>{8, -1}));
  EXPECT_TRUE(dll.DeleteCalibrationPt_Coordinate(55.0f, 60.0f, points));
  EXPECT_FALSE(dll.DeleteCalibrationPt_Coordinate(55.0f, 60.0f, points));
  EXPECT_EQ(Ids(points), std::vector<int>{8});
}

// Columns from the right to the left, rows from the largest y up.
PointList ThreeByThree() {
  PointList points;
  for (int i = 0; i < 9; ++i) {
    points.push_back(MakePoint(-1, -1, -1, 300.0f - 50.0f * static_cast<float>(i / 3),
                               400.0f - 50.0f * static_cast<float>(i % 3)));
  }
  return points;
}

TEST_P(ExportsByNameTest, GridIsNumberedAndTurned) {
  ASSERT_TRUE(dll.ReAssignmentID && dll.LeftPtsRearrange && dll.RightPtsRearrange);
  PointList points = ThreeByThree();
  EXPECT_TRUE(dll.ReAssignmentID(3, 3, points));
  EXPECT_EQ(Ids(points), (std::vector<int>{1, 4, 7, 2, 5, 8, 3, 6, 9}));
  EXPECT_EQ(Bits(points[1].x), Bits(200.0f));
  EXPECT_EQ(Bits(points[1].y), Bits(350.0f));

  // The two differ in what a column of fewer points than counted gets.
  PointList left = points;
  dll.LeftPtsRearrange(left, 0, 4);
  EXPECT_EQ(Ids(left), (std::vector<int>{1, 2, 3, 5, 6, 7, 9, 10, 11}));
  EXPECT_EQ(Bits(left[0].y), Bits(400.0f));
  PointList right = points;
  dll.RightPtsRearrange(right, 0, 4);
  EXPECT_EQ(Ids(right), (std::vector<int>{4, 3, 2, 8, 7, 6, 12, 11, 10}));
  EXPECT_EQ(Bits(right[0].y), Bits(300.0f));
}

TEST_P(ExportsByNameTest, TargetIsDetected) {
  ASSERT_TRUE(dll.SingleCamDetectCalibrationPoint);
  constexpr int kSize = kTurnedTargetSize;
  Bytes image(kSize * kSize);
  DrawTurnedTarget(image.data());
  PointList points;
  EXPECT_FALSE(dll.SingleCamDetectCalibrationPoint(image.data(), kSize, kSize, 24, 20, 20, 0.0f,
                                                   0.0f, 300, points));
  EXPECT_FALSE(std::filesystem::exists("ProImage.bmp"));
  EXPECT_TRUE(dll.SingleCamDetectCalibrationPoint(image.data(), kSize, kSize, 8, 20, 20, 0.0f, 0.0f,
                                                  300, points));
  EXPECT_TRUE(std::filesystem::exists("ProImage.bmp"));
  ASSERT_EQ(points.size(), 16u);
  for (int i = 0; i < 16; ++i) {
    const CalibrationPoint& point = points[static_cast<std::size_t>(i)];
    // Rows count from the last row of the buffer.
    const int row = kTurnedTargetMarks - 1 - i / kTurnedTargetMarks;
    const int col = i % kTurnedTargetMarks;
    EXPECT_EQ(point.id, i + 1);
    EXPECT_NEAR(point.x, TurnedTargetX(row, col), 0.5f);
    EXPECT_NEAR(point.y, static_cast<float>(kSize - 1) - TurnedTargetY(row, col), 0.5f);
  }
}

}  // namespace
}  // namespace quorvex::tests
