#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include "platform/mfc.h"
#include "tests/support/faults.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::testing {
namespace {

namespace fs = std::filesystem;

constexpr UINT kWriteNew = CFile::modeCreate | CFile::modeWrite;
constexpr char kName[] = "file";

struct Deleter {
  void operator()(CFileException* exception) const { exception->Delete(); }
};
using ExceptionPointer = std::unique_ptr<CFileException, Deleter>;

class FileTest : public ::testing::Test {
 protected:
  static void Put(const std::string& text) { std::ofstream(kName, std::ios::binary) << text; }

  static std::string Contents() {
    std::ifstream stream(kName, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(stream), {});
  }

  // The cause of the refusal, CFileException::none when the file opens.
  static int CauseOfOpen(const char* path, UINT flags) {
    const ExceptionPointer error(new CFileException(CFileException::none));
    CFile file;
    const bool isOpen = file.Open(path, flags, error.get()) != FALSE;
    EXPECT_EQ(isOpen, error->m_cause == CFileException::none);
    return error->m_cause;
  }

  // The cause that Write throws, CFileException::none when it does not.
  static int CauseOfWrite(CFile& file, const std::string& text) {
    try {
      file.Write(text.data(), static_cast<UINT>(text.size()));
    } catch (CFileException* exception) {
      return ExceptionPointer(exception)->m_cause;
    }
    return CFileException::none;
  }

 private:
  TemporaryDirectory directory_;
};

TEST_F(FileTest, WritesANewFile) {
  CFile file;
  ASSERT_TRUE(file.Open(kName, kWriteNew));
  file.Write("abc", 3);
  file.Write("de", 2);
  file.Close();
  EXPECT_EQ(Contents(), "abcde");
}

TEST_F(FileTest, CreatingEmptiesAnExistingFile) {
  Put("a longer text");
  CFile file;
  ASSERT_TRUE(file.Open(kName, kWriteNew));
  file.Write("abc", 3);
  file.Close();
  EXPECT_EQ(Contents(), "abc");
}

TEST_F(FileTest, WithoutCreatingAnExistingFileKeepsWhatIsNotOverwritten) {
  Put("abcde");
  CFile file;
  ASSERT_TRUE(file.Open(kName, CFile::modeReadWrite));
  file.Write("XY", 2);
  file.Close();
  EXPECT_EQ(Contents(), "XYcde");
}

TEST_F(FileTest, ReadsWhatIsThereAndReportsTheLength) {
  Put("abcde");
  CFile file;
  ASSERT_TRUE(file.Open(kName, CFile::modeReadWrite));
  EXPECT_EQ(file.GetLength(), 5u);
  char buffer[8] = {};
  EXPECT_EQ(file.Read(buffer, 3), 3u);
  EXPECT_STREQ(buffer, "abc");
}

TEST_F(FileTest, ReadIsShortAtTheEndOfTheFile) {
  Put("abcde");
  CFile file;
  ASSERT_TRUE(file.Open(kName, CFile::modeReadWrite));
  char buffer[8] = {};
  EXPECT_EQ(file.Read(buffer, 8), 5u);
  EXPECT_STREQ(buffer, "abcde");
  EXPECT_EQ(file.Read(buffer, 8), 0u);
}

TEST_F(FileTest, MissingFileIsNotFoundAndNotCreated) {
  EXPECT_EQ(CauseOfOpen(kName, CFile::modeReadWrite), CFileException::fileNotFound);
  EXPECT_FALSE(fs::exists(kName));
}

TEST_F(FileTest, MissingFolderIsRefused) {
  EXPECT_EQ(CauseOfOpen("missing/file", kWriteNew), CFileException::fileNotFound);
  EXPECT_FALSE(fs::exists("missing"));
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

// Holds by the mode bits, so also for root, whom the system lets write to every file.
TEST_F(FileTest, FileWithoutWriteBitsOpensForReadingOnly) {
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
  ASSERT_TRUE(file.Open(kName, CFile::modeReadWrite));
  EXPECT_EQ(CauseOfOpen(kName, CFile::modeReadWrite), CFileException::accessDenied);
  EXPECT_EQ(CauseOfOpen(kName, CFile::modeRead), CFileException::accessDenied);
}

TEST_F(FileTest, HeldFileIsNotEmptiedByARefusedCreation) {
  Put("abcde");
  CFile file;
  ASSERT_TRUE(file.Open(kName, CFile::modeReadWrite));
  EXPECT_EQ(CauseOfOpen(kName, kWriteNew), CFileException::accessDenied);
  EXPECT_EQ(Contents(), "abcde");
}

TEST_F(FileTest, ClosingReleasesTheFile) {
  Put("abcde");
  CFile file;
  ASSERT_TRUE(file.Open(kName, CFile::modeReadWrite));
  file.Close();
  EXPECT_EQ(CauseOfOpen(kName, CFile::modeReadWrite), CFileException::none);
}

TEST_F(FileTest, EndOfTheObjectReleasesTheFile) {
  Put("abcde");
  {
    CFile file;
    ASSERT_TRUE(file.Open(kName, CFile::modeReadWrite));
  }
  EXPECT_EQ(CauseOfOpen(kName, CFile::modeReadWrite), CFileException::none);
}

TEST_F(FileTest, RefusedOpenLeavesTheObjectUsable) {
  CFile file;
  ASSERT_FALSE(file.Open(kName, CFile::modeReadWrite));
  EXPECT_TRUE(file.Open(kName, kWriteNew));
}

TEST_F(FileTest, ClosingTwiceIsHarmless) {
  CFile file;
  ASSERT_TRUE(file.Open(kName, kWriteNew));
  file.Close();
  EXPECT_NO_THROW(file.Close());
}

TEST_F(FileTest, WriteToAFullDeviceThrowsDiskFull) {
  CFile file;
  ASSERT_TRUE(file.Open("/dev/full", CFile::modeWrite));
  EXPECT_EQ(CauseOfWrite(file, "abc"), CFileException::diskFull);
}

TEST_F(FileTest, FailingWriteThrowsWithTheErrorOfTheSystem) {
  CFile file;
  ASSERT_TRUE(file.Open(kName, kWriteNew));
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
  ASSERT_TRUE(file.Open(kName, CFile::modeRead));
  EXPECT_NE(CauseOfWrite(file, "X"), CFileException::none);
  EXPECT_EQ(Contents(), "abc");
}

// Opening must not wait for a partner that may never come.
TEST_F(FileTest, NamedPipeWithoutAReaderIsRefusedAtOnce) {
  ASSERT_EQ(mkfifo(kName, 0600), 0);
  EXPECT_NE(CauseOfOpen(kName, kWriteNew), CFileException::none);
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

TEST(NarrowText, KeepsTheBytesOfTheFileName) {
  EXPECT_STREQ(static_cast<LPCTSTR>(CA2T("./Mask.bmp")), "./Mask.bmp");
}

}  // namespace
}  // namespace quorvex::testing
