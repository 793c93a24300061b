#include "interface/point_text_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/support/bytes.h"
#include "tests/support/points.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

TEST(WritePointTextFile, WritesOneLineAPointInListOrder) {
  const TemporaryDirectory directory;
  WritePointTextFile("points.txt", {At(2.5f, -1.0f), At(0.0f, 1234.0625f)});
  EXPECT_EQ(ReadText("points.txt"), "2.500000\t-1.000000\n0.000000\t1234.062500\n");
}

TEST(WritePointTextFile, WritesTheExactValueOfTheFloat) {
  const TemporaryDirectory directory;
  WritePointTextFile("points.txt", {At(0.1f, 16777216.0f)});  // 0.1f is 0.100000001490...
  EXPECT_EQ(ReadText("points.txt"), "0.100000\t16777216.000000\n");
}

TEST(WritePointTextFile, ReplacesAnEarlierFile) {
  const TemporaryDirectory directory;
  WritePointTextFile("points.txt", {At(1.0f, 2.0f), At(3.0f, 4.0f)});
  WritePointTextFile("points.txt", {});
  EXPECT_TRUE(std::filesystem::exists("points.txt"));
  EXPECT_EQ(ReadText("points.txt"), "");
}

TEST(WritePointTextFile, AMissingFolderIsSkipped) {
  const TemporaryDirectory directory;
  WritePointTextFile("missing/Row.txt", {At(1.0f, 2.0f)});
  EXPECT_TRUE(std::filesystem::is_empty("."));
}

}  // namespace
}  // namespace quorvex::tests
