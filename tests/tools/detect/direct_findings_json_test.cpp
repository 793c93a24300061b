#include "tools/detect/direct_findings_json.h"

#include <gtest/gtest.h>

namespace quorvex::tests {

using namespace tools;

namespace {

TEST(DirectFindingsJson, SurvivesTheWay) {
  DirectFindings findings;
  precise::Mark mark;
  mark.row = 2;
  mark.column = 3;
  mark.x = 0.1;
  mark.y = 1.0 / 3;
  mark.verdict = precise::Verdict::kDoubtful;
  findings.marks = {mark, precise::Mark()};
  findings.facts.noise = 1.5;
  findings.facts.strokeWidth = 2.5;
  findings.facts.pitch = 160;
  findings.facts.blur = 0.7;
  findings.facts.armLength = 0.4;
  findings.facts.hasLightMarks = true;
  findings.facts.camera.rotation = {1, 2, 3, 4, 5, 6, 7, 8, 9};
  findings.facts.camera.translation = {10, 11, 12};
  findings.facts.camera.focalLength = 1000.25;
  findings.facts.camera.k1 = -0.1;
  findings.facts.camera.k2 = 0.02;
  findings.facts.camera.k3 = -0.003;
  findings.facts.camera.centreX = 511.5;
  findings.facts.camera.centreY = 383.5;
  findings.facts.camera.aspect = 0.9;
  findings.facts.camera.residual = 0.004;
  const DirectFindings read = DirectFindingsOf(nlohmann::json::parse(ToJson(findings).dump()));
  ASSERT_EQ(read.marks.size(), 2u);
  EXPECT_EQ(read.marks[0].row, 2);
  EXPECT_EQ(read.marks[0].column, 3);
  EXPECT_EQ(read.marks[0].x, 0.1);
  EXPECT_EQ(read.marks[0].y, 1.0 / 3);
  EXPECT_EQ(read.marks[0].verdict, precise::Verdict::kDoubtful);
  EXPECT_EQ(read.facts.noise, 1.5);
  EXPECT_EQ(read.facts.strokeWidth, 2.5);
  EXPECT_EQ(read.facts.pitch, 160);
  EXPECT_EQ(read.facts.blur, 0.7);
  EXPECT_EQ(read.facts.armLength, 0.4);
  EXPECT_TRUE(read.facts.hasLightMarks);
  EXPECT_EQ(read.facts.camera.rotation, findings.facts.camera.rotation);
  EXPECT_EQ(read.facts.camera.translation, findings.facts.camera.translation);
  EXPECT_EQ(read.facts.camera.focalLength, 1000.25);
  EXPECT_EQ(read.facts.camera.k1, -0.1);
  EXPECT_EQ(read.facts.camera.k2, 0.02);
  EXPECT_EQ(read.facts.camera.k3, -0.003);
  EXPECT_EQ(read.facts.camera.centreX, 511.5);
  EXPECT_EQ(read.facts.camera.centreY, 383.5);
  EXPECT_EQ(read.facts.camera.aspect, 0.9);
  EXPECT_EQ(read.facts.camera.residual, 0.004);
}

TEST(DisagreementsJson, SurviveTheWay) {
  const ListedPoint mark{-1, 1, 2, 3.5, 4.5};
  const ListedPoint listed{-1, 1, 3, 3.75, 4.25};
  const std::vector<Disagreement> read = DisagreementsOf(nlohmann::json::parse(
      ToJson(std::vector<Disagreement>{{DisagreementKind::kOff, mark, listed},
                                       {DisagreementKind::kLost, mark, std::nullopt}})
          .dump()));
  ASSERT_EQ(read.size(), 2u);
  EXPECT_EQ(read[0].kind, DisagreementKind::kOff);
  ASSERT_TRUE(read[0].mark && read[0].listed);
  EXPECT_EQ(read[0].mark->col, 2);
  EXPECT_EQ(read[0].listed->row, 1);
  EXPECT_EQ(read[0].listed->col, 3);
  EXPECT_EQ(read[0].listed->x, 3.75);
  EXPECT_EQ(read[0].listed->y, 4.25);
  EXPECT_EQ(read[1].kind, DisagreementKind::kLost);
  EXPECT_FALSE(read[1].listed);
}

TEST(DirectFindingsJson, RefusesAnythingElse) {
  EXPECT_THROW(DirectFindingsOf(nlohmann::json::object()), nlohmann::json::exception);
  EXPECT_THROW(DisagreementsOf(nlohmann::json{1}), nlohmann::json::exception);
}

}  // namespace
}  // namespace quorvex::tests
