#include "tools/lists/truth_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/test_files.h"
#include "tools/errors.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::HasSubstr;

std::string ErrorOfReadingTruth(const std::string& path) {
  try {
    ReadTruthFile(path);
  } catch (const InputError& error) {
    return error.what();
  }
  return "no error";
}

TEST(TruthFile, ReadsMarks) {
  const TemporaryFolder folder;
  const std::vector<TruthMark> marks =
      ReadTruthFile(folder.File("truth.csv", "row,col,x,y,missing\n1,2,3.5,4.25,0\n1,3,5,6,1\n"));
  ASSERT_EQ(marks.size(), 2u);
  EXPECT_EQ(marks[0].row, 1);
  EXPECT_EQ(marks[0].column, 2);
  EXPECT_EQ(marks[0].x, 3.5);
  EXPECT_EQ(marks[0].y, 4.25);
  EXPECT_FALSE(marks[0].isMissing);
  EXPECT_TRUE(marks[1].isMissing);
}

TEST(TruthFile, RefusesOtherFlagsAndTables) {
  const TemporaryFolder folder;
  EXPECT_THAT(ErrorOfReadingTruth(folder.File("a", "row,col,x,y,missing\n1,2,3,4,yes\n")),
              HasSubstr("mark 1: \"missing\" is \"yes\", not 0 or 1"));
  EXPECT_THAT(ErrorOfReadingTruth(folder.File("b", "id,row,col,x,y\n1,2,3,4,5\n")),
              HasSubstr("has no column \"missing\""));
  EXPECT_THAT(ErrorOfReadingTruth(folder.File("c", "row,col,x,y,missing\n")),
              HasSubstr("holds no marks"));
}

TEST(TruthCsv, HasSixDecimalsAndTheMissingFlag) {
  EXPECT_EQ(TruthCsv({{0, 1, 2.5, 1000.0 / 3, false}, {12, 0, 7, 8, true}}),
            "row,col,x,y,missing\n"
            "0,1,2.500000,333.333333,0\n"
            "12,0,7.000000,8.000000,1\n");
}

}  // namespace
}  // namespace quorvex::tests
