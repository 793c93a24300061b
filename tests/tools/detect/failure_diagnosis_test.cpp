#include "tools/detect/failure_diagnosis.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/test_files.h"
#include "tools/pictures/picture_file.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::HasSubstr;

constexpr int kSide = 600;   // pixels
constexpr int kCross = 300;  // pixels; where the centre mark is

// The pictures of a detection that went well up to the grid; each test spoils one stage.
class FailureDiagnosis : public testing::Test {
 protected:
  FailureDiagnosis() {
    FillBox(mask, 50, 50, kSide - 50, kSide - 50, 255);
    FillBox(strokes, kCross - 40, kCross - 5, kCross + 40, kCross + 5, 255);
    FillBox(strokes, kCross - 5, kCross - 40, kCross + 5, kCross + 40, 255);
    FillBox(segments, 60, 95, 140, 105, 255);
    FillBox(segments, 95, 60, 105, 140, 255);
  }

  std::string Describe() const {
    Write(mask, "Mask.bmp");
    Write(strokes, "Eliminate.bmp");
    if (withLines) Write(segments, "Lines.bmp");
    if (withSegments) Write(segments, "LineSegment.bmp");
    return DescribeFailure(folder.Path(), false);
  }

  Picture mask = FlatPicture(kSide, kSide, 0);
  Picture strokes = FlatPicture(kSide, kSide, 0);
  Picture segments = FlatPicture(kSide, kSide, 0);
  bool withLines = true;
  bool withSegments = true;
  TemporaryFolder folder;

 private:
  void Write(const Picture& picture, const char* name) const {
    WritePictureFile(picture, folder.Path(name));
  }
};

TEST_F(FailureDiagnosis, NoPictures) {
  EXPECT_THAT(DescribeFailure(folder.Path(), false), HasSubstr("were not written"));
}

TEST_F(FailureDiagnosis, NoTarget) {
  mask = FlatPicture(kSide, kSide, 0);
  EXPECT_THAT(Describe(), HasSubstr("no bright target"));
}

TEST_F(FailureDiagnosis, ABrightSpotIsNoTarget) {
  mask = FlatPicture(kSide, kSide, 0);
  FillBox(mask, 290, 290, 310, 310, 255);
  EXPECT_THAT(Describe(), HasSubstr("no bright target"));
}

TEST_F(FailureDiagnosis, ABlankBrightPicture) {
  mask = FlatPicture(kSide, kSide, 0);
  FillBox(mask, 1, 1, kSide - 1, kSide - 1, 255);
  strokes = FlatPicture(kSide, kSide, 0);
  EXPECT_THAT(Describe(), HasSubstr("the whole picture is as bright as a target"));
}

TEST_F(FailureDiagnosis, ATargetWithoutMarks) {
  strokes = FlatPicture(kSide, kSide, 0);
  EXPECT_THAT(Describe(), HasSubstr("the target was found but no marks on it"));
}

TEST_F(FailureDiagnosis, NoMarkNearTheCentre) {
  strokes = FlatPicture(kSide, kSide, 0);
  FillBox(strokes, 10, 10, 40, 20, 255);
  EXPECT_THAT(Describe(), HasSubstr("no mark lies within 250 pixels"));
}

TEST_F(FailureDiagnosis, NoLinesAtTheCentre) {
  withLines = withSegments = false;
  EXPECT_THAT(Describe(), HasSubstr("no straight strokes"));
}

TEST_F(FailureDiagnosis, NoSegmentsAtTheCentre) {
  withSegments = false;
  EXPECT_THAT(Describe(), HasSubstr("no straight strokes"));
}

TEST_F(FailureDiagnosis, EmptySegmentsAtTheCentre) {
  segments = FlatPicture(kSide, kSide, 0);
  EXPECT_THAT(Describe(), HasSubstr("no straight strokes"));
}

TEST_F(FailureDiagnosis, OneStrokeAtTheCentre) {
  segments = FlatPicture(kSide, kSide, 0);
  for (int i = 0; i < 80; ++i) FillBox(segments, 60 + i, 60 + i, 70 + i, 62 + i, 255);
  EXPECT_THAT(Describe(), HasSubstr("only one stroke"));
}

TEST_F(FailureDiagnosis, AMarkWithoutAGrid) {
  EXPECT_THAT(Describe(), HasSubstr("no grid around it"));
  EXPECT_THAT(Describe(), HasSubstr("--row-steps"));
}

TEST_F(FailureDiagnosis, AGridWithoutPoints) {
  EXPECT_THAT(DescribeFailure(folder.Path(), true),
              HasSubstr("a grid was found, but none of its points"));
}

}  // namespace
}  // namespace quorvex::tests
