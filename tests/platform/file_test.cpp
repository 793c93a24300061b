#include "tests/support/file_test.h"

#include <filesystem>

#include "tests/support/faults.h"

namespace quorvex::tests {
namespace {

namespace fs = std::filesystem;

TEST_F(FileTest, WritesANewFile) {
  CFile file;
  ASSERT_TRUE(file.Open(CA2T(kName), kWriteNew));
  file.Write("abc", 3);
  file.Write("de", 2);
  file.Close();
  EXPECT_EQ(Contents(), "abcde");
}

TEST_F(FileTest, CreatingEmptiesAnExistingFile) {
  Put("a longer text");
  CFile file;
  ASSERT_TRUE(file.Open(CA2T(kName), kWriteNew));
  file.Write("abc", 3);
  file.Close();
  EXPECT_EQ(Contents(), "abc");
}

TEST_F(FileTest, WithoutCreatingAnExistingFileKeepsWhatIsNotOverwritten) {
  Put("abcde");
  CFile file;
  ASSERT_TRUE(file.Open(CA2T(kName), CFile::modeReadWrite));
  file.Write("XY", 2);
  file.Close();
  EXPECT_EQ(Contents(), "XYcde");
}

TEST_F(FileTest, ReadsWhatIsThereAndReportsTheLength) {
  Put("abcde");
  CFile file;
  ASSERT_TRUE(file.Open(CA2T(kName), CFile::modeReadWrite));
  EXPECT_EQ(file.GetLength(), 5u);
  char buffer[8] = {};
  EXPECT_EQ(file.Read(buffer, 3), 3u);
  EXPECT_STREQ(buffer, "abc");
}

TEST_F(FileTest, ReadIsShortAtTheEndOfTheFile) {
  Put("abcde");
  CFile file;
  ASSERT_TRUE(file.Open(CA2T(kName), CFile::modeReadWrite));
  char buffer[8] = {};
  EXPECT_EQ(file.Read(buffer, 8), 5u);
  EXPECT_STREQ(buffer, "abcde");
  EXPECT_EQ(file.Read(buffer, 8), 0u);
}

TEST_F(FileTest, MissingFileIsNotFoundAndNotCreated) {
  EXPECT_EQ(CauseOfOpen(kName, CFile::modeReadWrite), CFileException::fileNotFound);
  EXPECT_FALSE(fs::exists(kName));
}

TEST_F(FileTest, FileInPlaceOfAFolderIsABadPath) {
  Put("text");
  EXPECT_EQ(CauseOfOpen("file/below", kWriteNew), CFileException::badPath);
}

TEST_F(FileTest, FolderIsRefusedInEveryMode) {
  fs::create_directory(kName);
  EXPECT_EQ(CauseOfOpen(kName, CFile::modeRead), CFileException::accessDenied);
  EXPECT_EQ(CauseOfOpen(kName, CFile::modeReadWrite), CFileException::accessDenied);
  EXPECT_EQ(CauseOfOpen(kName, kWriteNew), CFileException::accessDenied);
}

TEST_F(FileTest, ReadOnlyFileOpensForReadingOnly) {
  Put("abcde");
  fs::permissions(kName, fs::perms::owner_read);
  EXPECT_EQ(CauseOfOpen(kName, CFile::modeReadWrite), CFileException::accessDenied);
  EXPECT_EQ(CauseOfOpen(kName, CFile::modeWrite), CFileException::accessDenied);
  EXPECT_EQ(CauseOfOpen(kName, CFile::modeRead), CFileException::none);
}

TEST_F(FileTest, ReadOnlyFileIsNotEmptiedByARefusedCreation) {
  Put("abcde");
  fs::permissions(kName, fs::perms::owner_read);
  EXPECT_EQ(CauseOfOpen(kName, kWriteNew), CFileException::accessDenied);
  EXPECT_EQ(Contents(), "abcde");
}

TEST_F(FileTest, SecondOpenIsRefusedWhileTheFileIsHeld) {
  Put("abcde");
  CFile file;
  ASSERT_TRUE(file.Open(CA2T(kName), CFile::modeReadWrite));
  EXPECT_EQ(CauseOfOpen(kName, CFile::modeReadWrite), CFileException::sharingViolation);
  EXPECT_EQ(CauseOfOpen(kName, CFile::modeRead), CFileException::sharingViolation);
}

TEST_F(FileTest, HeldFileIsNotEmptiedByARefusedCreation) {
  Put("abcde");
  CFile file;
  ASSERT_TRUE(file.Open(CA2T(kName), CFile::modeReadWrite));
  EXPECT_EQ(CauseOfOpen(kName, kWriteNew), CFileException::sharingViolation);
  file.Close();
  EXPECT_EQ(Contents(), "abcde");
}

TEST_F(FileTest, ClosingReleasesTheFile) {
  Put("abcde");
  CFile file;
  ASSERT_TRUE(file.Open(CA2T(kName), CFile::modeReadWrite));
  file.Close();
  EXPECT_EQ(CauseOfOpen(kName, CFile::modeReadWrite), CFileException::none);
}

TEST_F(FileTest, EndOfTheObjectReleasesTheFile) {
  Put("abcde");
  {
    CFile file;
    ASSERT_TRUE(file.Open(CA2T(kName), CFile::modeReadWrite));
  }
  EXPECT_EQ(CauseOfOpen(kName, CFile::modeReadWrite), CFileException::none);
}

TEST_F(FileTest, RefusedOpenLeavesTheObjectUsable) {
  CFile file;
  ASSERT_FALSE(file.Open(CA2T(kName), CFile::modeReadWrite));
  EXPECT_TRUE(file.Open(CA2T(kName), kWriteNew));
}

TEST_F(FileTest, ClosingTwiceIsHarmless) {
  CFile file;
  ASSERT_TRUE(file.Open(CA2T(kName), kWriteNew));
  file.Close();
  EXPECT_NO_THROW(file.Close());
}

TEST_F(FileTest, FailingWriteThrowsWithTheErrorOfTheSystem) {
  CFile file;
  ASSERT_TRUE(file.Open(CA2T(kName), kWriteNew));
  const FailNth fault(Fault::kWrite, 2);
  EXPECT_EQ(CauseOfWrite(file, "abc"), CFileException::none);
  EXPECT_EQ(CauseOfWrite(file, "def"), CFileException::diskFull);
  EXPECT_EQ(CauseOfWrite(file, "ghi"), CFileException::none);
  file.Close();
  EXPECT_EQ(Contents(), "abcghi");
}

TEST_F(FileTest, WriteToAFileOpenForReadingThrows) {
  Put("abc");
  CFile file;
  ASSERT_TRUE(file.Open(CA2T(kName), CFile::modeRead));
  EXPECT_NE(CauseOfWrite(file, "X"), CFileException::none);
  file.Close();
  EXPECT_EQ(Contents(), "abc");
}

TEST_F(FileTest, LengthOfAFileThatIsNotOpenThrows) {
  const CFile file;
  try {
    file.GetLength();
    FAIL() << "no exception";
  } catch (CFileException* exception) {
    exception->Delete();
  }
}

}  // namespace
}  // namespace quorvex::tests
