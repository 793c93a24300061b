// The cases of the differential tests that a program links, by name.
#ifndef QUORVEX_TESTS_SUPPORT_DIFFERENTIAL_CASES_H_
#define QUORVEX_TESTS_SUPPORT_DIFFERENTIAL_CASES_H_

#include <map>
#include <string>

#include "tests/support/case_random.h"

namespace quorvex::tests {

// Returns what differs, or nothing.
using DifferentialCase = std::string (*)(CaseRandom& random);

inline std::map<std::string, DifferentialCase>& DifferentialCases() {
  static std::map<std::string, DifferentialCase> cases;
  return cases;
}

// Made before main: the cases of the sources around it.
struct DifferentialCaseEntry {
  DifferentialCaseEntry(const char* name, DifferentialCase compare) {
    DifferentialCases()[name] = compare;
  }
};

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_DIFFERENTIAL_CASES_H_
