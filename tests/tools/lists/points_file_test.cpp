#include "tools/lists/points_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "tests/support/test_files.h"
#include "tools/errors.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::HasSubstr;

PointsOfImage TwoPoints(const std::string& name) {
  return {name, 640, 480, {{1, 0, 0, 10.5, 20.25}, {2, 0, 1, 110, 21}}};
}

std::string ErrorOfReading(const std::string& path) {
  try {
    ReadPointsFile(path);
  } catch (const InputError& error) {
    return error.what();
  }
  return "no error";
}

TEST(PointsFile, WritesCsv) {
  EXPECT_EQ(FormatPoints({TwoPoints("a.bmp")}, PointsFormat::kCsv, false),
            "id,row,col,x,y\n1,0,0,10.5,20.25\n2,0,1,110,21\n");
}

TEST(PointsFile, PutsTheImageInFrontOfCsvRowsAndQuotesIt) {
  EXPECT_EQ(FormatPoints({{"a,\"b\".bmp", 4, 4, {{1, 0, 0, 2, 3}}}}, PointsFormat::kCsv, true),
            "image,id,row,col,x,y\n\"a,\"\"b\"\".bmp\",1,0,0,2,3\n");
}

TEST(PointsFile, WritesJsonWithOneLinePerPoint) {
  EXPECT_EQ(FormatPoints({TwoPoints("a\"b.bmp")}, PointsFormat::kJson, false),
            "[\n {\n  \"image\": \"a\\\"b.bmp\",\n  \"width\": 640,\n  \"height\": 480,\n"
            "  \"points\": [\n"
            "   {\"id\": 1, \"row\": 0, \"col\": 0, \"x\": 10.5, \"y\": 20.25},\n"
            "   {\"id\": 2, \"row\": 0, \"col\": 1, \"x\": 110, \"y\": 21}\n"
            "  ]\n }\n]\n");
}

TEST(PointsFile, WritesAnAlignedTableWithASummary) {
  EXPECT_EQ(FormatPoints({TwoPoints("a.bmp")}, PointsFormat::kText, false),
            "    id   row   col        x [px]        y [px]\n"
            "     1     0     0          10.5         20.25\n"
            "     2     0     1           110            21\n"
            "a.bmp: 2 points, 1 rows x 2 columns\n");
}

TEST(PointsFile, ReadsBackEveryBitOfA32BitPosition) {
  const float x = 1234.56787f;
  const float y = std::numeric_limits<float>::min();
  const TemporaryFolder folder;
  for (const PointsFormat format : {PointsFormat::kCsv, PointsFormat::kJson}) {
    const std::string path =
        folder.File("points", FormatPoints({{"a", 8, 4, {{-1, -1, 7, x, y}}}}, format, false));
    const std::vector<PointsOfImage> images = ReadPointsFile(path);
    ASSERT_EQ(images.size(), 1u);
    ASSERT_EQ(images[0].points.size(), 1u);
    EXPECT_EQ(images[0].points[0].id, -1);
    EXPECT_EQ(images[0].points[0].row, -1);
    EXPECT_EQ(images[0].points[0].col, 7);
    EXPECT_EQ(static_cast<float>(images[0].points[0].x), x);
    EXPECT_EQ(static_cast<float>(images[0].points[0].y), y);
  }
}

TEST(PointsFile, ReadsSeveralImagesFromBothFormats) {
  const TemporaryFolder folder;
  for (const PointsFormat format : {PointsFormat::kCsv, PointsFormat::kJson}) {
    const std::string path = folder.File(
        "points", FormatPoints({TwoPoints("z,1.bmp"), TwoPoints("a\"2.bmp")}, format, true));
    const std::vector<PointsOfImage> images = ReadPointsFile(path);
    ASSERT_EQ(images.size(), 2u);
    EXPECT_EQ(images[0].image, "z,1.bmp");
    EXPECT_EQ(images[1].image, "a\"2.bmp");
    EXPECT_EQ(images[1].points.size(), 2u);
  }
}

TEST(PointsFile, TakesForeignLineEndsMarkColumnOrderAndOtherColumns) {
  const TemporaryFolder folder;
  const std::string path = folder.File(
      "points.csv", "\xEF\xBB\xBFy, x,note,col,row,id\r\n\r\n 2.5 ,1e1,\"a, b\",3,4,5\r\n");
  const std::vector<PointsOfImage> images = ReadPointsFile(path);
  ASSERT_EQ(images.size(), 1u);
  ASSERT_EQ(images[0].points.size(), 1u);
  EXPECT_EQ(images[0].points[0].id, 5);
  EXPECT_EQ(images[0].points[0].row, 4);
  EXPECT_EQ(images[0].points[0].col, 3);
  EXPECT_EQ(images[0].points[0].x, 10);
  EXPECT_EQ(images[0].points[0].y, 2.5);
}

TEST(PointsFile, AHeaderAloneIsAnImageWithoutPoints) {
  const TemporaryFolder folder;
  const std::vector<PointsOfImage> images =
      ReadPointsFile(folder.File("p.csv", "id,row,col,x,y\n"));
  ASSERT_EQ(images.size(), 1u);
  EXPECT_TRUE(images[0].points.empty());
}

struct BadFile {
  const char* text;
  const char* message;  // behind the path
};

class BadPointsFile : public testing::TestWithParam<BadFile> {};

TEST_P(BadPointsFile, IsRefusedWithItsLine) {
  const TemporaryFolder folder;
  const std::string path = folder.File("bad", GetParam().text);
  EXPECT_EQ(ErrorOfReading(path), path + GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    Csv, BadPointsFile,
    testing::Values(
        BadFile{"", " is empty"}, BadFile{"\r\n \n", " is empty"},
        BadFile{"id,row,col,x\n", " has no column \"y\" in its first line"},
        BadFile{"id,row,col,x,y,x\n", ":1: the column \"x\" appears twice"},
        BadFile{"id,row,col,x,y\n1,2,3,4,5\n1,2,3,four,5\n",
                ":3: \"four\" in column \"x\" is not a number"},
        BadFile{"id,row,col,x,y\n1,2,3,nan,5\n", ":2: \"nan\" in column \"x\" is not a number"},
        BadFile{"id,row,col,x,y\n1,2,3,4,-inf\n", ":2: \"-inf\" in column \"y\" is not a number"},
        BadFile{"id,row,col,x,y\n1,2,3,4,1e999\n", ":2: \"1e999\" in column \"y\" is not a number"},
        BadFile{"id,row,col,x,y\n1,2,3,4,5 6\n", ":2: \"5 6\" in column \"y\" is not a number"},
        BadFile{"id,row,col,x,y\n1,2,3,4,\n", ":2: \"\" in column \"y\" is not a number"},
        BadFile{"id,row,col,x,y\n1,2.5,3,4,5\n",
                ":2: \"2.5\" in column \"row\" is not a whole number"},
        BadFile{"id,row,col,x,y\n4294967297,2,3,4,5\n",
                ":2: \"4294967297\" in column \"id\" is not a whole number"},
        BadFile{"id,row,col,x,y\n1,2,3,4,5,6\n", ":2: 6 fields where the header has 5"},
        BadFile{"id,row,col,x,y\n1,2,3,4\n", ":2: 4 fields where the header has 5"},
        BadFile{"id,row,col,x,y\n1,2,3,4,\"5\n", ":2: a quoted field does not end on its line"}));

INSTANTIATE_TEST_SUITE_P(
    Json, BadPointsFile,
    testing::Values(BadFile{"[\n{\n\"image\": }]", ":3: not valid JSON"},
                    BadFile{"[", ":1: not valid JSON"},
                    BadFile{"[1e999]", " holds a number that is too large"},
                    BadFile{"{}", " is not a list of images"},
                    BadFile{"[7]", ": image 1 is not an object"},
                    BadFile{"[{}]", ": image 1 has no \"image\""},
                    BadFile{R"([{"image": "a", "width": 4, "height": 4, "points": 5}])",
                            ": \"points\" of image 1 is not a list"},
                    BadFile{R"([{"image": "a", "width": 4, "height": 4,
                    "points": [{"id": 1.5, "row": 0, "col": 0, "x": 0, "y": 0}]}])",
                            ": \"id\" of image 1, point 1 is not a whole number"},
                    BadFile{R"([{"image": "a", "width": 4, "height": 4,
                    "points": [{"id": 4294967297, "row": 0, "col": 0, "x": 0, "y": 0}]}])",
                            ": \"id\" of image 1, point 1 is not a whole number"},
                    BadFile{R"([{"image": "a", "width": 4, "height": 4,
                    "points": [{"id": 1, "row": 0, "col": 0, "x": "1", "y": 0}]}])",
                            ": \"x\" of image 1, point 1 is not a number"}));

TEST(PointsFile, RefusesWhatIsNotAReadableFile) {
  const TemporaryFolder folder;
  EXPECT_THAT(ErrorOfReading(folder.Path("none.csv")), HasSubstr("cannot be opened"));
  EXPECT_THAT(ErrorOfReading(folder.Path()), HasSubstr("is a directory"));
}

TEST(PointsFile, RefusesAHugeFile) {
  const TemporaryFolder folder;
  const std::string path = folder.File("huge.csv", "id,row,col,x,y\n");
  std::filesystem::resize_file(path, (std::uintmax_t{64} << 20) + 1);
  EXPECT_THAT(ErrorOfReading(path), HasSubstr("is larger than 64 MiB"));
}

}  // namespace
}  // namespace quorvex::tests
