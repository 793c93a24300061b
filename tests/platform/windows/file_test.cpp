#include <filesystem>

#include "tests/support/file_test.h"

namespace quorvex::tests {
namespace {

namespace fs = std::filesystem;

TEST_F(FileTest, MissingFolderIsABadPath) {
  EXPECT_EQ(CauseOfOpen("missing/file", kWriteNew), CFileException::badPath);
  EXPECT_FALSE(fs::exists("missing"));
}

TEST_F(FileTest, NameThatNoFileCanHaveIsABadPath) {
  EXPECT_EQ(CauseOfOpen("what?", kWriteNew), CFileException::badPath);
}

TEST_F(FileTest, OtherProgramsCannotOpenAFileThatIsHeld) {
  CFile file;
  ASSERT_TRUE(file.Open(CA2T(kName), kWriteNew));
  EXPECT_FALSE(std::ifstream(kName).is_open());
  file.Close();
  EXPECT_TRUE(std::ifstream(kName).is_open());
}

TEST(NarrowText, BecomesWide) {
  EXPECT_STREQ(static_cast<LPCTSTR>(CA2T("./Mask.bmp")), L"./Mask.bmp");
  EXPECT_STREQ(static_cast<LPCTSTR>(CA2T("")), L"");
}

// What fopen makes of the same name.
TEST(NarrowText, IsInTheCodePageOfTheProcess) {
  const char narrow[] = {static_cast<char>(0xE4), '\0'};
  wchar_t expected[4] = {};
  ASSERT_GT(MultiByteToWideChar(CP_ACP, 0, narrow, -1, expected, 4), 0);
  EXPECT_STREQ(static_cast<LPCTSTR>(CA2T(narrow)), expected);
}

}  // namespace
}  // namespace quorvex::tests
