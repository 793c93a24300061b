#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/run_program.h"
#include "tests/support/temporary_folder.h"
#include "tools/errors.h"
#include "tools/subcommands.h"

namespace quorvex::tests {

using namespace tools;
using testing::HasSubstr;
using testing::Not;

namespace {

class TargetCommand : public testing::Test {
 protected:
  // In a process of its own, so that its text is caught.
  int Run(const std::string& arguments) const {
    return RunProgram({QUORVEX_COMMAND,
                       SplitAtBlanks("target " + arguments),
                       folder.Path(),
                       {},
                       "",
                       "out",
                       "err"});
  }
  std::string Output() const { return TextOf("out"); }
  std::string Errors() const { return TextOf("err"); }
  std::string TextOf(const std::string& name) const {
    const Bytes bytes = ReadBytes(folder.Path(name));
    return std::string(bytes.begin(), bytes.end());
  }

  TemporaryFolder folder;
};

constexpr const char* kMarks = "--rows 9 --columns 9 --pitch 40 --arm 17 --stroke 0.66 ";
constexpr const char* kCamera = "--check --sensor 2048x2048 --focal 1080 ";

TEST_F(TargetCommand, WhatIsMissingIsNamed) {
  const std::string marks = kMarks;
  const struct {
    std::string arguments;
    std::string reason;
  } cases[] = {
      {marks + "--paper A2", "an output is needed: --output FILE.pdf or FILE.svg"},
      {marks + "--output a.pdf",
       "the paper is needed: --paper A4, A3, A2 or WIDTHxHEIGHT in millimetres"},
      {marks + "--paper A2 --output a.png", "a.png: a target is written as .pdf or .svg"},
      {marks + "--paper A4 --output a.pdf", "do not fit A4 (210 x 297 mm); they fit A2"},
      {marks + "--paper A2 --output a.pdf --focal 1000", "--focal is for --check"},
      {marks + "--check --sensor 2048x2048 --focal 1000",
       "--check needs the camera: --sensor, --focal and --distance"},
      {marks + "--check --sensor 2048 --focal 1000 --distance 200",
       "--sensor: '2048' is no picture size such as 2048x1536, pixels up to 32768"},
      {marks + "--check --sensor 2048x20.5 --focal 1000 --distance 200", "'2048x20.5'"},
      {marks + "--check --sensor 2048x2048 --focal -1 --distance 200",
       "the focal length must be above 0 and at most 1e+09, but is -1"},
      {marks + "--check --sensor 2048x2048 --focal 1000 --distance 200 --output a.pdf",
       "--check draws nothing; leave --output out"},
      {marks + "--check --sensor 2048x2048 --focal 1000 --distance 200 --model round",
       "--model: round is not one of equidistant, kannala-brandt, pinhole"},
      {marks + kCamera + "--distance 216 --k1 0.5", "--k1 is for --model kannala-brandt"},
      {marks + kCamera + "--distance 216 --model pinhole --k4 0.1",
       "--k4 is for --model kannala-brandt"},
      {"--rows 9 --columns 9 --pitch 40 --arm 17 --stroke 0.049 --paper A2 --output a.pdf",
       "strokes of 0.049 mm are too thin to print; take 0.05 mm or more"},
      {"--rows 9 --columns 9 --pitch 40 --arm 17", "--stroke is required"},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(Run(each.arguments), kExitBadInput) << each.arguments;
    EXPECT_THAT(Errors(), HasSubstr(each.reason)) << each.arguments;
    EXPECT_EQ(Output(), "") << each.arguments;
  }
  EXPECT_FALSE(folder.Has("a.pdf"));
  EXPECT_FALSE(folder.Has("a.png"));
}

TEST_F(TargetCommand, DrawsAndSaysHowToPrint) {
  if (std::string(QUORVEX_TARGET_DRAWING) == "none") {
    EXPECT_EQ(Run(std::string(kMarks) + "--paper A2 --output a.pdf"), kExitBadInput);
    EXPECT_THAT(Errors(), HasSubstr("this build of quorvex draws no targets"));
    return;
  }
  EXPECT_EQ(Run(std::string(kMarks) + "--paper A2 --output a.pdf"), kExitSuccess);
  EXPECT_EQ(Errors(),
            "a.pdf: 9 x 9 marks on A2 (420 x 594 mm); print at 100 %, then measure the rulers: 100 "
            "mm across, 100 mm down\n");
  EXPECT_EQ(TextOf("a.pdf").substr(0, 5), "%PDF-");
  EXPECT_EQ(Run(std::string(kMarks) + "--paper a2 --output A.SVG --quiet"), kExitSuccess);
  EXPECT_EQ(Errors(), "");
  EXPECT_THAT(TextOf("A.SVG"), HasSubstr("<svg "));
}

// The default pose before the camera of the preset fisheye.
TEST_F(TargetCommand, ChecksASetup) {
  EXPECT_EQ(Run(std::string(kMarks) + kCamera + "--distance 216"), kExitSuccess);
  EXPECT_THAT(Output(), HasSubstr("81 of 81 marks are in the picture\n"));
  EXPECT_THAT(Output(), HasSubstr("\nquorvex detect: will find the 81 marks, or all but a few\n"));
  EXPECT_THAT(Output(), HasSubstr("\nquorvex detect --precise: will find the 81 marks\n"));
}

TEST_F(TargetCommand, SaysWhatToChange) {
  EXPECT_EQ(Run(std::string(kMarks) + kCamera + "--distance 500"), kExitSuccess);
  EXPECT_THAT(Output(), HasSubstr("\nquorvex detect: is not sure to find the marks\n"));
  EXPECT_THAT(Output(), HasSubstr("more than 125 px are needed: take a pitch of"));
  EXPECT_THAT(Output(), HasSubstr("\nquorvex detect --precise: will find the 81 marks\n"));
  EXPECT_EQ(Run(std::string(kMarks) + kCamera + "--distance 9000"), kExitNothingFound);
  EXPECT_THAT(Output(), HasSubstr("\nquorvex detect --precise: is not sure to find the marks\n"));
}

TEST_F(TargetCommand, CoefficientsBelongToTheirModel) {
  const std::string setup = std::string(kMarks) + kCamera + "--distance 216 ";
  EXPECT_EQ(Run(setup + "--model kannala-brandt"), kExitSuccess) << Errors();
  const std::string without = Output();
  EXPECT_EQ(Run(setup + "--model kannala-brandt --k1 0.05"), kExitSuccess) << Errors();
  EXPECT_NE(Output(), without);
}

TEST_F(TargetCommand, LongLengthsAreWrittenOut) {
  EXPECT_EQ(Run(std::string(kMarks) + kCamera + "--distance 50000"), kExitNothingFound);
  EXPECT_THAT(Output(), HasSubstr("take a pitch of 5787 mm or more"));
  EXPECT_THAT(Output(), Not(HasSubstr("e+")));
}

TEST_F(TargetCommand, ThePaperIsTheBoard) {
  const std::string setup = std::string(kMarks) + kCamera + "--distance 216 ";
  EXPECT_EQ(Run(setup), kExitSuccess);
  EXPECT_THAT(Output(), HasSubstr("\nmargin           111\n"));
  EXPECT_EQ(Run(setup + "--paper 380x400"), kExitSuccess);
  EXPECT_THAT(Output(), HasSubstr("\nmargin            85\n"));
  EXPECT_EQ(Run(setup + "--paper 700x700"), kExitSuccess);
  EXPECT_THAT(Output(), HasSubstr("the board's edge is not all in the picture"));
}

}  // namespace
}  // namespace quorvex::tests
