#include "tools/detect/detection_check.h"

#include <gtest/gtest.h>

#include <cstddef>

namespace quorvex::tests {

using namespace tools;

namespace {

constexpr double kPitch = 100;  // pixels
constexpr int kSide = 4;        // marks

class DetectionCheckTest : public testing::Test {
 protected:
  DetectionCheckTest() {
    for (int row = 0; row < kSide; ++row) {
      for (int column = 0; column < kSide; ++column) {
        precise::Mark mark;
        mark.row = row;
        mark.column = column;
        mark.x = 50 + kPitch * column;
        mark.y = 60 + kPitch * row;
        marks.push_back(mark);
        points.push_back({row * kSide + column + 1, row, column, mark.x + 0.3, mark.y - 0.3});
      }
    }
  }

  DetectionCheck Check() const { return CheckPoints(points, marks, kPitch); }

  std::vector<precise::Mark> marks;
  std::vector<ListedPoint> points;
};

TEST_F(DetectionCheckTest, HasNothingToSayOfTheSameMarks) {
  EXPECT_EQ(Check().compared, kSide * kSide);
  EXPECT_EQ(DescribeCheck(Check()), "");
}

TEST_F(DetectionCheckTest, LabelsMayAllDifferByTheSameStep) {
  for (ListedPoint& point : points) {
    point.row += 2;
    point.col -= 1;
  }
  EXPECT_EQ(DescribeCheck(Check()), "");
}

TEST_F(DetectionCheckTest, CountsOtherLabels) {
  points[0].row = 1;
  points[5].col = 3;
  EXPECT_EQ(Check().otherLabels, 2);
  EXPECT_EQ(Check().lost, 0);
}

TEST_F(DetectionCheckTest, TellsWhatTheLabelShouldBe) {
  for (ListedPoint& point : points) {
    point.row += 2;
  }
  points[5].col = 3;
  const std::vector<Disagreement> all = Check().disagreements;
  ASSERT_EQ(all.size(), 1u);
  EXPECT_EQ(all[0].kind, DisagreementKind::kLabel);
  EXPECT_EQ(all[0].mark->row, 3);  // as the other points count
  EXPECT_EQ(all[0].mark->col, 1);
  EXPECT_EQ(all[0].mark->x, marks[5].x);
  EXPECT_EQ(all[0].listed->col, 3);
}

TEST_F(DetectionCheckTest, OfTwoHalvesTheOneThatCountsAsTheMarksIsRight) {
  for (std::size_t i = 0; i < points.size() / 2; ++i) {
    points[i].row += 1;
  }
  EXPECT_EQ(Check().disagreements.at(0).mark->row, 0);
  for (ListedPoint& point : points) {
    point.row -= 1;
  }
  EXPECT_EQ(Check().disagreements.at(0).mark->row, 2);
}

TEST_F(DetectionCheckTest, TellsWhichMarksWereLostAndWhichPointsAreOff) {
  points[4].x += 3;
  points.erase(points.begin());
  const std::vector<Disagreement> all = Check().disagreements;
  ASSERT_EQ(all.size(), 2u);
  EXPECT_EQ(all[0].kind, DisagreementKind::kLost);
  EXPECT_EQ(all[0].mark->y, marks[0].y);
  EXPECT_FALSE(all[0].listed);
  EXPECT_EQ(all[1].kind, DisagreementKind::kOff);
  EXPECT_EQ(all[1].mark->x, marks[4].x);
  EXPECT_EQ(all[1].listed->x, marks[4].x + 3.3);
}

TEST_F(DetectionCheckTest, CountsLostMarksButNotDoubtfulOnes) {
  points.erase(points.begin(), points.begin() + 3);
  marks[0].verdict = precise::Verdict::kDoubtful;
  marks[1].verdict = precise::Verdict::kPredicted;
  EXPECT_EQ(Check().lost, 1);
  EXPECT_EQ(Check().compared, kSide * kSide - 3);
}

TEST_F(DetectionCheckTest, CountsPointsThatAreOff) {
  points[3].x = marks[3].x + 0.9;
  points[3].y = marks[3].y;
  EXPECT_EQ(Check().off, 0);
  points[3].x = marks[3].x + 1.1;
  EXPECT_EQ(Check().off, 1);
  // Farther than a quarter of the pitch it is no longer that mark's point.
  points[3].x = marks[3].x + 26;
  EXPECT_EQ(Check().off, 0);
  EXPECT_EQ(Check().lost, 1);
}

TEST(DescribeCheck, IsOneSentence) {
  EXPECT_EQ(DescribeCheck({80, 1, 0, 2}),
            "by the direct detection 1 label is wrong, 2 points lie more than 1 px off; try "
            "--precise, or look at an --overlay and correct the list with 'quorvex points'");
  EXPECT_EQ(DescribeCheck({80, 0, 3, 0}).find("by the direct detection 3 marks were lost;"), 0u);
}

}  // namespace
}  // namespace quorvex::tests
