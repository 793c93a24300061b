#include "interface/point_text_file.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

#include "tests/support/points.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

TEST(WritePointTextFile, EndsLinesAsTheSystemDoes) {
  const TemporaryDirectory directory;
  WritePointTextFile("points.txt", {At(2.5f, -1.0f)});
  std::ifstream file("points.txt", std::ios::binary);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), "2.500000\t-1.000000\r\n");
}

}  // namespace
}  // namespace quorvex::tests
