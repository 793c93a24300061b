// What others may have planted in a folder for temporary files.
#include "tools/system/directory_owner.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "tests/support/test_files.h"

namespace quorvex::tests {

using namespace tools;

namespace {

namespace fs = std::filesystem;

class PlantedDirectories : public testing::Test {
 protected:
  PlantedDirectories() {
    fs::create_directory(folder.Root() / "precious");
    folder.File("precious/file", "text");
    fs::create_directory(planted);
  }

  static void Mark(const fs::path& directory) { DirectoryOwner(directory).Release(); }

  void ExpectItStays() {
    RemoveOwnerlessDirectories(folder.Root());
    EXPECT_TRUE(fs::exists(fs::symlink_status(planted)));
    ExpectPreciousStays();
  }

  void ExpectPreciousStays() { EXPECT_EQ(ReadWhole(folder.Path("precious/file")), "text"); }

  TemporaryFolder folder;
  const fs::path planted = folder.Root() / "quorvex-planted";
};

TEST_F(PlantedDirectories, LinksInThemAreRemovedAndNotFollowed) {
  Mark(planted);
  fs::create_directory_symlink("../precious", planted / "link");
  fs::create_symlink("../precious/file", planted / "file");
  fs::create_hard_link(folder.Root() / "precious" / "file", planted / "hard");
  RemoveOwnerlessDirectories(folder.Root());
  EXPECT_FALSE(fs::exists(planted));
  ExpectPreciousStays();
}

TEST_F(PlantedDirectories, ALinkIsNoDirectory) {
  fs::remove(planted);
  Mark(folder.Root() / "precious");
  fs::create_directory_symlink("precious", planted);
  ExpectItStays();
}

TEST_F(PlantedDirectories, ALinkIsNoMark) {
  fs::create_symlink("../precious/file", planted / ".owner");
  ExpectItStays();
}

// Nor is it waited for.
TEST_F(PlantedDirectories, APipeIsNoMark) {
  ASSERT_EQ(mkfifo((planted / ".owner").c_str(), 0600), 0);
  ExpectItStays();
}

TEST_F(PlantedDirectories, AMarkThatIsThereIsNotTaken) {
  fs::create_symlink("../precious/file", planted / ".owner.new");
  EXPECT_THROW(DirectoryOwner{planted}, std::runtime_error);
  ExpectPreciousStays();
}

TEST_F(PlantedDirectories, ThoseOfOtherUsersStay) {
  constexpr uid_t kOther = 54321;
  Mark(planted);
  if (chown(planted.c_str(), kOther, static_cast<gid_t>(-1)) != 0) {
    GTEST_SKIP() << "only root can give a directory away";
  }
  ExpectItStays();
}

}  // namespace
}  // namespace quorvex::tests
