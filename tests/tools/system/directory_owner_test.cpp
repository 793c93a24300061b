#include "tools/system/directory_owner.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/support/test_files.h"
#include "tools/system/private_directory.h"

namespace quorvex::tests {

using namespace tools;

namespace {

namespace fs = std::filesystem;

// A directory as a killed run leaves it.
void MakeOwnerless(const fs::path& directory) {
  fs::create_directories(directory / "deep");
  DirectoryOwner(directory).Release();
}

TEST(DirectoryOwner, DirectoriesOfEndedRunsGoWithAllThatIsInThem) {
  const TemporaryFolder folder;
  MakeOwnerless(folder.Root() / "quorvex-a");
  folder.File("quorvex-a/Mask.bmp", "picture");
  folder.File("quorvex-a/deep/Row.txt", "list");
  MakeOwnerless(folder.Root() / "quorvex-b");
  RemoveOwnerlessDirectories(folder.Root());
  EXPECT_EQ(folder.FileCount(), 0u);
}

TEST(DirectoryOwner, DirectoriesInUseStay) {
  const TemporaryFolder folder;
  fs::create_directory(folder.Root() / "quorvex-a");
  folder.File("quorvex-a/Mask.bmp", "picture");
  {
    const DirectoryOwner owner(folder.Root() / "quorvex-a");
    RemoveOwnerlessDirectories(folder.Root());
    EXPECT_TRUE(folder.Has("quorvex-a/Mask.bmp"));
  }
  RemoveOwnerlessDirectories(folder.Root());
  EXPECT_FALSE(folder.Has("quorvex-a"));
}

TEST(DirectoryOwner, WhatIsNotTheCommandsStays) {
  const TemporaryFolder folder;
  MakeOwnerless(folder.Root() / "another");
  fs::create_directory(folder.Root() / "quorvex-without-a-mark");
  folder.File("quorvex-file", "text");
  RemoveOwnerlessDirectories(folder.Root());
  EXPECT_EQ(folder.FileCount(), 3u);
  RemoveOwnerlessDirectories(folder.Root() / "missing");
}

TEST(DirectoryOwner, AMissingDirectoryCannotBeMarked) {
  const TemporaryFolder folder;
  EXPECT_THROW(DirectoryOwner(folder.Root() / "missing"), std::runtime_error);
}

TEST(PrivateDirectory, IsLeftAloneByOtherRuns) {
  const PrivateDirectory directory;
  RemoveDirectoriesOfKilledRuns();
  EXPECT_TRUE(fs::exists(directory.Path()));
}

}  // namespace
}  // namespace quorvex::tests
