// The verbs of the points command: what each does to a list.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/support/command_test.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::HasSubstr;

const std::string kHeader = "id,row,col,x,y\n";

class PointsCommand : public CommandTest {
 protected:
  PointsCommand() {
    folder.File("p.csv",
                kHeader + "1,0,0,10.5,20.25\n2,0,1,110,21\n2,5,6,115,25\n-1,-1,-1,300,400\n");
  }

  // What a verb writes to standard output, without the header.
  std::string Rows(const std::string& arguments) {
    EXPECT_EQ(Run("points " + arguments), 0) << errors;
    EXPECT_EQ(output.substr(0, kHeader.size()), kHeader);
    return output.substr(kHeader.size());
  }

  // The verb says why, and nothing is written.
  void ExpectRefused(const std::string& arguments, const std::string& reason) {
    EXPECT_EQ(Run("points " + arguments), 1) << arguments;
    EXPECT_EQ(output, "");
    EXPECT_EQ(errors, "quorvex: p.csv: " + reason + "\n");
  }
};

TEST_F(PointsCommand, ListShowsTheFile) {
  EXPECT_EQ(Run("points list p.csv"), 0);
  EXPECT_EQ(output, ReadWhole(folder.Path("p.csv")));
  EXPECT_EQ(errors, "");
}

TEST_F(PointsCommand, ListAsATableCountsTheGridWithoutPointsThatHaveNoPlace) {
  EXPECT_EQ(Run("points list p.csv --format text"), 0);
  EXPECT_EQ(
      output,
      "    id   row   col        x [px]        y [px]\n"
      "     1     0     0          10.5         20.25\n"
      "     2     0     1           110            21\n"
      "     2     5     6           115            25\n"
      "    -1    -1    -1           300           400\n"
      "4 points, 6 rows x 7 columns, empty: rows 1, 2, 3, 4; columns 2, 3, 4, 5; places (0,6), "
      "(5,0), (5,1), 1 without a place\n");
}

TEST_F(PointsCommand, QueryShowsTheFirstPointWithTheId) {
  EXPECT_EQ(Rows("query p.csv 2"), "2,0,1,110,21\n");
  EXPECT_EQ(errors, "");
  EXPECT_EQ(Rows("query p.csv -1"), "-1,-1,-1,300,400\n");
  ExpectRefused("query p.csv 7", "no point has the id 7");
}

TEST_F(PointsCommand, DeleteByIdRemovesEveryPointWithIt) {
  EXPECT_EQ(Rows("delete p.csv --id 2"), "1,0,0,10.5,20.25\n-1,-1,-1,300,400\n");
  EXPECT_EQ(errors, "p.csv: 2 of 4 points removed\n");
  EXPECT_EQ(Rows("delete p.csv --id -1"), "1,0,0,10.5,20.25\n2,0,1,110,21\n2,5,6,115,25\n");
  ExpectRefused("delete p.csv --id 7", "no point has the id 7");
}

TEST_F(PointsCommand, DeleteByPositionReachesLessThanNinePixels) {
  // 8 px to the first, 3 px to the second.
  EXPECT_EQ(Rows("delete p.csv --at 118,29"), "1,0,0,10.5,20.25\n-1,-1,-1,300,400\n");
  // 9 px to the first, which stays.
  EXPECT_EQ(Rows("delete p.csv --at 119,29"), "1,0,0,10.5,20.25\n2,0,1,110,21\n-1,-1,-1,300,400\n");
  ExpectRefused("delete p.csv --at 309,400",
                "no point is less than 9 px from (309, 400) in x and y");
}

TEST_F(PointsCommand, TheLastPointCanBeDeleted) {
  folder.File("one.csv", kHeader + "1,0,0,5,5\n");
  EXPECT_EQ(Rows("delete one.csv --id 1"), "");
}

TEST_F(PointsCommand, AddAppendsAPointWithoutAPlace) {
  const std::string before = ReadWhole(folder.Path("p.csv")).substr(kHeader.size());
  EXPECT_EQ(Rows("add p.csv --at 12.5,640"), before + "-1,-1,-1,12.5,640\n");
  EXPECT_EQ(errors, "");
  folder.File("none.csv", kHeader);
  EXPECT_EQ(Rows("add none.csv --at 1,2"), "-1,-1,-1,1,2\n");
}

TEST_F(PointsCommand, NegativePositionsAreRead) {
  EXPECT_THAT(Rows("add p.csv --at -3.5,7"), HasSubstr("\n-1,-1,-1,-3.5,7\n"));
  EXPECT_THAT(Rows("add p.csv --at -.5,-7"), HasSubstr("\n-1,-1,-1,-0.5,-7\n"));
  EXPECT_THAT(Rows("add p.csv --at=-3.5,7"), HasSubstr("\n-1,-1,-1,-3.5,7\n"));
  EXPECT_THAT(Rows("move p.csv -1 --to -8,-9"), HasSubstr("\n-1,-1,-1,-8,-9\n"));
}

TEST_F(PointsCommand, PositionsAreFloatsWithNineDigits) {
  // The floats nearest to 0.1 and to 2^24 + 1.
  EXPECT_THAT(Rows("add p.csv --at 0.1,16777217"), HasSubstr("\n-1,-1,-1,0.100000001,16777216\n"));
}

TEST_F(PointsCommand, MoveChangesTheFirstPointWithTheIdAndKeepsItsPlace) {
  EXPECT_EQ(Rows("move p.csv 2 --to 111.5,22"),
            "1,0,0,10.5,20.25\n2,0,1,111.5,22\n2,5,6,115,25\n-1,-1,-1,300,400\n");
  EXPECT_EQ(errors, "");
}

TEST_F(PointsCommand, MoveSetsRowAndColumnWhenGiven) {
  EXPECT_THAT(Rows("move p.csv -1 --to 1,2 --row 3 --col 4"), HasSubstr("\n-1,3,4,1,2\n"));
  EXPECT_THAT(Rows("move p.csv 1 --to 1,2 --row -1"), HasSubstr("1,-1,0,1,2\n"));
  EXPECT_THAT(Rows("move p.csv 1 --to 1,2 --col 2147483647"), HasSubstr("1,0,2147483647,1,2\n"));
  ExpectRefused("move p.csv 7 --to 1,2", "no point has the id 7");
}

// Nine points 100 px apart, in no order.
class PointsRenumber : public PointsCommand {
 protected:
  PointsRenumber() {
    folder.File("grid.csv", kHeader +
                                "7,1,1,200,300\n-1,-1,-1,100,100\n5,0,0,300,200\n"
                                "5,0,0,300,100\n5,0,0,100,300\n5,0,0,200,100\n"
                                "5,0,0,100,200\n5,0,0,200,200\n5,0,0,300,300\n");
  }
};

TEST_F(PointsRenumber, NumbersTheGridColumnByColumn) {
  EXPECT_EQ(Rows("renumber grid.csv --rows 3 --columns 3"),
            "1,0,0,100,100\n4,1,0,100,200\n7,2,0,100,300\n"
            "2,0,1,200,100\n5,1,1,200,200\n8,2,1,200,300\n"
            "3,0,2,300,100\n6,1,2,300,200\n9,2,2,300,300\n");
  EXPECT_EQ(errors, "");
}

TEST_F(PointsRenumber, SaysThatTheNumberOfPointsDiffers) {
  // One sentence: the library's own message is not seen.
  ExpectRefused("renumber p.csv --rows 3 --columns 3",
                "4 points are not a grid of 3 rows x 3 columns, which has 9");
  EXPECT_EQ(Run("points renumber p.csv --rows 32768 --columns 32768"), 1);
  EXPECT_THAT(errors, HasSubstr("which has 1073741824"));
}

TEST_F(PointsRenumber, SaysThatThePointsAreNoSuchGrid) {
  ExpectRefused("renumber p.csv --rows 2 --columns 2",
                "the points do not form a grid of 2 rows x 2 columns whose spacing shrinks from "
                "the middle outwards");
  EXPECT_EQ(Run("points renumber grid.csv --rows 1 --columns 9"), 1);
  EXPECT_THAT(errors, HasSubstr("do not form a grid of 1 rows x 9 columns"));
}

TEST_F(PointsRenumber, NeedsSpacingThatShrinks) {
  std::string equal = kHeader;
  std::string shrinking = kHeader;
  for (const int y : {0, 90, 190, 290, 380}) {
    for (const int x : {0, 90, 190, 290, 380}) {
      shrinking += "1,0,0," + std::to_string(x) + "," + std::to_string(y) + "\n";
    }
  }
  for (int i = 0; i < 25; ++i) {
    equal += "1,0,0," + std::to_string(i % 5 * 100) + "," + std::to_string(i / 5 * 100) + "\n";
  }
  folder.File("p.csv", equal);
  ExpectRefused("renumber p.csv --rows 5 --columns 5",
                "the points do not form a grid of 5 rows x 5 columns whose spacing shrinks from "
                "the middle outwards");
  folder.File("shrinking.csv", shrinking);
  EXPECT_THAT(Rows("renumber shrinking.csv --rows 5 --columns 5"),
              testing::EndsWith("\n20,3,4,380,290\n25,4,4,380,380\n"));
}

// Column 0 is full, column 1 holds two of three points, one point has no place.
class PointsRearrange : public PointsCommand {
 protected:
  PointsRearrange() {
    folder.File("p.csv", kHeader +
                             "1,0,0,10,10\n3,0,1,20,11\n5,1,0,11,20\n6,1,1,21,21\n"
                             "8,2,0,12,30\n-1,-1,-1,70,70\n");
  }
};

TEST_F(PointsRearrange, LeftCountsFromTheLargestYUp) {
  EXPECT_EQ(Rows("rearrange p.csv left --count 3"),
            "1,0,0,12,30\n2,0,1,11,20\n3,0,2,10,10\n4,1,0,21,21\n5,1,1,20,11\n");
  EXPECT_EQ(errors, "p.csv: 1 of 6 points removed\n");
}

TEST_F(PointsRearrange, RightCountsFromTheSmallestYDown) {
  EXPECT_EQ(Rows("rearrange p.csv right --count 3"),
            "3,0,2,10,10\n2,0,1,11,20\n1,0,0,12,30\n6,1,2,20,11\n5,1,1,21,21\n");
}

TEST_F(PointsRearrange, TheCountIsThatOfTheColumnsWhenNotGiven) {
  EXPECT_EQ(Rows("rearrange p.csv left"), Rows("rearrange p.csv left --count 2"));
  EXPECT_EQ(output, kHeader + "1,0,0,12,30\n2,0,1,11,20\n3,0,2,10,10\n3,1,0,21,21\n4,1,1,20,11\n");
  EXPECT_EQ(Rows("rearrange p.csv left --count 1"), "1,0,0,12,30\n2,0,1,11,20\n3,0,2,10,10\n");
}

TEST_F(PointsRearrange, NeverEmptiesTheList) {
  folder.File("p.csv", kHeader + "1,0,4,10,10\n");
  ExpectRefused("rearrange p.csv left --count 4", "no point has a column from 0 to 3");
  folder.File("p.csv", kHeader + "-1,-1,-1,10,10\n");
  ExpectRefused("rearrange p.csv right", "no point has a column");
  folder.File("p.csv", kHeader);
  ExpectRefused("rearrange p.csv right --count 2", "no point has a column from 0 to 1");
}

TEST_F(PointsCommand, RefusesBadUsage) {
  for (const char* arguments : {"",
                                "turn p.csv",
                                "list",
                                "query p.csv",
                                "query p.csv one",
                                "query p.csv 99999999999",
                                "delete p.csv",
                                "delete p.csv --id 1 --at 2,3",
                                "delete p.csv --id 1.5",
                                "delete p.csv --at 1",
                                "delete p.csv --at 1,2,3",
                                "add p.csv",
                                "add p.csv --at a,b",
                                "add p.csv --at nan,1",
                                "add p.csv --at 1e39,1",
                                "move p.csv 1",
                                "move p.csv --to 1,2",
                                "move p.csv 1 --to 1,2 --row 1e1",
                                "renumber p.csv --rows 2",
                                "renumber p.csv --columns 2",
                                "renumber p.csv --rows 0 --columns 2",
                                "renumber p.csv --rows 2 --columns 32769",
                                "rearrange p.csv",
                                "rearrange p.csv up",
                                "rearrange p.csv left --count 0",
                                "convert p.csv",
                                "convert p.csv --format xml",
                                "list p.csv --in-place",
                                "add p.csv --at 1,2 --in-place --output q.csv",
                                "add p.csv --at 1,2 -i --format csv"}) {
    EXPECT_EQ(Run(std::string("points ") + arguments), 2) << arguments;
    EXPECT_EQ(output, "") << arguments;
    EXPECT_NE(errors, "") << arguments;
  }
}

TEST_F(PointsCommand, SaysWhichWordsAChoiceAllows) {
  EXPECT_EQ(Run("points list p.csv --format xml"), 2);
  EXPECT_THAT(errors, HasSubstr("--format: xml is not one of csv, json, text\n"));
  EXPECT_EQ(Run("points rearrange p.csv up"), 2);
  EXPECT_THAT(errors, HasSubstr("side: up is not one of left, right\n"));
  EXPECT_EQ(Run("points list p.csv --format JSON"), 0);
}

TEST_F(PointsCommand, EveryVerbHasHelp) {
  EXPECT_EQ(Run("points --help"), 0);
  EXPECT_THAT(output, HasSubstr("Examples:"));
  for (const char* verb :
       {"list", "query", "delete", "add", "move", "renumber", "rearrange", "convert"}) {
    EXPECT_EQ(Run("points " + std::string(verb) + " --help"), 0);
    EXPECT_THAT(output, HasSubstr("--output")) << verb;
  }
}

}  // namespace
}  // namespace quorvex::tests
