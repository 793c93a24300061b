// Differential tests: a stage of the library and its plain form (tests/reference/) on the same
// random inputs. A case is a seed: everything in it is drawn from numbers that the seed settles, on
// every system and with every compiler.
//
// QUORVEX_CASE=1234 in the environment runs the case of that seed alone.
#ifndef QUORVEX_TESTS_SUPPORT_DIFFERENTIAL_H_
#define QUORVEX_TESTS_SUPPORT_DIFFERENTIAL_H_

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <string>

#include "tests/support/case_random.h"
#include "tests/support/differential_cases.h"

namespace quorvex::tests {

// Sanitizers make a case some ten times slower; with them one case of that many is run.
#if !defined(QUORVEX_CASES_DIVISOR)
#define QUORVEX_CASES_DIVISOR 1
#endif

constexpr int kCases = 10'000;

// Calls `compare(random)`, which returns what differs, or nothing, for every seed from 1 on and
// stops at the first difference.
template <typename Compare>
void ExpectSameOnCases(int cases, Compare compare) {
  std::uint32_t first = 1;
  std::uint32_t last = static_cast<std::uint32_t>(cases / QUORVEX_CASES_DIVISOR);
  if (const char* seed = std::getenv("QUORVEX_CASE")) {
    first = last = static_cast<std::uint32_t>(std::strtoul(seed, nullptr, 10));
  }
  for (std::uint32_t seed = first; seed <= last; ++seed) {
    CaseRandom random(seed);
    const std::string difference = compare(random);
    if (!difference.empty()) {
      FAIL() << "seed " << seed << ": " << difference;
    }
  }
}

// A test of a function of this scope, `std::string compare(CaseRandom&)`, on `cases` cases. The
// fuzz targets that link the test run single cases of it, too.
#define DIFFERENTIAL_TEST(suite, compare, cases)                                               \
  TEST(suite, compare) { ::quorvex::tests::ExpectSameOnCases(cases, compare); }                \
  const ::quorvex::tests::DifferentialCaseEntry suite##_##compare##_Entry(#suite "." #compare, \
                                                                          compare)

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_DIFFERENTIAL_H_
