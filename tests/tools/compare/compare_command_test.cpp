// The compare command: what it reads, and what it ends with.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/command_test.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::HasSubstr;

class CompareCommand : public CommandTest {
 protected:
  CompareCommand() {
    folder.File("points.csv", "id,row,col,x,y\n1,0,0,10,10\n2,0,1,113,10\n");
    folder.File("truth.csv", "row,col,x,y,missing\n0,0,10,10,0\n0,1,110,10,0\n");
  }
};

TEST_F(CompareCommand, AgreementIsSuccess) {
  EXPECT_EQ(Run("compare points.csv truth.csv"), 0);
  EXPECT_THAT(output, HasSubstr("found      2 of 2"));
}

TEST_F(CompareCommand, AMissedMarkOrALargeErrorIsNot) {
  EXPECT_EQ(Run("compare points.csv truth.csv --tolerance 2"), 1);
  EXPECT_EQ(Run("compare points.csv truth.csv --max-rms 2"), 1);
  EXPECT_THAT(errors, HasSubstr("2.121 px"));
  EXPECT_EQ(Run("compare points.csv truth.csv --max-rms 2.2"), 0);
}

TEST_F(CompareCommand, ReadsJsonAndWritesIt) {
  folder.File("points.json",
              R"([{"image": "a", "width": 4, "height": 4,
                   "points": [{"id": 1, "row": 0, "col": 0, "x": 10, "y": 10}]}])");
  EXPECT_EQ(Run("compare points.json truth.csv --format json"), 1);
  EXPECT_THAT(output, HasSubstr("\"missed\": 1"));
}

TEST_F(CompareCommand, RefusesBadInput) {
  EXPECT_EQ(Run("compare none.csv truth.csv"), 2);
  EXPECT_THAT(errors, HasSubstr("none.csv"));
  EXPECT_EQ(Run("compare points.csv points.csv"), 2);
  EXPECT_EQ(Run("compare points.csv"), 2);
  EXPECT_EQ(Run("compare points.csv truth.csv --tolerance 0"), 2);
  folder.File("two.csv", "image,id,row,col,x,y\na,1,0,0,1,1\nb,1,0,0,1,1\n");
  EXPECT_EQ(Run("compare two.csv truth.csv"), 2);
  EXPECT_THAT(errors, HasSubstr("2 images"));
}

class CompareBatch : public CommandTest {
 protected:
  CompareBatch() {
    folder.File("truth.csv", "row,col,x,y,missing\n0,0,10,20,0\n0,1,110,20,0\n");
    folder.File("batch.csv",
                "image,id,row,col,x,y,kind\na.bmp,1,0,0,10,20,seen\na.bmp,2,0,1,110,20,filled\n"
                "b.bmp,1,0,0,10,21,seen\nb.bmp,2,0,2,300,20,seen\nc.bmp,,,,,,failed\n");
  }
};

TEST_F(CompareBatch, TakesAnImagesPartOfABatch) {
  EXPECT_EQ(Run("compare batch.csv truth.csv --image a.bmp"), 0);
  EXPECT_THAT(output, HasSubstr("found      2 of 2"));
  EXPECT_EQ(Run("compare batch.csv truth.csv --image b.bmp"), 1);
  EXPECT_THAT(output, HasSubstr("found      1 of 2"));
}

TEST_F(CompareBatch, NamesTheImagesThereAre) {
  EXPECT_EQ(Run("compare batch.csv truth.csv"), 2);
  EXPECT_EQ(errors,
            "quorvex: batch.csv holds the points of 3 images; choose one with --image: a.bmp, "
            "b.bmp, c.bmp\n");
  EXPECT_EQ(Run("compare batch.csv truth.csv --image d.bmp"), 2);
  EXPECT_EQ(errors, "quorvex: batch.csv holds no image d.bmp; there are: a.bmp, b.bmp, c.bmp\n");
  EXPECT_EQ(Run("compare batch.csv truth.csv --image c.bmp"), 2);
  EXPECT_EQ(errors, "quorvex: batch.csv holds no points of c.bmp: the detection failed\n");
}

TEST_F(CompareBatch, ListsTheDetails) {
  EXPECT_EQ(Run("compare batch.csv truth.csv --image b.bmp --details"), 1);
  EXPECT_THAT(output, testing::EndsWith("\n\nkind,row,col,x,y,labelled_row,labelled_col\n"
                                        "missed,0,1,110,20,,\nextra,0,2,300,20,,\n"));
  EXPECT_EQ(Run("compare batch.csv truth.csv --image b.bmp --details --format json"), 1);
  EXPECT_THAT(output, HasSubstr("\"details\": [\n  {\"kind\": \"missed\", "));
}

TEST_F(CompareBatch, RefusesAnotherFormat) {
  EXPECT_EQ(Run("compare batch.csv truth.csv --image a.bmp --format csv"), 2);
  EXPECT_THAT(errors, HasSubstr("--format: csv is not one of text, json\n"));
}

}  // namespace
}  // namespace quorvex::tests
