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

TEST(CopyFileWhole, ReplacesAnEarlierFile) {
  const TemporaryFolder folder;
  const std::string big(200000, 'x');
  folder.File("from", big);
  folder.File("to", "an earlier one");
  CopyFileWhole(folder.Path("from"), folder.Path("to"));
  EXPECT_EQ(ReadWhole(folder.Path("to")), big);
  EXPECT_THROW(CopyFileWhole(folder.Path("from"), folder.Path("absent/to")), InputError);
  EXPECT_THROW(CopyFileWhole(folder.Path("absent"), folder.Path("to")), InputError);
  EXPECT_EQ(ReadWhole(folder.Path("to")), big);
  EXPECT_EQ(folder.FileCount(), 2u);
}

}  // namespace
}  // namespace quorvex::tests
