#include "tools/system/private_directory.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace quorvex::tests {

using namespace tools;

namespace {

TEST(PrivateDirectory, GoesWithEverythingInIt) {
  std::filesystem::path path;
  {
    const PrivateDirectory directory;
    path = directory.Path();
    EXPECT_TRUE(path.is_absolute());
    std::filesystem::create_directories(path / "deep" / "deeper");
    std::ofstream(path / "deep" / "file") << "text";
  }
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(PrivateDirectory, LiesInTheFolderForTemporaryFiles) {
  const PrivateDirectory directory;
  EXPECT_TRUE(FolderForTemporaryFiles().is_absolute());
  // The system's name may end in a separator.
  const std::filesystem::path sibling = FolderForTemporaryFiles() / "sibling";
  EXPECT_EQ(directory.Path().parent_path(), sibling.parent_path());
}

TEST(DescribeShortage, IsSilentWhileThereIsRoomOrNothingToLookAt) {
  const PrivateDirectory directory;
  ASSERT_GT(std::filesystem::space(directory.Path()).available, std::uintmax_t{1} << 20);
  EXPECT_EQ(DescribeShortage(directory.Path()), "");
  EXPECT_EQ(DescribeShortage(directory.Path() / "absent"), "");
}

}  // namespace
}  // namespace quorvex::tests
