#include "tools/system/system_files.h"

#include <gtest/gtest.h>

namespace quorvex::tests {

using namespace tools;

namespace {

TEST(FileNameKey, TakesNoNoticeOfCase) {
  EXPECT_EQ(FileNameKey("Part-\xC3\x84.bmp"), FileNameKey("part-\xC3\xA4.BMP"));
  EXPECT_NE(FileNameKey("part-a.bmp"), FileNameKey("part-\xC3\xA4.bmp"));
}

}  // namespace
}  // namespace quorvex::tests
