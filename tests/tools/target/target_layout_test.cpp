#include "tools/target/target_layout.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tools/errors.h"

namespace quorvex::tests {

using namespace tools;

namespace {

constexpr TargetMarks kNineByNine = {9, 9, 30, 12.75, 0.5};
constexpr TargetMarks kWide = {3, 6, 40, 15, 1};

std::string RefusalOf(const TargetMarks& marks, const std::string& paper) {
  try {
    LayOutTarget(marks, ParsePaper(paper));
  } catch (const InputError& error) {
    return error.what();
  }
  return "";
}

TEST(TargetLayout, MarksStandInTheMiddleOfThePaper) {
  const TargetLayout layout = LayOutTarget({2, 3, 20, 8, 0.5}, ParsePaper("A4"));
  ASSERT_EQ(layout.marks.size(), 12u);
  // Row 0, column 0: the stroke along the row, then the one along the column.
  EXPECT_DOUBLE_EQ(layout.marks[0].x, 105 - 20 - 8);
  EXPECT_DOUBLE_EQ(layout.marks[0].y, 148.5 - 10 - 0.25);
  EXPECT_DOUBLE_EQ(layout.marks[0].width, 16);
  EXPECT_DOUBLE_EQ(layout.marks[0].height, 0.5);
  EXPECT_DOUBLE_EQ(layout.marks[1].x, 105 - 20 - 0.25);
  EXPECT_DOUBLE_EQ(layout.marks[1].y, 148.5 - 10 - 8);
  EXPECT_DOUBLE_EQ(layout.marks[1].width, 0.5);
  EXPECT_DOUBLE_EQ(layout.marks[1].height, 16);
  // Row 1, column 2.
  EXPECT_DOUBLE_EQ(layout.marks[10].x, 105 + 20 - 8);
  EXPECT_DOUBLE_EQ(layout.marks[10].y, 148.5 + 10 - 0.25);
}

TEST(TargetLayout, PaperIsTurnedWhereTheMarksFitItSoOnly) {
  EXPECT_EQ(LayOutTarget(kNineByNine, ParsePaper("A2")).paper.width, 420);
  EXPECT_EQ(LayOutTarget(kWide, ParsePaper("A4")).paper.width, 297);
  EXPECT_EQ(LayOutTarget(kWide, ParsePaper("150x300")).paper.width, 300);
}

TEST(TargetLayout, WhatDoesNotFitIsToldWithWhatWould) {
  EXPECT_EQ(
      RefusalOf(kNineByNine, "A4"),
      "9 x 9 marks with a pitch of 30 mm need 289.5 x 289.5 mm of paper and do not fit A4 (210 "
      "x 297 mm); they fit A3 (297 x 420 mm)");
  EXPECT_EQ(
      RefusalOf({20, 20, 30, 12, 0.5}, "A3"),
      "20 x 20 marks with a pitch of 30 mm need 618 x 618 mm of paper and do not fit A3 (297 x "
      "420 mm); take fewer, or a pitch of at most 13.7 mm with arms and strokes made smaller "
      "likewise");
}

TEST(TargetLayout, TheProposedPitchFits) {
  const double factor = 13.7 / 30;
  const TargetMarks smaller = {20, 20, 13.7, 12 * factor, 0.5 * factor};
  EXPECT_EQ(RefusalOf(smaller, "A3"), "");
  const TargetMarks larger = {20, 20, 13.9, 12 * 13.9 / 30, 0.5 * factor};
  EXPECT_NE(RefusalOf(larger, "A3"), "");
}

TEST(TargetLayout, MarksThatCannotBeAreRefused) {
  EXPECT_EQ(RefusalOf({9, 9, 20, 10, 0.5}, "A3"), "arms of 10 mm touch at a pitch of 20 mm");
  EXPECT_EQ(RefusalOf({0, 9, 20, 9, 0.5}, "A3"), "the number of rows must be 1 to 1000, but is 0");
  EXPECT_EQ(RefusalOf({9, 9, 20, 9, 0}, "A3"),
            "the stroke width must be above 0 and at most 1e+09, but is 0");
}

TEST(TargetLayout, RulersAreAHundredMillimetresLongWhereThereIsRoom) {
  const TargetLayout layout = LayOutTarget(kNineByNine, ParsePaper("A3"));
  EXPECT_EQ(layout.acrossLength, 100);
  EXPECT_EQ(layout.downLength, 100);
  const TargetLayout small = LayOutTarget({2, 2, 10, 4, 0.5}, ParsePaper("120x80"));
  EXPECT_EQ(small.acrossLength, 70);
  EXPECT_EQ(small.downLength, 30);
}

TEST(TargetLayout, NothingElseComesNearTheMarks) {
  const TargetMarks tight = {9, 9, 30, 12.75, 0.5};
  const TargetLayout layout = LayOutTarget(tight, ParsePaper("290x290"));
  double left = 290;
  double bottom = 0;
  for (const Bar& bar : layout.marks) {
    left = std::min(left, bar.x);
    bottom = std::max(bottom, bar.y + bar.height);
  }
  for (const Bar& bar : layout.rulers) {
    EXPECT_TRUE(bar.x + bar.width < left - 3 || bar.y > bottom + 3) << bar.x << " " << bar.y;
  }
  for (const Label& label : layout.labels) {
    EXPECT_TRUE(label.x < left - 3 || label.y > bottom + 3 || label.y < 290 - bottom - 3)
        << label.text;
  }
}

TEST(TargetLayout, TheCaptionTellsTheMeasures) {
  const TargetLayout layout = LayOutTarget(kWide, ParsePaper("A4"));
  EXPECT_EQ(
      layout.labels.back().text,
      "3 rows x 6 columns, pitch 40 mm, arms 15 mm, strokes 1 mm, A4 (297 x 210 mm); print at "
      "100 %: both rulers are 100 mm long");
}

}  // namespace
}  // namespace quorvex::tests
