#include "tools/detect/output_options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tools/errors.h"

namespace quorvex::tests {

using namespace tools;

namespace {

DetectOptions Options(const char* output) {
  DetectOptions options;
  options.images = {"a.png", "b.png"};
  options.output = output;
  return options;
}

TEST(OutputOptions, TheNameChoosesTheFormat) {
  EXPECT_EQ(FormatOf(Options("")), OutputFormat::kCsv);
  EXPECT_EQ(FormatOf(Options("a.JSON")), OutputFormat::kJson);
  EXPECT_EQ(FormatOf(Options("a.txt")), OutputFormat::kText);
  EXPECT_EQ(FormatOf(Options("a.vnl")), OutputFormat::kVnl);
  EXPECT_EQ(FormatOf(Options("a.yml")), OutputFormat::kOpencv);
  EXPECT_EQ(FormatOf(Options("a.yaml")), OutputFormat::kOpencv);
}

TEST(OutputOptions, RefuseWhatDoesNotGoTogether) {
  DetectOptions options = Options("a.yml");
  EXPECT_THROW(CheckOutputOptions(options), InputError);
  options.pitch = 30;
  CheckOutputOptions(options);
  options.output = "a.csv";
  EXPECT_THROW(CheckOutputOptions(options), InputError);
  options.pitch.reset();
  options.resumes = true;
  CheckOutputOptions(options);
  options.images.emplace_back("a.png");
  EXPECT_THROW(CheckOutputOptions(options), InputError);
  options.images.pop_back();
  options.output = "-";
  EXPECT_THROW(CheckOutputOptions(options), InputError);
  options.output = "a.json";
  EXPECT_THROW(CheckOutputOptions(options), InputError);
}

TEST(OutputOptions, ThePitchIsALength) {
  DetectOptions options = Options("a.yml");
  constexpr double kInfinite = std::numeric_limits<double>::infinity();
  for (const double pitch : {0.0, -1.0, std::nan(""), kInfinite, -kInfinite}) {
    options.pitch = pitch;
    try {
      CheckOutputOptions(options);
      ADD_FAILURE() << pitch;
    } catch (const InputError& error) {
      EXPECT_STREQ(error.what(), "--pitch needs a finite number of millimetres above 0");
    }
  }
}

TEST(OutputOptions, TheBoardIsWhatTheOptionsSay) {
  DetectOptions options = Options("a.vnl");
  EXPECT_FALSE(OutputSettingsOf(options).board);
  options.parameters.renumber = GridSize{4, 5};
  EXPECT_EQ(OutputSettingsOf(options).board->columns, 5);
  options.parameters.rearrange = CameraSide::kLeft;
  EXPECT_FALSE(OutputSettingsOf(options).board);
  options.expected = GridSize{7, 8};
  EXPECT_EQ(OutputSettingsOf(options).board->rows, 7);
  options.isPrecise = true;
  options.preciseOptions.boardRows = 9;
  options.preciseOptions.boardColumns = 10;
  EXPECT_EQ(OutputSettingsOf(options).board->columns, 10);
}

TEST(OutputOptions, DescribeWhatChangesThePoints) {
  DetectOptions options = Options("a.csv");
  options.parameters.pad = false;
  options.parallel = 5;
  EXPECT_EQ(DescribeOptions(options), "--row-span 20 --column-span 20 --row-steps 300 --no-pad");
  options.isPrecise = true;
  options.parameters.levels = GreyLevels{1, 2};
  options.expected = GridSize{7, 8};
  options.preciseOptions.predictsMissing = true;
  EXPECT_EQ(DescribeOptions(options), "--precise --predict --levels 1,2 --expect 7x8");
}

}  // namespace
}  // namespace quorvex::tests
