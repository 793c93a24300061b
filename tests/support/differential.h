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
#include <initializer_list>
#include <iterator>
#include <random>
#include <string>

namespace quorvex::tests {

// Sanitizers make a case some ten times slower; with them one case of that many is run.
#if !defined(QUORVEX_CASES_DIVISOR)
#define QUORVEX_CASES_DIVISOR 1
#endif

constexpr int kCases = 10'000;

// The standard settles the numbers of mt19937, but not those of its distributions.
class CaseRandom {
 public:
  explicit CaseRandom(std::uint32_t seed) : engine_(seed) {}

  std::uint32_t Next() { return static_cast<std::uint32_t>(engine_()); }

  // 0 to count - 1.
  int Below(int count) { return static_cast<int>(Next() % static_cast<std::uint32_t>(count)); }

  // Both ends inclusive.
  int Between(int first, int last) { return first + Below(last - first + 1); }

  bool OneIn(int count) { return Below(count) == 0; }

  template <typename T>
  T OneOf(std::initializer_list<T> values) {
    return *std::next(values.begin(), Below(static_cast<int>(values.size())));
  }

  // A multiple of 2^-10, both ends inclusive.
  float Fraction(int first, int last) {
    return static_cast<float>(Between(first * 1024, last * 1024)) / 1024.0f;
  }

 private:
  std::mt19937 engine_;
};

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

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_DIFFERENTIAL_H_
