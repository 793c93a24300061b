#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tests/support/read_result.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

TEST(ReadNamedPipe, IsRefusedInsteadOfWaitedFor) {
  const TemporaryDirectory directory;
  ASSERT_EQ(mkfifo("pipe", 0600), 0);
  const ReadResult result = Read("pipe");
  EXPECT_FALSE(result.isRead);
  EXPECT_TRUE(result.IsUntouched());
}

}  // namespace
}  // namespace quorvex::tests
