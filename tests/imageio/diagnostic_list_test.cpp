#include "imageio/diagnostic_list.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/support/bytes.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

TEST(DiagnosticList, OpensEmptied) {
  const TemporaryDirectory directory;
  std::ofstream("list.txt") << "earlier";
  std::FILE* const file = OpenDiagnosticList("list.txt");
  ASSERT_NE(file, nullptr);
  std::fclose(file);
  EXPECT_EQ(ReadWhole("list.txt"), "");
}

// Another writer leaves it alone, so that it is the list of one detection.
TEST(DiagnosticList, BelongsToOneUntilItIsEnded) {
  const TemporaryDirectory directory;
  std::FILE* const file = OpenDiagnosticList("list.txt");
  ASSERT_NE(file, nullptr);
  std::fprintf(file, "the first");
  EXPECT_EQ(OpenDiagnosticList("list.txt"), nullptr);
  std::fclose(file);
  EXPECT_EQ(ReadWhole("list.txt"), "the first");
}

TEST(DiagnosticList, AFolderIsNoList) {
  const TemporaryDirectory directory;
  std::filesystem::create_directory("list.txt");
  EXPECT_EQ(OpenDiagnosticList("list.txt"), nullptr);
  EXPECT_EQ(OpenDiagnosticList("missing/list.txt"), nullptr);
}

}  // namespace
}  // namespace quorvex::tests
