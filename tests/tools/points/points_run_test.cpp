// What the points command reads, and where its list goes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>

#include "tests/support/command_test.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::HasSubstr;

constexpr const char* kCsv = "id,row,col,x,y\n1,0,0,10.5,20.25\n2,0,1,110,21\n";
constexpr const char* kJson =
    "[\n {\n  \"image\": \"a.bmp\",\n  \"width\": 640,\n  \"height\": 480,\n  \"points\": [\n"
    "   {\"id\": 1, \"row\": 0, \"col\": 0, \"x\": 10.5, \"y\": 20.25},\n"
    "   {\"id\": 2, \"row\": 0, \"col\": 1, \"x\": 110, \"y\": 21}\n  ]\n }\n]\n";

class PointsFiles : public CommandTest {
 protected:
  PointsFiles() {
    folder.File("p.csv", kCsv);
    folder.File("p.json", kJson);
    Run("--version");  // so that the captured output is among the files counted
  }

  std::string Whole(const std::string& name) const { return ReadWhole(folder.Path(name)); }
};

TEST_F(PointsFiles, ConvertsBetweenTheFormats) {
  EXPECT_EQ(Run("points convert p.json --format csv"), 0);
  EXPECT_EQ(output, kCsv);
  EXPECT_EQ(Run("points convert p.json --format json"), 0);
  EXPECT_EQ(output, kJson);
  EXPECT_EQ(Run("points convert p.json --format text"), 0);
  EXPECT_THAT(output, HasSubstr("a.bmp: 2 points, 1 row x 2 columns\n"));
  // A CSV file does not tell name and size.
  EXPECT_EQ(Run("points convert p.csv --format json --output new.json"), 0);
  EXPECT_EQ(output, "");
  EXPECT_THAT(Whole("new.json"), HasSubstr("\"image\": \"\",\n  \"width\": 0,\n  \"height\": 0,"));
  EXPECT_EQ(Run("points convert new.json --format csv"), 0);
  EXPECT_EQ(output, kCsv);
}

TEST_F(PointsFiles, AJsonListKeepsItsImageAndSize) {
  EXPECT_EQ(Run("points delete p.json --id 2"), 0);
  EXPECT_EQ(output,
            "[\n {\n  \"image\": \"a.bmp\",\n  \"width\": 640,\n  \"height\": 480,\n"
            "  \"points\": [\n   {\"id\": 1, \"row\": 0, \"col\": 0, \"x\": 10.5, \"y\": 20.25}\n"
            "  ]\n }\n]\n");
}

TEST_F(PointsFiles, AnImageColumnIsKept) {
  folder.File("named.csv", "image,id,row,col,x,y\n\"a,1.bmp\",1,0,0,10,20\n");
  EXPECT_EQ(Run("points add named.csv --at 1,2"), 0);
  EXPECT_EQ(output, "image,id,row,col,x,y\n\"a,1.bmp\",1,0,0,10,20\n\"a,1.bmp\",-1,-1,-1,1,2\n");
}

TEST_F(PointsFiles, EditsGoToTheOutputAndLeaveTheListAlone) {
  EXPECT_EQ(Run("points move p.csv 1 --to 5,6 --output q.csv"), 0);
  EXPECT_EQ(output, "");
  EXPECT_EQ(Whole("q.csv"), "id,row,col,x,y\n1,0,0,5,6\n2,0,1,110,21\n");
  EXPECT_EQ(Whole("p.csv"), kCsv);
}

TEST_F(PointsFiles, WritesOverTheListOnlyInPlace) {
  const std::size_t files = folder.FileCount();
  EXPECT_EQ(Run("points add p.csv --at 1,2 --output p.csv"), 2);
  EXPECT_EQ(errors, "quorvex: p.csv is the list itself; --in-place writes over it\n");
  EXPECT_EQ(Run("points add p.csv --at 1,2 --output ./temporary/../p.csv"), 2);
  EXPECT_EQ(Whole("p.csv"), kCsv);
  EXPECT_EQ(Run("points add p.csv --at 1,2 --in-place"), 0);
  EXPECT_EQ(output, "");
  EXPECT_EQ(Whole("p.csv"), std::string(kCsv) + "-1,-1,-1,1,2\n");
  EXPECT_EQ(folder.FileCount(), files);
}

TEST_F(PointsFiles, NothingIsWrittenWhenNothingChanges) {
  folder.File("q.csv", "kept");
  for (const char* edit :
       {"delete p.csv --id 7", "delete p.csv --at 500,500", "move p.csv 7 --to 1,2",
        "renumber p.csv --rows 3 --columns 3", "renumber p.csv --rows 2 --columns 1"}) {
    EXPECT_EQ(Run(std::string("points ") + edit + " --in-place"), 1) << edit;
    EXPECT_EQ(Whole("p.csv"), kCsv) << edit;
    EXPECT_EQ(Run(std::string("points ") + edit + " --output q.csv"), 1) << edit;
    EXPECT_EQ(Whole("q.csv"), "kept") << edit;
    EXPECT_EQ(output, "") << edit;
  }
}

TEST_F(PointsFiles, SaysThatTheOutputCannotBeWritten) {
  EXPECT_EQ(Run("points add p.csv --at 1,2 --output no/such/q.csv"), 2);
  EXPECT_THAT(errors, HasSubstr("no/such/q.csv"));
  EXPECT_EQ(Run("points add p.csv --at 1,2 --output temporary"), 2);
  EXPECT_THAT(errors, HasSubstr("temporary"));
}

TEST_F(PointsFiles, RefusesSeveralImagesAndNone) {
  folder.File("two.csv", "image,id,row,col,x,y\na,1,0,0,1,1\nb,1,0,0,1,1\n");
  EXPECT_EQ(Run("points list two.csv"), 2);
  EXPECT_EQ(errors,
            "quorvex: two.csv holds the points of 2 images; choose one with --image: a, b\n");
  folder.File("none.json", "[]");
  EXPECT_EQ(Run("points list none.json"), 2);
  EXPECT_EQ(errors, "quorvex: none.json holds no image's points\n");
}

constexpr const char* kBatch =
    "image,id,row,col,x,y,kind\na.bmp,1,0,0,10,20,seen\na.bmp,2,0,1,110,20,filled\n"
    "b.bmp,1,0,0,10,21,filled\nc.bmp,,,,,,failed\n";

TEST_F(PointsFiles, AnImagesPartOfABatchIsShownAlone) {
  folder.File("batch.csv", kBatch);
  EXPECT_EQ(Run("points list batch.csv --image b.bmp"), 0);
  EXPECT_EQ(output, "image,id,row,col,x,y,kind\nb.bmp,1,0,0,10,21,filled\n");
  EXPECT_EQ(Run("points list batch.csv --image d.bmp"), 2);
  EXPECT_EQ(errors, "quorvex: batch.csv holds no image d.bmp; there are: a.bmp, b.bmp, c.bmp\n");
  EXPECT_EQ(Run("points list batch.csv --image c.bmp"), 2);
  EXPECT_EQ(errors, "quorvex: batch.csv holds no points of c.bmp: the detection failed\n");
}

TEST_F(PointsFiles, InPlaceKeepsABatchsOtherImages) {
  folder.File("batch.csv", kBatch);
  EXPECT_EQ(Run("points move batch.csv 2 --to 111,20 --image a.bmp --in-place"), 0);
  EXPECT_EQ(Whole("batch.csv"),
            "image,id,row,col,x,y,kind\na.bmp,1,0,0,10,20,seen\na.bmp,2,0,1,111,20,seen\n"
            "b.bmp,1,0,0,10,21,filled\nc.bmp,,,,,,failed\n");
}

TEST_F(PointsFiles, KindsAreKeptAndEditedPointsCountAsSeen) {
  folder.File("k.csv", "id,row,col,x,y,kind\n1,0,0,10,20,filled\n2,0,1,110,20,filled\n");
  EXPECT_EQ(Run("points add k.csv --at 5,6"), 0);
  EXPECT_EQ(output,
            "id,row,col,x,y,kind\n1,0,0,10,20,filled\n2,0,1,110,20,filled\n-1,-1,-1,5,6,seen\n");
  EXPECT_EQ(Run("points query k.csv 2 --format json"), 0);
  EXPECT_THAT(output, HasSubstr("\"y\": 20, \"kind\": \"filled\"}"));
}

TEST_F(PointsFiles, TheOutputsNameChoosesTheFormat) {
  EXPECT_EQ(Run("points convert p.csv -o q.JSON"), 0);
  EXPECT_THAT(Whole("q.JSON"), testing::StartsWith("[\n {\n  \"image\": \"\","));
  EXPECT_EQ(Run("points list p.json -o q.csv"), 0);
  EXPECT_EQ(Whole("q.csv"), kCsv);
  EXPECT_EQ(Run("points list p.json -o q.txt --format json"), 0);
  EXPECT_EQ(Whole("q.txt"), kJson);
  EXPECT_EQ(Run("points convert p.csv -o q"), 2);
  EXPECT_EQ(errors,
            "quorvex: convert needs --format, or an --output that ends in .csv, .json or .txt\n");
}

TEST_F(PointsFiles, ADashIsStandardOutput) {
  EXPECT_EQ(Run("points list p.csv -o -"), 0);
  EXPECT_EQ(output, kCsv);
  EXPECT_FALSE(folder.Has("-"));
}

struct BrokenList {
  const char* text;
  const char* message;  // after the file's name
};

class BrokenPointsList : public PointsFiles, public testing::WithParamInterface<BrokenList> {};

TEST_P(BrokenPointsList, IsRefusedInOneSentenceAndLeftAlone) {
  folder.File("bad.csv", GetParam().text);
  const std::size_t files = folder.FileCount();
  for (const char* edit :
       {"add bad.csv --at 1,2 --in-place", "delete bad.csv --id 1", "query bad.csv 1",
        "renumber bad.csv --rows 1 --columns 1", "rearrange bad.csv left --in-place"}) {
    EXPECT_EQ(Run(std::string("points ") + edit), 2) << edit;
    EXPECT_EQ(errors, std::string("quorvex: bad.csv") + GetParam().message + "\n");
    EXPECT_EQ(output, "");
  }
  EXPECT_EQ(Whole("bad.csv"), GetParam().text);
  EXPECT_EQ(folder.FileCount(), files);
}

INSTANTIATE_TEST_SUITE_P(
    PointsFiles, BrokenPointsList,
    testing::Values(
        BrokenList{"", " is empty"},
        BrokenList{"id,row,col,x\n1,0,0,1\n", " has no column \"y\" in its first line"},
        BrokenList{"id,row,col,x,y,id\n1,0,0,1,1,1\n", ":1: the column \"id\" appears twice"},
        BrokenList{"id,row,col,x,y\n1,0,0,ten,1\n", ":2: \"ten\" in column \"x\" is not a number"},
        BrokenList{"id,row,col,x,y\n1,0,0,1,1\n1,0,0,1,nan\n",
                   ":3: \"nan\" in column \"y\" is not a number"},
        BrokenList{"id,row,col,x,y\n2147483648,0,0,1,1\n",
                   ":2: \"2147483648\" in column \"id\" is not a whole number"},
        BrokenList{"id,row,col,x,y\n1,0,0,1,1\n2,0,0,1e39,1\n",
                   ": the position of point 2 is too large for a 32-bit float"},
        BrokenList{"[{\"image\": \"a\",\n \"width\": 4, \"height\": 4, \"points\": [}]\n",
                   ":2: not valid JSON"},
        BrokenList{R"([{"image": "a", "width": 4, "height": 4, "points": [{"id": 1}]}])",
                   ": image 1, point 1 has no \"row\""},
        BrokenList{R"([{"image": "a", "width": 4, "height": 4,
                        "points": [{"id": 1, "row": 0, "col": 0, "x": NaN, "y": 0}]}])",
                   ":2: not valid JSON"}));

TEST_F(PointsFiles, RefusesAHugeFileAndAMissingOne) {
  folder.File("huge.csv", kCsv);
  std::filesystem::resize_file(folder.Path("huge.csv"), (std::uintmax_t{64} << 20) + 1);
  EXPECT_EQ(Run("points delete huge.csv --id 1 --in-place"), 2);
  EXPECT_EQ(errors, "quorvex: huge.csv is larger than 64 MiB\n");
  EXPECT_EQ(Run("points list absent.csv"), 2);
  EXPECT_EQ(errors, "quorvex: absent.csv cannot be opened\n");
  EXPECT_EQ(Run("points list temporary"), 2);
  EXPECT_EQ(errors, "quorvex: temporary is a directory, not a file\n");
}

}  // namespace
}  // namespace quorvex::tests
