#include "tools/system/system_files.h"

#include <gtest/gtest.h>

#include "tools/system/file_name.h"

namespace quorvex::tests {

using namespace tools;

namespace {

TEST(FileNameKey, TakesNoNoticeOfCase) {
  EXPECT_EQ(FileNameKey(PathFromUtf8("Part-\xC3\x84.bmp")),
            FileNameKey(PathFromUtf8("part-\xC3\xA4.BMP")));
  EXPECT_NE(FileNameKey("part-a.bmp"), FileNameKey(PathFromUtf8("part-\xC3\xA4.bmp")));
}

}  // namespace
}  // namespace quorvex::tests
