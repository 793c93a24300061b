#include "tools/lists/points_file.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "tests/support/test_files.h"
#include "tools/errors.h"

namespace quorvex::tests {

using namespace tools;

namespace {

PointsOfImage TwoPoints(const std::string& name) {
  return {name, 640, 480, {{1, 0, 0, 10.5, 20.25}, {2, 0, 1, 110, 21}}};
}

std::string ErrorOfReading(const std::string& path, const std::string& image) {
  try {
    ReadOneImageFile(path, image);
  } catch (const InputError& error) {
    return error.what();
  }
  return "no error";
}

TEST(PointsFile, WritesAnAlignedTableWithASummary) {
  EXPECT_EQ(FormatPoints({TwoPoints("a.bmp")}, PointsFormat::kText, false),
            "    id   row   col        x [px]        y [px]\n"
            "     1     0     0          10.5         20.25\n"
            "     2     0     1           110            21\n"
            "a.bmp: 2 points, 1 row x 2 columns\n");
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

TEST(PointsFile, ShowsKindsAndFailuresInTheTable) {
  PointsOfImage list = TwoPoints("a.bmp");
  list.points[1].kind = PointKind::kFilled;
  const PointsOfImage failed = {"b.bmp", 0, 0, {}, "too dark"};
  EXPECT_EQ(FormatPoints({list, failed}, PointsFormat::kText, false),
            "    id   row   col        x [px]        y [px] kind\n"
            "     1     0     0          10.5         20.25\n"
            "     2     0     1           110            21 filled\n"
            "a.bmp: 2 points, 1 row x 2 columns\n"
            "b.bmp: too dark\n");
}

TEST(PointsFile, ChoosesTheFormatByTheEndingOfAName) {
  EXPECT_EQ(FormatByName("a.json", PointsFormat::kCsv), PointsFormat::kJson);
  EXPECT_EQ(FormatByName("a.CSV", PointsFormat::kJson), PointsFormat::kCsv);
  EXPECT_EQ(FormatByName("a.csv.txt", PointsFormat::kJson), PointsFormat::kText);
  for (const char* name : {"", "-", "json", "a.js", "a.json.gz"}) {
    EXPECT_EQ(FormatByName(name, PointsFormat::kText), PointsFormat::kText) << name;
  }
}

TEST(PointsFile, FindsAnImageAmongOthers) {
  const TemporaryFolder folder;
  const std::string path = folder.File(
      "batch", FormatPoints({TwoPoints("a"), {"b", 0, 0, {}, "no target"}, TwoPoints("c")},
                            PointsFormat::kJson, true));
  const OneImageFile file = ReadOneImageFile(path, "c");
  EXPECT_EQ(file.list.image, "c");
  EXPECT_EQ(file.list.points.size(), 2u);
  EXPECT_EQ(file.format, PointsFormat::kJson);
  ASSERT_EQ(file.before.size(), 2u);
  EXPECT_EQ(file.before[0].image, "a");
  EXPECT_EQ(file.before[1].error, "no target");
  EXPECT_TRUE(file.after.empty());
  EXPECT_EQ(ErrorOfReading(path, "d"), path + " holds no image d; there are: a, b, c");
  EXPECT_EQ(ErrorOfReading(path, "b"), path + " holds no points of b: no target");
  EXPECT_EQ(ErrorOfReading(path, ""),
            path + " holds the points of 3 images; choose one with --image: a, b, c");
}

TEST(PointsFile, NamesTenImagesAtMost) {
  const TemporaryFolder folder;
  std::string text = "image,id,row,col,x,y\n";
  for (int i = 0; i < 12; ++i) {
    text += std::to_string(i) + ",1,0,0,5,5\n";
  }
  const std::string path = folder.File("batch.csv", text);
  EXPECT_EQ(ErrorOfReading(path, "x"),
            path + " holds no image x; there are: 0, 1, 2, 3, 4, 5, 6, 7, 8, 9 and 2 more");
}

TEST(PointsFile, SaysThatAnImageHasNoNameOrThatThereIsNone) {
  const TemporaryFolder folder;
  const std::string nameless = folder.File("p.csv", "id,row,col,x,y\n1,0,0,1,1\n");
  EXPECT_EQ(ErrorOfReading(nameless, "a"), nameless + " does not tell the name of its image");
  const std::string none = folder.File("none", "[]");
  EXPECT_EQ(ErrorOfReading(none, ""), none + " holds no image's points");
}

}  // namespace
}  // namespace quorvex::tests
