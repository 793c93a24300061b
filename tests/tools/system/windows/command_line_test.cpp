#include "tools/system/command_line_windows.h"

#include <gtest/gtest.h>
// After the others, which it disturbs.
#include <windows.h>
//
#include <shellapi.h>

#include <filesystem>

namespace quorvex::tests {

using namespace tools;

namespace {

std::vector<std::string> TakenApart(const std::wstring& line) {
  int count = 0;
  wchar_t** words = CommandLineToArgvW(line.c_str(), &count);
  std::vector<std::string> texts;
  for (int i = 0; i < count; ++i) texts.push_back(std::filesystem::path(words[i]).u8string());
  LocalFree(words);
  return texts;
}

TEST(CommandLine, IsTakenApartIntoWhatItWasMadeOf) {
  const std::vector<std::string> arguments = {"",
                                              "plain",
                                              "two words",
                                              "tab\there",
                                              "\"",
                                              "a\"b",
                                              "\\",
                                              "ends in a backslash\\",
                                              "two\\\\",
                                              "\\\"",
                                              "\\\\\"quoted\\\\\"",
                                              "C:\\Program Files\\",
                                              "%TMP% ^ & | > <",
                                              "bild-\xC3\xA4.bmp",
                                              "\xE6\x97\xA5\xE6\x9C\xAC",
                                              "\xF0\x9F\x93\xB7"};
  std::vector<std::string> expected = {"C:\\with blanks\\quorvex.exe"};
  const std::wstring line = CommandLine(expected.front(), arguments);
  expected.insert(expected.end(), arguments.begin(), arguments.end());
  EXPECT_EQ(TakenApart(line), expected);
}

}  // namespace
}  // namespace quorvex::tests
