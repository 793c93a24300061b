#include "interface/point_text_file.h"

#include <gtest/gtest.h>

#include "tests/support/bytes.h"
#include "tests/support/points.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

TEST(WritePointTextFile, EndsLinesAsTheSystemDoes) {
  const TemporaryDirectory directory;
  WritePointTextFile("points.txt", {At(2.5f, -1.0f)});
  EXPECT_EQ(ReadWhole("points.txt"), "2.500000\t-1.000000\r\n");
}

}  // namespace
}  // namespace quorvex::tests
