#include "tools/lists/points_json.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "tools/errors.h"
#include "tools/lists/points_csv.h"

namespace quorvex::tests {

using namespace tools;

namespace {

PointsOfImage TwoPoints(const std::string& name) {
  return {name, 640, 480, {{1, 0, 0, 10.5, 20.25}, {2, 0, 1, 110, 21}}};
}

std::string ErrorOfReading(const std::string& text) {
  try {
    ParsePointsJson(text, "bad");
  } catch (const InputError& error) {
    return error.what();
  }
  return "no error";
}

TEST(PointsJson, WritesJsonWithOneLinePerPoint) {
  EXPECT_EQ(FormatPointsJson({TwoPoints("a\"b.bmp")}),
            "[\n {\n  \"image\": \"a\\\"b.bmp\",\n  \"width\": 640,\n  \"height\": 480,\n"
            "  \"points\": [\n"
            "   {\"id\": 1, \"row\": 0, \"col\": 0, \"x\": 10.5, \"y\": 20.25},\n"
            "   {\"id\": 2, \"row\": 0, \"col\": 1, \"x\": 110, \"y\": 21}\n"
            "  ]\n }\n]\n");
}

TEST(PointsJson, APointTellsItsKindWhereItIsKnown) {
  PointsOfImage list = TwoPoints("a");
  list.points[1].kind = PointKind::kFilled;
  const std::string text = FormatPointsJson({list});
  EXPECT_NE(text.find("\"y\": 20.25},\n"), std::string::npos) << text;
  EXPECT_NE(text.find("\"y\": 21, \"kind\": \"filled\"}\n"), std::string::npos) << text;
  const std::vector<PointsOfImage> images = ParsePointsJson(text, "p.json");
  ASSERT_EQ(images.size(), 1u);
  ASSERT_EQ(images[0].points.size(), 2u);
  EXPECT_EQ(images[0].points[0].kind, PointKind::kUnknown);
  EXPECT_EQ(images[0].points[1].kind, PointKind::kFilled);
}

TEST(PointsJson, APictureThatFailedSaysWhy) {
  const std::string text = FormatPointsJson({{"b", 0, 0, {}, "no \"target\""}});
  EXPECT_EQ(text, "[\n {\n  \"image\": \"b\",\n  \"error\": \"no \\\"target\\\"\"\n }\n]\n");
  const std::vector<PointsOfImage> images = ParsePointsJson(text, "p.json");
  ASSERT_EQ(images.size(), 1u);
  EXPECT_EQ(images[0].image, "b");
  EXPECT_EQ(images[0].error, "no \"target\"");
  EXPECT_TRUE(images[0].points.empty());
}

TEST(PointsJson, ZeroHasNoSign) {
  const std::vector<PointsOfImage> csv =
      ParsePointsCsv("image,id,row,col,x,y,cxx,cxy,cyy\na,1,0,0,-0,-0.0,1,-0e-6,1\n", "p.csv");
  const std::string text = FormatPointsJson(csv);
  EXPECT_EQ(text.find("-0"), std::string::npos) << text;
  const std::vector<PointsOfImage> json = ParsePointsJson(
      R"([{"image": "a", "width": 0, "height": 0,
           "points": [{"id": 1, "row": 0, "col": 0, "x": -0, "y": -0.0}]}])",
      "p.json");
  EXPECT_FALSE(std::signbit(json[0].points[0].x));
  EXPECT_FALSE(std::signbit(json[0].points[0].y));
}

struct BadFile {
  const char* text;
  const char* message;  // after the name
};

class BadPointsJson : public testing::TestWithParam<BadFile> {};

TEST_P(BadPointsJson, IsRefusedWithItsPlace) {
  EXPECT_EQ(ErrorOfReading(GetParam().text), std::string("bad") + GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    All, BadPointsJson,
    testing::Values(
        BadFile{"[\n{\n\"image\": }]", ":3: not valid JSON"}, BadFile{"[", ":1: not valid JSON"},
        BadFile{"[1e999]", " holds a number that is too large"},
        BadFile{"{}", " is not a list of images"}, BadFile{"[7]", ": image 1 is not an object"},
        BadFile{"[{}]", ": image 1 has no \"image\""},
        BadFile{R"([{"image": "a", "width": 4, "height": 4, "points": 5}])",
                ": \"points\" of image 1 is not a list"},
        BadFile{R"([{"image": "a", "width": 4, "height": 4,
                    "points": [{"id": 1.5, "row": 0, "col": 0, "x": 0, "y": 0}]}])",
                ": \"id\" of image 1, point 1 is not a whole number"},
        BadFile{R"([{"image": "a", "width": 4, "height": 4,
                    "points": [{"id": 4294967297, "row": 0, "col": 0, "x": 0, "y": 0}]}])",
                ": \"id\" of image 1, point 1 is not a whole number"},
        // The largest of 64 bits, whose bits are those of -1.
        BadFile{R"([{"image": "a", "width": 4, "height": 4,
                    "points": [{"id": 18446744073709551615, "row": 0, "col": 0, "x": 0, "y": 0}]}])",
                ": \"id\" of image 1, point 1 is not a whole number"},
        BadFile{R"([{"image": "a", "width": 4, "height": 4,
                    "points": [{"id": 1, "row": -2147483649, "col": 0, "x": 0, "y": 0}]}])",
                ": \"row\" of image 1, point 1 is not a whole number"},
        BadFile{R"([{"image": "a", "width": 4, "height": -4, "points": []}])",
                ": \"height\" of image 1 is not a number of pixels"},
        BadFile{R"([{"image": "a", "width": 4, "height": 4,
                    "points": [{"id": 1, "row": 0, "col": 0, "x": "1", "y": 0}]}])",
                ": \"x\" of image 1, point 1 is not a number"},
        BadFile{R"([{"image": "a", "width": 4, "height": 4,
                    "points": [{"id": 1, "row": 0, "col": 0, "x": 1, "y": 1, "kind": "failed"}]}])",
                ": \"kind\" of image 1, point 1 is not one of seen, filled, measured, doubtful, "
                "predicted"},
        BadFile{R"([{"image": "a", "error": 5}])", ": \"error\" of image 1 is not a text"}));

}  // namespace
}  // namespace quorvex::tests
