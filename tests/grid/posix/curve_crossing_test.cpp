#include "grid/curve_crossing.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

// The folder "D:" is the user's to make.
TEST(IntersectRowAndColumnCurves, WithoutTheFolderNothingIsWritten) {
  const TemporaryDirectory directory;
  float x = 0.0f;
  float y = 0.0f;
  EXPECT_TRUE(
      IntersectRowAndColumnCurves({0.0f, 0.0f, 30.0f}, {0.0f, 0.0f, 40.0f}, 100, 100, x, y));
  EXPECT_TRUE(std::filesystem::is_empty("."));
}

}  // namespace
}  // namespace quorvex::tests
