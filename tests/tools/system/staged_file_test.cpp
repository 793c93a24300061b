#include "tools/system/staged_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/support/test_files.h"
#include "tools/errors.h"

namespace quorvex::tests {

using namespace tools;

namespace {

TEST(StagedFile, AppearsWithItsCommit) {
  const TemporaryFolder folder;
  folder.File("a", "before");
  StagedFile file(folder.Path("a"), {'n', 'e', 'w'});
  EXPECT_EQ(ReadWhole(folder.Path("a")), "before");
  EXPECT_EQ(folder.FileCount(), 2u);
  file.Commit();
  EXPECT_EQ(ReadWhole(folder.Path("a")), "new");
  EXPECT_EQ(folder.FileCount(), 1u);
}

TEST(StagedFile, LeavesNothingWithoutACommit) {
  const TemporaryFolder folder;
  { const StagedFile neverCommitted(folder.Path("a"), {'n', 'e', 'w'}); }
  EXPECT_EQ(folder.FileCount(), 0u);
}

TEST(StagedFile, SaysWhatItCannotReplace) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder.Path("folder"));
  try {
    WriteFileWhole(folder.Path("folder"), {});
    ADD_FAILURE() << "was written";
  } catch (const InputError& error) {
    EXPECT_EQ(std::string(error.what()),
              "cannot write " + folder.Path("folder") + ": it is a directory");
  }
  EXPECT_THROW(WriteFileWhole(folder.Path("absent/a"), {}), InputError);
}

}  // namespace
}  // namespace quorvex::tests
