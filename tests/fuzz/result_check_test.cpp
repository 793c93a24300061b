// The check of results notices what it is for.
#include "fuzz/result_check.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace quorvex::fuzz {
namespace {

using precise::Mark;
using precise::Point;
using precise::RefinedPoint;
using precise::Result;
using precise::Verdict;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

class ResultCheck : public testing::Test {
 protected:
  ResultCheck() {
    image.width = image.height = 100;
    for (int i = 0; i < 4; ++i) {
      Mark mark;
      mark.row = i / 2;
      mark.column = i % 2;
      mark.x = mark.y = 50.0;
      mark.cxx = mark.cyy = 1e-4;
      mark.seenArms.fill(true);
      result.marks.push_back(mark);
    }
  }

  std::string Wrong() const { return WrongResult(image, options, result, true); }

  precise::ImageView image;
  precise::Options options;
  Result result;
};

TEST_F(ResultCheck, MarksThatAreSoundPass) { EXPECT_EQ(Wrong(), ""); }

TEST_F(ResultCheck, PlacesAreFiniteAndOnThePicture) {
  result.marks[2].x = kNan;
  EXPECT_NE(Wrong(), "");
  result.marks[2].x = -0.6;
  EXPECT_NE(Wrong(), "");
  result.marks[2].x = 99.4;
  EXPECT_EQ(Wrong(), "");
}

TEST_F(ResultCheck, CovariancesArePositiveDefinite) {
  result.marks[1].cxy = 1e-4;
  EXPECT_NE(Wrong(), "");
  result.marks[1].cxy = kNan;
  EXPECT_NE(Wrong(), "");
  result.marks[1].cxy = 0.9e-4;
  EXPECT_EQ(Wrong(), "");
}

TEST_F(ResultCheck, LabelsAreUniqueAndBeginWithZero) {
  result.marks[1].column = 0;
  EXPECT_NE(Wrong(), "");
  for (Mark& mark : result.marks) {
    mark.column = 1 + mark.row;
  }
  EXPECT_NE(Wrong(), "");
}

TEST_F(ResultCheck, PredictedMarksAreThoseThatWereAskedFor) {
  result.marks[3].verdict = Verdict::kPredicted;
  result.marks[3].seenArms.fill(false);
  EXPECT_NE(Wrong(), "");
  options.predictsMissing = true;
  EXPECT_EQ(Wrong(), "");
}

TEST_F(ResultCheck, FactsAreFinite) {
  result.facts.camera.k2 = kNan;
  EXPECT_NE(Wrong(), "");
}

TEST_F(ResultCheck, ThereAreMarksOrAReason) {
  result.reason = "none";
  EXPECT_NE(Wrong(), "");
  result.marks.clear();
  EXPECT_NE(Wrong(), "");  // no stage
  result.stage = "seed";
  EXPECT_EQ(Wrong(), "");
  EXPECT_NE(WrongResult(image, options, result, false), "");
  result.stage = "input";
  EXPECT_NE(Wrong(), "");
  EXPECT_EQ(WrongResult(image, options, result, false), "");
}

TEST_F(ResultCheck, APointIsRefinedOrStaysAsItWas) {
  const std::vector<Point> points = {{10.0, 20.0}};
  RefinedPoint refined;
  refined.x = 10.0;
  refined.y = 20.0;
  const auto wrong = [&] { return WrongRefinement(image, points, {refined}, true); };
  EXPECT_NE(wrong(), "");
  refined.reason = "none";
  EXPECT_EQ(wrong(), "");
  refined.x = 10.5;
  EXPECT_NE(wrong(), "");
  refined.isRefined = true;
  refined.reason = "";
  EXPECT_NE(wrong(), "");  // no covariance
  refined.cxx = refined.cyy = 1e-4;
  EXPECT_EQ(wrong(), "");
  refined.x = 30.0;
  EXPECT_NE(wrong(), "");
  EXPECT_NE(WrongRefinement(image, points, {}, true), "");
}

}  // namespace
}  // namespace quorvex::fuzz
