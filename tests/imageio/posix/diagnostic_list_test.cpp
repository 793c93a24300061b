#include "imageio/diagnostic_list.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

class DiagnosticListOnPosix : public ::testing::Test {
 protected:
  static bool Opens() {
    std::FILE* const file = OpenDiagnosticList("list.txt");
    if (file != nullptr) {
      std::fclose(file);
    }
    return file != nullptr;
  }

 private:
  TemporaryDirectory directory_;
};

TEST_F(DiagnosticListOnPosix, WaitsForNoReaderOfAPipe) {
  ASSERT_EQ(mkfifo("list.txt", 0600), 0);
  EXPECT_FALSE(Opens());
  const int reader = open("list.txt", O_RDONLY | O_NONBLOCK);
  EXPECT_FALSE(Opens());
  close(reader);
}

TEST_F(DiagnosticListOnPosix, LeavesDevicesAlone) {
  std::filesystem::create_symlink("/dev/full", "list.txt");
  EXPECT_FALSE(Opens());
}

TEST_F(DiagnosticListOnPosix, FollowsALinkToAFile) {
  std::filesystem::create_symlink("elsewhere.txt", "list.txt");
  EXPECT_TRUE(Opens());
  EXPECT_TRUE(std::filesystem::exists("elsewhere.txt"));
}

}  // namespace
}  // namespace quorvex::tests
