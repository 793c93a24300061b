#include "tools/target/paper.h"

#include <gtest/gtest.h>

#include "tools/errors.h"

namespace quorvex::tests {

using namespace tools;

namespace {

std::string RefusalOf(const std::string& text) {
  try {
    ParsePaper(text);
  } catch (const InputError& error) {
    return error.what();
  }
  return "";
}

TEST(Paper, NamesInCapitalsOrNot) {
  EXPECT_EQ(PaperText(ParsePaper("A4")), "A4 (210 x 297 mm)");
  EXPECT_EQ(PaperText(ParsePaper("a3")), "A3 (297 x 420 mm)");
  EXPECT_EQ(PaperText(Turned(ParsePaper("A2"))), "A2 (594 x 420 mm)");
}

TEST(Paper, SizesOfTheUsersOwn) {
  EXPECT_EQ(PaperText(ParsePaper("300.5x50")), "300.5 x 50 mm");
  EXPECT_EQ(PaperText(ParsePaper("2000X800")), "2000 x 800 mm");
}

TEST(Paper, WhatIsNoPaperIsRefusedInWords) {
  EXPECT_EQ(RefusalOf("A7"), "--paper: A7 is not one of A4, A3, A2, WIDTHxHEIGHT in millimetres");
  EXPECT_EQ(RefusalOf("300x49"), "--paper: sides are 50 to 2000 mm long, not 49");
  EXPECT_EQ(RefusalOf("2001x300"), "--paper: sides are 50 to 2000 mm long, not 2001");
}

}  // namespace
}  // namespace quorvex::tests
