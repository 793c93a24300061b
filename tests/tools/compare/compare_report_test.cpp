#include "tools/compare/compare_report.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::HasSubstr;

// Two marks found, one at a place that was left out.
Comparison Filled() {
  Comparison c;
  c.visibleMarks = 11;
  c.leftOutMarks = 1;
  c.found = {11, 0.904534034, 0, 3};
  c.filledIn = {1, 2, 2, 2};
  return c;
}

Comparison Disagreeing() {
  Comparison c;
  c.visibleMarks = 3;
  c.missed = c.extra = c.wrongLabels = 1;
  c.labels = Labels::kDisagree;
  c.missedMarks = {{0, 1, 100.5, 200.25, false}};
  c.extraPoints = {{7, 3, 2, 12, 13}};
  c.mislabelled = {{{2, 0, 5, 31, 32}, {0, 2, 30, 30, false}}};
  return c;
}

TEST(CompareReport, ShowsCountsAndErrors) {
  EXPECT_EQ(ReportAsText(Filled()),
            "found      11 of 11, error RMS 0.905 px, median 0.000 px, max 3.000 px\n"
            "missed     0\n"
            "extra      0\n"
            "filled in  1 of 1, error RMS 2.000 px, median 2.000 px, max 2.000 px\n"
            "labels     agree\n");
  const std::string json = ReportAsJson(Filled(), false);
  EXPECT_THAT(json, HasSubstr("\"found\": {\"count\": 11, \"rms\": 0.904534034, "));
  EXPECT_THAT(json, testing::EndsWith("\"complete\": true\n}\n"));
}

TEST(CompareReport, ListsTheDetailsAsATable) {
  EXPECT_EQ(DetailsAsCsv(Disagreeing()),
            "kind,row,col,x,y,labelled_row,labelled_col\n"
            "missed,0,1,100.5,200.25,,\n"
            "extra,3,2,12,13,,\n"
            "mislabelled,0,2,31,32,0,5\n");
}

TEST(CompareReport, ListsTheDetailsInJson) {
  EXPECT_THAT(
      ReportAsJson(Disagreeing(), true),
      HasSubstr(",\n \"details\": [\n"
                "  {\"kind\": \"missed\", \"row\": 0, \"col\": 1, \"x\": 100.5, \"y\": 200.25},\n"
                "  {\"kind\": \"extra\", \"row\": 3, \"col\": 2, \"x\": 12, \"y\": 13},\n"
                "  {\"kind\": \"mislabelled\", \"row\": 0, \"col\": 2, \"x\": 31, \"y\": 32, "
                "\"labelled_row\": 0, \"labelled_col\": 5}]\n}\n"));
  EXPECT_THAT(ReportAsJson(Disagreeing(), false), testing::Not(HasSubstr("details")));
}

}  // namespace
}  // namespace quorvex::tests
