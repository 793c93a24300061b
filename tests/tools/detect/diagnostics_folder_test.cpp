#include "tools/detect/diagnostics_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/test_files.h"
#include "tools/detect/list_folder.h"
#include "tools/errors.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::ElementsAre;

TEST(DiagnosticsFolders, OneImageTakesTheFolderItself) {
  EXPECT_THAT(DiagnosticsFolders("out", {"a/b.bmp"}), ElementsAre("out"));
}

TEST(DiagnosticsFolders, SeveralImagesGetFoldersOfTheirOwn) {
  const std::vector<std::filesystem::path> folders =
      DiagnosticsFolders("out", {"x/a.bmp", "b.png", "y/a.bmp", "a-2.bmp", "a.png"});
  // As paths, since separators differ between systems.
  EXPECT_THAT(folders, ElementsAre("out/a", "out/b", "out/a-2", "out/a-2-2", "out/a-3"));
}

TEST(DiagnosticsFolders, AreMadeWithTheirParents) {
  const TemporaryFolder folder;
  PrepareDiagnosticsFolder(folder.Path("new/deep"));
  EXPECT_TRUE(std::filesystem::is_directory(folder.Path("new/deep")));
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path("new/deep")));
}

TEST(DiagnosticsFolders, CannotBeMadeBelowAFile) {
  const TemporaryFolder folder;
  folder.File("file", "text");
  EXPECT_THROW(PrepareDiagnosticsFolder(folder.Path("file/deep")), InputError);
  EXPECT_THROW(PrepareDiagnosticsFolder(folder.Path("file")), InputError);
}

TEST(KeepDiagnostics, CopiesPicturesAndListsAndDropsStaleOnes) {
  const TemporaryFolder work;
  const TemporaryFolder kept;
  work.File("Mask.bmp", "new mask");
  PrepareListFolder(work.Path());
  std::ofstream(ListFolder(work.Path()) / "Row.txt") << "1 2";
  work.File("result.json", "{}");
  kept.File("Mask.bmp", "old mask");
  kept.File("Lines.bmp", "of an earlier detection");
  kept.File("notes.txt", "somebody's own");

  KeepDiagnostics(work.Path(), kept.Path());

  EXPECT_EQ(ReadWhole(kept.Path("Mask.bmp")), "new mask");
  EXPECT_EQ(ReadWhole(kept.Path("Row.txt")), "1 2");
  EXPECT_EQ(ReadWhole(kept.Path("notes.txt")), "somebody's own");
  EXPECT_FALSE(kept.Has("Lines.bmp"));
  EXPECT_FALSE(kept.Has("result.json"));

  PrepareListFolder(work.Path());
  std::filesystem::remove(ListFolder(work.Path()) / "Row.txt");
  KeepDiagnostics(work.Path(), kept.Path());
  EXPECT_FALSE(kept.Has("Row.txt"));
}

}  // namespace
}  // namespace quorvex::tests
