// The fuzz target on inputs that seeds settle, for builds without an engine.
#include "fuzz/precise_input.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string>
#include <vector>

#include "tests/support/differential.h"

namespace quorvex::fuzz {
namespace {

using tests::CaseRandom;
using tests::ExpectSameOnCases;

constexpr int kInputs = 1000;
constexpr int kMostBytes = 400;  // a board with faults, strokes and points takes some 200

std::vector<std::uint8_t> RandomBytes(CaseRandom& random) {
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(random.Between(0, kMostBytes)));
  for (std::uint8_t& byte : bytes) {
    byte = static_cast<std::uint8_t>(random.Below(256));
  }
  return bytes;
}

TEST(PreciseInput, EveryResultIsSound) {
  std::set<std::string> stages;
  std::size_t most = 0;
  int refined = 0;
  ExpectSameOnCases(kInputs, [&](CaseRandom& random) {
    const std::vector<std::uint8_t> bytes = RandomBytes(random);
    const PreciseOutcome outcome = RunPreciseInput(bytes.data(), bytes.size());
    stages.insert(outcome.result.stage);
    most = std::max(most, outcome.result.marks.size());
    refined += outcome.refined;
    return outcome.wrong;
  });
  // The inputs lead through the whole detection; one alone need not.
  if (std::getenv("QUORVEX_CASE") == nullptr) {
    for (const char* stage : {"", "input", "seed"}) {
      EXPECT_EQ(stages.count(stage), 1U) << stage;
    }
    EXPECT_GE(most, 12U);
    EXPECT_GE(refined, 5);
  }
}

TEST(PreciseInput, AnEmptyInputIsOneToo) { EXPECT_EQ(RunPreciseInput(nullptr, 0).wrong, ""); }

}  // namespace
}  // namespace quorvex::fuzz
