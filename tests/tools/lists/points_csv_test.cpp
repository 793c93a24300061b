#include "tools/lists/points_csv.h"

#include <gtest/gtest.h>

#include <string>

#include "tools/errors.h"

namespace quorvex::tests {

using namespace tools;

namespace {

PointsOfImage TwoPoints(const std::string& name) {
  return {name, 640, 480, {{1, 0, 0, 10.5, 20.25}, {2, 0, 1, 110, 21}}};
}

std::string ErrorOfReading(const std::string& text) {
  try {
    ParsePointsCsv(text, "bad");
  } catch (const InputError& error) {
    return error.what();
  }
  return "no error";
}

TEST(PointsCsv, WritesCsv) {
  EXPECT_EQ(FormatPointsCsv({TwoPoints("a.bmp")}, false),
            "id,row,col,x,y\n1,0,0,10.5,20.25\n2,0,1,110,21\n");
}

TEST(PointsCsv, PutsTheImageInFrontOfCsvRowsAndQuotesIt) {
  EXPECT_EQ(FormatPointsCsv({{"a,\"b\".bmp", 4, 4, {{1, 0, 0, 2, 3}}}}, true),
            "image,id,row,col,x,y\n\"a,\"\"b\"\".bmp\",1,0,0,2,3\n");
}

TEST(PointsCsv, TakesForeignLineEndsMarkColumnOrderAndOtherColumns) {
  const std::vector<PointsOfImage> images = ParsePointsCsv(
      "\xEF\xBB\xBFy, x,note,col,row,id\r\n\r\n 2.5 ,1e1,\"a, b\",3,4,5\r\n", "points.csv");
  ASSERT_EQ(images.size(), 1u);
  ASSERT_EQ(images[0].points.size(), 1u);
  EXPECT_EQ(images[0].points[0].id, 5);
  EXPECT_EQ(images[0].points[0].row, 4);
  EXPECT_EQ(images[0].points[0].col, 3);
  EXPECT_EQ(images[0].points[0].x, 10);
  EXPECT_EQ(images[0].points[0].y, 2.5);
}

TEST(PointsCsv, AHeaderAloneIsAnImageWithoutPoints) {
  const std::vector<PointsOfImage> images = ParsePointsCsv("id,row,col,x,y\n", "p.csv");
  ASSERT_EQ(images.size(), 1u);
  EXPECT_TRUE(images[0].points.empty());
}

TEST(PointsCsv, KindsStandLast) {
  PointsOfImage list = TwoPoints("a");
  list.points[0].kind = PointKind::kSeen;
  list.points.push_back({3, 0, 2, 210, 22, PointKind::kFilled});
  EXPECT_EQ(FormatPointsCsv({list}, false),
            "id,row,col,x,y,kind\n1,0,0,10.5,20.25,seen\n2,0,1,110,21,\n3,0,2,210,22,filled\n");
}

TEST(PointsCsv, KindsSurviveTheRoundTrip) {
  PointsOfImage list = TwoPoints("");
  list.points[0].kind = PointKind::kFilled;
  list.points.push_back({3, 0, 2, 210, 22, PointKind::kSeen});
  const std::vector<PointsOfImage> images = ParsePointsCsv(FormatPointsCsv({list}, false), "p");
  ASSERT_EQ(images.size(), 1u);
  ASSERT_EQ(images[0].points.size(), 3u);
  EXPECT_EQ(images[0].points[0].kind, PointKind::kFilled);
  EXPECT_EQ(images[0].points[1].kind, PointKind::kUnknown);
  EXPECT_EQ(images[0].points[2].kind, PointKind::kSeen);
}

TEST(PointsCsv, APictureThatFailedHasARow) {
  const std::string text =
      FormatPointsCsv({TwoPoints("a"), {"b,1", 0, 0, {}, "no target was seen"}}, true);
  EXPECT_EQ(text,
            "image,id,row,col,x,y,kind\na,1,0,0,10.5,20.25,\na,2,0,1,110,21,\n"
            "\"b,1\",,,,,,failed\n");
  const std::vector<PointsOfImage> images = ParsePointsCsv(text, "p.csv");
  ASSERT_EQ(images.size(), 2u);
  EXPECT_EQ(images[0].error, "");
  EXPECT_EQ(images[1].image, "b,1");
  EXPECT_EQ(images[1].error, "the detection failed");
  EXPECT_EQ(FormatPointsCsv(images, true), text);
}

struct BadFile {
  const char* text;
  const char* message;  // after the name
};

class BadPointsCsv : public testing::TestWithParam<BadFile> {};

TEST_P(BadPointsCsv, IsRefusedWithItsPlace) {
  EXPECT_EQ(ErrorOfReading(GetParam().text), std::string("bad") + GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    All, BadPointsCsv,
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
        BadFile{"id,row,col,x,y\n1,2,3,4,\"5\n", ":2: a quoted field does not end on its line"},
        BadFile{"id,row,col,x,y,kind\n1,2,3,4,5,Seen\n",
                ":2: \"Seen\" in column \"kind\" is not seen, filled, measured, doubtful, "
                "predicted or failed"},
        BadFile{"image,id,row,col,x,y,kind\na,1,2,3,4,5,seen\nb,,,,,,failed\na,,,,,,failed\n",
                ":4: the image has points and a failed detection"},
        BadFile{"image,id,row,col,x,y,kind\na,,,,,,failed\na,1,2,3,4,5,seen\n",
                ":3: the image has points and a failed detection"},
        BadFile{"id,row,col,x,y,kind\n,,,,,seen\n",
                ":2: \"\" in column \"id\" is not a whole number"}));

TEST(PointsCsv, CovariancesStandBehindTheKinds) {
  PointsOfImage list = TwoPoints("a");
  list.points[0].kind = PointKind::kMeasured;
  list.points[0].covariance = Covariance{1.5e-5, -2e-6, 0.25};
  list.points[1].kind = PointKind::kDoubtful;
  const std::string text = FormatPointsCsv({list}, false);
  EXPECT_EQ(text,
            "id,row,col,x,y,kind,cxx,cxy,cyy\n"
            "1,0,0,10.5,20.25,measured,1.5e-05,-2e-06,0.25\n"
            "2,0,1,110,21,doubtful,,,\n");
  const std::vector<ListedPoint> points = ParsePointsCsv(text, "a")[0].points;
  ASSERT_TRUE(points[0].covariance);
  EXPECT_EQ(points[0].covariance->xx, 1.5e-5);
  EXPECT_EQ(points[0].covariance->xy, -2e-6);
  EXPECT_EQ(points[0].covariance->yy, 0.25);
  EXPECT_FALSE(points[1].covariance);
}

TEST(PointsCsv, AFailedImageHasNoCovariances) {
  PointsOfImage list = TwoPoints("a");
  list.points[0].covariance = Covariance{1, 0, 1};
  PointsOfImage failed;
  failed.image = "b";
  failed.error = "dark";
  const std::string text = FormatPointsCsv({list, failed}, true);
  EXPECT_NE(text.find("b,,,,,,failed,,,\n"), std::string::npos) << text;
  EXPECT_EQ(ParsePointsCsv(text, "a").size(), 2u);
}

}  // namespace
}  // namespace quorvex::tests
