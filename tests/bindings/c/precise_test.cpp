#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "interface/quorvex_c.h"
#include "interface/quorvex_precise.h"
#include "tests/bindings/c/failing_new.h"
#include "tests/support/small_target.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

struct Free {
  void operator()(quorvex_marks* marks) const { quorvex_marks_free(marks); }
};
using Marks = std::unique_ptr<quorvex_marks, Free>;

class CPreciseTest : public ::testing::Test {
 protected:
  static const tools::Picture& SmallPicture() {
    static const tools::Picture picture = RenderSmallTarget().picture;
    return picture;
  }

  static quorvex_image SmallImage() {
    const tools::Picture& picture = SmallPicture();
    return {picture.pixels.data(), picture.width, picture.height, picture.width};
  }

  quorvex_error Detect(const quorvex_image& image, const quorvex_precise_options* options) {
    quorvex_marks* found = nullptr;
    const quorvex_error error = quorvex_detect_precise(&image, options, &found);
    marks.reset(found);
    return error;
  }

  Marks marks;

 private:
  TemporaryDirectory directory_;
};

TEST_F(CPreciseTest, GivesTheDetectorsMarksAndFacts) {
  quorvex_precise_options options;
  quorvex_precise_options_init(&options);
  options.predict_missing = 1;
  ASSERT_EQ(Detect(SmallImage(), &options), QUORVEX_OK) << quorvex_error_detail();

  const quorvex_image image = SmallImage();
  precise::Options same;
  same.predictsMissing = true;
  const precise::Result expected =
      precise::Detect({image.pixels, image.width, image.height, image.stride}, same);
  ASSERT_EQ(quorvex_marks_count(marks.get()), expected.marks.size());
  ASSERT_EQ(expected.marks.size(), 20u);
  for (std::size_t i = 0; i < expected.marks.size(); ++i) {
    quorvex_mark mark;
    ASSERT_EQ(quorvex_marks_get(marks.get(), i, &mark), QUORVEX_OK);
    const precise::Mark& wanted = expected.marks[i];
    EXPECT_EQ(mark.id, static_cast<int>(i) + 1);
    EXPECT_EQ(mark.row, wanted.row);
    EXPECT_EQ(mark.col, wanted.column);
    EXPECT_EQ(mark.x, wanted.x);
    EXPECT_EQ(mark.y, wanted.y);
    EXPECT_EQ(mark.cxx, wanted.cxx);
    EXPECT_EQ(mark.cxy, wanted.cxy);
    EXPECT_EQ(mark.cyy, wanted.cyy);
    EXPECT_EQ(mark.seen_arms[0] != 0, wanted.seenArms[0]);
    EXPECT_EQ(mark.seen_arms[3] != 0, wanted.seenArms[3]);
    const bool isMissing = mark.row == 1 && mark.col == 2;
    EXPECT_EQ(mark.verdict, isMissing ? QUORVEX_MARK_PREDICTED : QUORVEX_MARK_MEASURED);
  }
  quorvex_facts facts;
  ASSERT_EQ(quorvex_marks_facts(marks.get(), &facts), QUORVEX_OK);
  EXPECT_EQ(facts.noise, expected.facts.noise);
  EXPECT_EQ(facts.pitch, expected.facts.pitch);
  EXPECT_EQ(facts.has_light_marks, 0);
  EXPECT_EQ(facts.focal_length, expected.facts.camera.focalLength);
  EXPECT_EQ(facts.rotation[8], expected.facts.camera.rotation[8]);
  EXPECT_EQ(facts.translation[2], expected.facts.camera.translation[2]);
  EXPECT_TRUE(std::filesystem::is_empty("."));
}

TEST_F(CPreciseTest, LabelsAreTheBoardsWhereItIsKnown) {
  const quorvex_precise_options options = {QUORVEX_MARKS_DARK, 0, 0, kSmallTargetRows,
                                           kSmallTargetColumns};
  ASSERT_EQ(Detect(SmallImage(), &options), QUORVEX_OK) << quorvex_error_detail();
  quorvex_facts facts;
  ASSERT_EQ(quorvex_marks_facts(marks.get(), &facts), QUORVEX_OK);
  EXPECT_EQ(facts.has_fixed_rows, 1);
  EXPECT_EQ(facts.has_fixed_columns, 1);
  const quorvex_precise_options tooSmall = {QUORVEX_MARKS_DARK, 0, 0, 3, 3};
  EXPECT_EQ(Detect(SmallImage(), &tooSmall), QUORVEX_ERROR_NO_TARGET);
  EXPECT_EQ(std::string(quorvex_error_detail()).rfind("size: ", 0), 0u) << quorvex_error_detail();
}

TEST_F(CPreciseTest, APictureWithoutATargetSaysWhy) {
  const std::vector<unsigned char> grey(64 * 64, 128);
  const quorvex_image image = {grey.data(), 64, 64, 64};
  EXPECT_EQ(Detect(image, nullptr), QUORVEX_ERROR_NO_TARGET);
  EXPECT_EQ(marks, nullptr);
  EXPECT_EQ(std::string(quorvex_error_detail()).rfind("seed: ", 0), 0u) << quorvex_error_detail();
}

TEST_F(CPreciseTest, WrongArgumentsAreNamed) {
  quorvex_image image = SmallImage();
  EXPECT_EQ(quorvex_detect_precise(nullptr, nullptr, nullptr), QUORVEX_ERROR_ARGUMENT);
  EXPECT_EQ(quorvex_detect_precise(&image, nullptr, nullptr), QUORVEX_ERROR_ARGUMENT);
  EXPECT_STREQ(quorvex_error_detail(), "marks: expected a pointer, given NULL");
  EXPECT_EQ(quorvex_marks_count(nullptr), 0u);
  quorvex_precise_options_init(nullptr);
  quorvex_marks_free(nullptr);
  image.height = 15;
  EXPECT_EQ(Detect(image, nullptr), QUORVEX_ERROR_SIZE);
  EXPECT_STREQ(quorvex_error_detail(), "image: expected 16 x 16 pixels or more, given 960 x 15");
}

TEST_F(CPreciseTest, OptionsHaveARange) {
  for (const quorvex_precise_options& options :
       {quorvex_precise_options{3, 0, 0, 0, 0}, quorvex_precise_options{-1, 0, 0, 0, 0},
        quorvex_precise_options{0, 2, 0, 0, 0}, quorvex_precise_options{0, 0, 2, 0, 0},
        quorvex_precise_options{0, 0, 0, 1001, 9}, quorvex_precise_options{0, 0, 0, 9, 0}}) {
    EXPECT_EQ(Detect(SmallImage(), &options), QUORVEX_ERROR_ARGUMENT);
  }
  EXPECT_STREQ(quorvex_error_detail(), "options->board_columns: expected 1 to 1000, given 0");
}

TEST_F(CPreciseTest, RefinesPointsOrSaysWhyNot) {
  const std::vector<tools::TruthMark> truth = RenderSmallTarget().marks;
  const quorvex_position positions[] = {{truth[0].x + 2.0, truth[0].y - 2.0}, {5.0, 5.0}};
  quorvex_refined_point refined[2];
  const quorvex_image image = SmallImage();
  ASSERT_EQ(quorvex_refine_marks(&image, positions, 2, nullptr, refined), QUORVEX_OK);
  EXPECT_EQ(refined[0].is_refined, 1);
  EXPECT_NEAR(refined[0].x, truth[0].x, 0.05);
  EXPECT_NEAR(refined[0].y, truth[0].y, 0.05);
  EXPECT_GT(refined[0].cxx, 0.0);
  EXPECT_STREQ(refined[0].reason, "");
  EXPECT_EQ(refined[1].is_refined, 0);
  EXPECT_EQ(refined[1].x, 5.0);
  EXPECT_STREQ(refined[1].reason, "no strokes cross within 4 px");
  EXPECT_EQ(quorvex_refine_marks(&image, nullptr, 0, nullptr, nullptr), QUORVEX_OK);
  EXPECT_EQ(quorvex_refine_marks(&image, nullptr, 1, nullptr, refined), QUORVEX_ERROR_ARGUMENT);
  EXPECT_EQ(quorvex_refine_marks(&image, positions, 1, nullptr, nullptr), QUORVEX_ERROR_ARGUMENT);
  EXPECT_EQ(quorvex_refine_marks(nullptr, positions, 1, nullptr, refined), QUORVEX_ERROR_ARGUMENT);
}

TEST_F(CPreciseTest, MemoryThatEndsGivesNoObject) {
  const quorvex_image image = SmallImage();
  int failures = 0;
  bool hasHappened = true;
  for (int n = 1; hasHappened; n += 1 + 2 * n) {
    quorvex_error error = QUORVEX_OK;
    {
      const FailNthNew fault(n);
      error = Detect(image, nullptr);
      hasHappened = fault.HasHappened();
    }
    if (hasHappened) {
      EXPECT_EQ(error, QUORVEX_ERROR_MEMORY) << n;
      EXPECT_EQ(marks, nullptr);
      ++failures;
    } else {
      EXPECT_EQ(error, QUORVEX_OK);
    }
  }
  EXPECT_GE(failures, 5);
}

}  // namespace
}  // namespace quorvex::tests
