#include "benchmarks/precision/detection_score.h"

#include <gtest/gtest.h>

namespace quorvex::tests {

using namespace benchmarks;

namespace {

std::vector<SceneMark> Grid() {
  std::vector<SceneMark> marks;
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 4; ++column) {
      marks.push_back({row, column, 100.0 + 50 * column, 80.0 + 50 * row, true});
    }
  }
  return marks;
}

Detection Exact(const std::vector<SceneMark>& marks) {
  Detection detection;
  for (const SceneMark& mark : marks) {
    detection.marks.push_back({mark.row, mark.column, mark.x, mark.y, 0.01, 0, 0.01, false});
  }
  return detection;
}

TEST(DetectionScore, ExactPointsAreAllFound) {
  const Score score = ScoreDetection(Exact(Grid()), Grid());
  EXPECT_EQ(score.visible, 12);
  EXPECT_EQ(score.found, 12);
  EXPECT_EQ(score.wrongLabels, 0);
  EXPECT_EQ(score.falsePoints, 0);
  EXPECT_EQ(RootMeanSquare(score.errors), 0);
  EXPECT_TRUE(score.failures.empty());
}

TEST(DetectionScore, ATurnAndAShiftOfAllLabelsAreRight) {
  Detection turned = Exact(Grid());
  for (FoundMark& mark : turned.marks) {
    const int row = mark.row;
    mark.row = mark.column + 5;
    mark.column = 7 - row;
  }
  EXPECT_EQ(ScoreDetection(turned, Grid()).wrongLabels, 0);
}

TEST(DetectionScore, AMirrorIsNot) {
  Detection mirrored = Exact(Grid());
  for (FoundMark& mark : mirrored.marks) {
    mark.column = -mark.column;
  }
  EXPECT_GT(ScoreDetection(mirrored, Grid()).wrongLabels, 0);
}

TEST(DetectionScore, OneWrongLabelIsCounted) {
  Detection detection = Exact(Grid());
  detection.marks[5].row += 1;
  const Score score = ScoreDetection(detection, Grid());
  EXPECT_EQ(score.wrongLabels, 1);
  EXPECT_EQ(score.found, 11);
  EXPECT_EQ(score.failures.size(), 1u);
}

TEST(DetectionScore, StraysAndSecondPointsAreFalse) {
  Detection detection = Exact(Grid());
  detection.marks.push_back({0, 5, 300, 300, 0.01, 0, 0.01, true});
  detection.marks.push_back({0, 0, 100.5, 80, 0.01, 0, 0.01, false});
  const Score score = ScoreDetection(detection, Grid());
  EXPECT_EQ(score.falsePoints, 2);
  EXPECT_EQ(score.doubtful, 1);
  EXPECT_EQ(score.found, 12);
}

TEST(DetectionScore, HiddenMarksMayBeFoundOrNot) {
  std::vector<SceneMark> marks = Grid();
  Detection detection = Exact(marks);
  marks[0].isVisible = marks[1].isVisible = false;
  detection.marks.erase(detection.marks.begin());
  const Score score = ScoreDetection(detection, marks);
  EXPECT_EQ(score.visible, 10);
  EXPECT_EQ(score.found, 10);
  EXPECT_EQ(score.falsePoints, 0);
  EXPECT_TRUE(score.failures.empty());
}

TEST(DetectionScore, ErrorsAreMeasuredByTheirCovariances) {
  Detection detection = Exact(Grid());
  detection.marks[3].x += 0.2;  // two sigmas
  detection.marks[7].y += 1;    // ten
  const Score score = ScoreDetection(detection, Grid());
  EXPECT_NEAR(Mean(score.normalisedErrors), (0.04 + 1) / 0.01 / 2 / 12, 1e-9);
  EXPECT_NEAR(Quantile(score.errors, 1), 1, 1e-9);
  EXPECT_EQ(score.failures.size(), 1u);
}

TEST(DetectionScore, CorrelatedErrorsAreJudgedAsSuch) {
  Detection detection = Exact(Grid());
  detection.marks.resize(1);
  detection.marks[0].covarianceXY = 0.009;
  detection.marks[0].x += 0.1;
  detection.marks[0].y += 0.1;
  const double along = ScoreDetection(detection, Grid()).normalisedErrors[0];
  detection.marks[0].y -= 0.2;
  const double across = ScoreDetection(detection, Grid()).normalisedErrors[0];
  EXPECT_NEAR(along, 0.02 / 0.019 / 2, 1e-9);
  EXPECT_NEAR(across, 0.02 / 0.001 / 2, 1e-9);
}

TEST(DetectionScore, NothingFoundIsNothing) {
  const Score score = ScoreDetection({}, Grid());
  EXPECT_EQ(score.visible, 12);
  EXPECT_EQ(score.found, 0);
  EXPECT_EQ(score.failures.size(), 12u);
}

}  // namespace
}  // namespace quorvex::tests
