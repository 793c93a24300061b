#include "tools/system/system_files.h"

#include <gtest/gtest.h>

#include <cerrno>

#include "tests/support/test_files.h"
#include "tools/system/file_name.h"

namespace quorvex::tests {

using namespace tools;

namespace {

TEST(CreateNewFile, WritesTheBytesAsTheyAre) {
  const TemporaryFolder folder;
  const std::string path = folder.Path("n\xC3\xBC.txt");
  std::FILE* file = CreateNewFile(PathFromUtf8(path));
  ASSERT_NE(file, nullptr);
  std::fputs("a\nb\r\n\x1A", file);
  std::fclose(file);
  EXPECT_EQ(ReadWhole(path), "a\nb\r\n\x1A");
}

TEST(CreateNewFile, LeavesAFileThatIsThereAlone) {
  const TemporaryFolder folder;
  folder.File("kept", "text");
  errno = 0;
  EXPECT_EQ(CreateNewFile(folder.Path("kept")), nullptr);
  EXPECT_EQ(errno, EEXIST);
  EXPECT_EQ(ReadWhole(folder.Path("kept")), "text");
}

TEST(CreateNewFile, SaysThatTheFolderIsMissing) {
  const TemporaryFolder folder;
  EXPECT_EQ(CreateNewFile(folder.Path("absent/file")), nullptr);
  EXPECT_EQ(errno, ENOENT);
}

}  // namespace
}  // namespace quorvex::tests
