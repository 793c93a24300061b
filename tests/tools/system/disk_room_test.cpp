#include "tools/system/disk_room.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/temporary_folder.h"

namespace quorvex::tests {

using namespace tools;

namespace {

TEST(BytesText, TakesTheUnitThatFits) {
  EXPECT_EQ(BytesText(0), "0 bytes");
  EXPECT_EQ(BytesText(1023), "1023 bytes");
  EXPECT_EQ(BytesText(1024), "1.0 KiB");
  EXPECT_EQ(BytesText(3 * 1024 * 1024 / 2), "1.5 MiB");
  EXPECT_EQ(BytesText(std::uintmax_t{5} << 40), "5.0 TiB");
}

TEST(DescribeRoom, NamesFolderAndDisk) {
  const TemporaryFolder folder;
  const std::string room = DescribeRoom(folder.Path());
  EXPECT_THAT(room, testing::StartsWith(folder.Path() + ", on a disk with "));
  EXPECT_THAT(room, testing::EndsWith(" free"));
  EXPECT_EQ(DescribeRoom(folder.Path("none")), folder.Path("none"));
}

}  // namespace
}  // namespace quorvex::tests
