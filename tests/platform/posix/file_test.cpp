#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "tests/support/file_test.h"

namespace quorvex::tests {
namespace {

namespace fs = std::filesystem;

TEST_F(FileTest, MissingFolderIsRefused) {
  EXPECT_EQ(CauseOfOpen("missing/file", kWriteNew), CFileException::fileNotFound);
  EXPECT_FALSE(fs::exists("missing"));
}

TEST_F(FileTest, WriteToAFullDeviceThrowsDiskFull) {
  CFile file;
  ASSERT_TRUE(file.Open(CA2T("/dev/full"), CFile::modeWrite));
  EXPECT_EQ(CauseOfWrite(file, "abc"), CFileException::diskFull);
}

// Opening must not wait for a partner that may never come.
TEST_F(FileTest, NamedPipeWithoutAReaderIsRefusedAtOnce) {
  ASSERT_EQ(mkfifo(kName, 0600), 0);
  EXPECT_NE(CauseOfOpen(kName, kWriteNew), CFileException::none);
}

// What is to be written over must have contents to keep.
TEST_F(FileTest, NothingButAFileKeepsItsContents) {
  constexpr UINT kOverwrite = kWriteNew | CFile::modeNoTruncate;
  EXPECT_EQ(CauseOfOpen("/dev/full", kOverwrite), CFileException::accessDenied);
  ASSERT_EQ(mkfifo(kName, 0600), 0);
  const int reader = open(kName, O_RDONLY | O_NONBLOCK);
  EXPECT_EQ(CauseOfOpen(kName, kWriteNew), CFileException::none);
  EXPECT_EQ(CauseOfOpen(kName, kOverwrite), CFileException::accessDenied);
  close(reader);
}

TEST(NarrowText, KeepsTheBytesOfTheFileName) {
  EXPECT_STREQ(static_cast<LPCTSTR>(CA2T("./Mask.bmp")), "./Mask.bmp");
}

}  // namespace
}  // namespace quorvex::tests
