#include <gtest/gtest.h>

#include <string>

#include "platform/mfc.h"

namespace {

struct Shown {
  int answer;
  std::string output;
  std::string errors;
};

Shown Show(const char* text) {
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  const int answer = AfxMessageBox(text, MB_OK);
  const std::string errors = testing::internal::GetCapturedStderr();
  return {answer, testing::internal::GetCapturedStdout(), errors};
}

TEST(MessageBox, IsOneLineOnStandardError) {
  const Shown shown = Show(_T("点集"));
  EXPECT_EQ(shown.errors, "点集\n");
  EXPECT_EQ(shown.output, "");
}

TEST(MessageBox, IsAcknowledgedAtOnce) { EXPECT_EQ(Show(_T("text")).answer, IDOK); }

TEST(MessageBox, ShowsPercentSignsAsTheyAre) {
  EXPECT_EQ(Show(_T("100%s %n")).errors, "100%s %n\n");
}

}  // namespace
