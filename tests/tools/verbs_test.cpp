#include "tools/verbs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/command_test.h"
#include "tools/errors.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

TEST(WithHelpAsOption, MovesHelpToTheEnd) {
  EXPECT_THAT(WithHelpAsOption({"help"}), ElementsAre("--help"));
  EXPECT_THAT(WithHelpAsOption({"help", "points", "add"}), ElementsAre("points", "add", "--help"));
  EXPECT_THAT(WithHelpAsOption({"points", "help"}), ElementsAre("points", "help"));
  EXPECT_TRUE(WithHelpAsOption({}).empty());
}

using Verbs = CommandTest;

TEST_F(Verbs, TheNearestOneIsSuggested) {
  EXPECT_EQ(Run("detct a.bmp"), 2);
  EXPECT_EQ(errors, "quorvex: there is no verb 'detct'; did you mean detect?\n");
  EXPECT_EQ(Run("Render"), 2);
  EXPECT_EQ(errors, "quorvex: there is no verb 'Render'; did you mean render?\n");
  EXPECT_EQ(Run("points renumbr p.csv"), 2);
  EXPECT_EQ(errors, "quorvex: there is no verb 'renumbr'; did you mean renumber?\n");
  EXPECT_EQ(Run("help point"), 2);
  EXPECT_EQ(errors, "quorvex: there is no verb 'point'; did you mean points?\n");
}

TEST_F(Verbs, AllAreListedWhenNoneIsNear) {
  EXPECT_EQ(Run("a.bmp"), 2);
  EXPECT_EQ(
      errors,
      "quorvex: there is no verb 'a.bmp'; there are detect, points, render, compare, target\n");
}

TEST_F(Verbs, HelpIsTheHelpOption) {
  EXPECT_EQ(Run("help"), 0);
  EXPECT_THAT(output, HasSubstr("quorvex help VERB"));
  for (const char* verb : {"detect", "points", "points add", "compare", "render"}) {
    EXPECT_EQ(Run(std::string(verb) + " --help"), 0);
    const std::string byOption = output;
    EXPECT_EQ(Run(std::string("help ") + verb), 0);
    EXPECT_EQ(output, byOption);
  }
}

TEST_F(Verbs, VersionHasAShortName) {
  EXPECT_EQ(Run("-v"), 0);
  EXPECT_THAT(output, testing::StartsWith("quorvex "));
  const std::string version = output;
  EXPECT_EQ(Run("--version"), 0);
  EXPECT_EQ(output, version);
}

TEST_F(Verbs, OneIsNeeded) {
  EXPECT_EQ(Run(""), 2);
  EXPECT_NE(errors, "");
}

}  // namespace
}  // namespace quorvex::tests
