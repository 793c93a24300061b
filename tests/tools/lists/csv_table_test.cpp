#include "tools/lists/csv_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>

#include "tests/support/test_files.h"
#include "tools/errors.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::HasSubstr;

std::string ErrorOfReading(const std::string& path) {
  try {
    ReadTextFile(path);
  } catch (const InputError& error) {
    return error.what();
  }
  return "no error";
}

TEST(ReadTextFile, RefusesWhatIsNotAReadableFile) {
  const TemporaryFolder folder;
  EXPECT_THAT(ErrorOfReading(folder.Path("none.csv")), HasSubstr("cannot be opened"));
  EXPECT_THAT(ErrorOfReading(folder.Path()), HasSubstr("is a directory"));
}

TEST(ReadTextFile, RefusesAHugeFile) {
  const TemporaryFolder folder;
  const std::string path = folder.File("huge.csv", "id,row,col,x,y\n");
  std::filesystem::resize_file(path, (std::uintmax_t{64} << 20) + 1);
  EXPECT_THAT(ErrorOfReading(path), HasSubstr("is larger than 64 MiB"));
}

TEST(CsvField, QuotesWhatATableWouldTakeApart) {
  EXPECT_EQ(CsvField("plain text"), "plain text");
  EXPECT_EQ(CsvField("a,b"), "\"a,b\"");
  EXPECT_EQ(CsvField("say \"so\""), "\"say \"\"so\"\"\"");
  EXPECT_EQ(CsvField("two\nlines"), "\"two\nlines\"");
}

TEST(CsvTable, TakesFieldsApart) {
  const CsvTable table("a,b\n\"x \"\"y\"\", z\",2\n,\"\"\n", "t.csv");
  ASSERT_EQ(table.RowCount(), 2u);
  EXPECT_EQ(table.Text(0, 0), "x \"y\", z");
  EXPECT_EQ(table.Integer(0, 1), 2);
  EXPECT_EQ(table.Text(1, 0), "");
  EXPECT_EQ(table.Text(1, 1), "");
}

TEST(CsvTable, FindsColumnsByName) {
  const CsvTable table("b, a \n1,2.5\n", "t.csv");
  EXPECT_TRUE(table.HasColumn("a"));
  EXPECT_FALSE(table.HasColumn("c"));
  EXPECT_EQ(table.Number(0, table.ColumnNamed("a")), 2.5);
  EXPECT_THROW(table.ColumnNamed("c"), InputError);
}

}  // namespace
}  // namespace quorvex::tests
