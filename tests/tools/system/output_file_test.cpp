#include "tools/system/output_file.h"

#include <gtest/gtest.h>

#include "tests/support/test_files.h"
#include "tools/errors.h"

namespace quorvex::tests {

using namespace tools;

namespace {

TEST(OutputFile, NothingAndADashAreStandardOutput) {
  EXPECT_TRUE(IsStandardOutput(""));
  EXPECT_TRUE(IsStandardOutput("-"));
  EXPECT_FALSE(IsStandardOutput("./-"));
  EXPECT_FALSE(IsStandardOutput("--"));
}

TEST(OutputFile, TextGoesToTheFileOrToStandardOutput) {
  const TemporaryFolder folder;
  WriteText(folder.Path("a.txt"), "one\ntwo\n");
  EXPECT_EQ(ReadWhole(folder.Path("a.txt")), "one\ntwo\n");
  testing::internal::CaptureStdout();
  WriteText("-", "to ");
  WriteText("", "all");
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "to all");
}

TEST(OutputFile, RequiringLeavesNothingBehind) {
  const TemporaryFolder folder;
  RequireWritable(folder.Path("a.txt"));
  RequireWritable("-");
  EXPECT_EQ(folder.FileCount(), 0u);
  EXPECT_THROW(RequireWritable(folder.Path("absent/a.txt")), InputError);
}

}  // namespace
}  // namespace quorvex::tests
